#include "reports/ReportData.h"

#include "model/EventBuckets.h"
#include "model/EventCutoff.h"
#include "model/NameIndex.h"
#include "platform/Checked.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tamsel {

namespace {

// From the first of these numbered days up to, not including, the end.
QList<HistoryEvent> eventsFrom(const History& history, int firstDay, int endDay) {
    const std::vector<int>& days = history.days();
    QList<HistoryEvent> found;
    for (std::size_t i = 0; i < days.size(); ++i) {
        if (days[i] >= firstDay && days[i] < endDay)
            found += history.events().at(static_cast<qsizetype>(i));
    }
    return found;
}

// The practice of each item, by the number of its name.
class Sums {
public:
    void add(int name, qint64 minutes) {
        const auto place = static_cast<std::size_t>(name);
        if (place >= m_minutes.size())
            m_minutes.resize(place + 1);
        m_minutes[place] = checkedAdd(m_minutes[place].value_or(0), minutes);
    }

    QList<ChartData::ExerciseReportOverTime> records(const QList<QString>& names, UuidSource& uuids) const {
        QList<ChartData::ExerciseReportOverTime> records;
        for (std::size_t i = 0; i < m_minutes.size(); ++i) {
            if (m_minutes[i])
                records += {names.at(static_cast<qsizetype>(i)), *m_minutes[i], uuids.next()};
        }
        std::ranges::sort(records, [](const auto& a, const auto& b) {
            return a.minutes != b.minutes ? a.minutes > b.minutes : a.exercise < b.exercise;
        });
        return records;
    }

private:
    std::vector<std::optional<qint64>> m_minutes; // nothing for a name without an event
};

} // namespace

QList<ChartData::SessionsReport> sessionsReports(const EventBuckets& buckets,
                                                 const std::shared_ptr<const QList<HistoryEvent>>& events,
                                                 UuidSource& uuids) {
    QList<ChartData::SessionsReport> reports;
    reports.reserve(buckets.list.size());
    for (const auto& bucket : buckets.list) {
        ChartData::SessionsReport report{
            bucket.start, uuids.next(), {events, buckets.groups, buckets.positions(bucket)}};
        for (const ChartData::Session& session : report.sessions)
            report.minutes = checkedAdd(report.minutes, session.minutes);
        reports += std::move(report);
    }
    return reports;
}

QList<ChartData::SessionsReport> sessionsReports(const History& history, TimeRange range, const Platform& platform) {
    const Calendar& calendar = platform.calendar;
    const Date now = platform.clock.now();
    const std::vector<int>& days = history.days();
    const auto buckets = isInMonths(range)
                             ? lastMonths(monthsPerYear, range == TimeRange::allMonths, days, now, calendar)
                             : lastDays(static_cast<int>(range), days, now, calendar);
    return sessionsReports(buckets, history.journal(), platform.uuids);
}

DayOfEvents eventsOfDay(const History& history, int dayNumber, const Calendar& calendar) {
    return {calendar.startOfDay(dayNumber), eventsFrom(history, dayNumber, dayNumber + 1)};
}

MonthOfEvents eventsOfMonth(const History& history, int monthNumber, const Calendar& calendar) {
    return {calendar.startOfMonth(monthNumber),
            eventsFrom(history, Calendar::firstDayOfMonth(monthNumber), Calendar::firstDayOfMonth(monthNumber + 1))};
}

qint64 totalMinutes(const QList<ChartData::SessionsReport>& reports) {
    qint64 minutes = 0;
    for (const ChartData::SessionsReport& report : reports)
        minutes = checkedAdd(minutes, report.minutes);
    return minutes;
}

double averageMinutes(const QList<ChartData::SessionsReport>& reports) {
    const auto oldest = std::find_if(reports.crbegin(), reports.crend(), [](const ChartData::SessionsReport& report) {
        return !report.sessions.isEmpty();
    });
    const auto count = std::distance(oldest, reports.crend());
    return count < 1 ? 0 : static_cast<double>(totalMinutes(reports)) / static_cast<double>(count);
}

QList<ChartData::ExerciseReportOverTime> ranking(const QList<HistoryEvent>& events, UuidSource& uuids) {
    NameIndex names;
    Sums sums;
    for (const HistoryEvent& event : events)
        sums.add(names.indexOf(event.exerciseName), event.practiceTime);
    return sums.records(names.names(), uuids);
}

QList<ChartData::ExerciseReportOverTime> rankingSince(Date cutoff, const History& history, const Platform& platform) {
    // Days are quick to look through. Where clocks go back over midnight, the day before comes again after a day's
    // start.
    const int firstDay = platform.calendar.dayNumber(cutoff) - 1;
    const std::vector<int>& days = history.days();
    const EventNames& names = history.names();
    Sums sums;
    for (std::size_t i = 0; i < days.size(); ++i) {
        if (days[i] < firstDay)
            continue;
        const HistoryEvent& event = history.events().at(static_cast<qsizetype>(i));
        if (!(event.date < cutoff))
            sums.add(names.numbers()[i], event.practiceTime);
    }
    return sums.records(names.names(), platform.uuids);
}

PracticeDayCounts countsOfPracticeDays(std::span<const int> daysOfEvents, Date now, const Calendar& calendar) {
    // Most events follow one of the same day.
    std::vector<int> days;
    int last = EventGroups::none;
    for (const int day : daysOfEvents) {
        if (day == EventGroups::none || day == last)
            continue;
        days.push_back(day);
        last = day;
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

QList<TimeRange> rangesToOffer(const QList<HistoryEvent>& events, Date now, const Calendar& calendar) {
    QList<TimeRange> ranges = offeredTimeRanges();
    const Date start = calendar.startOfMonth(monthsBefore(monthsPerYear, now, calendar));
    // In a journal that is old enough, one of the first events tells.
    if (std::ranges::none_of(events, [start](const HistoryEvent& event) { return event.date < start; }))
        ranges.removeOne(TimeRange::allMonths);
    return ranges;
}

TimeRange firstTimeRange(const History& history, const SettingsStore& userDefaults, Date now,
                         const Calendar& calendar) {
    const TimeRange preferred = preferredTimeRange(userDefaults).value_or(TimeRange::last7Days);
    // The others are always on offer; this one costs a look at the whole journal.
    if (preferred != TimeRange::allMonths || rangesToOffer(history.events(), now, calendar).contains(preferred))
        return preferred;
    log(QStringLiteral("Unable to use saved timeRange, likely experimental"));
    return TimeRange::last7Days;
}

} // namespace tamsel
