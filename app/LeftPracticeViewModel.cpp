#include "app/LeftPracticeViewModel.h"

#include "reports/Formats.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

QString textOf(const QList<PracticeSession>& left) {
    QStringList runs;
    for (const PracticeSession& run : left)
        runs += QStringLiteral("%1, %2").arg(run.exercise.name, sessionDurationText(run.seconds));
    return QStringLiteral("Tamsel was ended while you practised: %1. You can keep it with this time, or discard it.")
        .arg(runs.join(QStringLiteral("; ")));
}

} // namespace

LeftPracticeViewModel::LeftPracticeViewModel(Singletons& singletons, const Platform& platform)
    : m_singletons(singletons), m_platform(platform), m_text(textOf(singletons.runningPractice.left())),
      m_isPresented(!singletons.runningPractice.left().isEmpty()) {}

void LeftPracticeViewModel::keep() {
    // Together: what is recorded is not offered again, whatever happens between the two.
    m_singletons.userDefaults.atomically([this] {
        const QList<PracticeSession> left = m_singletons.runningPractice.left();
        for (PracticeSession run : left) {
            // It may have been renamed meanwhile.
            const auto& items = m_singletons.exercises.items();
            const auto item = std::ranges::find(items, run.exercise.id, &Exercise::id);
            if (item != items.end())
                run.exercise = *item;
            m_singletons.history.record(run);
        }
        // Of those that have just come to it: the log is today's.
        const Date today = m_platform.calendar.startOfDay(m_platform.clock.now());
        m_singletons.dailyLog.removeSessions([&](const PracticeSession& session) {
            return m_platform.calendar.startOfDay(session.date) != today &&
                   std::ranges::find(left, session.date, &PracticeSession::date) != left.end();
        });
        m_singletons.runningPractice.forgetLeft();
    });
    close();
}

void LeftPracticeViewModel::discard() {
    m_singletons.runningPractice.forgetLeft();
    close();
}

void LeftPracticeViewModel::decideLater() {
    close();
}

void LeftPracticeViewModel::close() {
    if (std::exchange(m_isPresented, false))
        Q_EMIT isPresentedChanged();
}

} // namespace tamsel
