#pragma once

#include "platform/Clock.h"
#include "platform/Queue.h"

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

namespace tamsel {

// Ticks once for each second of running on the monotonic clock: none is lost when the main loop stalls, they come
// together when it goes on. A pause keeps the fraction of the current second. Main thread only.
class SecondTicker {
public:
    // With accelerated time, `acceleration` ticks come in one second. The queue is the main queue.
    SecondTicker(const Clock& clock, Queue& queue, int acceleration, std::function<void()> onTick);
    ~SecondTicker();

    SecondTicker(const SecondTicker&) = delete;
    SecondTicker& operator=(const SecondTicker&) = delete;

    bool isRunning() const { return m_isRunning; }

    // Begins a run at a whole second.
    void start();
    void pause();
    void resume();
    // Ends the run. Allowed while ticking: no further tick of this run comes.
    void stop();

private:
    std::chrono::nanoseconds elapsed() const;
    void scheduleNextTick();
    void deliverDueTicks(quint64 run);

    const Clock& m_clock;
    Queue& m_queue;
    const std::chrono::nanoseconds m_interval;
    const std::function<void()> m_onTick;
    bool m_isRunning = false;
    // Counts starts, pauses, resumes and stops: a wake-up of an earlier one does nothing.
    quint64 m_run = 0;
    std::chrono::nanoseconds m_resumedAt{};
    std::chrono::nanoseconds m_elapsedBeforeResume{};
    qint64 m_ticksDelivered = 0;
    std::shared_ptr<SecondTicker*> m_self = std::make_shared<SecondTicker*>(this);
};

} // namespace tamsel
