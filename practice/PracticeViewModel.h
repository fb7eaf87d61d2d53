#pragma once

#include "app/Singletons.h"
#include "metronome/MetronomeViewModel.h"
#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/PracticeSession.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "practice/SecondTicker.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tamsel {

// One entry of the timer's menu.
struct TimerMenuOption {
    Q_GADGET
    QML_VALUE_TYPE(timerMenuOption)
    Q_PROPERTY(int minutes MEMBER minutes FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)

public:
    int minutes = 0;
    QString title;      // "5:00"
    QString identifier; // "5 minute timer"
};

// One of today's sessions of the item, as the screen shows it.
struct RecentPracticeSession {
    Q_GADGET
    QML_VALUE_TYPE(recentPracticeSession)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail MEMBER detail FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)

public:
    QString title;      // how long: "25m", or "00:42" below a minute
    QString detail;     // how it was timed: "Timer"
    QString identifier; // "recent_session_0"
};

// The practice screen of one item: its metronome controller, the count-down timer, the stopwatch, and the recording of
// what they timed. Main thread only.
class PracticeViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(tamsel::MetronomeViewModel* metronomeViewModel READ metronomeViewModel CONSTANT FINAL)
    Q_PROPERTY(QString exerciseName READ exerciseName NOTIFY exerciseChanged FINAL)
    Q_PROPERTY(QString savedTempoText READ savedTempoText NOTIFY savedTempoTextChanged FINAL)
    Q_PROPERTY(bool timerExists READ timerExists NOTIFY timerChanged FINAL)
    Q_PROPERTY(bool timerIsRunning READ timerIsRunning NOTIFY timerChanged FINAL)
    Q_PROPERTY(bool canStartTimer READ canStartTimer NOTIFY runsChanged FINAL)
    Q_PROPERTY(QString timerText READ timerText NOTIFY timerChanged FINAL)
    Q_PROPERTY(QString timerSpokenText READ timerSpokenText NOTIFY timerChanged FINAL)
    Q_PROPERTY(double timerProgress READ timerProgress NOTIFY timerChanged FINAL)
    Q_PROPERTY(QList<tamsel::TimerMenuOption> timerMenuOptions READ timerMenuOptions CONSTANT FINAL)
    Q_PROPERTY(bool stopwatchExists READ stopwatchExists NOTIFY stopwatchChanged FINAL)
    Q_PROPERTY(bool stopwatchIsRunning READ stopwatchIsRunning NOTIFY stopwatchChanged FINAL)
    Q_PROPERTY(bool canStartStopwatch READ canStartStopwatch NOTIFY runsChanged FINAL)
    Q_PROPERTY(QString stopwatchText READ stopwatchText NOTIFY stopwatchChanged FINAL)
    Q_PROPERTY(QString stopwatchSpokenText READ stopwatchSpokenText NOTIFY stopwatchChanged FINAL)
    Q_PROPERTY(QList<tamsel::RecentPracticeSession> recentPracticeSessions READ recentPracticeSessionRows NOTIFY
                   recentPracticeSessionsChanged FINAL)
    Q_PROPERTY(QString todayText READ todayText NOTIFY recentPracticeSessionsChanged FINAL)

public:
    // Ticks in one second while accelerated time is switched on, for trying things out.
    static constexpr int acceleratedTimeFactor = 30;

    // `acceleration` is 1 in normal use. Pushes the item's tempo to the metronome and takes charge of it.
    PracticeViewModel(Singletons& singletons, const Platform& platform, const Exercise& exercise, int acceleration);
    ~PracticeViewModel() override;

    MetronomeViewModel* metronomeViewModel() { return &m_metronomeViewModel; }
    const Exercise& exercise() const { return m_exercise; }
    const ExerciseSettings& exerciseSettings() const { return m_exerciseSettings; }
    QString exerciseName() const { return m_exercise.name; }
    // "BPM", with the saved tempo behind it while that is another than the one shown.
    QString savedTempoText() const;

    bool timerExists() const { return m_timerSecondsRemaining.has_value(); }
    bool timerIsRunning() const { return m_timerIsRunning; }
    std::optional<qint64> timerSecondsRemaining() const { return m_timerSecondsRemaining; }
    QString timerText() const;
    QString timerSpokenText() const;
    // The share of the run that is over, 0 to 1.
    double timerProgress() const;
    QList<TimerMenuOption> timerMenuOptions() const;

    bool stopwatchExists() const { return m_stopwatchSeconds.has_value(); }
    bool stopwatchIsRunning() const { return m_stopwatchIsRunning; }
    std::optional<qint64> stopwatchSeconds() const { return m_stopwatchSeconds; }
    QString stopwatchText() const;
    QString stopwatchSpokenText() const;

    // The screen offers one run at a time: a run of one kind is ended before one of the other begins.
    bool canStartTimer() const { return !stopwatchExists(); }
    bool canStartStopwatch() const { return !timerExists(); }

    // The item's sessions that ended today, newest first.
    const QList<PracticeSession>& recentPracticeSessions() const { return m_recentPracticeSessions; }
    QList<RecentPracticeSession> recentPracticeSessionRows() const;
    // How long the item was practised today; empty without a session.
    QString todayText() const;

    // A run of whole minutes, at least 1.
    Q_INVOKABLE void startTimer(int minutes);
    Q_INVOKABLE void pauseTimer();
    Q_INVOKABLE void resumeTimer();
    Q_INVOKABLE void saveTimer();
    Q_INVOKABLE void cancelTimer();

    Q_INVOKABLE void startStopwatch();
    Q_INVOKABLE void pauseStopwatch();
    Q_INVOKABLE void resumeStopwatch();
    Q_INVOKABLE void finishStopwatch();
    Q_INVOKABLE void cancelStopwatch();

    // Ends one run and records it if it lasted long enough: the timer's where both exist. Does nothing without a run.
    Q_INVOKABLE void saveAndStopRunningSessionIfAble();

    // The screen is left or the window closes: whatever runs is saved and ended.
    void leave();

    // One second of the timer has passed.
    void onTimerTick();

Q_SIGNALS:
    void exerciseChanged();
    void savedTempoTextChanged();
    void timerChanged();
    void stopwatchChanged();
    void runsChanged();
    void recentPracticeSessionsChanged();

private:
    void signalEndOfTimer();
    void record(const std::optional<PracticeSession>& session);
    void endTimer();
    void endStopwatch();
    void setTimerIsRunning(bool running);
    void setTimerSecondsRemaining(std::optional<qint64> seconds);
    void setStopwatchIsRunning(bool running);
    void setStopwatchSeconds(std::optional<qint64> seconds);
    void onStopwatchTick();
    void onTempoChanged();
    void reloadRecentPracticeSessions();

    Singletons& m_singletons;
    const Platform m_platform;
    Exercise m_exercise;
    ExerciseSettings m_exerciseSettings;
    MetronomeViewModel m_metronomeViewModel;
    QList<PracticeSession> m_recentPracticeSessions;
    bool m_timerIsRunning = false;
    std::optional<qint64> m_timerMinutesSelection;
    std::optional<qint64> m_timerSecondsRemaining;
    bool m_stopwatchIsRunning = false;
    std::optional<qint64> m_stopwatchSeconds;
    SecondTicker m_timerTicker;
    SecondTicker m_stopwatchTicker;
    Observable::Subscription m_dailyLogSubscription;
};

} // namespace tamsel
