#include "metronome/MetronomeViewModel.h"

#include "metronome/Metronome.h"
#include "metronome/OfflineOutput.h"
#include "metronome/StandardTempos.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManualQueue.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

ExerciseSettings settingsWith(qint64 tempo, bool snap, QList<qint64> bookmarks = {}) {
    ExerciseSettings settings;
    settings.tempo = tempo;
    settings.snapToStandardTempi = snap;
    settings.bookmarks = std::move(bookmarks);
    return settings;
}

class MetronomeViewModelTest : public testing::Test {
protected:
    std::unique_ptr<MetronomeViewModel> make(std::optional<ExerciseSettings> settings) {
        return std::make_unique<MetronomeViewModel>(false, std::move(settings), metronome, clock, mainQueue);
    }

    test::FakeClock clock;
    test::ManualQueue mainQueue{clock};
    OfflineOutput output;
    test::FakeAudioSession session;
    Metronome metronome{output, session};
};

TEST(StandardTempos, StepAlongTheTableAndStopAtItsEnds) {
    EXPECT_EQ(standardTempos::above(120), 126);
    EXPECT_EQ(standardTempos::above(25), 30);
    EXPECT_EQ(standardTempos::above(252), 252);
    EXPECT_EQ(standardTempos::above(400), 400);
    EXPECT_EQ(standardTempos::below(120), 116);
    EXPECT_EQ(standardTempos::below(30), 30);
    EXPECT_EQ(standardTempos::below(12), 12);
    EXPECT_EQ(standardTempos::nearest(61.5), 60) << "of two equally close ones the lower";
    EXPECT_EQ(standardTempos::nearest(61.6), 63);
    EXPECT_EQ(standardTempos::nearest(-5), 30);
    EXPECT_EQ(standardTempos::nearest(9999), 252);
    // Up the whole table and down again.
    qint64 tempo = 1;
    int steps = 0;
    while (standardTempos::above(tempo) != tempo) {
        const qint64 next = standardTempos::above(tempo);
        if (steps > 0) {
            EXPECT_EQ(standardTempos::below(next), tempo);
        }
        tempo = next;
        ++steps;
    }
    EXPECT_EQ(steps, 49);
}

TEST_F(MetronomeViewModelTest, ShowsTheItemsTempoAndLeavesTheMetronomesAlone) {
    metronome.setRhythmSelection(Rhythm::fourFour);
    const test::LogCapture log;
    const auto model = make(settingsWith(88, false));
    EXPECT_EQ(model->tempo(), 88);
    EXPECT_EQ(model->tempoTextFieldText(), QStringLiteral("88"));
    EXPECT_EQ(metronome.tempoBPM(), 120.0);
    EXPECT_EQ(metronome.rhythmSelection(), Rhythm::zeroFour);
    EXPECT_EQ(log.lines().last(), QStringLiteral("MetronomeViewModel.init"));
    EXPECT_EQ(make(std::nullopt)->tempo(), 120);
}

TEST_F(MetronomeViewModelTest, ButtonsStepTheTempo) {
    using Action = void (MetronomeViewModel::*)();
    struct Case {
        qint64 from;
        bool snap;
        Action action;
        qint64 to;
    };
    const Action plus = &MetronomeViewModel::plusTapped;
    const Action plusLong = &MetronomeViewModel::plusLongPressed;
    const Action minus = &MetronomeViewModel::minusTapped;
    const Action minusLong = &MetronomeViewModel::minusLongPressed;
    const Case cases[] = {
        {120, true, plus, 126},      {120, true, minus, 116},     {120, true, plusLong, 240},
        {120, true, minusLong, 60},  {252, true, plus, 252},      {30, true, minus, 30},
        {25, true, plus, 30},        {121, true, minusLong, 60},  {300, true, plusLong, 252},
        {120, false, plus, 121},     {120, false, minus, 119},    {500, false, plus, 500},
        {1, false, minus, 1},        {495, false, plusLong, 500}, {5, false, minusLong, 1},
        {100, false, plusLong, 110}, {100, false, minusLong, 90},
    };
    for (const Case& test : cases) {
        const auto model = make(settingsWith(test.from, test.snap));
        (*model.*test.action)();
        EXPECT_EQ(model->tempo(), test.to) << test.from << (test.snap ? " by standard steps" : " by ones");
        EXPECT_EQ(metronome.tempoBPM(), static_cast<double>(test.to));
        EXPECT_EQ(model->tempoTextFieldText(), QString::number(test.to));
    }
}

TEST_F(MetronomeViewModelTest, UpAndDownStepThroughTheBookmarksInStoredOrder) {
    const auto model = make(settingsWith(100, false, {60, 90, 110, 140}));
    model->upTapped();
    EXPECT_EQ(model->tempo(), 110);
    model->upTapped();
    model->upTapped();
    EXPECT_EQ(model->tempo(), 140) << "there is none above";
    EXPECT_FALSE(model->canStepUp());
    model->downTapped();
    EXPECT_EQ(model->tempo(), 110);
    EXPECT_TRUE(model->canStepDown());

    const auto unordered = make(settingsWith(100, false, {140, 110, 60, 90}));
    unordered->upTapped();
    EXPECT_EQ(unordered->tempo(), 140) << "the first stored one that is greater";

    const auto none = make(std::nullopt);
    none->upTapped();
    none->downTapped();
    EXPECT_EQ(none->tempo(), 120);
    EXPECT_FALSE(none->canStepUp() || none->canStepDown());
}

TEST_F(MetronomeViewModelTest, TappedTempoWeighsTheNewestInterval) {
    const auto tapAfter = [this](MetronomeViewModel& model, double seconds) {
        clock.wall = clock.wall + seconds;
        model.tapTempoTapped();
    };
    for (const bool snap : {false, true}) {
        const auto model = make(settingsWith(77, snap));
        tapAfter(*model, 0);
        EXPECT_EQ(model->tempo(), 77) << "one tap is no tempo";
        tapAfter(*model, 0.5);
        EXPECT_EQ(model->tempo(), 120);
        tapAfter(*model, 0.6);
        EXPECT_EQ(model->tempo(), snap ? 108 : 106);
        tapAfter(*model, 3.5);
        EXPECT_EQ(model->tempo(), snap ? 108 : 106) << "a pause begins a new run";
        tapAfter(*model, 3.0);
        EXPECT_EQ(model->tempo(), snap ? 30 : 20) << "three seconds is not over three seconds";
    }
}

TEST_F(MetronomeViewModelTest, AClockThatIsSetBetweenTapsChangesNothing) {
    const auto model = make(settingsWith(77, false));
    model->tapTempoTapped();
    model->tapTempoTapped();
    clock.wall = clock.wall - 1.0;
    model->tapTempoTapped();
    EXPECT_EQ(model->tempo(), 77);
}

TEST_F(MetronomeViewModelTest, TypedTempos) {
    struct Case {
        const char* typed;
        qint64 tempo;
    };
    const Case cases[] = {{"132", 132}, {"+64", 64}, {"0", 1},     {"-5", 1},
                          {"999", 500}, {"abc", 77}, {"", 77},     {"12.5", 77},
                          {" 90", 77},  {"+-5", 77}, {"0x10", 77}, {"99999999999999999999", 77}};
    for (const Case& test : cases) {
        const auto model = make(settingsWith(77, false));
        model->setTempoTextFieldFocused(true);
        EXPECT_EQ(model->tempoTextFieldText(), QString()) << "the field is emptied for a fresh number";
        model->setTempoTextFieldText(QString::fromLatin1(test.typed));
        model->setTempoTextFieldFocused(false);
        EXPECT_EQ(model->tempo(), test.tempo) << test.typed;
        EXPECT_EQ(model->tempoTextFieldText(), QString::number(test.tempo)) << test.typed;
    }
}

TEST_F(MetronomeViewModelTest, NotificationsComeOnlyWithAChange) {
    const auto model = make(settingsWith(100, false));
    int notified = 0;
    QObject::connect(model.get(), &MetronomeViewModel::tempoChanged, [&] { ++notified; });
    model->setTempo(101);
    model->setTempo(101);
    EXPECT_EQ(notified, 1);
}

TEST_F(MetronomeViewModelTest, ClicksFlashTheBellOnTheMainThread) {
    const auto model = make(settingsWith(120, false));
    model->setRhythmSelection(Rhythm::threeFour);
    model->takeCharge();
    EXPECT_EQ(model->beatIndicatorCount(), 3);
    EXPECT_EQ(model->beatIndicatorIndex(), -1);
    const test::LogCapture log;
    model->playPauseTapped();
    ASSERT_TRUE(model->isPlaying());
    output.render(22050 + 100); // the clicks at 0 and 22050
    output.settle();
    EXPECT_FALSE(model->isVisualBellOn()) << "nothing before the main thread's turn";
    EXPECT_TRUE(log.lines().contains(QStringLiteral("metronomeTicking: beat = ") + description({1, 1})));
    QList<bool> bells;
    QObject::connect(model.get(), &MetronomeViewModel::isVisualBellOnChanged,
                     [&] { bells += model->isVisualBellOn(); });
    mainQueue.runDue();
    EXPECT_GE(bells.size(), 2);
    for (qsizetype i = 0; i < bells.size(); ++i)
        EXPECT_EQ(bells.at(i), i % 2 == 0) << "it flips with every click";
    EXPECT_EQ(model->beatIndicatorIndex(), (bells.size() - 1) % 3);
    model->playPauseTapped();
    EXPECT_FALSE(model->isVisualBellOn()) << "the screen does not stay lit";
    EXPECT_EQ(model->beatIndicatorIndex(), -1);
    EXPECT_FALSE(metronome.isPlaying());
}

TEST_F(MetronomeViewModelTest, ClicksAfterTheScreenIsGoneOrStoppedDoNothing) {
    auto model = make(settingsWith(120, false));
    model->takeCharge();
    model->setIsPlaying(true);
    output.render(100);
    output.settle();
    model->setIsPlaying(false);
    mainQueue.runDue();
    EXPECT_FALSE(model->isVisualBellOn());
    model->setIsPlaying(true);
    output.render(100);
    output.settle();
    model.reset();
    mainQueue.runDue();
    metronome.stop();
}

TEST_F(MetronomeViewModelTest, ADeviceThatGoesLeavesTheScreenDarkAndStopped) {
    const auto model = make(settingsWith(120, false));
    model->takeCharge();
    model->playPauseTapped();
    output.render(100);
    output.settle();
    mainQueue.runDue();
    ASSERT_GE(model->beatIndicatorIndex(), 0);
    int notified = 0;
    QObject::connect(model.get(), &MetronomeViewModel::isPlayingChanged, [&] { ++notified; });
    output.fail();
    EXPECT_EQ(notified, 0) << "on the main thread";
    mainQueue.runDue();
    EXPECT_EQ(notified, 1);
    EXPECT_FALSE(model->isPlaying());
    EXPECT_FALSE(model->isVisualBellOn());
    EXPECT_EQ(model->beatIndicatorIndex(), -1);
}

TEST_F(MetronomeViewModelTest, AFailingStartLeavesItStopped) {
    const auto model = make(settingsWith(120, false));
    output.setStartError(QStringLiteral("no device"));
    const test::LogCapture log;
    model->playPauseTapped();
    EXPECT_FALSE(model->isPlaying());
    EXPECT_TRUE(log.lines().contains(QStringLiteral("no device")));
    output.setStartError(std::nullopt);
    model->playPauseTapped();
    EXPECT_TRUE(model->isPlaying()) << "the next press tries again";
    model->playPauseTapped();
}

} // namespace
} // namespace tamsel
