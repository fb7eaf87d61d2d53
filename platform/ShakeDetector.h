#pragma once

#include <chrono>
#include <optional>

namespace tamsel {

// Metres per second squared along the device's three axes, gravity included.
struct Acceleration {
    double x = 0;
    double y = 0;
    double z = 0;
};

// Tells a shake from being carried, tilted or put down. Pure: readings and their times in, shakes out.
class ShakeDetector {
public:
    // Takes the next reading, at a monotonic time. True when a shake has ended by now, once for each.
    bool feed(const Acceleration& reading, std::chrono::nanoseconds time);

private:
    std::optional<std::chrono::nanoseconds> m_lastTime;
    Acceleration m_gravity; // the slow part of the readings
    std::chrono::nanoseconds m_lastStroke{0};
    Acceleration m_stroke; // what the last strong reading had beyond gravity
    int m_strokes = 0;
};

} // namespace tamsel
