#include "platform/SerialQueue.h"

#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace tamsel {
namespace {

TEST(SerialQueue, RunsInOrderOnOneThread) {
    SerialQueue queue("test");
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < 100; ++i) {
        queue.async([&, i] {
            order.push_back(i);
            threads.push_back(std::this_thread::get_id());
        });
    }
    queue.sync([] {});
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(order.at(static_cast<std::size_t>(i)), i);
    for (const auto& thread : threads)
        EXPECT_EQ(thread, threads.front());
    EXPECT_NE(threads.front(), std::this_thread::get_id());
}

TEST(SerialQueue, TimedWorkRunsByDeadlineAndNeverEarly) {
    SystemClock clock;
    SerialQueue queue("test");
    std::vector<int> order;
    const auto now = clock.hostTime();
    std::chrono::nanoseconds ranAt{};
    std::atomic<bool> done = false;
    queue.asyncAt(now + std::chrono::milliseconds(30), [&] {
        order.push_back(3);
        done = true;
        done.notify_one();
    });
    queue.asyncAt(now + std::chrono::milliseconds(20), [&] {
        order.push_back(2);
        ranAt = clock.hostTime();
    });
    queue.asyncAt(now - std::chrono::milliseconds(20), [&] { order.push_back(1); });
    done.wait(false);
    EXPECT_EQ(order, std::vector<int>({1, 2, 3}));
    EXPECT_GE(ranAt, now + std::chrono::milliseconds(20));
}

TEST(SerialQueue, TakesWorkFromManyThreads) {
    SerialQueue queue("test");
    int count = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int n = 0; n < 500; ++n)
                    queue.async([&] { ++count; });
            });
        }
    }
    queue.sync([] {});
    EXPECT_EQ(count, 2000);
}

TEST(SerialQueue, DropsWaitingWorkWhenItEnds) {
    bool ran = false;
    {
        SerialQueue queue("test");
        queue.asyncAfter(std::chrono::hours(1), [&] { ran = true; });
    }
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace tamsel
