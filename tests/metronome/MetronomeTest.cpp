#include "metronome/Metronome.h"

#include "metronome/AlertSound.h"
#include "metronome/TriangleWaveGenerator.h"
#include "platform/Clock.h"
#include "tests/metronome/FakeAudioOutput.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <semaphore>
#include <vector>

namespace tamsel {

void PrintTo(const MetronomeBeat& beat, std::ostream* stream) {
    *stream << qPrintable(description(beat));
}

namespace {

using enum Rhythm;
using namespace std::chrono_literals;

// Keeps the beats it is told of.
class Listener final : public MetronomeDelegate {
public:
    void metronomeTicking(Metronome&, MetronomeBeat beat) override { beats.push_back(beat); }
    std::vector<MetronomeBeat> beats;
};

class MetronomeTest : public testing::Test {
protected:
    // Whether the order's sound is the accented one.
    bool isHigh(const test::FakeAudioOutput::Order& order) const {
        return order.sound->channel(0)[1] == high.channel(0)[1];
    }

    const AudioFormat format = *AudioFormat::standard(44100, 2);
    const SoundBuffer high = makeClickBuffer(format, 1567.98F);
    test::FakeAudioOutput output;
    test::FakeAudioSession session;
    Metronome metronome{output, session};
};

TEST_F(MetronomeTest, IsMadeIdleAt120WithoutAccents) {
    EXPECT_FALSE(metronome.isPlaying());
    EXPECT_EQ(metronome.tempoBPM(), 120.0);
    EXPECT_EQ(metronome.beatsToScheduleAhead(), 1);
    EXPECT_EQ(metronome.rhythmSelection(), zeroFour);
    EXPECT_EQ(metronome.beatNumber(), 0);
    EXPECT_EQ(output.calls, QStringList{QStringLiteral("attach")});
    EXPECT_EQ(session.steps, (QStringList{QStringLiteral("setCategory mixing"), QStringLiteral("activate")}));
}

TEST(MetronomeConstruction, SaysWhatTheSoundsAreAndThatTheSessionFailed) {
    struct Case {
        std::optional<QString> categoryError;
        std::optional<QString> activateError;
        QStringList steps;
        bool error;
    };
    const QString reason = QStringLiteral("refused");
    const QString category = QStringLiteral("setCategory mixing");
    for (const Case& each :
         {Case{{}, {}, {category, QStringLiteral("activate")}, false}, Case{reason, {}, {category}, true},
          Case{{}, reason, {category, QStringLiteral("activate")}, true}}) {
        test::FakeAudioOutput output;
        test::FakeAudioSession session;
        session.categoryError = each.categoryError;
        session.activateError = each.activateError;
        const test::LogCapture log;
        Metronome metronome(output, session);
        const QString buffer = QStringLiteral("Buffer: 2 ch, 44100 Hz, Float32, non-interleaved 882 of 882 frames");
        QStringList expected{buffer, buffer};
        if (each.error)
            expected += QStringLiteral("ERROR");
        EXPECT_EQ(log.lines(), expected);
        EXPECT_EQ(session.steps, each.steps);
        metronome.start();
        EXPECT_TRUE(metronome.isPlaying()) << "it stays usable";
    }
}

TEST(MetronomeDeathTest, WithoutAFormatTheProgramStops) {
    test::FakeAudioOutput output;
    test::FakeAudioSession session;
    output.rate = 0;
    EXPECT_DEATH(Metronome(output, session), "No format");
}

TEST_F(MetronomeTest, TempoIsClampedAndSetsTheLookAhead) {
    struct Case {
        Rhythm rhythm;
        double bpm;
        double tempo;
        qint64 ahead;
    };
    for (const Case& each :
         {Case{zeroFour, 0, 1, 1}, Case{zeroFour, 10000, 500, 2}, Case{thirtySeconds, 499.5, 499.5, 16},
          Case{thirtySeconds, 500, 500, 16}, Case{sixteenths, 60, 60, 1}, Case{sixteenths, 120.5, 120.5, 2},
          Case{twelveFour, 479.9, 479.9, 1}, Case{twelveFour, 480, 480, 2}, Case{triplets, -3, 1, 1},
          Case{triplets, std::numeric_limits<double>::infinity(), 500, 6}}) {
        metronome.setRhythmSelection(each.rhythm);
        metronome.setTempo(each.bpm);
        EXPECT_EQ(metronome.tempoBPM(), each.tempo) << each.bpm;
        EXPECT_EQ(metronome.beatsToScheduleAhead(), each.ahead) << each.bpm;
    }
}

TEST_F(MetronomeTest, TheSameWholeTempoIsSkipped) {
    metronome.start();
    output.finish(2);
    ASSERT_EQ(metronome.beatNumber(), 3);
    for (const auto& [bpm, text] : {std::pair{120.0, "120.0"}, {120.9, "120.9"}}) {
        const test::LogCapture log;
        metronome.setTempo(bpm);
        EXPECT_EQ(
            log.lines(),
            QStringList{QStringLiteral("Metronome: Skipping unnecessary side-effect, oldTempo and newTempo are the "
                                       "same (%1).")
                            .arg(QLatin1String(text))});
        EXPECT_EQ(metronome.tempoBPM(), 120.0);
        EXPECT_EQ(metronome.beatNumber(), 3) << "the group goes on";
    }
    metronome.setTempo(500);
    const test::LogCapture log;
    metronome.setTempo(9000.25);
    EXPECT_TRUE(log.lines().value(0).endsWith(QStringLiteral("(9000.25)."))) << "the tempo as it was given";
}

TEST_F(MetronomeTest, ATempoThatIsNoNumberStopsTheProgram) {
    EXPECT_DEATH(metronome.setTempo(std::numeric_limits<double>::quiet_NaN()), "");
}

TEST_F(MetronomeTest, ARhythmChangeKeepsTheOldLookAhead) {
    metronome.setRhythmSelection(eighths);
    metronome.setTempo(479);
    ASSERT_EQ(metronome.beatsToScheduleAhead(), 3);
    metronome.setRhythmSelection(thirtySeconds);
    EXPECT_EQ(metronome.beatsToScheduleAhead(), 3) << "15 would fit a quarter of a second";
    metronome.start();
    EXPECT_EQ(output.orders.size(), 3U);
    metronome.setTempo(479.5);
    EXPECT_EQ(metronome.beatsToScheduleAhead(), 3) << "a skipped tempo changes nothing";
    metronome.setTempo(480);
    EXPECT_EQ(metronome.beatsToScheduleAhead(), 16);
    output.finish();
    EXPECT_EQ(output.orders.size(), 17U) << "two were in flight, the rest is filled up";
}

TEST_F(MetronomeTest, TheFirstClickIsQueuedBeforeThePlayerStarts) {
    metronome.setRhythmSelection(eighths);
    metronome.setTempo(480);
    output.calls.clear();
    metronome.start();
    output.finish();
    EXPECT_EQ(output.calls, (QStringList{QStringLiteral("start"), QStringLiteral("schedule 0"), QStringLiteral("play"),
                                         QStringLiteral("schedule 2756"), QStringLiteral("schedule 5512"),
                                         QStringLiteral("schedule 8268"), QStringLiteral("schedule 11025")}));
}

TEST_F(MetronomeTest, EachRhythmHasItsAccentsAndNumbers) {
    for (const Rhythm rhythm : allRhythms()) {
        SCOPED_TRACE(qPrintable(caseName(rhythm)));
        const auto listener = std::make_shared<Listener>();
        metronome.setRhythmSelection(rhythm);
        metronome.setDelegate(listener);
        output.orders.clear();
        output.clickHostTime = 0ns;
        metronome.start();
        constexpr int clicks = 30;
        output.finish(clicks - static_cast<int>(output.orders.size()));
        output.settle();
        metronome.stop();
        output.finish(static_cast<int>(metronome.beatsToScheduleAhead()));
        ASSERT_GE(output.orders.size(), static_cast<std::size_t>(clicks));
        ASSERT_GE(listener->beats.size(), static_cast<std::size_t>(clicks));
        for (int i = 0; i < clicks; ++i) {
            // Twelve four-quarter signatures stand in a row from zeroFour; the seven cases before are subdivisions.
            const int index = static_cast<int>(rhythm);
            const int group = index < 7 ? index + 2 : std::max(index - 7, 1);
            const int position = i % group + 1;
            const bool accented = rhythm == oneFour || (rhythm != zeroFour && position == 1);
            const MetronomeBeat beat = index < 7 ? MetronomeBeat{1, position} : MetronomeBeat{position, 1};
            EXPECT_EQ(isHigh(output.orders[static_cast<std::size_t>(i)]), accented) << "click " << i;
            EXPECT_EQ(listener->beats[static_cast<std::size_t>(i)], beat) << "click " << i;
        }
    }
}

// Where the n-th click belongs, by the definition and in wider arithmetic.
qint64 onset(qint64 n, double rate, double tempo, Rhythm rhythm) {
    const long double exact = static_cast<long double>(n) * static_cast<long double>(rate) * 60.0L /
                              (static_cast<long double>(tempo) * clicksPerBeat(rhythm));
    return static_cast<qint64>(exact);
}

TEST_F(MetronomeTest, OnsetsStayWithinASampleForAnHour) {
    output.notesOrders = false;
    qint64 checked = 0;
    for (const double tempo :
         {1.0, 7.0, 40.0, 59.94, 63.3, 97.0, 119.99, 120.0, 132.5, 133.0, 184.7, 251.3, 333.3, 499.9, 500.0}) {
        for (const Rhythm rhythm : allRhythms()) {
            // Time signatures share one spacing: the bars of one are enough.
            if (!isSubdivision(rhythm) && rhythm != sevenFour)
                continue;
            metronome.setRhythmSelection(rhythm);
            metronome.setTempo(tempo + 1);
            metronome.setTempo(tempo);
            output.orders.clear();
            metronome.start();
            const auto hour = static_cast<int>(tempo * clicksPerBeat(rhythm) * 60);
            while (output.orders.size() < static_cast<std::size_t>(hour))
                output.finish(hour - static_cast<int>(output.orders.size()));
            for (std::size_t n = 0; n < output.orders.size(); ++n) {
                const qint64 expected = onset(static_cast<qint64>(n), 44100, metronome.tempoBPM(), rhythm);
                ASSERT_LE(std::abs(output.orders[n].sampleTime - expected), 1)
                    << tempo << " BPM, " << qPrintable(caseName(rhythm)) << ", click " << n;
                ++checked;
            }
            metronome.stop();
            output.finish(static_cast<int>(metronome.beatsToScheduleAhead()));
        }
    }
    EXPECT_GT(checked, 1'000'000);
}

TEST_F(MetronomeTest, AFailingStartSaysWhyAndChangesNothing) {
    metronome.setRhythmSelection(threeFour);
    output.startError = QStringLiteral("The device is on fire");
    const test::LogCapture log;
    metronome.start();
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("The device is on fire")});
    EXPECT_FALSE(metronome.isPlaying());
    EXPECT_TRUE(output.orders.empty());
    output.startError.reset();
    metronome.start();
    EXPECT_TRUE(metronome.isPlaying());
    EXPECT_EQ(output.orders.size(), 1U);
}

TEST_F(MetronomeTest, AfterAStopFinishedClicksQueueNothing) {
    metronome.setTempo(500);
    metronome.start();
    ASSERT_EQ(output.orders.size(), 2U);
    metronome.stop();
    EXPECT_FALSE(metronome.isPlaying());
    EXPECT_EQ(metronome.beatNumber(), 0);
    output.finish(2);
    EXPECT_EQ(output.orders.size(), 2U);
    metronome.start();
    ASSERT_EQ(output.orders.size(), 4U);
    EXPECT_EQ(output.orders[2].sampleTime, 0) << "a new timeline";
    EXPECT_EQ(output.calls.count(QStringLiteral("play")), 2);
}

TEST_F(MetronomeTest, StartingTwiceStartsAnew) {
    metronome.start();
    output.finish(5);
    metronome.start();
    EXPECT_TRUE(metronome.isPlaying());
    output.settle();
    EXPECT_EQ(output.calls.last(), QStringLiteral("start")) << "the click of the first start is still in flight";
    output.finish();
    EXPECT_EQ(output.orders.back().sampleTime, 0);
    EXPECT_EQ(output.calls.last(), QStringLiteral("play"));
}

TEST_F(MetronomeTest, TicksComeWhenTheirClickIsHeard) {
    const SystemClock clock;
    const auto listener = std::make_shared<Listener>();
    metronome.setDelegate(listener);
    metronome.setRhythmSelection(threeFour);
    // Taken an hour ago, heard after a latency of an hour and more: not yet.
    output.clickHostTime = clock.hostTime() - 1h;
    output.ownLatency = 1h + 10min;
    metronome.start();
    output.settle();
    EXPECT_TRUE(listener->beats.empty());
    metronome.stop();
    metronome.setDelegate(listener);
    output.clickHostTime = clock.hostTime() - 1h;
    output.ownLatency = 59min;
    output.finish();
    metronome.start();
    output.settle();
    EXPECT_EQ(listener->beats, (std::vector<MetronomeBeat>{{1, 1}}));
}

TEST_F(MetronomeTest, NoTickAfterAStop) {
    // Holds the queue in its first tick until it is told to go on.
    struct Gate final : MetronomeDelegate {
        void metronomeTicking(Metronome&, MetronomeBeat) override {
            ++ticks;
            entered.release();
            leave.acquire();
        }
        int ticks = 0;
        std::binary_semaphore entered{0};
        std::counting_semaphore<> leave{0};
    };
    const auto gate = std::make_shared<Gate>();
    metronome.setRhythmSelection(thirtySeconds);
    metronome.setTempo(500);
    metronome.setDelegate(gate);
    metronome.start(); // sixteen ticks, all of them due
    gate->entered.acquire();
    metronome.stop();
    gate->leave.release(100);
    output.settle();
    EXPECT_EQ(gate->ticks, 1);
}

TEST_F(MetronomeTest, ADelegateThatIsGoneHearsNothing) {
    auto listener = std::make_shared<Listener>();
    const std::weak_ptr<Listener> watch = listener;
    metronome.setDelegate(listener);
    output.clickHostTime = SystemClock().hostTime() + 1h;
    metronome.start();
    listener.reset();
    EXPECT_TRUE(watch.expired()) << "a tick that waits does not keep it alive";
    output.clickHostTime = 0ns;
    output.finish();
    output.settle();
}

TEST_F(MetronomeTest, TheAlertSoundsWithoutTheMetronome) {
    metronome.playAlert();
    ASSERT_EQ(output.alerts.size(), 1U);
    EXPECT_TRUE(std::ranges::equal(output.alerts[0]->channel(0), makeAlertBuffer(format).channel(0)));
    EXPECT_FALSE(metronome.isPlaying());
    EXPECT_TRUE(output.orders.empty());
}

TEST(MetronomeBeat, IsPrintedWithItsFields) {
    EXPECT_EQ(description({.beat = 3, .subdivision = 1}), QStringLiteral("MetronomeBeat(beat: 3, subdivision: 1)"));
}

} // namespace
} // namespace tamsel
