#pragma once

#include "platform/Queue.h"
#include "tests/support/FakeClock.h"

#include <cstdint>
#include <mutex>
#include <vector>

namespace tamsel::test {

// A queue that runs nothing until the test says so, in a fake clock's time. Adding work: any thread.
class ManualQueue final : public Queue {
public:
    explicit ManualQueue(FakeClock& clock) : m_clock(clock) {}

    void async(Work work) override { asyncAfter(std::chrono::nanoseconds::zero(), std::move(work)); }
    void asyncAfter(std::chrono::nanoseconds delay, Work work) override;

    // Runs everything that is due now, and what that adds for now.
    void runDue();

    // Lets the clock pass through `duration`, running each piece of work at its own time.
    void advance(std::chrono::nanoseconds duration);

    // Lets the clock pass first and runs what became due after: a main loop that was stalled.
    void stall(std::chrono::nanoseconds duration);

    bool empty() const {
        const std::scoped_lock lock(m_mutex);
        return m_items.empty();
    }

private:
    struct Item {
        std::chrono::nanoseconds due;
        std::uint64_t order;
        Work work;
    };

    void advanceClock(std::chrono::nanoseconds duration);
    // With the mutex held. Index of the earliest item due at or before `time`; -1 when there is none.
    std::ptrdiff_t earliest(std::chrono::nanoseconds time) const;

    mutable std::mutex m_mutex;
    FakeClock& m_clock;
    std::vector<Item> m_items;
    std::uint64_t m_nextOrder = 0;
};

} // namespace tamsel::test
