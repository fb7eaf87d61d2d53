#pragma once

#include "platform/Queue.h"

#include <queue>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tamsel {

// A queue with a thread of its own. Work that is still waiting when the queue is destroyed is dropped.
class SerialQueue final : public Queue {
public:
    // The label names the thread (its first 15 characters, as the system allows no more).
    explicit SerialQueue(const std::string& label);
    ~SerialQueue() override;

    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void async(Work work) override;
    void asyncAfter(std::chrono::nanoseconds delay, Work work) override;

    // Runs the work at the given host time (Clock::hostTime), or at once when that has passed.
    void asyncAt(std::chrono::nanoseconds hostTime, Work work);

    // Runs the work on the queue and returns when it is done. Must not be called from the queue itself.
    void sync(const Work& work);

private:
    using Deadline = std::chrono::steady_clock::time_point;
    struct Item {
        Deadline deadline;
        std::uint64_t order;
        Work work;
    };
    struct Later {
        bool operator()(const Item& a, const Item& b) const {
            return a.deadline != b.deadline ? a.deadline > b.deadline : a.order > b.order;
        }
    };

    void push(Deadline deadline, Work work);
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::priority_queue<Item, std::vector<Item>, Later> m_items;
    std::uint64_t m_nextOrder = 0;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace tamsel
