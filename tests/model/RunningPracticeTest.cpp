#include "model/RunningPractice.h"

#include "model/Json.h"
#include "model/MemorySettingsStore.h"
#include "model/SettingsKeys.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

const Exercise scales{QStringLiteral("Scales"), QUuid("3F2504E0-4F89-41D3-9A0C-0305E82C3301")};
const Exercise etude{QStringLiteral("Étude"), QUuid("9B2E7A40-55C3-4C8E-8F43-6A1D0F5E7B21")};

class RunningPracticeTest : public testing::Test {
protected:
    // Each second of a run as the screen tells it.
    void practise(RunningPractice& running, const Exercise& exercise, SessionType type, qint64 from, qint64 to) {
        for (qint64 second = from; second <= to; ++second) {
            clock.advance(1s);
            running.update(exercise, type, second);
        }
    }
    // What a start finds that comes after a crash now.
    QList<PracticeSession> left() { return RunningPractice(store, clock).left(); }

    test::FakeClock clock;
    MemorySettingsStore store;
};

TEST_F(RunningPracticeTest, WhatRunsIsOnDiskAtMostThreeSecondsBehind) {
    RunningPractice running(store, clock);
    for (qint64 second = 1; second <= 100; ++second) {
        practise(running, scales, SessionType::stopwatch, second, second);
        const auto found = left();
        if (second < PracticeSession::minimumSeconds) {
            EXPECT_TRUE(found.isEmpty()) << "too short for a session";
            continue;
        }
        ASSERT_EQ(found.size(), 1);
        EXPECT_EQ(found.first().exercise, scales);
        EXPECT_EQ(found.first().type, SessionType::stopwatch);
        EXPECT_GT(found.first().seconds, second - RunningPractice::largestLag);
        EXPECT_LE(found.first().seconds, second);
    }
    running.end(SessionType::stopwatch);
    EXPECT_EQ(store.value(keys::runningPractice), std::nullopt) << "what is recorded is offered no more";
}

TEST_F(RunningPracticeTest, TimerAndStopwatchAreKeptApartAndANewRunReplacesTheOldOne) {
    RunningPractice running(store, clock);
    practise(running, scales, SessionType::timer, 1, 60);
    practise(running, scales, SessionType::stopwatch, 1, 9);
    EXPECT_EQ(left().size(), 2);
    running.end(SessionType::timer);
    ASSERT_EQ(left().size(), 1);
    EXPECT_EQ(left().first().type, SessionType::stopwatch);
    practise(running, etude, SessionType::stopwatch, 1, 4);
    ASSERT_EQ(left().size(), 1);
    EXPECT_EQ(left().first().exercise, etude);
    EXPECT_LE(left().first().seconds, 4);
}

TEST_F(RunningPracticeTest, WhatWasLeftStaysUntilItIsDecidedAlsoBesideANewRun) {
    {
        RunningPractice crashed(store, clock);
        practise(crashed, scales, SessionType::timer, 1, 600);
    }
    RunningPractice running(store, clock);
    ASSERT_EQ(running.left().size(), 1);
    EXPECT_GE(running.left().first().seconds, 598);
    practise(running, etude, SessionType::timer, 1, 30);
    EXPECT_EQ(left().size(), 2) << "after another crash both are offered";
    int notices = 0;
    const auto subscription = running.leftChanged().subscribe([&notices] { ++notices; });
    running.forgetLeft();
    running.forgetLeft();
    EXPECT_EQ(notices, 1);
    ASSERT_EQ(left().size(), 1);
    EXPECT_EQ(left().first().exercise, etude);
    running.end(SessionType::timer);
    EXPECT_TRUE(left().isEmpty());
}

TEST_F(RunningPracticeTest, WhatCannotBeReadIsSetAside) {
    const test::LogCapture console;
    store.setData(keys::runningPractice, "[{]");
    EXPECT_TRUE(left().isEmpty());
    EXPECT_EQ(store.value(keys::runningPractice), std::nullopt);
    EXPECT_EQ(store.data(QStringLiteral("unreadable.practice.running")), QByteArray("[{]"));
}

} // namespace
} // namespace tamsel
