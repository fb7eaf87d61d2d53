#include "tests/support/ManualQueue.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tamsel::test {

void ManualQueue::asyncAfter(std::chrono::nanoseconds delay, Work work) {
    const std::scoped_lock lock(m_mutex);
    m_items.push_back({m_clock.hostTime() + delay, m_nextOrder++, std::move(work)});
}

std::ptrdiff_t ManualQueue::earliest(std::chrono::nanoseconds time) const {
    std::ptrdiff_t found = -1;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i].due > time)
            continue;
        const auto& best = m_items[static_cast<std::size_t>(std::max<std::ptrdiff_t>(found, 0))];
        if (found < 0 || std::tie(m_items[i].due, m_items[i].order) < std::tie(best.due, best.order))
            found = static_cast<std::ptrdiff_t>(i);
    }
    return found;
}

void ManualQueue::runDue() {
    while (true) {
        Work work;
        {
            const std::scoped_lock lock(m_mutex);
            const std::ptrdiff_t i = earliest(m_clock.hostTime());
            if (i < 0)
                return;
            work = std::move(m_items[static_cast<std::size_t>(i)].work);
            m_items.erase(m_items.begin() + i);
        }
        work();
    }
}

void ManualQueue::advance(std::chrono::nanoseconds duration) {
    const std::chrono::nanoseconds end = m_clock.hostTime() + duration;
    runDue();
    while (true) {
        std::chrono::nanoseconds due = end;
        {
            const std::scoped_lock lock(m_mutex);
            const std::ptrdiff_t i = earliest(end);
            if (i < 0)
                break;
            due = m_items[static_cast<std::size_t>(i)].due;
        }
        if (due > m_clock.hostTime())
            advanceClock(due - m_clock.hostTime());
        runDue();
    }
    advanceClock(end - m_clock.hostTime());
}

void ManualQueue::stall(std::chrono::nanoseconds duration) {
    advanceClock(duration);
    runDue();
}

void ManualQueue::advanceClock(std::chrono::nanoseconds duration) {
    const std::scoped_lock lock(m_mutex);
    m_clock.advance(duration);
}

} // namespace tamsel::test
