#pragma once

#include "metronome/Rhythm.h"
#include "model/PracticeSession.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

// The tools of the practice screen as values: what each shows, and what it does. An action that a tool does not have is
// an empty function. Main thread only; the actions belong to the screen model that made them and must not outlive it.
namespace tamsel {

struct TimerTool {
    bool isRunning = false;
    std::function<void()> onCancel;
    std::function<void()> onPause;
    std::function<void()> onResume;
    std::function<void()> onSave;
    std::function<void(int minutes)> onStart;
    std::optional<qint64> secondsRemaining;
};

struct StopwatchTool {
    bool isRunning = false;
    std::function<void()> onCancel;
    std::function<void(qint64 seconds)> onFinish;
    std::function<void()> onPause;
    std::function<void()> onResume;
    std::function<void()> onStart;
    std::optional<qint64> secondsElapsed;
};

// Increased by one with a tap, set to 0 with a long press. Whoever increases it calls the clearing action if there is
// one.
struct ThumbsUpTool {
    qint64 count = 0;
    std::function<void(qint64 count)> onCountChanged;
    std::function<void()> onThumbsDownCleared;
};

struct ThumbsDownTool {
    qint64 count = 0;
    std::function<void(qint64 count)> onCountChanged;
    std::function<void()> onThumbsUpCleared;
};

struct TempoBookmarksTool {
    struct MenuOption {
        std::function<void()> action;
        QString leadingText;                 // the tempo
        std::optional<QString> trailingText; // its share of the goal: "75%"
    };

    QList<MenuOption> menuOptions; // in the order of `bookmarks`
    QList<qint64> bookmarks;       // beats per minute
    qint64 currentTempo = 0;
    qint64 goalTempo = 0; // a goal only while `autoSavedTempo` is false
    std::function<void(const QList<qint64>& bookmarks)> onBookmarksChanged;
    bool autoSavedTempo = true;

    // Decides whether the tool adds the current tempo or removes it.
    bool currentTempoIsBookmarked() const { return bookmarks.contains(currentTempo); }
};

struct QuickNoteTool {
    struct MenuOption {
        std::function<void()> action;
        QString text;
    };

    // How the practice stands when the note is begun.
    struct PracticeState {
        std::optional<qint64> tempo; // beats per minute
        qint64 thumbsDown = 0;
        qint64 thumbsUp = 0;
    };

    QList<MenuOption> menuOptions; // the snippets
    std::function<void()> onTap;
    PracticeState practiceState;
};

struct RhythmsTool {
    struct MenuOption {
        std::function<void()> action;
        QString text;
    };

    QList<Rhythm> allOptions;
    QList<MenuOption> menuOptions; // in the order of `allOptions`
    std::function<void(Rhythm rhythm)> onNextRhythm;
    Rhythm selection = Rhythm::zeroFour;
};

struct TapTempoTool {
    bool compactDisplay = false;
    std::function<void()> onTap;
};

// What the screen lays out. A tool that the item's settings do not enable is absent.
struct PracticeToolsGrid {
    std::optional<QuickNoteTool> quickNote;
    std::optional<RhythmsTool> rhythms;
    StopwatchTool stopwatch;
    std::optional<TapTempoTool> tapTempo;
    std::optional<TempoBookmarksTool> tempoBookmarks;
    std::optional<ThumbsDownTool> thumbsDown;
    std::optional<ThumbsUpTool> thumbsUp;
    TimerTool timer;
    int numberOfOptionalToolsEnabled = 0;
};

struct SheetButtons {
    std::function<void()> onHistoryTapped;
    std::function<void()> onNotesTapped;
    std::function<void()> onSettingsTapped;
    QList<PracticeSession> recentPracticeSessions; // newest first
};

// One entry of a tool's menu, as the screen shows it.
struct ToolMenuOption {
    Q_GADGET
    QML_VALUE_TYPE(toolMenuOption)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail MEMBER detail FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(bool selected MEMBER selected FINAL)

public:
    QString title;
    QString detail;     // beside the title, quieter; may be empty
    QString identifier; // "bookmark_0"
    bool selected = false;
};

} // namespace tamsel
