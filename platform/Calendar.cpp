#include "platform/Calendar.h"

#include "platform/FatalError.h"
#include "platform/IcuText.h"

#include <unicode/basictz.h>
#include <unicode/tztrans.h>

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace tamsel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double millisecondsPerSecond = 1000.0;
// 2100-01-01. Zones that change their clocks every year do so for ever; what comes later is worked out when asked for.
constexpr double endOfTable = 4102444800.0;
// No zone's clocks were ever further from UTC than 16 hours, nor did any jump by more than a day.
constexpr double largestJump = 26.0 * 3600;
constexpr int monthsPerYear = 12;

struct CivilDay {
    int year;
    int month; // from 0
    int day;   // from 1
};

int floorDivided(int dividend, int divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

// Years are counted from March here, so that the leap day is a year's last, and in eras of 400 years.
constexpr int daysPerEra = 146097;
constexpr int yearsPerEra = 400;
constexpr int marchToEpoch = 719468; // days from 0000-03-01 to 1970-01-01

int dayNumberOf(const CivilDay& civil) {
    const int year = civil.year - (civil.month < 2 ? 1 : 0);
    const int era = floorDivided(year, yearsPerEra);
    const int yearOfEra = year - era * yearsPerEra;
    const int monthFromMarch = (civil.month + 10) % monthsPerYear;
    const int dayOfYear = (153 * monthFromMarch + 2) / 5 + civil.day - 1;
    return era * daysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - marchToEpoch;
}

CivilDay civilDayOf(int dayNumber) {
    const int days = dayNumber + marchToEpoch;
    const int era = floorDivided(days, daysPerEra);
    const int dayOfEra = days - era * daysPerEra;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    const int month = (monthFromMarch + 2) % monthsPerYear;
    return {yearOfEra + era * yearsPerEra + (month < 2 ? 1 : 0), month, day};
}

double offsetOf(const icu::TimeZoneRule& rule) {
    return (rule.getRawOffset() + rule.getDSTSavings()) / millisecondsPerSecond;
}

double timeOf(const icu::TimeZoneTransition& transition) {
    return transition.getTime() / millisecondsPerSecond;
}

} // namespace

struct Calendar::Zone {
    explicit Zone(icu::TimeZone* made) : zone(made), rules(dynamic_cast<icu::BasicTimeZone*>(made)) {
        if (rules == nullptr)
            trap(); // every zone that is made by name keeps rules
    }

    void makeTable() {
        icu::TimeZoneTransition transition;
        double start = -infinity;
        double offset = offsetAt(-static_cast<double>(farthestDay * secondsPerDay));
        UDate from = -std::numeric_limits<double>::max();
        while (start < endOfTable && rules->getNextTransition(from, false, transition)) {
            from = transition.getTime();
            const double time = timeOf(transition);
            table.push_back({start, time, offsetOf(*transition.getFrom())});
            start = time;
            offset = offsetOf(*transition.getTo());
        }
        if (start < endOfTable)
            table.push_back({start, infinity, offset});
    }

    Span find(double moment) {
        if (table.empty())
            makeTable();
        const auto after = std::ranges::upper_bound(table, moment, {}, [](const Span& span) { return span.start; });
        const Span& span = *std::prev(after);
        return moment < span.end ? span : beyondTable(moment);
    }

    Span beyondTable(double moment) const {
        icu::TimeZoneTransition transition;
        Span span{table.back().end, infinity, 0};
        span.offset = offsetAt(moment);
        if (rules->getPreviousTransition(moment * millisecondsPerSecond, true, transition))
            span.start = timeOf(transition);
        if (rules->getNextTransition(moment * millisecondsPerSecond, false, transition))
            span.end = timeOf(transition);
        return span;
    }

    double offsetAt(double moment) const {
        UErrorCode status = U_ZERO_ERROR;
        int32_t raw = 0;
        int32_t savings = 0;
        zone->getOffset(moment * millisecondsPerSecond, false, raw, savings, status);
        if (U_FAILURE(status))
            trap();
        return (raw + savings) / millisecondsPerSecond;
    }

    const std::unique_ptr<icu::TimeZone> zone;
    const icu::BasicTimeZone* const rules;
    // Every stretch between two changes of the zone's clocks, from the first moment on without a gap.
    std::vector<Span> table;
};

Calendar::Calendar(const QString& zoneName)
    : m_zone(std::make_unique<Zone>(icu::TimeZone::createTimeZone(toIcu(zoneName)))) {
    icu::UnicodeString id;
    m_zone->zone->getID(id);
    m_zoneName = fromIcu(id);
}

Calendar Calendar::device() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    zone->getID(id);
    return Calendar(fromIcu(id));
}

Calendar::Calendar(Calendar&&) noexcept = default;
Calendar& Calendar::operator=(Calendar&&) noexcept = default;
Calendar::~Calendar() = default;

void Calendar::findSpan(double moment) const {
    m_span = m_zone->find(moment);
}

double Calendar::momentOf(double local) const {
    Span span = spanAt(local - largestJump);
    while (!(local - span.offset < span.end))
        span = spanAt(span.end);
    return std::max(local - span.offset, span.start);
}

Date Calendar::startOfDay(int dayNumber) const {
    return Date::fromUnixSeconds(momentOf(static_cast<double>(dayNumber) * secondsPerDay));
}

Date Calendar::startOfMonth(int monthNumber) const {
    return startOfDay(firstDayOfMonth(monthNumber));
}

int Calendar::monthOfDay(int dayNumber) {
    const CivilDay civil = civilDayOf(dayNumber);
    return (civil.year - 1970) * monthsPerYear + civil.month;
}

int Calendar::firstDayOfMonth(int monthNumber) {
    const int year = floorDivided(monthNumber, monthsPerYear);
    return dayNumberOf({1970 + year, monthNumber - year * monthsPerYear, 1});
}

std::optional<Date> Calendar::addingMonths(Date date, qint64 months) const {
    const double moment = clamped(date.unixSeconds());
    const int day = dayNumber(date);
    const double timeOfDay = moment + spanAt(moment).offset - static_cast<double>(day) * secondsPerDay;
    constexpr qint64 farthestMonth = farthestDay / 31;
    if (months < -2 * farthestMonth || months > 2 * farthestMonth)
        return std::nullopt;
    const auto month = static_cast<int>(monthOfDay(day) + months);
    if (month < -farthestMonth || month > farthestMonth)
        return std::nullopt;
    const int firstDay = firstDayOfMonth(month);
    const int dayOfMonth = std::min(civilDayOf(day).day, firstDayOfMonth(month + 1) - firstDay);
    return Date::fromUnixSeconds(momentOf(static_cast<double>(firstDay + dayOfMonth - 1) * secondsPerDay + timeOfDay));
}

} // namespace tamsel
