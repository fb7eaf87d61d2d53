#pragma once

#include "platform/Clock.h"

namespace tamsel::test {

// A clock that stands where the test puts it.
class FakeClock final : public Clock {
public:
    // 2024-03-14 12:00:00 UTC, unless told otherwise.
    explicit FakeClock(Date start = Date::fromUnixSeconds(1710417600.0)) : wall(start) {}

    Date now() const override { return wall; }
    std::chrono::nanoseconds hostTime() const override { return host; }

    // Lets time pass on both clocks.
    void advance(std::chrono::nanoseconds duration) {
        host += duration;
        wall = wall + std::chrono::duration<double>(duration).count();
    }

    Date wall;
    std::chrono::nanoseconds host{1'000'000'000};
};

} // namespace tamsel::test
