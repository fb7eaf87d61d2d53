#pragma once

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace tamsel::test {

// Watches, on every processor, how late a thread that sleeps a millisecond at a time is woken. What plays and records
// sound is held up in the same way, so this tells a machine that did not let it run from a fault of its own.
class HoldUps {
public:
    HoldUps();
    ~HoldUps();

    // The longest so far.
    std::chrono::nanoseconds longest() const { return m_longest; }

private:
    void watch(unsigned processor);

    std::atomic<bool> m_ending = false;
    std::atomic<std::chrono::nanoseconds> m_longest = std::chrono::nanoseconds(0);
    std::vector<std::thread> m_threads;
};

} // namespace tamsel::test
