#include "platform/Clock.h"

namespace tamsel {

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromUnixSeconds(std::chrono::duration<double>(sinceEpoch).count());
}

std::chrono::nanoseconds SystemClock::hostTime() const {
    // CLOCK_MONOTONIC on Linux, which leaves suspended time out.
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace tamsel
