#include "platform/Calendar.h"

#include <QByteArray>
#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <vector>

namespace tamsel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double millisecondsPerSecond = 1000.0;
// 1800-01-01, when every place still had the time of its own sun. Rules that TZ spells out would go back for ever.
constexpr double startOfTable = -5364662400.0;
// 2050-01-01. Zones that change their clocks every year do so for ever; what comes later is worked out when asked for.
constexpr double endOfTable = 2524608000.0;
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

// The whole millisecond, rounded down.
QDateTime utc(double moment) {
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(moment * millisecondsPerSecond)), Qt::UTC);
}

double timeOf(const QTimeZone::OffsetData& transition) {
    return static_cast<double>(transition.atUtc.toMSecsSinceEpoch()) / millisecondsPerSecond;
}

bool isValid(const QTimeZone::OffsetData& transition) {
    return transition.atUtc.isValid();
}

} // namespace

struct Calendar::Zone {
    explicit Zone(const QTimeZone& given) : zone(given) {}

    void makeTable() {
        double start = -infinity;
        double offset = zone.offsetFromUtc(utc(startOfTable));
        auto next = zone.nextTransition(utc(startOfTable));
        while (isValid(next) && timeOf(next) < endOfTable) {
            table.push_back({start, timeOf(next), offset});
            start = timeOf(next);
            offset = next.offsetFromUtc;
            // Asked at the very moment of the last one that the database lists, Qt tells none of those behind it.
            next = zone.nextTransition(next.atUtc.addMSecs(1));
        }
        table.push_back({start, endOfTable, offset});
    }

    Span find(double moment) {
        if (table.empty())
            makeTable();
        const auto after = std::ranges::upper_bound(table, moment, {}, [](const Span& span) { return span.start; });
        const Span& span = *std::prev(after);
        return moment < span.end ? span : beyondTable(moment);
    }

    Span beyondTable(double moment) const {
        const QDateTime time = utc(moment);
        Span span{table.back().end, infinity, static_cast<double>(zone.offsetFromUtc(time))};
        // "Previous" is before the moment.
        if (const auto previous = zone.previousTransition(time.addMSecs(1)); isValid(previous))
            span.start = std::max(span.start, timeOf(previous));
        if (const auto next = zone.nextTransition(time); isValid(next))
            span.end = timeOf(next);
        return span;
    }

    const QTimeZone zone;
    // Every stretch between two changes of the zone's clocks, from the first moment to the table's end without a gap.
    std::vector<Span> table;
};

// The system's own database of zones is kept up to date when a country changes its clocks; ICU brings one that is as
// old as itself.
Calendar::Calendar(const QTimeZone& zone)
    : m_zone(std::make_unique<Zone>(zone.isValid() ? zone : QTimeZone::utc())),
      m_zoneName(QString::fromUtf8(m_zone->zone.id())) {}

Calendar::Calendar(const QString& zoneName) : Calendar(QTimeZone(zoneName.toUtf8())) {}

Calendar Calendar::device() {
    QTimeZone zone = QTimeZone::systemTimeZone();
    // TZ may also name a zone by its file.
    const QByteArray name = qgetenv("TZ");
    const QByteArray folder = "/zoneinfo/";
    if (const auto at = name.indexOf(folder); !zone.isValid() && at >= 0)
        zone = QTimeZone(name.mid(at + folder.size()));
    // What the clocks show is told by the C library, which takes "UTC-14" for rules where Qt takes it for an offset.
    tzset();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const auto offset = static_cast<int>(local.tm_gmtoff);
    if (!zone.isValid() || zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(now, Qt::UTC)) != offset)
        zone = QTimeZone(offset);
    return Calendar(zone);
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
