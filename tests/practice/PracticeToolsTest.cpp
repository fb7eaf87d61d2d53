#include "model/SettingsKeys.h"
#include "model/StoredSettings.h"
#include "practice/PracticeViewModel.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class PracticeToolsTest : public testing::Test {
protected:
    // Opens the item with these settings stored.
    void open(const std::function<void(ExerciseSettings&)>& change = {}) {
        model.reset();
        ExerciseSettings settings;
        settings.thumbsUpCounterEnabled = settings.thumbsDownCounterEnabled = settings.subdivisionsEnabled =
            settings.tapTempoEnabled = settings.bookmarksEnabled = settings.quickNotesEnabled = true;
        if (change)
            change(settings);
        storeSettings(world.store, scales.id, settings);
        model = std::make_unique<PracticeViewModel>(*world.singletons, world.platform, scales, 1);
    }

    void count(qint64 up, qint64 down) {
        model->toolsGrid().thumbsUp->onCountChanged(up);
        model->toolsGrid().thumbsDown->onCountChanged(down);
    }

    void expectCounts(qint64 up, qint64 down, const char* after) {
        EXPECT_EQ(model->thumbsUpCount(), up) << after;
        EXPECT_EQ(model->thumbsDownCount(), down) << after;
    }

    ExerciseSettings stored() { return *storedSettings(world.store, scales.id); }
    MetronomeViewModel& metronome() { return *model->metronomeViewModel(); }

    QStringList notes() {
        QStringList texts;
        for (const Note& note : world.singletons->notes.notes(scales).value_or(QList<Note>()))
            texts += note.value;
        return texts;
    }

    test::World world;
    const Exercise scales{QStringLiteral("C Major Scales"), test::SequentialUuids::numbered(101)};
    std::unique_ptr<PracticeViewModel> model;
};

TEST_F(PracticeToolsTest, EachSwitchBringsItsTool) {
    using Switch = bool ExerciseSettings::*;
    struct Case {
        Switch isOn;
        std::function<bool(const PracticeToolsGrid&)> isThere;
    };
    const QList<Case> cases = {
        {&ExerciseSettings::thumbsUpCounterEnabled, [](auto& grid) { return grid.thumbsUp.has_value(); }},
        {&ExerciseSettings::thumbsDownCounterEnabled, [](auto& grid) { return grid.thumbsDown.has_value(); }},
        {&ExerciseSettings::subdivisionsEnabled, [](auto& grid) { return grid.rhythms.has_value(); }},
        {&ExerciseSettings::tapTempoEnabled, [](auto& grid) { return grid.tapTempo.has_value(); }},
        {&ExerciseSettings::bookmarksEnabled, [](auto& grid) { return grid.tempoBookmarks.has_value(); }},
        {&ExerciseSettings::quickNotesEnabled, [](auto& grid) { return grid.quickNote.has_value(); }},
    };
    for (qsizetype only = 0; only <= cases.size(); ++only) {
        open([&](ExerciseSettings& settings) {
            for (qsizetype i = 0; i < cases.size(); ++i)
                settings.*cases.at(i).isOn = i == only;
        });
        const PracticeToolsGrid grid = model->toolsGrid();
        EXPECT_EQ(grid.numberOfOptionalToolsEnabled, only == cases.size() ? 0 : 1);
        for (qsizetype i = 0; i < cases.size(); ++i)
            EXPECT_EQ(cases.at(i).isThere(grid), i == only) << i << " with only " << only;
    }
    open();
    EXPECT_EQ(model->toolsGrid().numberOfOptionalToolsEnabled, 6);
}

TEST_F(PracticeToolsTest, TheTimersActionsRunTheTimers) {
    open();
    model->toolsGrid().timer.onStart(2);
    world.mainQueue.advance(10s);
    EXPECT_EQ(model->toolsGrid().timer.secondsRemaining, 110);
    model->toolsGrid().timer.onPause();
    EXPECT_FALSE(model->toolsGrid().timer.isRunning);
    model->toolsGrid().timer.onResume();
    EXPECT_TRUE(model->toolsGrid().timer.isRunning);
    model->toolsGrid().timer.onSave();
    EXPECT_EQ(model->sheetButtons().recentPracticeSessions.size(), 1);
    model->toolsGrid().timer.onStart(2);
    model->toolsGrid().timer.onCancel();
    EXPECT_FALSE(model->toolsGrid().timer.secondsRemaining);

    model->toolsGrid().stopwatch.onStart();
    world.mainQueue.advance(5s);
    model->toolsGrid().stopwatch.onPause();
    world.mainQueue.advance(5s);
    model->toolsGrid().stopwatch.onResume();
    EXPECT_TRUE(model->toolsGrid().stopwatch.isRunning);
    EXPECT_EQ(model->toolsGrid().stopwatch.secondsElapsed, 5);
    model->toolsGrid().stopwatch.onFinish(7);
    EXPECT_EQ(model->recentPracticeSessions().first().seconds, 7);
    model->toolsGrid().stopwatch.onStart();
    model->toolsGrid().stopwatch.onCancel();
    EXPECT_FALSE(model->toolsGrid().stopwatch.secondsElapsed);
}

TEST_F(PracticeToolsTest, CountersCountAndClearAsTheirRulesSay) {
    for (const bool downOnUp : {false, true}) {
        for (const bool upOnDown : {false, true}) {
            open([&](ExerciseSettings& settings) {
                settings.clearThumbsDownOnThumbsUp = downOnUp;
                settings.clearThumbsUpOnThumbsDown = upOnDown;
            });
            EXPECT_EQ(bool(model->toolsGrid().thumbsUp->onThumbsDownCleared), downOnUp);
            EXPECT_EQ(bool(model->toolsGrid().thumbsDown->onThumbsUpCleared), upOnDown);
            count(7, 2);
            model->thumbsUpTapped();
            expectCounts(8, downOnUp ? 0 : 2, "a tap on thumbs up");
            count(7, 2);
            model->thumbsDownTapped();
            expectCounts(upOnDown ? 0 : 7, 3, "a tap on thumbs down");
            count(7, 2);
            model->thumbsUpLongPressed();
            expectCounts(0, 2, "a long press on thumbs up");
            model->thumbsDownLongPressed();
            expectCounts(0, 0, "a long press on thumbs down");
        }
    }
    EXPECT_EQ(model->thumbsUpLabel(), QStringLiteral("thumbs up counter ")) << "with the blank";
    count(1, 120);
    EXPECT_EQ(model->thumbsUpLabel(), QStringLiteral("thumbs up counter 1"));
    EXPECT_EQ(model->thumbsDownLabel(), QStringLiteral("thumbs down counter 120"));
}

TEST_F(PracticeToolsTest, AnotherTempoClearsAndTheSameDoesNot) {
    struct Way {
        const char* name;
        std::function<void()> change;
        bool clears;
    };
    const QList<Way> ways = {
        {"plus", [this] { metronome().plusTapped(); }, true},
        {"a bookmark", [this] { model->chooseBookmark(1); }, true},
        {"typing",
         [this] {
             metronome().setTempoTextFieldFocused(true);
             metronome().setTempoTextFieldText(QStringLiteral("77"));
             metronome().setTempoTextFieldFocused(false);
         },
         true},
        {"tapping",
         [this] {
             model->tapTempoTapped();
             world.clock.advance(500ms);
             model->tapTempoTapped();
         },
         true},
        {"the same bookmark", [this] { model->chooseBookmark(0); }, false},
        {"the same tempo", [this] { metronome().setTempo(60); }, false},
        {"no bookmark above", [this] { metronome().downTapped(); }, false},
    };
    for (const Way& way : ways) {
        for (const bool upClears : {false, true}) {
            for (const bool downClears : {false, true}) {
                open([&](ExerciseSettings& settings) {
                    settings.bookmarks = {60, 90};
                    settings.clearThumbsUpOnTempoChanges = upClears;
                    settings.clearThumbsDownOnTempoChanges = downClears;
                });
                count(7, 2);
                way.change();
                expectCounts(way.clears && upClears ? 0 : 7, way.clears && downClears ? 0 : 2, way.name);
            }
        }
    }
}

TEST_F(PracticeToolsTest, BookmarksAreAddedInOrderAndRemovedWhole) {
    open([](ExerciseSettings& settings) { settings.bookmarks = {120, 60, 90, 60}; });
    EXPECT_TRUE(model->tempoIsBookmarked());
    model->bookmarkTapped();
    EXPECT_EQ(stored().bookmarks, (QList<qint64>{120, 90})) << "each of that tempo is gone, the rest as it was";
    EXPECT_EQ(model->bookmarkLabel(), QStringLiteral("Add bookmark 60"));
    metronome().setTempo(100);
    model->bookmarkTapped();
    EXPECT_EQ(stored().bookmarks, (QList<qint64>{90, 100, 120}));
    EXPECT_EQ(model->bookmarkLabel(), QStringLiteral("Remove bookmark 100"));
    metronome().upTapped();
    EXPECT_EQ(metronome().tempo(), 120) << "the buttons know the new bookmarks";
}

TEST_F(PracticeToolsTest, TheMenuShowsTheShareOfTheGoal) {
    struct Case {
        qint64 goal;
        bool autoSaved;
        QList<qint64> bookmarks;
        QStringList shares;
    };
    for (const Case& test :
         {Case{120, false, {60, 90}, {QStringLiteral("50%"), QStringLiteral("75%")}},
          Case{120, true, {60, 90}, {QString(), QString()}}, Case{300, false, {100}, {QStringLiteral("33%")}},
          Case{400, false, {50, 600}, {QStringLiteral("13%"), QStringLiteral("150%")}},
          Case{200, false, {57, 115}, {QStringLiteral("29%"), QStringLiteral("58%")}},
          Case{0, false, {60}, {QString()}}}) {
        open([&](ExerciseSettings& settings) {
            settings.tempo = test.goal;
            settings.autoSavedTempo = test.autoSaved;
            settings.bookmarks = test.bookmarks;
        });
        const auto options = model->bookmarkOptions();
        ASSERT_EQ(options.size(), test.bookmarks.size());
        for (qsizetype i = 0; i < options.size(); ++i) {
            EXPECT_EQ(options.at(i).title, QString::number(test.bookmarks.at(i)));
            EXPECT_EQ(options.at(i).detail, test.shares.at(i)) << test.goal;
        }
        model->chooseBookmark(0);
        EXPECT_EQ(metronome().tempo(), test.bookmarks.first());
    }
    model->chooseBookmark(7);
    EXPECT_EQ(metronome().tempo(), 60) << "there is no such entry";
}

TEST_F(PracticeToolsTest, WithoutBookmarksALongPressSaysSo) {
    open();
    EXPECT_FALSE(model->bookmarksLongPressed());
    EXPECT_TRUE(model->notice()->isShown());
    model->bookmarkTapped();
    EXPECT_TRUE(model->bookmarksLongPressed());
}

TEST_F(PracticeToolsTest, TheOwnerSavesTheTempoWhenItIsNotSavedByItself) {
    open([](ExerciseSettings& settings) {
        settings.autoSavedTempo = false;
        settings.tempo = 120;
    });
    EXPECT_EQ(model->saveTempoText(), QString()) << "there is nothing to save";
    metronome().setTempo(126);
    EXPECT_EQ(model->saveTempoText(), QStringLiteral("Save 126"));
    EXPECT_EQ(stored().tempo, 120);
    model->saveTempo();
    EXPECT_EQ(stored().tempo, 126);
    EXPECT_EQ(model->savedTempoText(), QStringLiteral("BPM"));
    EXPECT_EQ(model->saveTempoText(), QString());
    EXPECT_EQ(model->notice()->text(), QStringLiteral("Tempo 126 saved"));

    open();
    metronome().setTempo(126);
    EXPECT_EQ(model->saveTempoText(), QString()) << "it is saved already";
}

TEST_F(PracticeToolsTest, SwitchingTheSavingOnOrOffSavesTheShownTempo) {
    open();
    metronome().setTempo(132);
    model->setIsShowingSettings(true);
    ExerciseSettingsViewModel* sheet = model->settingsViewModel();
    sheet->setAutoSavedTempo(false);
    EXPECT_EQ(sheet->autoSavedTempoSubtitle(), QStringLiteral("Open to last saved tempo: 132"));
    model->setIsShowingSettings(false);
    metronome().setTempo(90);
    EXPECT_EQ(stored().tempo, 132);
    model->setIsShowingSettings(true);
    sheet = model->settingsViewModel();
    sheet->setAutoSavedTempo(true);
    EXPECT_EQ(stored().tempo, 90);
    sheet->setOn(QStringLiteral("tap_tempo"), false);
    sheet->setAutoSavedTempo(false);
    EXPECT_EQ(stored().tempo, 90) << "not the tempo of before";
    EXPECT_FALSE(model->hasTapTempo());
}

TEST_F(PracticeToolsTest, TheRhythmsMenuHasTheSixteen) {
    open();
    const auto tool = *model->toolsGrid().rhythms;
    ASSERT_EQ(tool.menuOptions.size(), 16);
    EXPECT_EQ(tool.menuOptions.first().text, QString());
    EXPECT_EQ(tool.menuOptions.at(2).text, QStringLiteral("Triplets"));
    EXPECT_EQ(model->rhythmOptions().first().title, QStringLiteral("Plain")) << "no entry of the menu is blank";
    model->chooseRhythm(2);
    EXPECT_EQ(world.singletons->metronome.rhythmSelection(), Rhythm::triplets);
    EXPECT_EQ(model->toolsGrid().rhythms->selection, Rhythm::triplets);
    EXPECT_TRUE(model->rhythmOptions().at(2).selected);
    model->chooseRhythm(16);
    EXPECT_EQ(model->rhythmText(), QStringLiteral("Triplets"));

    model->setIsShowingSettings(true);
    model->settingsViewModel()->setOn(QStringLiteral("beat_patterns"), false);
    EXPECT_EQ(world.singletons->metronome.rhythmSelection(), Rhythm::zeroFour) << "nothing could lead back from it";
}

TEST_F(PracticeToolsTest, SnippetsSayHowThePracticeStands) {
    struct Case {
        bool up;
        bool down;
        QStringList snippets;
    };
    const QString tempo = QStringLiteral("Tempo: 60");
    const QString up = QStringLiteral("Thumbs Up: 7");
    const QString down = QStringLiteral("Thumbs Down: 2");
    for (const Case& test : {Case{true, true, {tempo, up, down}}, Case{true, false, {tempo, up}},
                             Case{false, true, {tempo, down}}, Case{false, false, {tempo}}}) {
        open();
        count(7, 2);
        model->setIsShowingSettings(true);
        model->settingsViewModel()->setOn(QStringLiteral("thumbs_up_counter"), test.up);
        model->settingsViewModel()->setOn(QStringLiteral("thumbs_down_counter"), test.down);
        QStringList offered;
        for (const ToolMenuOption& option : model->snippetOptions())
            offered += option.title;
        EXPECT_EQ(offered, test.snippets);
    }
    open();
    model->thumbsUpTapped();
    const auto before = *model->toolsGrid().quickNote;
    EXPECT_EQ(before.practiceState.thumbsUp, 1);
    EXPECT_EQ(before.practiceState.tempo, 60);
    model->thumbsUpTapped();
    model->chooseSnippet(1);
    EXPECT_EQ(notes(), QStringList(QStringLiteral("Thumbs Up: 2"))) << "the count of the moment it is chosen";
    EXPECT_EQ(model->notice()->text(), QStringLiteral("Note saved"));
    EXPECT_EQ(world.singletons->notes.notes(scales)->first().date, world.clock.now());
    EXPECT_EQ(model->notesText(), QStringLiteral("Notes · 1"));
}

TEST_F(PracticeToolsTest, AQuickNoteIsKeptUntilItIsSavedOrDropped) {
    open();
    model->quickNoteTapped();
    EXPECT_TRUE(model->isShowingAddNoteTextField());
    model->setAddNoteTextFieldText(QStringLiteral("  "));
    model->saveNote();
    EXPECT_TRUE(notes().isEmpty()) << "a blank text is no note";
    model->setAddNoteTextFieldText(QStringLiteral("thumb under"));
    model->setIsShowingAddNoteTextField(false); // a press beside the field
    model->quickNoteTapped();
    EXPECT_EQ(model->addNoteTextFieldText(), QStringLiteral("thumb under"));
    model->insertSnippet(0);
    EXPECT_EQ(model->addNoteTextFieldText(), QStringLiteral("thumb under\nTempo: 60"));
    model->saveNote();
    EXPECT_EQ(notes(), QStringList(QStringLiteral("thumb under\nTempo: 60")));
    EXPECT_FALSE(model->isShowingAddNoteTextField());
    EXPECT_EQ(model->addNoteTextFieldText(), QString());
    model->setAddNoteTextFieldText(QStringLiteral("no"));
    model->dropNote();
    EXPECT_EQ(model->addNoteTextFieldText(), QString());
    EXPECT_EQ(notes().size(), 1);
    model->setAddNoteTextFieldText(QStringLiteral("slower"));
    model->leave();
    model->leave();
    EXPECT_EQ(notes().size(), 2) << "what was typed and neither saved nor dropped when the item is left, once";
}

TEST_F(PracticeToolsTest, ANoticeEndsByItselfAndNotBeforeItsTime) {
    open();
    model->chooseSnippet(0);
    world.mainQueue.advance(TimedNotice::confirmationTime - 1ms);
    model->chooseSnippet(0);
    world.mainQueue.advance(TimedNotice::confirmationTime - 1ms);
    EXPECT_TRUE(model->notice()->isShown()) << "the end of the first does not end the second";
    world.mainQueue.advance(1ms);
    EXPECT_FALSE(model->notice()->isShown());
    model->chooseSnippet(0);
    model.reset();
    world.mainQueue.advance(1h); // nothing is left that would touch it
}

} // namespace
} // namespace tamsel
