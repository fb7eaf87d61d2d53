#pragma once

#include "platform/Calendar.h"
#include "platform/Checked.h"
#include "platform/Date.h"
#include "platform/TimeUnits.h"

// The moments from which on an event lies within the last days or months.
namespace tamsel {

// The start of the day (days - 1) × 86,400 seconds before now: that many days with today. Zero days, deliberately,
// begin tomorrow.
inline Date cutoffOfLastDays(int days, Date now, const Calendar& calendar) {
    return calendar.startOfDay(now - static_cast<double>(checkedMultiply(qint64(days) - 1, secondsPerDay)));
}

// The moment so many months before `now`. What the calendar cannot tell counts as months of 31 days.
inline Date monthsBefore(int months, Date now, const Calendar& calendar) {
    constexpr qint64 daysPerMonth = 31;
    if (const auto date = calendar.addingMonths(now, -qint64(months)))
        return *date;
    return now - static_cast<double>(checkedMultiply(months, daysPerMonth * secondsPerDay));
}

// The start of the month months - 1 before the current one: that many months with this one.
inline Date cutoffOfLastMonths(int months, Date now, const Calendar& calendar) {
    return calendar.startOfMonth(monthsBefore(months - 1, now, calendar));
}

// More months than any journal has.
inline constexpr int allMonthsCount = 10000;

} // namespace tamsel
