#include "platform/SerialQueue.h"

#include <pthread.h>

#include <utility>

namespace tamsel {

namespace {
constexpr std::size_t longestThreadName = 15;
}

SerialQueue::SerialQueue(const std::string& label) : m_thread([this] { run(); }) {
    pthread_setname_np(m_thread.native_handle(), label.substr(0, longestThreadName).c_str());
}

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void SerialQueue::async(Work work) {
    // The earliest deadline there is: ahead of everything timed, in order among its like.
    push(Deadline::min(), std::move(work));
}

void SerialQueue::asyncAfter(std::chrono::nanoseconds delay, Work work) {
    push(std::chrono::steady_clock::now() + delay, std::move(work));
}

void SerialQueue::asyncAt(std::chrono::nanoseconds hostTime, Work work) {
    push(Deadline(hostTime), std::move(work));
}

void SerialQueue::sync(const Work& work) {
    std::mutex doneMutex;
    std::condition_variable doneChanged;
    bool done = false;
    async([&] {
        work();
        const std::lock_guard lock(doneMutex);
        done = true;
        doneChanged.notify_one();
    });
    std::unique_lock lock(doneMutex);
    doneChanged.wait(lock, [&] { return done; });
}

void SerialQueue::push(Deadline deadline, Work work) {
    {
        const std::lock_guard lock(m_mutex);
        m_items.push({deadline, m_nextOrder++, std::move(work)});
    }
    m_changed.notify_one();
}

void SerialQueue::run() {
    std::unique_lock lock(m_mutex);
    while (!m_ending) {
        if (m_items.empty()) {
            m_changed.wait(lock);
            continue;
        }
        const Deadline deadline = m_items.top().deadline;
        if (deadline > std::chrono::steady_clock::now()) {
            m_changed.wait_until(lock, deadline);
            continue;
        }
        // The heap gives its top as const only to keep its order; the item leaves it in the next line.
        Work work = std::move(const_cast<Item&>(m_items.top()).work);
        m_items.pop();
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
    }
}

} // namespace tamsel
