#include "practice/SecondTicker.h"

#include <utility>

namespace tamsel {

SecondTicker::SecondTicker(const Clock& clock, Queue& queue, int acceleration, std::function<void()> onTick)
    : m_clock(clock), m_queue(queue), m_interval(std::chrono::nanoseconds(std::chrono::seconds(1)) / acceleration),
      m_onTick(std::move(onTick)) {}

SecondTicker::~SecondTicker() = default;

void SecondTicker::start() {
    m_elapsedBeforeResume = {};
    m_ticksDelivered = 0;
    m_isRunning = false;
    resume();
}

void SecondTicker::pause() {
    if (!m_isRunning)
        return;
    m_elapsedBeforeResume = elapsed();
    m_isRunning = false;
    ++m_run;
}

void SecondTicker::resume() {
    if (m_isRunning)
        return;
    m_resumedAt = m_clock.hostTime();
    m_isRunning = true;
    ++m_run;
    scheduleNextTick();
}

void SecondTicker::stop() {
    m_isRunning = false;
    ++m_run;
}

std::chrono::nanoseconds SecondTicker::elapsed() const {
    return m_elapsedBeforeResume + (m_clock.hostTime() - m_resumedAt);
}

void SecondTicker::scheduleNextTick() {
    const std::chrono::nanoseconds remaining = m_interval * (m_ticksDelivered + 1) - elapsed();
    m_queue.asyncAfter(std::max(remaining, std::chrono::nanoseconds::zero()),
                       [self = std::weak_ptr(m_self), run = m_run] {
                           if (const auto ticker = self.lock())
                               (*ticker)->deliverDueTicks(run);
                       });
}

void SecondTicker::deliverDueTicks(quint64 run) {
    if (run != m_run)
        return;
    const qint64 due = elapsed() / m_interval;
    while (m_ticksDelivered < due) {
        ++m_ticksDelivered;
        m_onTick();
        if (run != m_run)
            return;
    }
    scheduleNextTick();
}

} // namespace tamsel
