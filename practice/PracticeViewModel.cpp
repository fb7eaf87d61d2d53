#include "practice/PracticeViewModel.h"

#include "model/StoredSettings.h"
#include "platform/Checked.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/Formats.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace tamsel {

namespace {

constexpr std::array timerMinutes = {1, 2, 3, 4, 5, 10, 15, 20, 30, 45, 60};
constexpr int alertCount = 3;
constexpr std::chrono::milliseconds alertSpacing{110};

} // namespace

PracticeViewModel::PracticeViewModel(Singletons& singletons, const Platform& platform, const Exercise& exercise,
                                     int acceleration)
    : m_singletons(singletons), m_platform(platform), m_exercise(exercise),
      m_exerciseSettings(storedSettings(singletons.userDefaults, exercise.id).value_or(ExerciseSettings())),
      m_metronomeViewModel(false, m_exerciseSettings, singletons.metronome, platform.clock, platform.mainQueue),
      m_timerTicker(platform.clock, platform.mainQueue, acceleration, [this] { onTimerTick(); }),
      m_stopwatchTicker(platform.clock, platform.mainQueue, acceleration, [this] { onStopwatchTick(); }),
      m_dailyLogSubscription(
          singletons.dailyLog.practiceSessionsChanged().subscribe([this] { reloadRecentPracticeSessions(); })),
      m_itemsSubscription(singletons.exercises.itemsChanged().subscribe([this] { followStoredName(); })),
      m_archivedItemsSubscription(
          singletons.exercises.archivedItemsChanged().subscribe([this] { followStoredName(); })),
      m_notice(platform.mainQueue) {
    m_metronomeViewModel.setTempo(m_exerciseSettings.tempo);
    m_metronomeViewModel.takeCharge();
    connect(&m_metronomeViewModel, &MetronomeViewModel::tempoChanged, this, &PracticeViewModel::onTempoChanged);
    connectTools();
    reloadNoteCount();
    reloadRecentPracticeSessions();
}

PracticeViewModel::~PracticeViewModel() = default;

QString PracticeViewModel::savedTempoText() const {
    const QString unit = QStringLiteral("BPM");
    if (m_exerciseSettings.tempo == m_metronomeViewModel.tempo())
        return unit;
    return QStringLiteral("%1 · saved %2").arg(unit).arg(m_exerciseSettings.tempo);
}

void PracticeViewModel::onTempoChanged() {
    if (m_exerciseSettings.autoSavedTempo) {
        ExerciseSettings settings = m_exerciseSettings;
        settings.tempo = m_metronomeViewModel.tempo();
        applySettings(settings);
    }
    if (m_exerciseSettings.clearThumbsUpOnTempoChanges)
        setThumbsUpCount(0);
    if (m_exerciseSettings.clearThumbsDownOnTempoChanges)
        setThumbsDownCount(0);
    Q_EMIT savedTempoTextChanged();
    Q_EMIT bookmarksChanged();
    Q_EMIT snippetsChanged();
}

// Timer

QList<TimerMenuOption> PracticeViewModel::timerMenuOptions() const {
    QList<TimerMenuOption> options;
    for (const int minutes : timerMinutes) {
        options += {minutes, QStringLiteral("%1:00").arg(minutes), QStringLiteral("%1 minute timer").arg(minutes)};
    }
    return options;
}

QString PracticeViewModel::timerText() const {
    return formattedTimeInterval(static_cast<double>(m_timerSecondsRemaining.value_or(0)));
}

QString PracticeViewModel::timerSpokenText() const {
    if (!m_timerSecondsRemaining)
        return QStringLiteral("Timer");
    return QStringLiteral("Timer, %1 left%2")
        .arg(spokenDuration(*m_timerSecondsRemaining), m_timerIsRunning ? QString() : QStringLiteral(", paused"));
}

double PracticeViewModel::timerProgress() const {
    if (!m_timerMinutesSelection || !m_timerSecondsRemaining)
        return 0;
    const auto total = static_cast<double>(*m_timerMinutesSelection * secondsPerMinute);
    return 1.0 - static_cast<double>(*m_timerSecondsRemaining) / total;
}

void PracticeViewModel::startTimer(int minutes) {
    m_timerMinutesSelection = minutes;
    setTimerSecondsRemaining(minutes * secondsPerMinute);
    m_timerTicker.start();
    setTimerIsRunning(true);
}

void PracticeViewModel::pauseTimer() {
    m_timerTicker.pause();
    setTimerIsRunning(false);
}

void PracticeViewModel::resumeTimer() {
    if (!timerExists())
        return;
    m_timerTicker.resume();
    setTimerIsRunning(true);
}

void PracticeViewModel::saveTimer() {
    saveAndStopRunningSessionIfAble();
}

void PracticeViewModel::cancelTimer() {
    endTimer();
}

void PracticeViewModel::onTimerTick() {
    if (m_timerSecondsRemaining.value_or(-1) < 0) {
        log(QStringLiteral("onTimerTick.earlyReturn"));
        return;
    }
    log(QStringLiteral("onTimerTick.secondsRemaining: %1").arg(*m_timerSecondsRemaining));
    if (*m_timerSecondsRemaining == 0) {
        saveAndStopRunningSessionIfAble();
        signalEndOfTimer();
    } else {
        setTimerSecondsRemaining(*m_timerSecondsRemaining - 1);
    }
}

void PracticeViewModel::signalEndOfTimer() {
    if (m_metronomeViewModel.isPlaying()) {
        m_metronomeViewModel.setIsPlaying(false);
        return;
    }
    for (int i = 0; i < alertCount; ++i)
        m_platform.mainQueue.asyncAfter(i * alertSpacing,
                                        [&metronome = m_singletons.metronome] { metronome.playAlert(); });
}

// Stopwatch

QString PracticeViewModel::stopwatchText() const {
    return formattedTimeInterval(static_cast<double>(m_stopwatchSeconds.value_or(0)));
}

QString PracticeViewModel::stopwatchSpokenText() const {
    if (!m_stopwatchSeconds)
        return QStringLiteral("Stopwatch");
    return QStringLiteral("Stopwatch, %1%2")
        .arg(spokenDuration(*m_stopwatchSeconds), m_stopwatchIsRunning ? QString() : QStringLiteral(", paused"));
}

void PracticeViewModel::startStopwatch() {
    setStopwatchSeconds(0);
    m_stopwatchTicker.start();
    setStopwatchIsRunning(true);
}

void PracticeViewModel::pauseStopwatch() {
    m_stopwatchTicker.pause();
    setStopwatchIsRunning(false);
}

void PracticeViewModel::resumeStopwatch() {
    if (!stopwatchExists())
        return;
    m_stopwatchTicker.resume();
    setStopwatchIsRunning(true);
}

void PracticeViewModel::finishStopwatch() {
    saveAndStopRunningSessionIfAble();
}

void PracticeViewModel::cancelStopwatch() {
    endStopwatch();
}

void PracticeViewModel::onStopwatchTick() {
    setStopwatchSeconds(checkedAdd(m_stopwatchSeconds.value_or(0), 1));
}

// Recording

void PracticeViewModel::saveAndStopRunningSessionIfAble() {
    log(QStringLiteral("PracticeViewModel.saveAndStopRunningSessionIfAble"));
    const Date now = m_platform.clock.now();
    // What is recorded runs no more: together, so that no crash between the two offers it once again.
    m_singletons.userDefaults.atomically([this, now] { saveAndStop(now); });
}

void PracticeViewModel::saveAndStop(Date now) {
    if (m_timerMinutesSelection && m_timerSecondsRemaining) {
        const qint64 practised =
            checkedSubtract(checkedMultiply(*m_timerMinutesSelection, secondsPerMinute), *m_timerSecondsRemaining);
        record(PracticeSession::make(now, m_exercise, practised, SessionType::timer));
        endTimer();
    } else if (m_stopwatchSeconds) {
        record(PracticeSession::make(now, m_exercise, *m_stopwatchSeconds, SessionType::stopwatch));
        endStopwatch();
    }
}

void PracticeViewModel::leave() {
    setIsShowingSettings(false);
    // One call ends one run. Both are ended: no minute is dropped because the other run was there.
    do
        saveAndStopRunningSessionIfAble();
    while (timerExists() || stopwatchExists());
    saveNote();
}

void PracticeViewModel::record(const std::optional<PracticeSession>& session) {
    if (session)
        m_singletons.history.record(*session);
}

void PracticeViewModel::endTimer() {
    m_timerTicker.stop();
    setTimerIsRunning(false);
    setTimerSecondsRemaining(std::nullopt);
    m_singletons.runningPractice.end(SessionType::timer);
}

void PracticeViewModel::endStopwatch() {
    m_stopwatchTicker.stop();
    setStopwatchIsRunning(false);
    setStopwatchSeconds(std::nullopt);
    m_singletons.runningPractice.end(SessionType::stopwatch);
}

void PracticeViewModel::setTimerIsRunning(bool running) {
    if (std::exchange(m_timerIsRunning, running) != running)
        Q_EMIT timerChanged();
}

void PracticeViewModel::setTimerSecondsRemaining(std::optional<qint64> seconds) {
    if (m_timerSecondsRemaining == seconds)
        return;
    const bool existed = timerExists();
    m_timerSecondsRemaining = seconds;
    if (seconds && m_timerMinutesSelection) {
        m_singletons.runningPractice.update(m_exercise, SessionType::timer,
                                            *m_timerMinutesSelection * secondsPerMinute - *seconds);
    }
    Q_EMIT timerChanged();
    if (existed != timerExists())
        Q_EMIT runsChanged();
}

void PracticeViewModel::setStopwatchIsRunning(bool running) {
    if (std::exchange(m_stopwatchIsRunning, running) == running)
        return;
    log(QStringLiteral("stopwatchIsTicking: ") + (running ? QStringLiteral("true") : QStringLiteral("false")));
    Q_EMIT stopwatchChanged();
}

void PracticeViewModel::setStopwatchSeconds(std::optional<qint64> seconds) {
    if (m_stopwatchSeconds == seconds)
        return;
    const bool existed = stopwatchExists();
    m_stopwatchSeconds = seconds;
    if (seconds)
        m_singletons.runningPractice.update(m_exercise, SessionType::stopwatch, *seconds);
    if (seconds)
        log(QStringLiteral("stopwatchSeconds: %1").arg(*seconds));
    Q_EMIT stopwatchChanged();
    if (existed != stopwatchExists())
        Q_EMIT runsChanged();
}

// Recent sessions

void PracticeViewModel::reloadRecentPracticeSessions() {
    QList<PracticeSession> sessions;
    const Date today = m_platform.calendar.startOfDay(m_platform.clock.now());
    for (const PracticeSession& session : m_singletons.dailyLog.practiceSessions()) {
        // By its end, so that what was begun before midnight shows when it is saved after.
        const Date end = session.date + static_cast<double>(session.seconds);
        if (session.exercise.id == m_exercise.id && m_platform.calendar.startOfDay(end) == today)
            sessions.prepend(session);
    }
    if (m_recentPracticeSessions == sessions)
        return;
    m_recentPracticeSessions = std::move(sessions);
    Q_EMIT recentPracticeSessionsChanged();
}

QList<RecentPracticeSession> PracticeViewModel::recentPracticeSessionRows() const {
    QList<RecentPracticeSession> rows;
    for (const PracticeSession& session : m_recentPracticeSessions) {
        rows += {sessionDurationText(session.seconds), sessionTypeText(session.type),
                 QStringLiteral("recent_session_%1").arg(rows.size())};
    }
    return rows;
}

QString PracticeViewModel::todayText() const {
    if (m_recentPracticeSessions.isEmpty())
        return {};
    qint64 total = 0;
    for (const PracticeSession& session : m_recentPracticeSessions)
        total = checkedAdd(total, session.seconds);
    return QStringLiteral("Today %1").arg(sessionDurationText(total));
}

} // namespace tamsel
