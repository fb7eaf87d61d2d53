#include "platform/ShakeDetector.h"

#include <cmath>

namespace tamsel {

namespace {

using namespace std::chrono_literals;

constexpr double standardGravity = 9.80665;

// A hand moves the device at least 4 cm to either side, 3 to 6 times a second. The acceleration at the turning points,
// amplitude × (2π × frequency)², is then 1.45 g or more; some is left out because a reading may miss the very peak.
// Walking stays below 0.5 g.
constexpr double strongAcceleration = 1.2 * standardGravity;

// To and fro, twice. A device that is put down hard bounces once.
constexpr int strokesOfAShake = 4;

// Half a period of the slowest shake is 167 ms. Twice that and a little more without a stroke, and it has ended.
constexpr std::chrono::nanoseconds restAfterAShake = 400ms;

// How quickly the notion of gravity follows a device that is turned: slower than any shake.
constexpr std::chrono::nanoseconds gravityTimeConstant = 600ms;

// After a pause in the readings nothing is known of what came before.
constexpr std::chrono::nanoseconds longestPause = 500ms;

double dot(const Acceleration& a, const Acceleration& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

} // namespace

bool ShakeDetector::feed(const Acceleration& reading, std::chrono::nanoseconds time) {
    if (!std::isfinite(dot(reading, reading)))
        return false;
    if (!m_lastTime || time - *m_lastTime > longestPause || time < *m_lastTime) {
        m_lastTime = time;
        m_gravity = reading;
        m_strokes = 0;
        return false;
    }
    const auto step = static_cast<double>((time - *m_lastTime).count());
    const double share = step / (step + static_cast<double>(gravityTimeConstant.count()));
    m_lastTime = time;
    m_gravity.x += share * (reading.x - m_gravity.x);
    m_gravity.y += share * (reading.y - m_gravity.y);
    m_gravity.z += share * (reading.z - m_gravity.z);

    const Acceleration moved{reading.x - m_gravity.x, reading.y - m_gravity.y, reading.z - m_gravity.z};
    if (dot(moved, moved) >= strongAcceleration * strongAcceleration) {
        // A stroke goes against the one before it.
        if (m_strokes == 0 || dot(moved, m_stroke) < 0)
            ++m_strokes;
        m_stroke = moved;
        m_lastStroke = time;
        return false;
    }
    if (m_strokes == 0 || time - m_lastStroke < restAfterAShake)
        return false;
    const bool wasAShake = m_strokes >= strokesOfAShake;
    m_strokes = 0;
    return wasAShake;
}

} // namespace tamsel
