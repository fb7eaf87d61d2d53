#include "practice/ExerciseSettingsViewModel.h"

#include "model/StoredSettings.h"
#include "practice/PracticeViewModel.h"
#include "tests/support/World.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class ExerciseSettingsViewModelTest : public testing::Test {
protected:
    ExerciseSettingsViewModelTest() {
        world.singletons->exercises.setItems({scales, etude});
        open();
    }

    void open(const ExerciseSettings& settings = {}) {
        sheet = std::make_unique<ExerciseSettingsViewModel>(
            *world.singletons, world.mainQueue, scales, settings,
            [this](const Exercise& exercise) { renamed += exercise; },
            [this](const ExerciseSettings& changed) { reported += changed; });
    }

    void rename(const QString& name) {
        sheet->setExerciseNameFieldFocused(true);
        sheet->setExerciseNameTextFieldText(name);
        sheet->setExerciseNameFieldFocused(false);
    }

    // Until the history's own queue has handed its work back.
    bool historyIsRenamed(const QString& name) {
        return QTest::qWaitFor([&] {
            world.mainQueue.runDue();
            return world.singletons->history.events().first().exerciseName == name;
        });
    }

    QString storedName() { return world.singletons->exercises.items().first().name; }

    test::World world;
    const Exercise scales{QStringLiteral("C Major Scales"), test::SequentialUuids::numbered(101)};
    const Exercise etude{QStringLiteral("Étude 9"), test::SequentialUuids::numbered(102)};
    QList<Exercise> renamed;
    QList<ExerciseSettings> reported;
    std::unique_ptr<ExerciseSettingsViewModel> sheet;
};

TEST_F(ExerciseSettingsViewModelTest, EachFlipOfASwitchIsReportedOnceWithAllFields) {
    ExerciseSettings expected;
    expected.bookmarks = {60, 90};
    expected.thumbsUpCounterEnabled = expected.thumbsDownCounterEnabled = true;
    open(expected);
    struct Case {
        const char* id;
        bool ExerciseSettings::*field;
    };
    for (const Case& test :
         {Case{"quick_notes", &ExerciseSettings::quickNotesEnabled},
          Case{"beat_patterns", &ExerciseSettings::subdivisionsEnabled},
          Case{"tap_tempo", &ExerciseSettings::tapTempoEnabled},
          Case{"bookmarked_tempi", &ExerciseSettings::bookmarksEnabled},
          Case{"standard_bpm", &ExerciseSettings::snapToStandardTempi},
          Case{"saved_tempo", &ExerciseSettings::autoSavedTempo},
          Case{"clear_thumbs_up_on_tempo_changes", &ExerciseSettings::clearThumbsUpOnTempoChanges},
          Case{"clear_thumbs_down_on_tempo_changes", &ExerciseSettings::clearThumbsDownOnTempoChanges},
          Case{"clear_thumbs_up_on_thumbs_down", &ExerciseSettings::clearThumbsUpOnThumbsDown},
          Case{"clear_thumbs_down_on_thumbs_up", &ExerciseSettings::clearThumbsDownOnThumbsUp},
          Case{"thumbs_up_counter", &ExerciseSettings::thumbsUpCounterEnabled},
          Case{"thumbs_down_counter", &ExerciseSettings::thumbsDownCounterEnabled}}) {
        reported.clear();
        const bool on = !(expected.*test.field);
        expected.*test.field = on;
        sheet->setOn(QString::fromLatin1(test.id), on);
        sheet->setOn(QString::fromLatin1(test.id), on);
        EXPECT_EQ(reported, QList<ExerciseSettings>{expected}) << test.id;
        EXPECT_EQ(sheet->exerciseSettings(), expected) << test.id;
    }
    reported.clear();
    sheet->setOn(QStringLiteral("clear_thumbs_up_on_tempo_changes"), true);
    sheet->adopt({});
    EXPECT_TRUE(reported.isEmpty()) << "a rule that is not offered, and what the screen made of the settings";
}

TEST_F(ExerciseSettingsViewModelTest, TheSwitchesAreTheSheets) {
    QStringList lines;
    for (const PracticeToolToggle& toggle : ExerciseSettingsViewModel::practiceToolToggles()) {
        lines += QStringList{toggle.id, toggle.label->systemImage.value_or(QString()), toggle.label->title,
                             toggle.subtitle.value_or(QString())}
                     .join(QLatin1Char('|'));
    }
    EXPECT_EQ(lines.join(QLatin1Char('\n')).toStdString(),
              "thumbs_up_counter|hand.thumbsup|Counter|Tap to increase, long-press to clear\n"
              "thumbs_down_counter|hand.thumbsdown|Counter|Tap to increase, long-press to clear\n"
              "quick_notes|text.badge.plus|Quick Notes|Long-press for quick snippets\n"
              "beat_patterns|music.quarternote.3|Subdivisions|\n"
              "tap_tempo|hand.tap|Tap Tempo|\n"
              "bookmarked_tempi|bookmark|Tempo Bookmarks|Long-press to select a saved tempo");
    const auto subtitles = [this] {
        return sheet->autoSavedTempoSubtitle() + QStringLiteral(" / ") + *sheet->standardBPMToggle().subtitle;
    };
    EXPECT_EQ(subtitles(), QStringLiteral("Open to last used tempo / +/- by 1, long-press for 10"));
    sheet->setOn(QStringLiteral("saved_tempo"), false);
    sheet->setOn(QStringLiteral("standard_bpm"), true);
    EXPECT_EQ(subtitles(), QStringLiteral("Open to last saved tempo: 60 / +/- by traditional values"));
}

TEST_F(ExerciseSettingsViewModelTest, WhichRulesAreOfferedDependsOnTheCounters) {
    const QString upOnTempo = QStringLiteral("clear_thumbs_up_on_tempo_changes");
    const QString downOnTempo = QStringLiteral("clear_thumbs_down_on_tempo_changes");
    const QString upOnDown = QStringLiteral("clear_thumbs_up_on_thumbs_down");
    const QString downOnUp = QStringLiteral("clear_thumbs_down_on_thumbs_up");
    struct Case {
        bool up;
        bool down;
        QStringList rules;
    };
    for (const Case& test : {Case{true, true, {upOnTempo, downOnTempo, upOnDown, downOnUp}},
                             Case{true, false, {upOnTempo}}, Case{false, true, {downOnUp}}, Case{false, false, {}}}) {
        sheet->setOn(QStringLiteral("thumbs_up_counter"), test.up);
        sheet->setOn(QStringLiteral("thumbs_down_counter"), test.down);
        QStringList offered;
        for (const ToggleListModel::Row& row : sheet->clearingRules()->rows())
            offered += row.identifier;
        EXPECT_EQ(offered, test.rules);
        EXPECT_EQ(sheet->hasClearingRules(), !test.rules.isEmpty());
    }
}

TEST_F(ExerciseSettingsViewModelTest, ARenameGoesThroughAllStores) {
    world.singletons->history.record(*PracticeSession::make(world.clock.now(), scales, 120, SessionType::timer));
    const Exercise expected{QStringLiteral("D Major Scales"), scales.id};
    rename(expected.name);
    EXPECT_EQ(storedName(), expected.name);
    EXPECT_EQ(world.singletons->dailyLog.practiceSessions().first().exercise, expected);
    EXPECT_TRUE(renamed.isEmpty()) << "not before the history is done";
    ASSERT_TRUE(historyIsRenamed(expected.name));
    world.mainQueue.runDue();
    EXPECT_EQ(renamed, QList<Exercise>{expected});
    EXPECT_EQ(sheet->exercise(), expected);
    rename(expected.name);
    EXPECT_EQ(renamed.size(), 1);
}

TEST_F(ExerciseSettingsViewModelTest, NamesThatChangeNothing) {
    rename(QString());
    rename(scales.name);
    EXPECT_EQ(storedName(), scales.name);
    rename(QStringLiteral(" "));
    EXPECT_EQ(storedName(), QStringLiteral(" ")) << "one space is a name";
}

TEST_F(ExerciseSettingsViewModelTest, ASheetThatIsGoneHearsNothingAndTheHistoryIsRenamedAllTheSame) {
    world.singletons->history.record(*PracticeSession::make(world.clock.now(), scales, 120, SessionType::timer));
    rename(QStringLiteral("D"));
    sheet.reset();
    ASSERT_TRUE(historyIsRenamed(QStringLiteral("D")));
    world.mainQueue.runDue();
    EXPECT_TRUE(renamed.isEmpty());
}

// The sheet as the practice screen opens it.

TEST_F(ExerciseSettingsViewModelTest, ARenameKeepsTheRunAndTheScreenGoesByTheStoredName) {
    world.singletons->history.record(*PracticeSession::make(world.clock.now(), scales, 60, SessionType::timer));
    PracticeViewModel practice(*world.singletons, world.platform, scales, 1);
    practice.startTimer(5);
    world.mainQueue.advance(90s);
    practice.settingsTapped();
    practice.settingsViewModel()->setExerciseNameTextFieldText(QStringLiteral("D"));
    practice.setIsShowingSettings(false); // while the field has the keyboard
    EXPECT_EQ(practice.exerciseName(), QStringLiteral("D"));
    EXPECT_TRUE(practice.timerIsRunning());
    EXPECT_EQ(practice.recentPracticeSessions().size(), 1) << "what was practised under the old name";
    world.mainQueue.advance(30s);
    practice.saveTimer();
    EXPECT_EQ(practice.recentPracticeSessions().first(),
              (PracticeSession{world.clock.now() - 120.0, {QStringLiteral("D"), scales.id}, 120, SessionType::timer}));
    EXPECT_EQ(world.singletons->history.events().last().exerciseName, QStringLiteral("D"));
    ASSERT_TRUE(historyIsRenamed(QStringLiteral("D")));
    EXPECT_EQ(world.singletons->history.events().size(), 2);

    world.singletons->exercises.rename({QStringLiteral("D"), scales.id}, QStringLiteral("E"));
    EXPECT_EQ(practice.exerciseName(), QStringLiteral("E")) << "renamed elsewhere";
    practice.settingsTapped();
    practice.settingsViewModel()->setExerciseNameTextFieldText(QStringLiteral("F"));
    practice.leave();
    EXPECT_EQ(storedName(), QStringLiteral("F")) << "a name that was typed when the window closed";
}

TEST_F(ExerciseSettingsViewModelTest, ChangesAreStoredAndAppliedAtOnce) {
    PracticeViewModel practice(*world.singletons, world.platform, scales, 1);
    practice.settingsTapped();
    practice.settingsViewModel()->setOn(QStringLiteral("standard_bpm"), true);
    EXPECT_TRUE(storedSettings(world.store, scales.id)->snapToStandardTempi);
    practice.metronomeViewModel()->plusTapped();
    EXPECT_EQ(practice.metronomeViewModel()->tempo(), 63);
    EXPECT_EQ(practice.settingsViewModel()->exerciseSettings().tempo, 63) << "the sheet knows what was saved";
}

} // namespace
} // namespace tamsel
