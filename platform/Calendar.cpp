#include "platform/Calendar.h"

#include "platform/FatalError.h"
#include "platform/IcuText.h"

#include <unicode/gregocal.h>
#include <unicode/timezone.h>

namespace tamsel {

namespace {

constexpr double millisecondsPerSecond = 1000.0;

void require(UErrorCode status) {
    if (U_FAILURE(status))
        trap();
}

} // namespace

struct Calendar::Fields {
    explicit Fields(icu::TimeZone* zone) {
        UErrorCode status = U_ZERO_ERROR;
        calendar = std::make_unique<icu::GregorianCalendar>(zone, status);
        require(status);
        // A midnight that the zone skips is the first moment after the gap; one that comes twice is the first of the
        // two.
        calendar->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
        calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    }

    Date startOfDay(Date date, int daysLater) {
        UErrorCode status = U_ZERO_ERROR;
        calendar->setTime(date.unixSeconds() * millisecondsPerSecond, status);
        const int32_t era = calendar->get(UCAL_ERA, status);
        const int32_t year = calendar->get(UCAL_YEAR, status);
        const int32_t month = calendar->get(UCAL_MONTH, status);
        const int32_t day = calendar->get(UCAL_DATE, status);
        require(status);
        calendar->clear();
        calendar->set(UCAL_ERA, era);
        calendar->set(year, month, day + daysLater);
        const UDate start = calendar->getTime(status);
        require(status);
        return Date::fromUnixSeconds(start / millisecondsPerSecond);
    }

    std::unique_ptr<icu::GregorianCalendar> calendar;
};

Calendar::Calendar(const QString& zoneName)
    : m_fields(std::make_unique<Fields>(icu::TimeZone::createTimeZone(toIcu(zoneName)))) {}

Calendar Calendar::device() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    zone->getID(id);
    return Calendar(fromIcu(id));
}

Calendar::Calendar(Calendar&&) noexcept = default;
Calendar::~Calendar() = default;

Date Calendar::startOfDay(Date date) const {
    return m_fields->startOfDay(date, 0);
}

Date Calendar::startOfNextDay(Date date) const {
    return m_fields->startOfDay(date, 1);
}

bool Calendar::sameDay(Date a, Date b) const {
    return startOfDay(a) == startOfDay(b);
}

QString Calendar::zoneName() const {
    icu::UnicodeString id;
    m_fields->calendar->getTimeZone().getID(id);
    return fromIcu(id);
}

} // namespace tamsel
