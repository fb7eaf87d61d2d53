#pragma once

#include <compare>

namespace tamsel {

// A moment, as seconds (with fraction) since 2001-01-01 00:00:00 UTC. Stored documents keep exactly this number.
struct Date {
    double secondsSinceReference = 0;

    // 2001-01-01 as seconds since 1970-01-01, both UTC.
    static constexpr double referenceSinceUnixEpoch = 978307200.0;

    static constexpr Date fromUnixSeconds(double seconds) { return {seconds - referenceSinceUnixEpoch}; }
    constexpr double unixSeconds() const { return secondsSinceReference + referenceSinceUnixEpoch; }

    constexpr Date operator+(double seconds) const { return {secondsSinceReference + seconds}; }
    constexpr Date operator-(double seconds) const { return {secondsSinceReference - seconds}; }
    constexpr double operator-(Date other) const { return secondsSinceReference - other.secondsSinceReference; }
    constexpr auto operator<=>(const Date&) const = default;
};

} // namespace tamsel
