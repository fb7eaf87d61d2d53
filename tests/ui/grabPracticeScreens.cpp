#include "model/StoredSettings.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>

// The practice screen in all its states.
namespace tamsel::test {

namespace {

using namespace std::chrono_literals;

void allTools(ExerciseSettings& settings) {
    settings.thumbsUpCounterEnabled = settings.thumbsDownCounterEnabled = settings.subdivisionsEnabled =
        settings.tapTempoEnabled = settings.bookmarksEnabled = settings.quickNotesEnabled = true;
}

void open(UiWorld& ui, const View& view, const QString& name, const ExerciseSettings& settings) {
    ui.addExercises({name});
    storeSettings(ui.world.store, ui.world.singletons->exercises.items().first().id, settings);
    ui.open(view.size);
    ui.appearance().setTextScale(view.textScale);
}

void takeTools(Album& album, const View& view) {
    const auto name = [&view](const char* state) {
        return QStringLiteral("tools-%1-%2").arg(QString::fromLatin1(state), QString::fromLatin1(view.name));
    };
    ExerciseSettings settings;
    allTools(settings);
    settings.autoSavedTempo = false;
    settings.tempo = 120;
    settings.bookmarks = {60, 66, 72, 80, 88, 96, 104, 112, 120, 132};
    {
        UiWorld ui;
        open(ui, view, QStringLiteral("C Major Scales"), settings);
        PracticeViewModel& practice = *ui.practice();
        album.take(ui, name("all"));
        practice.toolsGrid().thumbsUp->onCountChanged(7);
        practice.toolsGrid().thumbsDown->onCountChanged(2);
        practice.chooseRhythm(2);
        practice.startTimer(5);
        ui.world.mainQueue.advance(90s);
        album.take(ui, name("timer-running"));
        practice.pauseTimer();
        album.take(ui, name("timer-paused"));
        practice.saveTimer();
        practice.startStopwatch();
        ui.world.mainQueue.advance(42s);
        practice.metronomeViewModel()->setTempo(126);
        practice.toolsGrid().thumbsUp->onCountChanged(128);
        practice.toolsGrid().thumbsDown->onCountChanged(12'345);
        practice.chooseSnippet(0);
        album.take(ui, name("stopwatch-counts"));
        practice.finishStopwatch();
        // By the keyboard, which brings what lies further down into sight.
        const auto openFrom = [&ui](const char* identifier, Qt::Key key) {
            ui.find(QString::fromLatin1(identifier))->forceActiveFocus(Qt::TabFocusReason);
            ui.press(key);
        };
        for (const auto& [button, state] :
             {std::pair{"tempo_bookmarks_button", "bookmarks"}, std::pair{"quick_note_button", "snippets"}}) {
            openFrom(button, Qt::Key_Menu);
            album.take(ui, name(state));
            ui.press(Qt::Key_Escape);
        }
        openFrom("beat_patterns_button", Qt::Key_Return);
        album.take(ui, name("rhythms"));
        ui.press(Qt::Key_Escape);
        practice.setAddNoteTextFieldText(QStringLiteral("Thumb under earlier, left hand alone from bar 12."));
        practice.quickNoteTapped();
        album.take(ui, name("note-editor"));
        ui.press(Qt::Key_Escape);
        practice.settingsTapped();
        album.take(ui, name("settings"));
        if (QQuickItem* const last = ui.find(QStringLiteral("standard_bpm")))
            last->forceActiveFocus(Qt::TabFocusReason);
        album.take(ui, name("settings-end"));
        ui.press(Qt::Key_Escape);
        practice.historyTapped();
        album.take(ui, name("history"));
        ui.press(Qt::Key_Escape);
        ui.world.clock.advance(24h);
        practice.setIsShowingAddNoteTextField(true);
        practice.saveNote();
        practice.setAddNoteTextFieldText(QStringLiteral("הערה קצרה"));
        practice.saveNote();
        practice.notesTapped();
        album.take(ui, name("notes"));
        ui.click(QStringLiteral("delete_note_1"));
        album.take(ui, name("notes-undo"));
    }
    {
        UiWorld ui;
        open(ui, view, QStringLiteral("Étude 9"), {});
        album.take(ui, name("none"));
        ui.practice()->notesTapped();
        album.take(ui, name("notes-empty"));
        ui.press(Qt::Key_Escape);
        ui.practice()->historyTapped();
        album.take(ui, name("history-empty"));
    }
    {
        ExerciseSettings three;
        three.thumbsUpCounterEnabled = three.subdivisionsEnabled = three.bookmarksEnabled = three.tapTempoEnabled =
            true;
        UiWorld ui;
        open(ui, view, QStringLiteral("Rachmaninov: Piano Concerto No. 3 in D minor, third movement, bars 120 to 188"),
             three);
        album.take(ui, name("odd-long-name"));
    }
}

} // namespace

void takePracticeTools(Album& album) {
    for (const View& view : {View{{390, 844}, "phone", 1}, View{{360, 640}, "small", 1}, View{{390, 844}, "large", 2},
                             View{{844, 390}, "flat", 1}})
        takeTools(album, view);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    ExerciseSettings settings;
    allTools(settings);
    UiWorld ui;
    open(ui, {{390, 844}, "mirrored", 1}, QStringLiteral("סולמות בדו מז'ור"), settings);
    album.take(ui, QStringLiteral("tools-all-mirrored"));
    ui.practice()->settingsTapped();
    album.take(ui, QStringLiteral("tools-settings-mirrored"));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tamsel::test
