#include "platform/AccelerometerShakeSource.h"
#include "platform/ShakeDetector.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManualQueue.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

constexpr double gravity = 9.80665;

// What the sensor reads `seconds` after the start, beyond gravity, along one line.
using Motion = std::function<double(double seconds)>;

Motion swing(double metres, double hertz, double from, double duration) {
    return [=](double seconds) {
        if (seconds < from || seconds > from + duration)
            return 0.0;
        const double rate = 2 * std::numbers::pi * hertz;
        return metres * rate * rate * std::sin(rate * (seconds - from));
    };
}

Motion both(const Motion& first, const Motion& second) {
    return [=](double seconds) { return first(seconds) + second(seconds); };
}

int shakesIn(const Motion& motion, std::chrono::nanoseconds interval, Acceleration direction, Acceleration rest) {
    ShakeDetector detector;
    int shakes = 0;
    for (std::chrono::nanoseconds time = 0ns; time < 6s; time += interval) {
        const double along = motion(std::chrono::duration<double>(time).count());
        shakes += detector.feed(
            {rest.x + along * direction.x, rest.y + along * direction.y, rest.z + along * direction.z}, time + 1h);
    }
    return shakes;
}

TEST(ShakeDetector, TellsAShakeFromEverythingElse) {
    struct Case {
        const char* what;
        Motion motion;
        int shakes;
    };
    const Case cases[] = {
        {"lying still", [](double) { return 0.0; }, 0},
        {"a slow shake", swing(0.04, 3, 1, 1.5), 1},
        {"a quick shake", swing(0.04, 6, 1, 0.6), 1},
        {"a wild shake", swing(0.1, 5, 1, 3), 1},
        {"two shakes", both(swing(0.05, 4, 1, 1), swing(0.05, 4, 3.5, 1)), 2},
        {"a shake that has not ended", swing(0.05, 4, 1, 10), 0},
        {"one to and fro", swing(0.08, 4, 1, 0.25), 0},
        {"walking", swing(0.03, 2, 0, 6), 0},
        {"put down hard", both(swing(0.002, 25, 1, 0.02), swing(0.001, 25, 1.06, 0.02)), 0},
        {"turned over", [](double seconds) { return seconds < 1 ? 0.0 : -2 * gravity; }, 0},
    };
    const Acceleration directions[] = {{1, 0, 0}, {0, -1, 0}, {0, 0, 1}, {0.6, 0, -0.8}};
    for (const Case& one : cases) {
        for (const Acceleration& direction : directions) {
            for (const std::chrono::nanoseconds interval : {10ms, 20ms, 40ms}) {
                EXPECT_EQ(shakesIn(one.motion, interval, direction, {0, 0, gravity}), one.shakes)
                    << one.what << ", a reading every " << interval.count() / 1'000'000 << " ms";
                EXPECT_EQ(shakesIn(one.motion, interval, direction, {0, -gravity, 0}), one.shakes) << one.what;
            }
        }
    }
}

TEST(ShakeDetector, APauseOrANonsenseReadingIsNoStroke) {
    ShakeDetector detector;
    std::chrono::nanoseconds time = 1s;
    int shakes = 0;
    // As strong as can be, but too far apart to belong together.
    for (int i = 0; i < 10; ++i, time += 600ms)
        shakes += detector.feed({0, 0, i % 2 == 0 ? 60.0 : -60.0}, time);
    for (int i = 0; i < 100; ++i, time += 40ms)
        shakes += detector.feed({std::numeric_limits<double>::quiet_NaN(), 0, i % 2 == 0 ? 60.0 : -60.0}, time);
    EXPECT_EQ(shakes, 0);
}

// The kernel's files, in a folder of the test's own.
class AccelerometerTest : public testing::Test {
protected:
    void write(const QString& name, const QByteArray& content) const {
        const QString path = devices.filePath(QStringLiteral("iio:device1/") + name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content + '\n');
    }

    void makeDevice() const {
        for (const char axis : {'x', 'y', 'z'})
            write(QStringLiteral("in_accel_%1_raw").arg(QLatin1Char(axis)), "0");
        write(QStringLiteral("in_accel_scale"), "0.019163");
    }

    // A second of shaking along z, and a second of rest.
    void shake() {
        const Motion motion = swing(0.05, 4, 0, 1);
        for (double seconds = 0; seconds < 2; seconds += 0.04) {
            const double raw = (gravity + motion(seconds)) / 0.019163;
            write(QStringLiteral("in_accel_z_raw"), QByteArray::number(std::lround(raw)));
            queue.advance(40ms);
        }
    }

    const QTemporaryDir devices;
    test::FakeClock clock;
    test::ManualQueue queue{clock};
    const test::LogCapture console;
};

TEST_F(AccelerometerTest, IsFoundOnlyWhereAllThreeAxesAre) {
    EXPECT_EQ(AccelerometerShakeSource::find(devices.path() + QStringLiteral("/missing")), std::nullopt);
    write(QStringLiteral("in_illuminance_raw"), "12");
    write(QStringLiteral("in_accel_x_raw"), "0");
    EXPECT_EQ(AccelerometerShakeSource::find(devices.path()), std::nullopt);
    makeDevice();
    EXPECT_EQ(AccelerometerShakeSource::find(devices.path()), devices.filePath(QStringLiteral("iio:device1")));
}

TEST_F(AccelerometerTest, IsReadOnlyWhileActive) {
    makeDevice();
    AccelerometerShakeSource source(*AccelerometerShakeSource::find(devices.path()), clock, queue, queue);
    int shakes = 0;
    const auto subscription = source.onShake().subscribe([&] { ++shakes; });
    EXPECT_TRUE(queue.empty());
    shake();
    EXPECT_EQ(shakes, 0);
    source.setActive(true);
    shake();
    EXPECT_EQ(shakes, 1);
    shake();
    EXPECT_EQ(shakes, 2);
    source.setActive(false);
    queue.advance(100ms);
    EXPECT_TRUE(queue.empty()) << "nothing wakes up any more";
    source.setActive(true);
    source.setActive(false);
    source.setActive(true);
    shake();
    EXPECT_EQ(shakes, 3) << "one reader, however often it was begun";
}

TEST_F(AccelerometerTest, ThatCannotBeReadIsNamedOnceAndLeftAlone) {
    makeDevice();
    write(QStringLiteral("in_accel_y_raw"), "not a number");
    const QString folder = *AccelerometerShakeSource::find(devices.path());
    AccelerometerShakeSource source(folder, clock, queue, queue);
    source.setActive(true);
    queue.advance(1s);
    EXPECT_TRUE(queue.empty());
    EXPECT_EQ(console.lines(), QStringList(QStringLiteral("cannot read the accelerometer: ") + folder));
}

TEST_F(AccelerometerTest, AShakeOnItsWayIsLostWithTheSource) {
    makeDevice();
    test::ManualQueue mainQueue(clock);
    auto source = std::make_unique<AccelerometerShakeSource>(*AccelerometerShakeSource::find(devices.path()), clock,
                                                             queue, mainQueue);
    source->setActive(true);
    shake();
    ASSERT_FALSE(mainQueue.empty());
    source.reset();
    mainQueue.runDue();
    queue.advance(100ms);
    EXPECT_TRUE(queue.empty());
}

} // namespace
} // namespace tamsel
