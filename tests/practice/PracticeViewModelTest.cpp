#include "practice/PracticeViewModel.h"

#include "model/SettingsKeys.h"
#include "model/StoredSettings.h"
#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class PracticeViewModelTest : public testing::Test {
protected:
    void open() { model = std::make_unique<PracticeViewModel>(*world.singletons, world.platform, scales, 1); }
    const QList<PracticeSession>& log() { return world.singletons->dailyLog.practiceSessions(); }
    const QList<HistoryEvent>& events() { return world.singletons->history.events(); }
    MetronomeViewModel& metronome() { return *model->metronomeViewModel(); }

    test::World world;
    const Exercise scales{QStringLiteral("C Major Scales"), test::SequentialUuids::numbered(101)};
    std::unique_ptr<PracticeViewModel> model;
};

TEST_F(PracticeViewModelTest, OpeningPushesTheItemsTempo) {
    ExerciseSettings settings;
    settings.tempo = 84;
    storeSettings(world.store, scales.id, settings);
    open();
    EXPECT_EQ(metronome().tempo(), 84);
    EXPECT_EQ(world.singletons->metronome.tempoBPM(), 84.0);
}

TEST_F(PracticeViewModelTest, TheTempoIsRememberedUnlessItsOwnerSavesIt) {
    open();
    metronome().plusTapped();
    EXPECT_EQ(storedSettings(world.store, scales.id)->tempo, 61);
    EXPECT_EQ(model->savedTempoText(), QStringLiteral("BPM"));

    ExerciseSettings own;
    own.autoSavedTempo = false;
    own.tempo = 120;
    storeSettings(world.store, scales.id, own);
    open();
    metronome().plusTapped();
    EXPECT_EQ(storedSettings(world.store, scales.id), own);
    EXPECT_EQ(model->savedTempoText(), QStringLiteral("BPM · saved 120"));
    metronome().minusTapped();
    EXPECT_EQ(model->savedTempoText(), QStringLiteral("BPM"));
}

TEST_F(PracticeViewModelTest, TheElevenTimersAreNamedByTheirMinutes) {
    open();
    QStringList titles;
    for (const TimerMenuOption& option : model->timerMenuOptions()) {
        titles += option.title;
        EXPECT_EQ(option.title, QStringLiteral("%1:00").arg(option.minutes));
        EXPECT_EQ(option.identifier, QStringLiteral("%1 minute timer").arg(option.minutes));
    }
    EXPECT_EQ(titles.join(QLatin1Char(' ')),
              QStringLiteral("1:00 2:00 3:00 4:00 5:00 10:00 15:00 20:00 30:00 45:00 60:00"));
}

TEST_F(PracticeViewModelTest, SavingATimerRecordsWhatWasPractised) {
    struct Case {
        std::chrono::milliseconds after;
        qint64 seconds; // 0: nothing is recorded
        qint64 minutes; // 0: no event
    };
    for (const Case& test : {Case{2'999ms, 0, 0}, Case{3'000ms, 3, 0}, Case{30'500ms, 30, 0}, Case{59'999ms, 59, 0},
                             Case{125'000ms, 125, 2}}) {
        world.store = MemorySettingsStore();
        model.reset();
        world.restart();
        open();
        model->startTimer(5);
        EXPECT_EQ(model->timerText(), QStringLiteral("05:00"));
        world.mainQueue.advance(test.after);
        model->saveTimer();
        EXPECT_FALSE(model->timerExists());
        EXPECT_FALSE(model->timerIsRunning());
        ASSERT_EQ(log().size(), test.seconds == 0 ? 0 : 1) << test.after.count();
        if (test.seconds != 0) {
            EXPECT_EQ(log().first(), (PracticeSession{world.clock.now() - static_cast<double>(test.seconds), scales,
                                                      test.seconds, SessionType::timer}));
            EXPECT_EQ(model->recentPracticeSessions(), log());
        }
        ASSERT_EQ(events().size(), test.minutes == 0 ? 0 : 1);
        if (test.minutes != 0) {
            EXPECT_EQ(events().first().practiceTime, test.minutes);
        }
    }
}

TEST_F(PracticeViewModelTest, ATimerShowsZeroForASecondAndThenEndsWithThreeAlerts) {
    open();
    model->startTimer(1);
    world.mainQueue.advance(60s);
    EXPECT_EQ(model->timerText(), QStringLiteral("00:00"));
    EXPECT_EQ(model->timerProgress(), 1.0);
    EXPECT_TRUE(log().isEmpty());
    world.mainQueue.advance(1s);
    EXPECT_FALSE(model->timerExists());
    ASSERT_EQ(log().size(), 1);
    EXPECT_EQ(log().first().seconds, 60);

    const auto loudest = [this] {
        float peak = 0;
        for (const float sample : world.output.render(441))
            peak = std::max(peak, std::abs(sample));
        return peak;
    };
    EXPECT_GT(loudest(), 0.1F) << "the first alert sounds at once";
    // The other two come 110 ms apart, in time of the queue.
    world.output.render(44100);
    EXPECT_EQ(loudest(), 0.0F);
    world.mainQueue.advance(109ms);
    EXPECT_EQ(loudest(), 0.0F);
    world.mainQueue.advance(1ms);
    EXPECT_GT(loudest(), 0.1F);
    world.output.render(44100);
    world.mainQueue.advance(110ms);
    EXPECT_GT(loudest(), 0.1F);
    world.output.render(44100);
    world.mainQueue.advance(10s);
    EXPECT_EQ(loudest(), 0.0F) << "three and no more";
}

TEST_F(PracticeViewModelTest, WithTheMetronomePlayingTheEndOfTheTimerStopsIt) {
    open();
    metronome().setIsPlaying(true);
    model->startTimer(1);
    world.mainQueue.advance(61s);
    EXPECT_FALSE(metronome().isPlaying());
    EXPECT_EQ(log().size(), 1);
    world.mainQueue.advance(1s);
    for (const float sample : world.output.render(44100))
        ASSERT_EQ(sample, 0.0F) << "no alert";
}

TEST_F(PracticeViewModelTest, PausedTimeDoesNotCount) {
    open();
    model->startTimer(2);
    world.mainQueue.advance(10'600ms);
    model->pauseTimer();
    EXPECT_FALSE(model->timerIsRunning());
    EXPECT_TRUE(model->timerExists());
    world.mainQueue.advance(1h);
    EXPECT_EQ(model->timerText(), QStringLiteral("01:50"));
    model->resumeTimer();
    world.mainQueue.advance(400ms);
    EXPECT_EQ(model->timerText(), QStringLiteral("01:49")) << "the fraction of the second was kept";
    model->cancelTimer();
    EXPECT_FALSE(model->timerExists());
    model->resumeTimer();
    EXPECT_FALSE(model->timerIsRunning()) << "there is nothing to resume";
    EXPECT_TRUE(log().isEmpty());
}

TEST_F(PracticeViewModelTest, AStrayTickChangesNothing) {
    open();
    const test::LogCapture console;
    model->onTimerTick();
    EXPECT_EQ(console.lines(), QStringList(QStringLiteral("onTimerTick.earlyReturn")));
    EXPECT_FALSE(model->timerExists());
}

TEST_F(PracticeViewModelTest, TheStopwatchCountsAndSaysSo) {
    open();
    const test::LogCapture console;
    model->startStopwatch();
    world.mainQueue.advance(2s);
    model->pauseStopwatch();
    world.mainQueue.advance(5s);
    model->resumeStopwatch();
    world.mainQueue.advance(2s);
    EXPECT_EQ(model->stopwatchText(), QStringLiteral("00:04"));
    model->finishStopwatch();
    EXPECT_FALSE(model->stopwatchExists());
    const QStringList expected = {QStringLiteral("stopwatchSeconds: 0"),
                                  QStringLiteral("stopwatchIsTicking: true"),
                                  QStringLiteral("stopwatchSeconds: 1"),
                                  QStringLiteral("stopwatchSeconds: 2"),
                                  QStringLiteral("stopwatchIsTicking: false"),
                                  QStringLiteral("stopwatchIsTicking: true"),
                                  QStringLiteral("stopwatchSeconds: 3"),
                                  QStringLiteral("stopwatchSeconds: 4"),
                                  QStringLiteral("PracticeViewModel.saveAndStopRunningSessionIfAble"),
                                  QStringLiteral("stopwatchIsTicking: false")};
    EXPECT_EQ(console.lines(), expected);
    ASSERT_EQ(log().size(), 1);
    EXPECT_EQ(log().first().type, SessionType::stopwatch);
    EXPECT_EQ(log().first().seconds, 4);

    model->startStopwatch();
    world.mainQueue.advance(9s);
    model->cancelStopwatch();
    EXPECT_EQ(log().size(), 1);
}

TEST_F(PracticeViewModelTest, OneSaveEndsTheTimerFirstAndLeavingEndsBoth) {
    open();
    model->startStopwatch();
    world.mainQueue.advance(10s);
    model->startTimer(5);
    world.mainQueue.advance(10s);
    EXPECT_FALSE(model->canStartTimer());
    EXPECT_FALSE(model->canStartStopwatch());
    model->saveAndStopRunningSessionIfAble();
    ASSERT_EQ(log().size(), 1);
    EXPECT_EQ(log().first().type, SessionType::timer);
    EXPECT_TRUE(model->stopwatchIsRunning());
    model->startTimer(5);
    world.mainQueue.advance(10s);
    model->leave();
    ASSERT_EQ(log().size(), 3);
    EXPECT_EQ(log().at(1).seconds, 10);
    EXPECT_EQ(log().at(2).seconds, 30);
    EXPECT_FALSE(model->timerExists() || model->stopwatchExists());
    model->leave();
    EXPECT_EQ(log().size(), 3);
}

TEST_F(PracticeViewModelTest, ASessionAcrossMidnightShowsWhenItIsSaved) {
    open();
    world.mainQueue.advance(11h + 50min); // 23:50
    model->startTimer(60);
    world.mainQueue.advance(20min);
    model->saveTimer();
    ASSERT_EQ(model->recentPracticeSessions().size(), 1);
    EXPECT_EQ(model->todayText(), QStringLiteral("Today 20m"));
}

TEST_F(PracticeViewModelTest, RecentSessionsAreTodaysOfThisItemNewestFirst) {
    open();
    EXPECT_EQ(model->todayText(), QString());
    const Exercise other{QStringLiteral("Étude 9"), test::SequentialUuids::numbered(102)};
    const auto record = [this](const Exercise& exercise, qint64 seconds, SessionType type) {
        world.singletons->history.record(*PracticeSession::make(world.clock.now(), exercise, seconds, type));
    };
    record(scales, 1500, SessionType::timer);
    record(other, 600, SessionType::timer);
    open();
    record(scales, 42, SessionType::stopwatch);
    const auto rows = model->recentPracticeSessionRows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(0).title, QStringLiteral("00:42"));
    EXPECT_EQ(rows.at(0).detail, QStringLiteral("Stopwatch"));
    EXPECT_EQ(rows.at(1).title, QStringLiteral("25m"));
    EXPECT_EQ(model->todayText(), QStringLiteral("Today 25m"));
}

} // namespace
} // namespace tamsel
