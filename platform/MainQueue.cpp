#include "platform/MainQueue.h"

#include <QTimer>

#include <utility>

namespace tamsel {

void MainQueue::async(Work work) {
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void MainQueue::asyncAfter(std::chrono::nanoseconds delay, Work work) {
    // Rounded up: a timer may fire late, never early.
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(delay);
    async([this, milliseconds, work = std::move(work)]() mutable {
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &m_context, std::move(work));
    });
}

} // namespace tamsel
