#include "list/LastRemoval.h"

#include <algorithm>
#include <utility>

namespace tamsel {

void LastRemoval::archiving(const Exercise& exercise) {
    m_removal.reset();
    const qsizetype position = m_singletons.exercises.items().indexOf(exercise);
    if (position < 0)
        return;
    Removal removal{true, exercise, position, {}};
    const QList<PracticeSession>& log = m_singletons.dailyLog.practiceSessions();
    for (qsizetype i = 0; i < log.size(); ++i) {
        if (log.at(i).exercise == exercise)
            removal.sessions += {i, log.at(i)};
    }
    m_removal = std::move(removal);
}

void LastRemoval::deleting(const Exercise& exercise) {
    m_removal.reset();
    const qsizetype position = m_singletons.exercises.archivedItems().indexOf(exercise);
    if (position >= 0)
        m_removal = Removal{false, exercise, position, {}};
}

QString LastRemoval::text() const {
    if (!m_removal)
        return {};
    return (m_removal->wasArchiving ? QStringLiteral("Archived “%1”") : QStringLiteral("Deleted “%1”"))
        .arg(m_removal->exercise.name);
}

void LastRemoval::takeBack() {
    const auto removal = std::exchange(m_removal, std::nullopt);
    if (!removal)
        return;
    m_singletons.userDefaults.atomically([&] {
        if (removal->wasArchiving)
            takeBackArchiving(*removal);
        else
            takeBackDeleting(*removal);
    });
}

void LastRemoval::takeBackArchiving(const Removal& removal) {
    QList<Exercise> archived = m_singletons.exercises.archivedItems();
    const auto found = std::ranges::find(std::as_const(archived), removal.exercise.id, &Exercise::id);
    if (found == archived.cend())
        return; // brought back by hand, or deleted
    const Exercise exercise = archived.takeAt(found - archived.cbegin());
    QList<Exercise> items = m_singletons.exercises.items();
    items.insert(std::min(removal.position, items.size()), exercise);
    m_singletons.exercises.setItems(std::move(items));
    m_singletons.exercises.setArchivedItems(std::move(archived));

    QList<PracticeSession> log = m_singletons.dailyLog.practiceSessions();
    for (const Session& removed : removal.sessions) {
        PracticeSession session = removed.session;
        session.exercise = exercise;
        if (!log.contains(session))
            log.insert(std::min(removed.position, log.size()), session);
    }
    if (log != m_singletons.dailyLog.practiceSessions())
        m_singletons.dailyLog.setPracticeSessions(std::move(log));
}

void LastRemoval::takeBackDeleting(const Removal& removal) {
    QList<Exercise> archived = m_singletons.exercises.archivedItems();
    const QList<Exercise> known = archived + m_singletons.exercises.items();
    if (std::ranges::find(known, removal.exercise.id, &Exercise::id) != known.cend())
        return; // it came back another way
    archived.insert(std::min(removal.position, archived.size()), removal.exercise);
    m_singletons.exercises.setArchivedItems(std::move(archived));
}

} // namespace tamsel
