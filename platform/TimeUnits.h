#pragma once

#include <QtGlobal>

namespace tamsel {

inline constexpr qint64 secondsPerMinute = 60;
inline constexpr qint64 secondsPerHour = 3'600;
// A day of the clock; the calendar's may be longer or shorter.
inline constexpr qint64 secondsPerDay = 86'400;
inline constexpr qint64 minutesPerHour = 60;
inline constexpr int monthsPerYear = 12;

} // namespace tamsel
