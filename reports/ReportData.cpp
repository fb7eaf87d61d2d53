#include "reports/ReportData.h"

#include "model/EventCutoff.h"
#include "platform/Checked.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/NameIndex.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tamsel {

namespace {

ChartData::SessionsReport sessionsReport(Date date, const QList<HistoryEvent>& events, UuidSource& uuids) {
    ChartData::SessionsReport report{date, uuids.next(), {}};
    report.sessions.reserve(events.size());
    for (const HistoryEvent& event : events)
        report.sessions.emplaceBack(event.exerciseName, event.practiceTime);
    return report;
}

// From the first of these numbered days up to, not including, the end.
QList<HistoryEvent> eventsFrom(const QList<HistoryEvent>& events, int firstDay, int endDay, const Calendar& calendar) {
    QList<HistoryEvent> found;
    std::ranges::copy_if(events, std::back_inserter(found), [&](const HistoryEvent& event) {
        const int day = calendar.dayNumber(event.date);
        return day >= firstDay && day < endDay;
    });
    return found;
}

} // namespace

QList<ChartData::SessionsReport> sessionsReports(const QList<DayOfEvents>& days, UuidSource& uuids) {
    QList<ChartData::SessionsReport> reports;
    reports.reserve(days.size());
    for (const DayOfEvents& day : days)
        reports += sessionsReport(day.day, day.events, uuids);
    return reports;
}

QList<ChartData::SessionsReport> sessionsReports(const QList<MonthOfEvents>& months, UuidSource& uuids) {
    QList<ChartData::SessionsReport> reports;
    reports.reserve(months.size());
    for (const MonthOfEvents& month : months)
        reports += sessionsReport(month.month, month.events, uuids);
    return reports;
}

QList<ChartData::SessionsReport> sessionsReports(const History& history, TimeRange range,
                                                 const std::optional<Exercise>& exercise, UuidSource& uuids) {
    if (isInMonths(range))
        return sessionsReports(history.eventsByMonth(monthsPerYear, range == TimeRange::allMonths, exercise), uuids);
    return sessionsReports(history.eventsByDay(static_cast<int>(range), exercise), uuids);
}

DayOfEvents eventsOfDay(const QList<HistoryEvent>& events, int dayNumber, const Calendar& calendar) {
    return {calendar.startOfDay(dayNumber), eventsFrom(events, dayNumber, dayNumber + 1, calendar)};
}

MonthOfEvents eventsOfMonth(const QList<HistoryEvent>& events, int monthNumber, const Calendar& calendar) {
    return {calendar.startOfMonth(monthNumber), eventsFrom(events, Calendar::firstDayOfMonth(monthNumber),
                                                           Calendar::firstDayOfMonth(monthNumber + 1), calendar)};
}

qint64 totalMinutes(const QList<ChartData::SessionsReport>& reports) {
    qint64 minutes = 0;
    for (const ChartData::SessionsReport& report : reports) {
        for (const ChartData::Session& session : report.sessions)
            minutes = checkedAdd(minutes, session.minutes);
    }
    return minutes;
}

double averageMinutes(const QList<ChartData::SessionsReport>& reports) {
    const auto oldest = std::find_if(reports.crbegin(), reports.crend(), [](const ChartData::SessionsReport& report) {
        return !report.sessions.isEmpty();
    });
    const auto count = std::distance(oldest, reports.crend());
    return count < 1 ? 0 : static_cast<double>(totalMinutes(reports)) / static_cast<double>(count);
}

QList<ChartData::ExerciseReportOverTime> ranking(const QList<HistoryEvent>& events, UuidSource& uuids,
                                                 std::optional<Date> cutoff) {
    NameIndex names;
    std::vector<qint64> sums;
    for (const HistoryEvent& event : events) {
        if (cutoff && event.date < *cutoff)
            continue;
        const auto number = static_cast<std::size_t>(names.indexOf(event.exerciseName));
        if (number == sums.size())
            sums.push_back(0);
        sums[number] = checkedAdd(sums[number], event.practiceTime);
    }
    QList<ChartData::ExerciseReportOverTime> records;
    records.reserve(names.names().size());
    for (std::size_t i = 0; i < sums.size(); ++i)
        records += {names.names().at(static_cast<qsizetype>(i)), sums[i], uuids.next()};
    std::ranges::sort(records, [](const auto& a, const auto& b) {
        return a.minutes != b.minutes ? a.minutes > b.minutes : a.exercise < b.exercise;
    });
    return records;
}

PracticeDayCounts countsOfPracticeDays(const QList<HistoryEvent>& events, Date now, const Calendar& calendar,
                                       const std::optional<Exercise>& exercise) {
    // Most events follow one of the same day.
    std::vector<int> days;
    for (const HistoryEvent& event : events) {
        if (exercise && event.exerciseName != exercise->name)
            continue;
        const int day = calendar.dayNumber(event.date);
        if (days.empty() || days.back() != day)
            days.push_back(day);
    }
    std::ranges::sort(days);
    days.erase(std::ranges::unique(days).begin(), days.end());
    // The cut-off is the start of a day, so that a day lies within the time as a whole or not at all.
    const auto within = [&](int count) {
        const int first = calendar.dayNumber(cutoffOfLastDays(count, now, calendar));
        return static_cast<int>(std::distance(std::ranges::lower_bound(days, first), days.end()));
    };
    return {within(7), within(30), within(365), static_cast<int>(days.size())};
}

QList<TimeRange> rangesToOffer(const History& history, Date now, const Calendar& calendar) {
    QList<TimeRange> ranges = offeredTimeRanges();
    const auto earliest = history.earliestEventDate();
    if (!earliest || !(*earliest < calendar.startOfMonth(monthsBefore(monthsPerYear, now, calendar))))
        ranges.removeOne(TimeRange::allMonths);
    return ranges;
}

TimeRange firstTimeRange(const History& history, const SettingsStore& userDefaults, Date now,
                         const Calendar& calendar) {
    const TimeRange preferred = preferredTimeRange(userDefaults).value_or(TimeRange::last7Days);
    // The others are always on offer; this one costs a look at the whole journal.
    if (preferred != TimeRange::allMonths || rangesToOffer(history, now, calendar).contains(preferred))
        return preferred;
    log(QStringLiteral("Unable to use saved timeRange, likely experimental"));
    return TimeRange::last7Days;
}

} // namespace tamsel
