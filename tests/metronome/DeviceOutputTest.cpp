#include "metronome/DeviceOutput.h"

#include "metronome/AlertSound.h"
#include "metronome/Metronome.h"
#include "metronome/TriangleWaveGenerator.h"
#include "tests/metronome/FakeAudioDevice.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <random>
#include <semaphore>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

// The first frames of a stream, which stay free.
constexpr qint64 runIn = 882;
// How far ahead of the frames taken a sound counts as finished.
constexpr qint64 lead = 6615;

// A device that takes frames when the test says so, and a scheduler that keeps one click ahead, at even distances.
class DeviceOutputTest : public testing::Test {
protected:
    DeviceOutputTest() {
        output.attach(queue, [this] { finish(); });
        run([] {});
    }
    ~DeviceOutputTest() override {
        run([this] { output.detach(); });
    }

    void run(const std::function<void()>& work) { queue.sync(work); }

    void start() {
        output.stop();
        run([this] {
            ASSERT_EQ(output.start(), std::nullopt);
            playing = true;
            next = 0;
            scheduleNext();
            output.play();
        });
        run([] {}); // the stream starts after that
    }
    void stop() {
        run([this] { playing = false; });
        output.stop();
        run([] {});
    }

    // Returns when so many clicks have been ordered since the last start.
    void waitForOrders(qint64 count) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return next >= count; });
    }

    // Where the sounds of the recording begin. They are at least a hundred frames apart.
    std::vector<qint64> onsets() const {
        std::vector<qint64> frames;
        qint64 silence = 100;
        for (std::size_t i = 0; i < device.recording.size(); i += 2) {
            if (device.recording[i] != 0.0F && silence >= 100)
                frames.push_back(static_cast<qint64>(i / 2));
            silence = device.recording[i] == 0.0F ? silence + 1 : 0;
        }
        return frames;
    }

    test::FakeDeviceState device;
    test::FakeClock* clock = new test::FakeClock; // the output's
    DeviceOutput output{std::make_unique<test::FakeAudioDevice>(device), std::unique_ptr<const Clock>(clock)};
    SoundBuffer click = makeClickBuffer(*AudioFormat::standard(44100, 2), 1046.5F);
    SoundBuffer alert = makeAlertBuffer(*AudioFormat::standard(44100, 2));
    qint64 interval = 22050;

private:
    void scheduleNext() {
        output.schedule(click, next * interval);
        const std::lock_guard lock(mutex);
        ++next;
        changed.notify_all();
    }
    void finish() {
        if (playing)
            scheduleNext();
    }

    std::mutex mutex;
    std::condition_variable changed;
    qint64 next = 0; // number of the click to order
    bool playing = false;
    SerialQueue queue{"Metronome"};
};

TEST_F(DeviceOutputTest, EveryStartHasAFreshStreamAndAWholeFirstClick) {
    for (int i = 1; i <= 3; ++i) {
        start();
        EXPECT_EQ(device.opened, i);
        EXPECT_EQ(device.started, i);
        EXPECT_EQ(onsets(), std::vector<qint64>{runIn});
        for (std::size_t frame = 0; frame < click.frameLength(); ++frame)
            ASSERT_EQ(device.recording[2 * (runIn + frame)], std::clamp(click.channel(0)[frame], -1.0F, 1.0F));
        stop();
        device.waitForClosed(i);
        EXPECT_EQ(device.mixer, nullptr) << "no stream runs while nothing plays";
    }
}

TEST_F(DeviceOutputTest, WhatADeviceTakesAtOnceHasBeenOrdered) {
    interval = 991; // shorter than a block, and one click ahead
    for (const qint64 block : {441, 827, 3308, 5000}) {
        device.firstBlock = block;
        start();
        qint64 taken = block;
        for (int i = 0; i < 20; ++i) {
            // The scheduler has its turn, as it has on a device that takes time.
            waitForOrders((taken + lead - runIn) / interval + 1);
            device.take(block);
            taken += block;
        }
        stop();
        std::vector<qint64> expected;
        for (qint64 frame = runIn; frame < taken; frame += interval)
            expected.push_back(frame);
        EXPECT_EQ(onsets(), expected) << "blocks of " << block;
    }
}

TEST_F(DeviceOutputTest, ASchedulerThatWasHeldUpCatchesUpWithTheDevice) {
    start();
    // As long as it takes for far more clicks than may wait.
    run([this] { device.take(200 * interval); });
    waitForOrders(200);
    device.take(interval);
    const std::vector<qint64> heard = onsets();
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ((heard.back() - runIn) % interval, 0) << "on the beat again";
    EXPECT_GT(heard.back(), 199 * interval);
}

TEST_F(DeviceOutputTest, TimesFollowTheDevice) {
    const auto frames = [](qint64 count) {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(count * 1s) / 44100;
    };
    const auto expectNear = [](std::chrono::nanoseconds actual, std::chrono::nanoseconds expected) {
        EXPECT_LT(std::chrono::abs(actual - expected), 1us) << actual.count() << " is not " << expected.count();
    };
    std::chrono::nanoseconds hostTime{};
    std::chrono::nanoseconds latency{};
    const auto ask = [&](qint64 sampleTime) {
        run([&] {
            hostTime = output.hostTime(sampleTime);
            latency = output.latency();
        });
    };

    ask(44100);
    expectNear(hostTime, clock->hostTime() + frames(runIn + 44100));
    start();
    ask(44100);
    expectNear(hostTime, clock->hostTime() + frames(runIn + 44100 - 3308));

    struct Case {
        std::optional<qint64> position;
        std::chrono::nanoseconds latency;
    };
    for (const Case& each : {Case{{}, 75ms},   // what was asked for, before anything is known
                             Case{3308, 75ms}, // nonsense: nothing would be buffered
                             Case{9999, 75ms}, // nonsense: heard before it was taken
                             Case{1000, frames(2308)}, Case{3308, frames(2308)}, Case{{}, frames(2308)},
                             Case{3000, frames(308)}, Case{-100'000, frames(308)}}) {
        device.position = each.position;
        ask(0);
        expectNear(latency, each.latency);
    }

    // The first frame was heard 30 milliseconds after the stream was started: so it will be the next time.
    clock->advance(50ms);
    device.position = 882;
    ask(0);
    stop();
    ask(0);
    expectNear(latency, 30ms);
}

TEST_F(DeviceOutputTest, AStopSilencesAtOnceWhateverTheQueueDoes) {
    start();
    std::binary_semaphore entered(0);
    std::binary_semaphore leave(0);
    std::thread holder([&] {
        run([&] {
            entered.release();
            leave.acquire();
        });
    });
    entered.acquire();
    device.recording.clear();
    output.stop();
    device.take(30000);
    EXPECT_TRUE(onsets().empty());
    leave.release();
    holder.join();
}

TEST_F(DeviceOutputTest, AlertsKeepTheirDistance) {
    device.position = 0;
    for (const qint64 position : {0, 4851, 9702}) {
        device.position = position;
        output.playAlert(alert);
        run([] {});
        EXPECT_EQ(device.opened, 1);
        // Blocks of some size; the device is always ahead of what is heard, and never by the same.
        device.take(position == 0 ? 2000 : 4700);
    }
    device.take(10000);
    EXPECT_EQ(onsets(), (std::vector<qint64>{4411, 9262, 14113})) << "from the first sample that is not zero";
}

TEST_F(DeviceOutputTest, ATimelineJoinsTheStreamOfAnAlert) {
    output.playAlert(alert);
    start();
    EXPECT_EQ(device.opened, 2) << "the stop before this start ends an alert too";
    output.playAlert(alert);
    run([] {});
    EXPECT_EQ(device.opened, 2);
    stop();
    device.position = 0;
    output.playAlert(alert);
    run([this] {
        ASSERT_EQ(output.start(), std::nullopt);
        output.schedule(click, 10);
        output.play();
    });
    run([] {});
    device.take(1000);
    EXPECT_EQ(device.opened, 3);
    EXPECT_EQ(onsets(), (std::vector<qint64>{3308 + 10})) << "the next frame is the first that the clock counts";
}

// The whole engine, in real time.
class EngineOnDevice : public testing::Test {
protected:
    test::FakeDeviceState device;
    test::FakeAudioSession session;
    DeviceOutput output{std::make_unique<test::FakeAudioDevice>(device), std::make_unique<SystemClock>()};
    Metronome metronome{output, session};
};

TEST_F(EngineOnDevice, AFailureIsReportedInOneLineAndTriedAgain) {
    {
        const test::LogCapture log;
        device.openError = QStringLiteral("no device");
        metronome.start();
        EXPECT_FALSE(metronome.isPlaying());
        EXPECT_EQ(log.lines(), QStringList{QStringLiteral("no device")});
    }
    {
        const test::LogCapture log;
        metronome.playAlert();
        metronome.start();
        EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("no device"), QStringLiteral("no device")}));
    }
    device.openError.reset();
    metronome.start();
    EXPECT_TRUE(metronome.isPlaying());
    EXPECT_EQ(device.opened, 1);
    metronome.stop();
    device.waitForClosed(1);
}

TEST_F(EngineOnDevice, AStreamThatDoesNotStartIsReportedAndTriedAgain) {
    const test::LogCapture log;
    device.startError = QStringLiteral("does not start");
    metronome.start();
    device.waitForClosed(1);
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("does not start")});
    metronome.stop();
    metronome.start();
    device.waitForClosed(2);
    metronome.stop();
    device.startError.reset();
    metronome.start();
    metronome.stop();
    device.waitForClosed(3);
    EXPECT_EQ(device.started, 1);
}

TEST_F(EngineOnDevice, ADeviceThatVanishesIsReportedAndTriedAgain) {
    const test::LogCapture log;
    metronome.start();
    device.failed = true;
    device.waitForClosed(1);
    metronome.stop();
    metronome.start();
    metronome.stop();
    device.waitForClosed(2);
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("The sound output has gone; the next start tries it again")});
    EXPECT_EQ(device.opened, 2);
    EXPECT_EQ(device.started, 2);
}

TEST_F(EngineOnDevice, AFailingDeviceStopsTheMetronomeAndTheNextStartPlays) {
    class Listener final : public MetronomeDelegate {
    public:
        void metronomeTicking(Metronome&, MetronomeBeat) override { ticked.release(); }
        void metronomeHasStopped(Metronome& metronome) override {
            wasPlaying = metronome.isPlaying();
            stopped.release();
        }
        std::binary_semaphore stopped{0};
        std::counting_semaphore<> ticked{0};
        bool wasPlaying = true;
    };
    const auto listener = std::make_shared<Listener>();
    metronome.setDelegate(listener);
    device.startError = QStringLiteral("does not start");
    metronome.start();
    listener->stopped.acquire();
    EXPECT_FALSE(listener->wasPlaying);
    device.waitForClosed(1);
    device.startError.reset();
    metronome.start();
    EXPECT_TRUE(metronome.isPlaying());
    device.failed = true;
    listener->stopped.acquire();
    EXPECT_FALSE(metronome.isPlaying());
    device.waitForClosed(2);
    device.failed = false;
    device.runsFreely = true;
    while (listener->ticked.try_acquire()) {
    }
    metronome.start();
    listener->ticked.acquire();
    metronome.stop();
    device.waitForClosed(3);
    EXPECT_EQ(device.started, 2);
    const auto heard = std::ranges::find_if(device.recording, [](float sample) { return sample != 0.0F; });
    EXPECT_NE(heard, device.recording.end()) << "the clicks of the failed timelines took no places with them";
}

TEST_F(EngineOnDevice, TheStreamEndsAfterAnAlert) {
    metronome.playAlert();
    device.waitForClosed(1);
    EXPECT_EQ(device.started, 1);
}

TEST(DeviceOutput, SurvivesAHurriedPlayer) {
    // The audio thread, the queue and the main thread at full speed. What matters here is what the sanitizers say.
    class Counter final : public MetronomeDelegate {
    public:
        void metronomeTicking(Metronome& metronome, MetronomeBeat) override {
            ticks += metronome.tempoBPM() >= 1 && metronome.beatsToScheduleAhead() > 0 ? 1 : 0;
        }
        std::atomic<int> ticks = 0;
    };
    test::FakeDeviceState device;
    device.runsFreely = true;
    test::FakeAudioSession session;
    DeviceOutput output(std::make_unique<test::FakeAudioDevice>(device), std::make_unique<SystemClock>());
    const test::LogCapture log;
    Metronome metronome(output, session);
    auto counter = std::make_shared<Counter>();
    metronome.setDelegate(counter);
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
        switch (random() % 8) {
        case 0:
        case 1:
            metronome.start();
            break;
        case 2:
            metronome.stop();
            break;
        case 3:
        case 4:
            metronome.setTempo(static_cast<double>(random() % 500 + 1));
            break;
        case 5:
            metronome.setRhythmSelection(allRhythms()[random() % 20]);
            break;
        case 6:
            metronome.playAlert();
            break;
        default:
            metronome.setDelegate(random() % 4 == 0 ? nullptr : counter);
        }
    }
    metronome.stop();
    metronome.setDelegate(counter);
    metronome.setRhythmSelection(Rhythm::thirtySeconds);
    metronome.setTempo(499);
    const int before = counter->ticks;
    metronome.start();
    while (counter->ticks == before)
        std::this_thread::yield();
    EXPECT_TRUE(metronome.isPlaying());
}

} // namespace
} // namespace tamsel
