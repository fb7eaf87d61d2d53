#pragma once

#include "app/Singletons.h"
#include "metronome/MetronomeViewModel.h"
#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/PracticeSession.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "practice/ExerciseSettingsViewModel.h"
#include "practice/NotesViewModel.h"
#include "practice/PracticeTools.h"
#include "practice/SecondTicker.h"
#include "practice/TimedNotice.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <memory>
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

// The practice screen of one item: its metronome controller, the count-down timer, the stopwatch, the recording of what
// they timed, the tools that the item's settings enable, and the sheets opened from it. Main thread only.
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

    Q_PROPERTY(bool hasThumbsUp READ hasThumbsUp NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(bool hasThumbsDown READ hasThumbsDown NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(bool hasRhythms READ hasRhythms NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(bool hasTapTempo READ hasTapTempo NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(bool hasTempoBookmarks READ hasTempoBookmarks NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(bool hasQuickNotes READ hasQuickNotes NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(QString thumbsUpText READ thumbsUpText NOTIFY countersChanged FINAL)
    Q_PROPERTY(QString thumbsUpLabel READ thumbsUpLabel NOTIFY countersChanged FINAL)
    Q_PROPERTY(QString thumbsDownText READ thumbsDownText NOTIFY countersChanged FINAL)
    Q_PROPERTY(QString thumbsDownLabel READ thumbsDownLabel NOTIFY countersChanged FINAL)
    Q_PROPERTY(QString rhythmText READ rhythmText NOTIFY rhythmChanged FINAL)
    Q_PROPERTY(QList<tamsel::ToolMenuOption> rhythmOptions READ rhythmOptions NOTIFY rhythmChanged FINAL)
    Q_PROPERTY(bool tempoIsBookmarked READ tempoIsBookmarked NOTIFY bookmarksChanged FINAL)
    Q_PROPERTY(QString bookmarkLabel READ bookmarkLabel NOTIFY bookmarksChanged FINAL)
    Q_PROPERTY(QList<tamsel::ToolMenuOption> bookmarkOptions READ bookmarkOptions NOTIFY bookmarksChanged FINAL)
    Q_PROPERTY(QList<tamsel::ToolMenuOption> snippetOptions READ snippetOptions NOTIFY snippetsChanged FINAL)
    Q_PROPERTY(bool ownerSavesTempo READ ownerSavesTempo NOTIFY exerciseSettingsChanged FINAL)
    Q_PROPERTY(QString saveTempoText READ saveTempoText NOTIFY savedTempoTextChanged FINAL)
    Q_PROPERTY(QString notesText READ notesText NOTIFY notesTextChanged FINAL)

    Q_PROPERTY(bool isShowingAddNoteTextField READ isShowingAddNoteTextField WRITE setIsShowingAddNoteTextField NOTIFY
                   isShowingAddNoteTextFieldChanged FINAL)
    Q_PROPERTY(QString addNoteTextFieldText READ addNoteTextFieldText WRITE setAddNoteTextFieldText NOTIFY
                   addNoteTextFieldTextChanged FINAL)
    Q_PROPERTY(bool canSaveNote READ canSaveNote NOTIFY addNoteTextFieldTextChanged FINAL)
    Q_PROPERTY(
        bool isShowingHistory READ isShowingHistory WRITE setIsShowingHistory NOTIFY isShowingHistoryChanged FINAL)
    Q_PROPERTY(bool isShowingNotes READ isShowingNotes WRITE setIsShowingNotes NOTIFY isShowingNotesChanged FINAL)
    Q_PROPERTY(
        bool isShowingSettings READ isShowingSettings WRITE setIsShowingSettings NOTIFY isShowingSettingsChanged FINAL)
    // Null until the sheet is shown for the first time, and kept until it is shown again.
    Q_PROPERTY(tamsel::ExerciseSettingsViewModel* settingsViewModel READ settingsViewModel NOTIFY
                   isShowingSettingsChanged FINAL)
    Q_PROPERTY(tamsel::TimedNotice* notice READ notice CONSTANT FINAL)

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

    // The screen is left or the window closes: whatever runs is saved and ended, a name that was typed is taken over,
    // and a note that was begun is saved.
    void leave();

    // One second of the timer has passed.
    void onTimerTick();

    // The tools, as they stand at this moment.
    PracticeToolsGrid toolsGrid();
    SheetButtons sheetButtons();

    qint64 thumbsUpCount() const { return m_thumbsUpCount; }
    qint64 thumbsDownCount() const { return m_thumbsDownCount; }
    Rhythm rhythmSelection() const { return m_metronomeViewModel.rhythmSelection(); }

    bool hasThumbsUp() const { return m_exerciseSettings.thumbsUpCounterEnabled; }
    bool hasThumbsDown() const { return m_exerciseSettings.thumbsDownCounterEnabled; }
    bool hasRhythms() const { return m_exerciseSettings.subdivisionsEnabled; }
    bool hasTapTempo() const { return m_exerciseSettings.tapTempoEnabled; }
    bool hasTempoBookmarks() const { return m_exerciseSettings.bookmarksEnabled; }
    bool hasQuickNotes() const { return m_exerciseSettings.quickNotesEnabled; }
    QString thumbsUpText() const { return QString::number(m_thumbsUpCount); }
    QString thumbsDownText() const { return QString::number(m_thumbsDownCount); }
    // What is spoken: the count too, unless it is 0.
    QString thumbsUpLabel() const;
    QString thumbsDownLabel() const;
    QString rhythmText() const;
    QList<ToolMenuOption> rhythmOptions();
    bool tempoIsBookmarked() const;
    QString bookmarkLabel() const;
    QList<ToolMenuOption> bookmarkOptions();
    QList<ToolMenuOption> snippetOptions();
    // Whether the tempo that the item opens at changes only when its owner says so.
    bool ownerSavesTempo() const { return !m_exerciseSettings.autoSavedTempo; }
    // Empty unless there is another tempo to save.
    QString saveTempoText() const;
    QString notesText() const;

    Q_INVOKABLE void thumbsUpTapped();
    Q_INVOKABLE void thumbsUpLongPressed();
    Q_INVOKABLE void thumbsDownTapped();
    Q_INVOKABLE void thumbsDownLongPressed();
    // The index is that of the tool's menu; one that is not in it changes nothing.
    Q_INVOKABLE void chooseRhythm(int index);
    Q_INVOKABLE void tapTempoTapped();
    // Adds the current tempo to the bookmarks, or removes it from them.
    Q_INVOKABLE void bookmarkTapped();
    Q_INVOKABLE void chooseBookmark(int index);
    // Says that there are none yet when there are none. True when there is a menu to be shown.
    Q_INVOKABLE bool bookmarksLongPressed();
    Q_INVOKABLE void quickNoteTapped();
    // Saves the snippet as a note.
    Q_INVOKABLE void chooseSnippet(int index);
    // Makes the shown tempo the one that the item opens at.
    Q_INVOKABLE void saveTempo();

    Q_INVOKABLE void historyTapped() { sheetButtons().onHistoryTapped(); }
    Q_INVOKABLE void notesTapped() { sheetButtons().onNotesTapped(); }
    Q_INVOKABLE void settingsTapped() { sheetButtons().onSettingsTapped(); }

    bool isShowingAddNoteTextField() const { return m_isShowingAddNoteTextField; }
    bool isShowingHistory() const { return m_isShowingHistory; }
    bool isShowingNotes() const { return m_isShowingNotes; }
    bool isShowingSettings() const { return m_isShowingSettings; }
    ExerciseSettingsViewModel* settingsViewModel() { return m_settingsViewModel.get(); }
    TimedNotice* notice() { return &m_notice; }
    // What was typed stays for the next time until it is saved or dropped.
    QString addNoteTextFieldText() const { return m_noteDrafts->value(QUuid()); }
    bool canSaveNote() const { return !addNoteTextFieldText().trimmed().isEmpty(); }
    void setIsShowingAddNoteTextField(bool showing);
    void setAddNoteTextFieldText(const QString& text);
    // The navigation stack shows both screens, and says when they are left.
    void setIsShowingHistory(bool showing);
    void setIsShowingNotes(bool showing);
    // For the notes screen, which writes the same notes.
    const std::shared_ptr<NoteDrafts>& noteDrafts() const { return m_noteDrafts; }
    void setIsShowingSettings(bool showing);

    // A blank text is not saved.
    Q_INVOKABLE void saveNote();
    Q_INVOKABLE void dropNote();
    // Puts a snippet behind the text that is being typed.
    Q_INVOKABLE void insertSnippet(int index);

Q_SIGNALS:
    void exerciseChanged();
    void savedTempoTextChanged();
    void timerChanged();
    void stopwatchChanged();
    void runsChanged();
    void recentPracticeSessionsChanged();
    void exerciseSettingsChanged();
    void countersChanged();
    void rhythmChanged();
    void bookmarksChanged();
    void snippetsChanged();
    void notesTextChanged();
    void isShowingAddNoteTextFieldChanged();
    void addNoteTextFieldTextChanged();
    void isShowingHistoryChanged();
    void isShowingNotesChanged();
    void isShowingSettingsChanged();

private:
    void saveAndStop(Date now);
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

    std::optional<ThumbsUpTool> thumbsUpTool();
    std::optional<ThumbsDownTool> thumbsDownTool();
    std::optional<RhythmsTool> rhythmsTool();
    std::optional<TapTempoTool> tapTempoTool();
    std::optional<TempoBookmarksTool> tempoBookmarksTool();
    std::optional<QuickNoteTool> quickNoteTool();
    TimerTool timerTool();
    StopwatchTool stopwatchTool();
    void setThumbsUpCount(qint64 count);
    void setThumbsDownCount(qint64 count);
    void setBookmarks(const QList<qint64>& bookmarks);
    void addNote(const QString& text);
    void reloadNoteCount();
    // The one place where the item's settings change: stores them and hands them on.
    void applySettings(ExerciseSettings settings);
    // The item was renamed, here or elsewhere.
    void followStoredName();
    void connectTools();

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
    Observable::Subscription m_itemsSubscription;
    Observable::Subscription m_archivedItemsSubscription;
    qint64 m_thumbsDownCount = 0;
    qint64 m_thumbsUpCount = 0;
    qsizetype m_noteCount = 0;
    bool m_isShowingAddNoteTextField = false;
    bool m_isShowingHistory = false;
    bool m_isShowingNotes = false;
    bool m_isShowingSettings = false;
    const std::shared_ptr<NoteDrafts> m_noteDrafts = std::make_shared<NoteDrafts>();
    TimedNotice m_notice;
    std::unique_ptr<ExerciseSettingsViewModel> m_settingsViewModel;
};

} // namespace tamsel
