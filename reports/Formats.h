#pragma once

#include "model/PracticeSession.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

#include <QString>

// The texts of dates and durations, in the language of the device. Main thread only.
namespace tamsel {

// Clock time of an interval in seconds: minutes and seconds (02:03, 60:00) up to and including one hour, with hours
// (1:01:01) above it. An interval that cannot be written stops the program.
QString formattedTimeInterval(double seconds);

// "1h 5m" in English. Whole minutes; what is left over is dropped. Zero is "0m".
QString abbreviatedHoursAndMinutes(qint64 seconds);

// How long a session was: "00:42" below a minute, "1h 5m" from one minute up.
QString sessionDurationText(qint64 seconds);

// How a session was timed: "Timer", "Stopwatch".
QString sessionTypeText(SessionType type);

// "03/14/24": the pattern "MM/dd/YY", whose year is deliberately the week-based one.
QString dayTitle(Date date, const Calendar& calendar);

// "Mar 14 2024" in English: the pattern "MMM dd YYYY", whose year is deliberately the week-based one.
QString longDayTitle(Date date, const Calendar& calendar);

// "2 minutes, 3 seconds" in English: for a screen reader. Zero is "0 seconds".
QString spokenDuration(qint64 seconds);

} // namespace tamsel
