#include "model/StoredSettings.h"
#include "tests/support/LogCapture.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"

#include <QAccessible>
#include <QInputMethodEvent>
#include <QStyleHints>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using test::UiWorld;

// The practice screen with its tools, worked as a person works it.
class PracticeToolsScreenTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    void open(const std::function<void(ExerciseSettings&)>& change = {}, QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("C Major Scales")});
        ExerciseSettings settings;
        settings.thumbsUpCounterEnabled = settings.thumbsDownCounterEnabled = settings.subdivisionsEnabled =
            settings.tapTempoEnabled = settings.bookmarksEnabled = settings.quickNotesEnabled = true;
        if (change)
            change(settings);
        storeSettings(ui.world.store, exercise().id, settings);
        ui.open(size);
        ASSERT_NE(ui.practice(), nullptr);
    }

    Exercise exercise() {
        const auto& singletons = ui.world.singletons ? *ui.world.singletons : ui.singletons();
        return singletons.exercises.items().first();
    }

    ExerciseSettings stored() { return *storedSettings(ui.world.store, exercise().id); }

    QStringList notes() {
        QStringList texts;
        for (const Note& note : ui.singletons().notes.notes(exercise()).value_or(QList<Note>()))
            texts += note.value;
        return texts;
    }

    MetronomeViewModel& metronome() { return *ui.practice()->metronomeViewModel(); }

    // Moves the keyboard to that control.
    void focusOn(const char* identifier) {
        QQuickItem* const item = ui.find(QString::fromLatin1(identifier));
        ASSERT_NE(item, nullptr) << identifier;
        item->forceActiveFocus(Qt::TabFocusReason);
    }

    void press(const char* identifier, const char* action) {
        QQuickItem* const item = ui.find(QString::fromLatin1(identifier));
        ASSERT_NE(item, nullptr) << identifier;
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(QString::fromLatin1(action));
        ui.settle();
    }

    bool isShown(const char* identifier) { return ui.find(QString::fromLatin1(identifier)) != nullptr; }
    void click(const char* identifier, Qt::MouseButton button = Qt::LeftButton) {
        EXPECT_TRUE(ui.click(QString::fromLatin1(identifier), button)) << identifier;
    }

    const test::WarningCollector warnings;
    const test::LogCapture console;
    UiWorld ui;
};

TEST_F(PracticeToolsScreenTest, EachToolAppearsWithItsSwitchAndLeavesNoHole) {
    open([](ExerciseSettings& settings) { settings = ExerciseSettings(); });
    struct Tool {
        const char* toggle;
        const char* tile;
    };
    for (const Tool& tool :
         {Tool{"thumbs_up_counter", "clear_thumbs_up_counter"},
          Tool{"thumbs_down_counter", "clear_thumbs_down_counter"}, Tool{"quick_notes", "quick_note_button"},
          Tool{"beat_patterns", "beat_patterns_button"}, Tool{"tap_tempo", "tap_tempo_button"},
          Tool{"bookmarked_tempi", "tempo_bookmarks_button"}}) {
        const qreal below = ui.area(QStringLiteral("history_button")).top();
        EXPECT_FALSE(isShown(tool.tile)) << tool.tile;
        click("settings_button");
        focusOn(tool.toggle);
        ui.press(Qt::Key_Space);
        ui.press(Qt::Key_Escape);
        EXPECT_TRUE(isShown(tool.tile)) << tool.tile;
        const QRectF area = ui.area(QString::fromLatin1(tool.tile));
        EXPECT_LT(area.bottom(), ui.area(QStringLiteral("history_button")).top()) << tool.tile;
        click("settings_button");
        focusOn(tool.toggle);
        ui.press(Qt::Key_Return);
        ui.press(Qt::Key_Escape);
        EXPECT_FALSE(isShown(tool.tile)) << tool.tile;
        EXPECT_EQ(ui.area(QStringLiteral("history_button")).top(), below) << "no hole";
    }
}

TEST_F(PracticeToolsScreenTest, CountersAreWorkedByTapLongPressAndOtherWays) {
    open();
    const QList<std::function<void()>> ways = {
        [this] { click("thumbs_up_counter", Qt::RightButton); },
        [this] {
            focusOn("thumbs_up_counter");
            ui.press(Qt::Key_Menu);
        },
        [this] {
            focusOn("thumbs_up_counter");
            ui.press(Qt::Key_Return, Qt::ShiftModifier);
        },
        [this] { press("clear_thumbs_up_counter", "Press"); },
        [this] {
            // A finger that stays.
            const QPoint place = ui.area(QStringLiteral("thumbs_up_counter")).center().toPoint();
            QTest::mousePress(&ui.window(), Qt::LeftButton, {}, place);
            EXPECT_TRUE(QTest::qWaitFor([this] { return ui.practice()->thumbsUpCount() == 0; }));
            QTest::mouseRelease(&ui.window(), Qt::LeftButton, {}, place);
        },
    };
    for (qsizetype way = 0; way < ways.size(); ++way) {
        click("thumbs_up_counter");
        click("thumbs_up_counter");
        click("thumbs_down_counter");
        EXPECT_EQ(ui.practice()->thumbsUpCount(), 2) << way;
        ways.at(way)();
        EXPECT_EQ(ui.practice()->thumbsUpCount(), 0) << way;
        EXPECT_EQ(ui.practice()->thumbsDownCount(), way + 1);
    }
    focusOn("thumbs_down_counter");
    ui.press(Qt::Key_Return);
    EXPECT_EQ(ui.practice()->thumbsDownCount(), ways.size() + 1);
    press("clear_thumbs_down_counter", "Press");
    EXPECT_EQ(ui.practice()->thumbsDownCount(), 0);
}

TEST_F(PracticeToolsScreenTest, TapTempoCountsThePressAndNotTheRelease) {
    open();
    const QPoint place = ui.area(QStringLiteral("tap_tempo_button")).center().toPoint();
    const auto tap = [&](std::chrono::milliseconds held) {
        QTest::mousePress(&ui.window(), Qt::LeftButton, {}, place);
        ui.world.clock.advance(held);
        QTest::mouseRelease(&ui.window(), Qt::LeftButton, {}, place);
        ui.world.clock.advance(500ms - held);
    };
    tap(400ms);
    tap(10ms);
    EXPECT_EQ(metronome().tempo(), 120);
    ui.world.clock.advance(5s);
    focusOn("tap_tempo_button");
    ui.press(Qt::Key_Return);
    ui.world.clock.advance(1s);
    ui.press(Qt::Key_Return);
    EXPECT_EQ(metronome().tempo(), 60) << "one press of Enter is one tap";
}

TEST_F(PracticeToolsScreenTest, BookmarksAreAddedChosenAndRemoved) {
    open([](ExerciseSettings& settings) {
        settings.autoSavedTempo = false;
        settings.tempo = 120;
    });
    click("tempo_bookmarks_button", Qt::RightButton);
    EXPECT_FALSE(isShown("bookmark_0")) << "there is nothing to choose from";
    EXPECT_TRUE(ui.practice()->notice()->isShown());
    click("tempo_bookmarks_button");
    metronome().setTempo(90);
    click("tempo_bookmarks_button");
    EXPECT_EQ(stored().bookmarks, (QList<qint64>{90, 120}));
    click("tempo_bookmarks_button", Qt::RightButton);
    click("bookmark_1");
    EXPECT_EQ(metronome().tempo(), 120);
    press("show_tempo_bookmarks", "Press");
    click("bookmark_0");
    EXPECT_EQ(metronome().tempo(), 90);
    click("tempo_bookmarks_button");
    EXPECT_EQ(stored().bookmarks, QList<qint64>{120});
}

TEST_F(PracticeToolsScreenTest, ARhythmIsChosenFromItsMenu) {
    open();
    click("beat_patterns_button");
    click("rhythm_7");
    EXPECT_EQ(metronome().rhythmSelection(), Rhythm::fourFour);
    EXPECT_FALSE(isShown("rhythm_7"));
}

TEST_F(PracticeToolsScreenTest, TheShownTempoIsSavedByItsButton) {
    open([](ExerciseSettings& settings) { settings.autoSavedTempo = false; });
    EXPECT_FALSE(isShown("save_tempo_button"));
    const QRectF play = ui.area(QStringLiteral("play pause button"));
    metronome().setTempo(126);
    EXPECT_TRUE(isShown("save_tempo_button"));
    EXPECT_EQ(ui.area(QStringLiteral("play pause button")), play) << "nothing moves under the finger";
    click("save_tempo_button");
    EXPECT_EQ(stored().tempo, 126);
    EXPECT_FALSE(isShown("save_tempo_button"));
}

TEST_F(PracticeToolsScreenTest, QuickNotesAreWrittenAndSavedWithOneTap) {
    open();
    click("quick_note_button", Qt::RightButton);
    click("snippet_0");
    EXPECT_EQ(notes(), QStringList(QStringLiteral("Tempo: 60")));
    EXPECT_EQ(ui.practice()->notice()->text(), QStringLiteral("Note saved"));

    click("quick_note_button");
    EXPECT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "note_text_field");
    ui.type(QStringLiteral("thumb"));
    QTest::mouseClick(&ui.window(), Qt::LeftButton, {}, {195, 830}); // beside the editor
    ui.settle();
    EXPECT_FALSE(isShown("note_text_field"));
    EXPECT_EQ(notes().size(), 1);
    click("quick_note_button");
    ui.type(QStringLiteral(" under"));
    click("insert_snippet_1");
    click("note_save_button");
    EXPECT_EQ(notes().last(), QStringLiteral("thumb under\nThumbs Up: 0"));
    EXPECT_FALSE(isShown("note_text_field"));

    click("quick_note_button");
    ui.type(QStringLiteral("never mind"));
    click("note_cancel_button");
    click("quick_note_button");
    EXPECT_EQ(ui.practice()->addNoteTextFieldText(), QString());
    ui.press(Qt::Key_Space);
    EXPECT_FALSE(metronome().isPlaying()) << "a space is text here";
    ui.press(Qt::Key_Escape);
    EXPECT_NE(ui.practice(), nullptr) << "Escape closes the editor and not the screen";
}

TEST_F(PracticeToolsScreenTest, WhatAnInputMethodComposesIsPartOfTheNote) {
    open();
    click("quick_note_button");
    QInputMethodEvent composing(QStringLiteral("ゆっくり"), {});
    QCoreApplication::sendEvent(ui.window().activeFocusItem(), &composing);
    ui.settle();
    // The platform of the tests has no input method that would hear the wish to commit; it answers like this.
    QInputMethodEvent committed;
    committed.setCommitString(QStringLiteral("ゆっくり"));
    EXPECT_TRUE(ui.find(QStringLiteral("note_save_button"))->isEnabled()) << "composed text can be saved";
    QCoreApplication::sendEvent(ui.window().activeFocusItem(), &committed);
    click("note_save_button");
    EXPECT_EQ(notes(), QStringList(QStringLiteral("ゆっくり")));
}

TEST_F(PracticeToolsScreenTest, TheNotesScreenAddsEditsDeletesAndUndoes) {
    open();
    ui.practice()->startTimer(5);
    click("notes_button");
    EXPECT_FALSE(isShown("play pause button")) << "the notes have the screen to themselves";
    click("add_first_note_button");
    ui.type(QStringLiteral("slower"));
    ui.press(Qt::Key_Return, Qt::ControlModifier);
    click("add_note_button");
    ui.type(QStringLiteral("softer"));
    click("note_save_button");
    EXPECT_EQ(notes(), (QStringList{QStringLiteral("slower"), QStringLiteral("softer")}));
    click("note_1");
    ui.type(QStringLiteral(" still"));
    click("note_save_button");
    EXPECT_EQ(notes().first(), QStringLiteral("slower still"));
    click("delete_note_1");
    EXPECT_EQ(notes(), QStringList(QStringLiteral("softer")));
    click("undo_button");
    EXPECT_EQ(notes().first(), QStringLiteral("slower still"));
    ui.press(Qt::Key_Escape);
    EXPECT_TRUE(isShown("play pause button"));
    EXPECT_EQ(ui.practice()->notesText(), QStringLiteral("Notes · 2"));
    EXPECT_TRUE(ui.practice()->timerIsRunning()) << "practice goes on meanwhile";
    ui.press(Qt::Key_Space);
    EXPECT_TRUE(metronome().isPlaying()) << "the practice screen has its keys again";
    click("notes_button");
    click("add_note_button");
    ui.type(QStringLiteral("begun"));
    ui.content().leave();
    EXPECT_EQ(notes().last(), QStringLiteral("begun")) << "the window was closed meanwhile";
}

TEST_F(PracticeToolsScreenTest, TheItemsHistoryOpensAndCloses) {
    open();
    click("history_button");
    EXPECT_TRUE(isShown("nothing_recorded_text"));
    click("back button");
    ui.practice()->startTimer(5);
    ui.world.mainQueue.advance(3min);
    ui.practice()->saveTimer();
    click("history_button");
    EXPECT_FALSE(isShown("nothing_recorded_text"));
    ASSERT_TRUE(isShown("practice_time_row_0"));
    EXPECT_TRUE(
        ui.find(QStringLiteral("practice_time_row_0"))->property("text").toString().endsWith(QStringLiteral(": 3m")));
    ui.press(Qt::Key_Escape);
    EXPECT_TRUE(isShown("history_button"));
}

TEST_F(PracticeToolsScreenTest, TheSheetRenamesAndSwitches) {
    open();
    click("settings_button");
    click("exercise_name_field");
    ui.window().activeFocusItem()->setProperty("text", QString());
    ui.type(QStringLiteral("Scales"));
    ui.press(Qt::Key_Return);
    EXPECT_EQ(exercise().name, QStringLiteral("Scales"));
    ui.type(QStringLiteral(" 2"));
    click("done_button");
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("Scales 2")) << "a name that was not yet taken over";
    EXPECT_FALSE(isShown("exercise_name_field"));
    ui.press(Qt::Key_Space);
    EXPECT_TRUE(metronome().isPlaying()) << "the screen has the keyboard again";

    struct Flip {
        const char* identifier;
        bool ExerciseSettings::*field;
    };
    for (const Flip& flip :
         {Flip{"tap_tempo", &ExerciseSettings::tapTempoEnabled}, Flip{"saved_tempo", &ExerciseSettings::autoSavedTempo},
          Flip{"standard_bpm", &ExerciseSettings::snapToStandardTempi},
          Flip{"clear_thumbs_up_on_thumbs_down", &ExerciseSettings::clearThumbsUpOnThumbsDown}}) {
        click("settings_button");
        const bool before = stored().*flip.field;
        focusOn(flip.identifier);
        click(flip.identifier);
        EXPECT_EQ(stored().*flip.field, !before) << flip.identifier;
        ui.press(Qt::Key_Escape);
    }
}

// Reads the screen as a screen reader does.
TEST_F(PracticeToolsScreenTest, AScreenReaderHearsNamesRolesAndStates) {
    QAccessible::setActive(true);
    open();
    const auto spoken = [this](const char* identifier) {
        QQuickItem* const item = ui.find(QString::fromLatin1(identifier));
        return item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    };
    struct Control {
        const char* identifier;
        const char* name;
    };
    for (const Control& control :
         {Control{"thumbs_up_counter", "thumbs up counter "}, Control{"thumbs_down_counter", "thumbs down counter "},
          Control{"beat_patterns_button", "beat patterns"}, Control{"tap_tempo_button", "Tap Tempo"},
          Control{"tempo_bookmarks_button", "Add bookmark 60"}, Control{"quick_note_button", "Add note"},
          Control{"show_tempo_bookmarks", "Show tempo bookmarks"},
          Control{"show_quick_snippets", "Show quick snippets"},
          Control{"clear_thumbs_up_counter", "Clear thumbs up counter"}, Control{"settings_button", "Settings"},
          Control{"notes_button", "Notes"}, Control{"history_button", "History"}}) {
        ASSERT_NE(spoken(control.identifier), nullptr) << control.identifier;
        EXPECT_EQ(spoken(control.identifier)->text(QAccessible::Name).toStdString(), control.name);
        EXPECT_EQ(spoken(control.identifier)->role(), QAccessible::Button) << control.identifier;
    }
    press("thumbs_up_counter", "Press");
    EXPECT_EQ(spoken("thumbs_up_counter")->text(QAccessible::Name), QStringLiteral("thumbs up counter 1"));

    press("settings_button", "Press");
    for (const Control& control :
         {Control{"quick_notes", "Quick Notes"}, Control{"thumbs_up_counter", "Counter, thumbs up"},
          Control{"clear_thumbs_down_on_thumbs_up", "Clear thumbs down on thumbs up"}}) {
        QAccessibleInterface* const toggle = spoken(control.identifier);
        EXPECT_EQ(toggle->role(), QAccessible::CheckBox) << control.identifier;
        EXPECT_EQ(toggle->text(QAccessible::Name).toStdString(), control.name);
        const bool before = toggle->state().checked;
        press(control.identifier, "Toggle");
        EXPECT_NE(spoken(control.identifier)->state().checked, before) << control.identifier;
        press(control.identifier, "Press");
        EXPECT_EQ(spoken(control.identifier)->state().checked, before) << control.identifier;
    }
    QAccessible::setActive(false);
}

// On every size of window, all tools lie side by side within it, large enough for a finger, reached by scrolling alone.
TEST_F(PracticeToolsScreenTest, TheToolsFitEveryWindow) {
    open();
    ui.practice()->toolsGrid().thumbsUp->onCountChanged(12'345);
    for (const QSize size : {QSize(360, 640), QSize(390, 844), QSize(844, 390), QSize(1180, 820)}) {
        for (const qreal textScale : {1.0, 2.0}) {
            ui.appearance().setTextScale(textScale);
            ui.resize(size);
            QList<QRectF> areas;
            for (const char* identifier :
                 {"settings_button", "timer_button", "stopwatch_button", "thumbs_up_counter", "thumbs_down_counter",
                  "beat_patterns_button", "tap_tempo_button", "tempo_bookmarks_button", "quick_note_button",
                  "history_button", "notes_button"}) {
                focusOn(identifier);
                ui.settle();
                const QRectF area = ui.area(QString::fromLatin1(identifier));
                EXPECT_TRUE(QRectF(QPointF(), size).contains(area)) << identifier << size.width() << textScale;
                EXPECT_GE(std::min(area.width(), area.height()), 44) << identifier;
            }
            for (const char* identifier : {"thumbs_up_counter", "thumbs_down_counter", "beat_patterns_button",
                                           "tap_tempo_button", "tempo_bookmarks_button", "quick_note_button"}) {
                const QRectF area = ui.area(QString::fromLatin1(identifier));
                for (const QRectF& other : areas)
                    EXPECT_FALSE(area.intersects(other)) << identifier << size.width() << textScale;
                areas += area;
            }
        }
    }
}

} // namespace
} // namespace tamsel
