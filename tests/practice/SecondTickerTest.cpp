#include "practice/SecondTicker.h"

#include "tests/support/FakeClock.h"
#include "tests/support/ManualQueue.h"

#include <gtest/gtest.h>

#include <optional>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class SecondTickerTest : public testing::Test {
protected:
    test::FakeClock clock;
    test::ManualQueue queue{clock};
    int ticks = 0;
    std::optional<SecondTicker> ticker{std::in_place, clock, queue, 1, [this] { ++ticks; }};
};

TEST_F(SecondTickerTest, TicksOnceForEachSecondAtItsEnd) {
    ticker->start();
    queue.advance(999ms);
    EXPECT_EQ(ticks, 0);
    queue.advance(1ms);
    EXPECT_EQ(ticks, 1);
    queue.advance(3599s);
    EXPECT_EQ(ticks, 3600);
}

TEST_F(SecondTickerTest, AStalledMainLoopLosesNoTick) {
    ticker->start();
    queue.stall(7'600ms);
    EXPECT_EQ(ticks, 7);
    queue.advance(400ms);
    EXPECT_EQ(ticks, 8) << "and the grid of whole seconds stays";
}

TEST_F(SecondTickerTest, APauseKeepsTheFraction) {
    ticker->start();
    queue.advance(1'700ms);
    ticker->pause();
    queue.advance(1h);
    EXPECT_EQ(ticks, 1);
    ticker->resume();
    ticker->resume();
    queue.advance(299ms);
    EXPECT_EQ(ticks, 1);
    queue.advance(1ms);
    EXPECT_EQ(ticks, 2);
}

TEST_F(SecondTickerTest, StopEndsTheRunEvenFromWithinATick) {
    ticker.emplace(clock, queue, 1, [this] {
        if (++ticks == 2)
            ticker->stop();
    });
    ticker->start();
    queue.stall(10s);
    EXPECT_EQ(ticks, 2);
    EXPECT_FALSE(ticker->isRunning());
    ticker->start();
    queue.advance(1s);
    EXPECT_EQ(ticks, 3) << "a new run begins at a whole second";
}

TEST_F(SecondTickerTest, StoppedOrGoneItLeavesNoWorkThatTicks) {
    ticker->start();
    ticker.reset();
    queue.advance(10s);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(queue.empty()) << "nothing wakes the machine once it is over";
}

TEST_F(SecondTickerTest, AcceleratedTimeTicksThatManyTimesASecond) {
    ticker.emplace(clock, queue, 30, [this] { ++ticks; });
    ticker->start();
    queue.advance(1s);
    EXPECT_EQ(ticks, 30);
}

} // namespace
} // namespace tamsel
