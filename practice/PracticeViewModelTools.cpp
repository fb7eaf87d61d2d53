#include "model/StoredSettings.h"
#include "platform/Checked.h"
#include "practice/PracticeViewModel.h"

#include <algorithm>
#include <cmath>
#include <utility>

// The tools, the settings and the sheets of the practice screen.
namespace tamsel {

namespace {

constexpr double percent = 100.0;

QString countLabel(const QString& name, qint64 count) {
    // The blank stays when the count is left out: deliberate.
    return name + QLatin1Char(' ') + (count >= 1 ? QString::number(count) : QString());
}

QList<qint64> withBookmark(QList<qint64> bookmarks, qint64 tempo) {
    bookmarks += tempo;
    std::ranges::sort(bookmarks);
    bookmarks.erase(std::unique(bookmarks.begin(), bookmarks.end()), bookmarks.end());
    return bookmarks;
}

QList<qint64> withoutBookmark(QList<qint64> bookmarks, qint64 tempo) {
    bookmarks.removeAll(tempo);
    return bookmarks;
}

// The rhythm without a text is the one that only clicks.
QString shownName(const QString& rhythm) {
    return rhythm.isEmpty() ? QStringLiteral("Plain") : rhythm;
}

// Does nothing for an index that the menu does not have.
template <class Option>
void choose(const QList<Option>& options, int index) {
    if (index < 0 || index >= options.size())
        return;
    const auto action = options.at(index).action;
    action();
}

} // namespace

void PracticeViewModel::connectTools() {
    connect(&m_metronomeViewModel, &MetronomeViewModel::rhythmSelectionChanged, this,
            &PracticeViewModel::rhythmChanged);
    connect(this, &PracticeViewModel::countersChanged, this, &PracticeViewModel::snippetsChanged);
}

PracticeToolsGrid PracticeViewModel::toolsGrid() {
    PracticeToolsGrid grid{quickNoteTool(),      rhythmsTool(),    stopwatchTool(), tapTempoTool(),
                           tempoBookmarksTool(), thumbsDownTool(), thumbsUpTool(),  timerTool()};
    for (const bool enabled : {grid.quickNote.has_value(), grid.rhythms.has_value(), grid.tapTempo.has_value(),
                               grid.tempoBookmarks.has_value(), grid.thumbsDown.has_value(), grid.thumbsUp.has_value()})
        grid.numberOfOptionalToolsEnabled += enabled ? 1 : 0;
    return grid;
}

TimerTool PracticeViewModel::timerTool() {
    return {m_timerIsRunning,          [this] { cancelTimer(); }, [this] { pauseTimer(); },
            [this] { resumeTimer(); }, [this] { saveTimer(); },   [this](int minutes) { startTimer(minutes); },
            m_timerSecondsRemaining};
}

StopwatchTool PracticeViewModel::stopwatchTool() {
    return {m_stopwatchIsRunning,
            [this] { cancelStopwatch(); },
            [this](qint64 seconds) {
                setStopwatchSeconds(seconds);
                finishStopwatch();
            },
            [this] { pauseStopwatch(); },
            [this] { resumeStopwatch(); },
            [this] { startStopwatch(); },
            m_stopwatchSeconds};
}

// Counters

std::optional<ThumbsUpTool> PracticeViewModel::thumbsUpTool() {
    if (!m_exerciseSettings.thumbsUpCounterEnabled)
        return std::nullopt;
    ThumbsUpTool tool{m_thumbsUpCount, [this](qint64 count) { setThumbsUpCount(count); }, {}};
    if (m_exerciseSettings.clearThumbsDownOnThumbsUp)
        tool.onThumbsDownCleared = [this] { setThumbsDownCount(0); };
    return tool;
}

std::optional<ThumbsDownTool> PracticeViewModel::thumbsDownTool() {
    if (!m_exerciseSettings.thumbsDownCounterEnabled)
        return std::nullopt;
    ThumbsDownTool tool{m_thumbsDownCount, [this](qint64 count) { setThumbsDownCount(count); }, {}};
    if (m_exerciseSettings.clearThumbsUpOnThumbsDown)
        tool.onThumbsUpCleared = [this] { setThumbsUpCount(0); };
    return tool;
}

QString PracticeViewModel::thumbsUpLabel() const {
    return countLabel(QStringLiteral("thumbs up counter"), m_thumbsUpCount);
}

QString PracticeViewModel::thumbsDownLabel() const {
    return countLabel(QStringLiteral("thumbs down counter"), m_thumbsDownCount);
}

void PracticeViewModel::thumbsUpTapped() {
    const auto tool = thumbsUpTool();
    if (!tool)
        return;
    tool->onCountChanged(checkedAdd(tool->count, 1));
    if (tool->onThumbsDownCleared)
        tool->onThumbsDownCleared();
}

void PracticeViewModel::thumbsUpLongPressed() {
    if (const auto tool = thumbsUpTool())
        tool->onCountChanged(0);
}

void PracticeViewModel::thumbsDownTapped() {
    const auto tool = thumbsDownTool();
    if (!tool)
        return;
    tool->onCountChanged(checkedAdd(tool->count, 1));
    if (tool->onThumbsUpCleared)
        tool->onThumbsUpCleared();
}

void PracticeViewModel::thumbsDownLongPressed() {
    if (const auto tool = thumbsDownTool())
        tool->onCountChanged(0);
}

void PracticeViewModel::setThumbsUpCount(qint64 count) {
    if (std::exchange(m_thumbsUpCount, count) != count)
        Q_EMIT countersChanged();
}

void PracticeViewModel::setThumbsDownCount(qint64 count) {
    if (std::exchange(m_thumbsDownCount, count) != count)
        Q_EMIT countersChanged();
}

// Rhythms and tap tempo

std::optional<RhythmsTool> PracticeViewModel::rhythmsTool() {
    if (!m_exerciseSettings.subdivisionsEnabled)
        return std::nullopt;
    RhythmsTool tool;
    tool.onNextRhythm = [this](Rhythm rhythm) { m_metronomeViewModel.setRhythmSelection(rhythm); };
    tool.selection = rhythmSelection();
    for (const Rhythm rhythm : offeredRhythms()) {
        tool.allOptions += rhythm;
        tool.menuOptions +=
            RhythmsTool::MenuOption{[next = tool.onNextRhythm, rhythm] { next(rhythm); }, identifier(rhythm)};
    }
    return tool;
}

QString PracticeViewModel::rhythmText() const {
    return shownName(identifier(rhythmSelection()));
}

QList<ToolMenuOption> PracticeViewModel::rhythmOptions() {
    QList<ToolMenuOption> options;
    const auto tool = rhythmsTool();
    if (!tool)
        return options;
    for (qsizetype i = 0; i < tool->menuOptions.size(); ++i) {
        options += {shownName(tool->menuOptions.at(i).text), QString(), QStringLiteral("rhythm_%1").arg(i),
                    tool->allOptions.at(i) == tool->selection};
    }
    return options;
}

void PracticeViewModel::chooseRhythm(int index) {
    if (const auto tool = rhythmsTool())
        choose(tool->menuOptions, index);
}

std::optional<TapTempoTool> PracticeViewModel::tapTempoTool() {
    if (!m_exerciseSettings.tapTempoEnabled)
        return std::nullopt;
    return TapTempoTool{m_metronomeViewModel.compactDisplay(), [this] { m_metronomeViewModel.tapTempoTapped(); }};
}

void PracticeViewModel::tapTempoTapped() {
    if (const auto tool = tapTempoTool())
        tool->onTap();
}

// Bookmarks and the saved tempo

std::optional<TempoBookmarksTool> PracticeViewModel::tempoBookmarksTool() {
    if (!m_exerciseSettings.bookmarksEnabled)
        return std::nullopt;
    TempoBookmarksTool tool;
    tool.bookmarks = m_exerciseSettings.bookmarks;
    tool.currentTempo = m_metronomeViewModel.tempo();
    tool.goalTempo = m_exerciseSettings.tempo;
    tool.autoSavedTempo = m_exerciseSettings.autoSavedTempo;
    tool.onBookmarksChanged = [this](const QList<qint64>& bookmarks) { setBookmarks(bookmarks); };
    for (const qint64 bookmark : std::as_const(tool.bookmarks)) {
        TempoBookmarksTool::MenuOption option{[this, bookmark] { m_metronomeViewModel.setTempo(bookmark); },
                                              QString::number(bookmark), std::nullopt};
        // A stored tempo of 0 is no goal that anything could be a share of.
        if (!tool.autoSavedTempo && tool.goalTempo != 0) {
            // Divided last, so that a half is one: 57 of 200 is 28.5 and not a trace less.
            const double share = static_cast<double>(bookmark) * percent / static_cast<double>(tool.goalTempo);
            option.trailingText = QString::number(std::round(share), 'f', 0) + QLatin1Char('%');
        }
        tool.menuOptions += option;
    }
    return tool;
}

bool PracticeViewModel::tempoIsBookmarked() const {
    return m_exerciseSettings.bookmarks.contains(m_metronomeViewModel.tempo());
}

QString PracticeViewModel::bookmarkLabel() const {
    return (tempoIsBookmarked() ? QStringLiteral("Remove bookmark %1") : QStringLiteral("Add bookmark %1"))
        .arg(m_metronomeViewModel.tempo());
}

QList<ToolMenuOption> PracticeViewModel::bookmarkOptions() {
    QList<ToolMenuOption> options;
    const auto tool = tempoBookmarksTool();
    if (!tool)
        return options;
    for (qsizetype i = 0; i < tool->menuOptions.size(); ++i) {
        const auto& option = tool->menuOptions.at(i);
        options += {option.leadingText, option.trailingText.value_or(QString()), QStringLiteral("bookmark_%1").arg(i),
                    tool->bookmarks.at(i) == tool->currentTempo};
    }
    return options;
}

void PracticeViewModel::bookmarkTapped() {
    const auto tool = tempoBookmarksTool();
    if (!tool)
        return;
    tool->onBookmarksChanged(tool->currentTempoIsBookmarked() ? withoutBookmark(tool->bookmarks, tool->currentTempo)
                                                              : withBookmark(tool->bookmarks, tool->currentTempo));
}

void PracticeViewModel::chooseBookmark(int index) {
    if (const auto tool = tempoBookmarksTool())
        choose(tool->menuOptions, index);
}

bool PracticeViewModel::bookmarksLongPressed() {
    if (!m_exerciseSettings.bookmarks.isEmpty())
        return true;
    m_notice.confirm(QStringLiteral("No bookmarks yet. Tap to bookmark this tempo."));
    return false;
}

void PracticeViewModel::setBookmarks(const QList<qint64>& bookmarks) {
    ExerciseSettings settings = m_exerciseSettings;
    settings.bookmarks = bookmarks;
    applySettings(settings);
}

QString PracticeViewModel::saveTempoText() const {
    if (!ownerSavesTempo() || m_exerciseSettings.tempo == m_metronomeViewModel.tempo())
        return {};
    return QStringLiteral("Save %1").arg(m_metronomeViewModel.tempo());
}

void PracticeViewModel::saveTempo() {
    if (saveTempoText().isEmpty())
        return;
    ExerciseSettings settings = m_exerciseSettings;
    settings.tempo = m_metronomeViewModel.tempo();
    applySettings(settings);
    m_notice.confirm(QStringLiteral("Tempo %1 saved").arg(settings.tempo));
}

// Quick notes

std::optional<QuickNoteTool> PracticeViewModel::quickNoteTool() {
    if (!m_exerciseSettings.quickNotesEnabled)
        return std::nullopt;
    QuickNoteTool tool;
    tool.onTap = [this] { setIsShowingAddNoteTextField(true); };
    tool.practiceState = {m_metronomeViewModel.tempo(), m_thumbsDownCount, m_thumbsUpCount};
    const auto offer = [this, &tool](const QString& text) {
        tool.menuOptions += QuickNoteTool::MenuOption{[this, text] { addNote(text); }, text};
    };
    offer(QStringLiteral("Tempo: %1").arg(*tool.practiceState.tempo));
    if (m_exerciseSettings.thumbsUpCounterEnabled)
        offer(QStringLiteral("Thumbs Up: %1").arg(tool.practiceState.thumbsUp));
    if (m_exerciseSettings.thumbsDownCounterEnabled)
        offer(QStringLiteral("Thumbs Down: %1").arg(tool.practiceState.thumbsDown));
    return tool;
}

QList<ToolMenuOption> PracticeViewModel::snippetOptions() {
    QList<ToolMenuOption> options;
    const auto tool = quickNoteTool();
    if (!tool)
        return options;
    for (const auto& option : tool->menuOptions)
        options += {option.text, QString(), QStringLiteral("snippet_%1").arg(options.size()), false};
    return options;
}

void PracticeViewModel::quickNoteTapped() {
    if (const auto tool = quickNoteTool())
        tool->onTap();
}

void PracticeViewModel::chooseSnippet(int index) {
    if (const auto tool = quickNoteTool())
        choose(tool->menuOptions, index);
}

void PracticeViewModel::insertSnippet(int index) {
    const auto tool = quickNoteTool();
    if (!tool || index < 0 || index >= tool->menuOptions.size())
        return;
    const QString typed = addNoteTextFieldText();
    const QString gap = typed.isEmpty() || typed.endsWith(QLatin1Char('\n')) ? QString() : QStringLiteral("\n");
    setAddNoteTextFieldText(typed + gap + tool->menuOptions.at(index).text);
}

void PracticeViewModel::setIsShowingAddNoteTextField(bool showing) {
    if (std::exchange(m_isShowingAddNoteTextField, showing) != showing)
        Q_EMIT isShowingAddNoteTextFieldChanged();
}

void PracticeViewModel::setAddNoteTextFieldText(const QString& text) {
    if (addNoteTextFieldText() == text)
        return;
    m_noteDrafts->insert(QUuid(), text);
    Q_EMIT addNoteTextFieldTextChanged();
}

void PracticeViewModel::saveNote() {
    if (!canSaveNote())
        return;
    addNote(addNoteTextFieldText());
    dropNote();
}

void PracticeViewModel::dropNote() {
    setAddNoteTextFieldText({});
    setIsShowingAddNoteTextField(false);
}

void PracticeViewModel::addNote(const QString& text) {
    m_singletons.notes.add({m_platform.clock.now(), m_platform.uuids.next(), text}, m_exercise);
    reloadNoteCount();
    m_notice.confirm(QStringLiteral("Note saved"));
}

void PracticeViewModel::reloadNoteCount() {
    const qsizetype count = m_singletons.notes.notes(m_exercise).value_or(QList<Note>()).size();
    if (std::exchange(m_noteCount, count) != count)
        Q_EMIT notesTextChanged();
}

QString PracticeViewModel::notesText() const {
    if (m_noteCount == 0)
        return QStringLiteral("Notes");
    return QStringLiteral("Notes · %1").arg(m_noteCount);
}

// Settings

void PracticeViewModel::applySettings(ExerciseSettings settings) {
    // What sets the tempo by itself saves the one that is shown, also when it is switched on or off.
    if (settings.autoSavedTempo || m_exerciseSettings.autoSavedTempo)
        settings.tempo = m_metronomeViewModel.tempo();
    if (settings != m_exerciseSettings) {
        m_exerciseSettings = settings;
        storeSettings(m_singletons.userDefaults, m_exercise.id, m_exerciseSettings);
        m_metronomeViewModel.setExerciseSettings(m_exerciseSettings);
        // Without its tool, nothing would show the rhythm or lead back from it.
        if (!m_exerciseSettings.subdivisionsEnabled)
            m_metronomeViewModel.setRhythmSelection(Rhythm::zeroFour);
        Q_EMIT exerciseSettingsChanged();
        Q_EMIT savedTempoTextChanged();
        Q_EMIT bookmarksChanged();
        Q_EMIT rhythmChanged();
        Q_EMIT snippetsChanged();
    }
    if (m_settingsViewModel)
        m_settingsViewModel->adopt(m_exerciseSettings);
}

void PracticeViewModel::followStoredName() {
    const Exercises& exercises = m_singletons.exercises;
    for (const QList<Exercise>* const list : {&exercises.items(), &exercises.archivedItems()}) {
        const auto found = std::ranges::find(*list, m_exercise.id, &Exercise::id);
        if (found == list->end())
            continue;
        if (found->name != m_exercise.name) {
            m_exercise.name = found->name;
            Q_EMIT exerciseChanged();
        }
        return;
    }
}

// Sheets

SheetButtons PracticeViewModel::sheetButtons() {
    return {[this] { setIsShowingHistory(true); }, [this] { setIsShowingNotes(true); },
            [this] { setIsShowingSettings(true); }, m_recentPracticeSessions};
}

void PracticeViewModel::setIsShowingHistory(bool showing) {
    if (std::exchange(m_isShowingHistory, showing) != showing)
        Q_EMIT isShowingHistoryChanged();
}

void PracticeViewModel::setIsShowingNotes(bool showing) {
    if (std::exchange(m_isShowingNotes, showing) == showing)
        return;
    Q_EMIT isShowingNotesChanged();
    // Notes and drafts may have changed there.
    if (!showing) {
        reloadNoteCount();
        Q_EMIT addNoteTextFieldTextChanged();
    }
}

void PracticeViewModel::setIsShowingSettings(bool showing) {
    if (m_isShowingSettings == showing)
        return;
    m_isShowingSettings = showing;
    std::unique_ptr<ExerciseSettingsViewModel> before;
    if (showing) {
        before = std::exchange(
            m_settingsViewModel,
            std::make_unique<ExerciseSettingsViewModel>(
                m_singletons, m_platform.mainQueue, m_exercise, m_exerciseSettings,
                // The screen goes by the stored name, which is there before all of its history is renamed.
                [this](const Exercise&) { followStoredName(); },
                [this](const ExerciseSettings& settings) { applySettings(settings); }));
    } else {
        m_settingsViewModel->commitExerciseName();
    }
    Q_EMIT isShowingSettingsChanged();
}

} // namespace tamsel
