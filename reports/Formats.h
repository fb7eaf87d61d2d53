#pragma once

#include "model/HistoryEvent.h"
#include "model/PracticeSession.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

#include <QList>
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

// "1 hour, 5 minutes" in English. Whole minutes; what is left over is dropped. Zero is "0 minutes".
QString fullHoursAndMinutes(qint64 seconds);

// "65 minutes" in English.
QString spokenMinutes(qint64 minutes);

// What the events' whole minutes add up to: "59m", "1h", "1h 5m". A sum that overflows stops the program.
QString totalPracticeTimeText(const QList<HistoryEvent>& events);
// For totals that may span days: from 24 hours up "1d 25h 0m", deliberately with all hours of the total, not those left
// over after the days, and always with the minutes.
QString totalPracticeTimeTextWithDays(const QList<HistoryEvent>& events);
// The sum itself, in minutes, and the text of a sum that is known.
qint64 totalPracticeTime(const QList<HistoryEvent>& events);
QString practiceTimeText(qint64 minutes);

// Three patterns whose year is deliberately the week-based one: around New Year it may be the neighbouring year.
// "03/14/24": "MM/dd/YY".
QString dayTitle(Date date, const Calendar& calendar);
// "Mar 2024" in English: "MMM YYYY".
QString monthTitle(Date date, const Calendar& calendar);
// "Mar 14 2024" in English: "MMM dd YYYY".
QString longDayTitle(Date date, const Calendar& calendar);

// The short date style of the language: "3/14/24" in American English.
QString shortDate(Date date, const Calendar& calendar);

// For headings and for a screen reader, with the calendar year: "March 14", "March 14, 2024", "March 2024".
QString spokenDay(Date date, const Calendar& calendar);
QString fullDay(Date date, const Calendar& calendar);
QString spokenMonth(Date date, const Calendar& calendar);

// For the marks of charts: "Thu", "Mar 14", "M", "Mar 24", "2024".
QString weekdayMark(Date date, const Calendar& calendar);
QString dayMark(Date date, const Calendar& calendar);
QString narrowMonthMark(Date date, const Calendar& calendar);
QString monthMark(Date date, const Calendar& calendar);
QString yearMark(Date date, const Calendar& calendar);

// "2 minutes, 3 seconds" in English: for a screen reader. Zero is "0 seconds".
QString spokenDuration(qint64 seconds);

} // namespace tamsel
