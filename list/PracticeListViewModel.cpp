#include "list/PracticeListViewModel.h"

#include "platform/Checked.h"
#include "platform/Log.h"
#include "reports/Formats.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

// Today's sessions, those of one item that follow each other made one.
QList<PracticeSession> folded(const QList<PracticeSession>& sessions, Date now, const Calendar& calendar) {
    QList<PracticeSession> rows;
    const Date today = calendar.startOfDay(now);
    for (const PracticeSession& session : sessions) {
        if (calendar.startOfDay(session.date) != today)
            continue;
        if (!rows.isEmpty() && rows.last().exercise == session.exercise)
            rows.last() = rows.last().combined(session, now);
        else
            rows += session;
    }
    return rows;
}

QHash<QString, Date> lastPractisedDates(const QList<HistoryEvent>& events) {
    QHash<QString, Date> dates;
    for (const HistoryEvent& event : events) {
        auto found = dates.find(event.exerciseName);
        if (found == dates.end())
            dates.insert(event.exerciseName, event.date);
        else
            *found = std::max(*found, event.date);
    }
    return dates;
}

} // namespace

PracticeListViewModel::PracticeListViewModel(Singletons& singletons, const Platform& platform)
    : m_singletons(singletons), m_platform(platform),
      m_metronomeViewModel(true, std::nullopt, singletons.metronome, platform.clock, platform.mainQueue) {
    log(QStringLiteral("PracticeListViewModel.init"));
    const auto reloadOnChange = [this](Observable& observable) {
        m_subscriptions.push_back(observable.subscribe([this] { reload(); }));
    };
    reloadOnChange(singletons.exercises.itemsChanged());
    reloadOnChange(singletons.history.eventsChanged());
    reloadOnChange(singletons.dailyLog.practiceSessionsChanged());
    reload();
}

PracticeListViewModel::~PracticeListViewModel() {
    log(QStringLiteral("PracticeListViewModel.deinit"));
}

void PracticeListViewModel::reload() {
    const Date now = m_platform.clock.now();
    m_dailyLogSessions = folded(m_singletons.dailyLog.practiceSessions(), now, m_platform.calendar);
    QList<ListRow> logRows;
    QSet<Exercise> practisedToday;
    qint64 total = 0;
    for (const PracticeSession& session : std::as_const(m_dailyLogSessions)) {
        practisedToday += session.exercise;
        total = checkedAdd(total, session.seconds);
        logRows += {QStringLiteral("daily_log_row_%1").arg(logRows.size()), session.exercise.name,
                    sessionTypeText(session.type), sessionDurationText(session.seconds)};
    }

    m_exercises.clear();
    QList<ListRow> exerciseRows;
    const QHash<QString, Date> lastPractised = lastPractisedDates(m_singletons.history.events());
    for (const Exercise& exercise : m_singletons.exercises.items()) {
        if (practisedToday.contains(exercise))
            continue;
        const auto last = lastPractised.constFind(exercise.name);
        exerciseRows += {QStringLiteral("exercise_row_%1").arg(exerciseRows.size()), exercise.name,
                         last == lastPractised.cend() ? QStringLiteral("Not practised yet")
                                                      : longDayTitle(*last, m_platform.calendar),
                         QString()};
        m_exercises += exercise;
    }

    m_dailyLogRows.setRows(logRows);
    m_exerciseRows.setRows(exerciseRows);
    const QString title = logRows.isEmpty() ? QString()
                                            : longDayTitle(now, m_platform.calendar) + QLatin1Char(' ') +
                                                  abbreviatedHoursAndMinutes(total);
    if (std::exchange(m_dailyLogTitle, title) != title)
        Q_EMIT dailyLogTitleChanged();
}

void PracticeListViewModel::addTapped() {
    setAddExerciseAlertIsPresented(true);
}

void PracticeListViewModel::setAddExerciseAlertIsPresented(bool presented) {
    if (std::exchange(m_addExerciseAlertIsPresented, presented) == presented)
        return;
    Q_EMIT addExerciseAlertIsPresentedChanged();
    if (!presented && !m_addExerciseAlertTextFieldText.isEmpty())
        addExercise();
}

void PracticeListViewModel::setAddExerciseAlertTextFieldText(const QString& text) {
    if (m_addExerciseAlertTextFieldText == text)
        return;
    m_addExerciseAlertTextFieldText = text;
    Q_EMIT addExerciseAlertTextFieldTextChanged();
}

void PracticeListViewModel::addExercise() {
    const Exercise exercise = m_singletons.exercises.add(m_addExerciseAlertTextFieldText);
    m_platform.mainQueue.async([self = std::weak_ptr(m_self), exercise] {
        const auto list = self.lock();
        if (!list)
            return;
        (*list)->setAddExerciseAlertTextFieldText(QString());
        (*list)->asynchronouslyReloadData();
        (*list)->open({exercise, std::nullopt});
    });
}

void PracticeListViewModel::openExercise(int row) {
    if (row >= 0 && row < m_exercises.size())
        open({m_exercises.at(row), std::nullopt});
}

void PracticeListViewModel::openDailyLogRow(int row) {
    if (row >= 0 && row < m_dailyLogSessions.size())
        open({m_dailyLogSessions.at(row).exercise, m_dailyLogSessions.at(row)});
}

void PracticeListViewModel::open(destinations::FromPracticeList destination) {
    m_destination = std::move(destination);
    Q_EMIT destinationChanged();
}

std::optional<destinations::FromPracticeList> PracticeListViewModel::takeDestination() {
    return std::exchange(m_destination, std::nullopt);
}

void PracticeListViewModel::asynchronouslyReloadData() {
    log(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData"));
    m_platform.mainQueue.async([self = std::weak_ptr(m_self)] {
        if (const auto list = self.lock())
            (*list)->reload();
    });
}

void PracticeListViewModel::onAppear() {
    // From the second time on: midnight may have passed since the list was last looked at.
    if (!std::exchange(m_isFirstLaunch, false))
        asynchronouslyReloadData();
    m_metronomeViewModel.setTempo(checkedTruncate(m_singletons.metronome.tempoBPM()));
    m_metronomeViewModel.takeCharge();
}

} // namespace tamsel
