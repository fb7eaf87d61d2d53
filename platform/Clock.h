#pragma once

#include "platform/Date.h"

#include <chrono>

namespace tamsel {

// The two clocks of the device. Any thread.
class Clock {
public:
    virtual ~Clock() = default;

    // The wall clock: it may jump when its owner or the network sets it.
    virtual Date now() const = 0;

    // Host time: monotonic nanoseconds since some fixed moment. Stands still while the machine is suspended.
    virtual std::chrono::nanoseconds hostTime() const = 0;
};

class SystemClock final : public Clock {
public:
    Date now() const override;
    std::chrono::nanoseconds hostTime() const override;
};

} // namespace tamsel
