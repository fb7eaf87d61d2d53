#pragma once

#include "platform/Queue.h"

#include <QObject>

namespace tamsel {

// The main thread's queue, driven by Qt's event loop. Make it on the main thread, after the application object.
class MainQueue final : public Queue {
public:
    void async(Work work) override;
    void asyncAfter(std::chrono::nanoseconds delay, Work work) override;

private:
    QObject m_context;
};

} // namespace tamsel
