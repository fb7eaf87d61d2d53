#pragma once

#include "model/DayOfEvents.h"
#include "model/EventBuckets.h"
#include "model/History.h"
#include "model/MonthOfEvents.h"
#include "platform/Calendar.h"
#include "platform/Date.h"
#include "platform/Platform.h"
#include "platform/UuidSource.h"
#include "reports/ChartData.h"
#include "reports/TimeRange.h"

#include <QList>

#include <memory>
#include <optional>
#include <span>

// What the reports say, worked out from the journal. Pure functions, main thread.
namespace tamsel {

// One report for each day or month, empty ones included, in the order given.
QList<ChartData::SessionsReport> sessionsReports(const EventBuckets& buckets,
                                                 const std::shared_ptr<const QList<HistoryEvent>>& events,
                                                 UuidSource& uuids);
// Those of a range, newest first, of all items.
QList<ChartData::SessionsReport> sessionsReports(const History& history, TimeRange range, const Platform& platform);

// One numbered day or month, with its events in the order of recording.
DayOfEvents eventsOfDay(const History& history, int dayNumber, const Calendar& calendar);
MonthOfEvents eventsOfMonth(const History& history, int monthNumber, const Calendar& calendar);

// An overflow stops the program.
qint64 totalMinutes(const QList<ChartData::SessionsReport>& reports);

// The minutes of a day or month, on average since the oldest one with a session, which counts; 0 without any. The
// reports are newest first.
double averageMinutes(const QList<ChartData::SessionsReport>& reports);

// Each item of the events with its sum, the largest first; equal ones by name. An overflow stops the program.
QList<ChartData::ExerciseReportOverTime> ranking(const QList<HistoryEvent>& events, UuidSource& uuids);
// The same of the events of the journal that are not before `cutoff`.
QList<ChartData::ExerciseReportOverTime> rankingSince(Date cutoff, const History& history, const Platform& platform);

// On how many different days was practised within the last so many days with today, and ever.
struct PracticeDayCounts {
    int days7 = 0;
    int days30 = 0;
    int days365 = 0;
    int allTime = 0;

    bool operator==(const PracticeDayCounts&) const = default;
};
// `days` are the numbers of the events' days.
PracticeDayCounts countsOfPracticeDays(std::span<const int> days, Date now, const Calendar& calendar);

// The ranges that make sense for the journal: those offered, and all months only where the earliest event lies before
// the month twelve months back.
QList<TimeRange> rangesToOffer(const QList<HistoryEvent>& events, Date now, const Calendar& calendar);

// The range that a report begins with: the one that the user prefers where it is on offer, otherwise seven days.
TimeRange firstTimeRange(const History& history, const SettingsStore& userDefaults, Date now, const Calendar& calendar);

} // namespace tamsel
