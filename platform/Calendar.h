#pragma once

#include "platform/Date.h"

#include <QString>

#include <memory>
#include <optional>

class QTimeZone;

namespace tamsel {

// Gregorian days and months in one time zone. The calendar's rules count for all time; moments more than 100 million
// days away from 1970 count as that far away. Main thread only.
//
// Days are also numbered, from 1970-01-01 = 0, and months, from January 1970 = 0: telling the day of each of many
// moments costs a comparison with the stretch of the zone's time that the moment before lay in, and a division.
class Calendar {
public:
    // An IANA name such as "Europe/Berlin"; a name that is unknown counts as UTC.
    explicit Calendar(const QString& zoneName);
    // The device's zone, as it is when the call is made. Rules that TZ spells out, such as
    // "CET-1CEST,M3.5.0,M10.5.0/3", are followed.
    static Calendar device();

    Calendar(Calendar&&) noexcept;
    Calendar& operator=(Calendar&&) noexcept;
    ~Calendar();

    // The first moment of the day that `date` lies in. Where the zone skips midnight, the day starts later.
    Date startOfDay(Date date) const { return startOfDay(dayNumber(date)); }
    bool sameDay(Date a, Date b) const { return dayNumber(a) == dayNumber(b); }
    // The moment at which the day of `date` is over: the start of the next one.
    Date startOfNextDay(Date date) const { return startOfDay(dayNumber(date) + 1); }
    Date startOfMonth(Date date) const { return startOfMonth(monthNumber(date)); }

    // The moment so many months later (or, below zero, earlier) at the same time of the same day, or the month's last
    // where it has no such day. A time that the zone skips gives the first moment behind the gap. Nothing for a moment
    // that is too far away.
    std::optional<Date> addingMonths(Date date, qint64 months) const;

    int dayNumber(Date date) const {
        const double moment = clamped(date.unixSeconds());
        const double local = moment + spanAt(moment).offset;
        // The whole second, rounded down, counted from further back than any moment lies.
        auto second = static_cast<qint64>(local);
        second -= static_cast<double>(second) > local ? 1 : 0;
        return static_cast<int>((second + 2 * farthestDay * secondsPerDay) / secondsPerDay - 2 * farthestDay);
    }
    int monthNumber(Date date) const { return monthOfDay(dayNumber(date)); }
    // The first moment of the numbered day or month; of a day that the zone skips, the first moment behind it.
    Date startOfDay(int dayNumber) const;
    Date startOfMonth(int monthNumber) const;

    static int monthOfDay(int dayNumber);
    static int firstDayOfMonth(int monthNumber);

    // What the zone's clocks show at a moment, as the moment at which those of UTC show it: for formatters, which need
    // not know the zone then.
    Date wallClock(Date date) const { return date + spanAt(clamped(date.unixSeconds())).offset; }

    const QString& zoneName() const { return m_zoneName; }

private:
    explicit Calendar(const QTimeZone& zone);

    // From `start` up to, not including, `end` (Unix seconds) the zone's clocks are `offset` seconds ahead of UTC.
    struct Span {
        double start = 0;
        double end = 0;
        double offset = 0;
    };
    struct Zone;

    static constexpr qint64 secondsPerDay = 86400;
    static constexpr qint64 farthestDay = 100'000'000;

    static double clamped(double unixSeconds) {
        constexpr auto farthest = static_cast<double>(farthestDay * secondsPerDay);
        return !(unixSeconds > -farthest) ? -farthest : unixSeconds > farthest ? farthest : unixSeconds;
    }
    const Span& spanAt(double moment) const {
        if (!(moment >= m_span.start && moment < m_span.end))
            findSpan(moment);
        return m_span;
    }
    void findSpan(double moment) const;
    // The first moment at which the zone's clocks show this much or more, in seconds since 1970-01-01 00:00 on them.
    double momentOf(double local) const;

    std::unique_ptr<Zone> m_zone;
    QString m_zoneName;
    mutable Span m_span; // the one asked for last
};

} // namespace tamsel
