#include "reports/PracticeTimeDetailViewModel.h"

#include "model/EventBuckets.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/ChartBuilder.h"
#include "reports/Formats.h"

#include <utility>

namespace tamsel {

PracticeTimeDetailViewModel::PracticeTimeDetailViewModel(Singletons& singletons,
                                                         const std::optional<Exercise>& exercise, TimeRange timeRange,
                                                         const Platform& platform, ItemColors& colors)
    : m_platform(platform), m_colors(colors), m_exerciseName(exercise ? exercise->name : QString()),
      m_ranges(rangesToOffer(singletons.history.events(), platform.clock.now(), platform.calendar)),
      m_timeRange(timeRange), m_journal(singletons.history.journal()),
      m_lists(listsOf(exercise, singletons.history, platform)) {
    log(QStringLiteral("PracticeTimeDetailViewModel.init"));
    updateChart();
}

PracticeTimeDetailViewModel::Lists PracticeTimeDetailViewModel::listsOf(const std::optional<Exercise>& exercise,
                                                                        const History& history,
                                                                        const Platform& platform) {
    const Calendar& calendar = platform.calendar;
    const Date now = platform.clock.now();
    const auto ofExercise = exercise ? daysOfExercise(exercise, history.events(), history.days()) : std::vector<int>();
    const std::span<const int> days = exercise ? ofExercise : history.days();
    const EventBuckets last90Days = lastDays(static_cast<int>(TimeRange::last90Days), days, now, calendar);
    // The shorter lists of days are the beginnings of the longest.
    const auto first = [&](TimeRange range) {
        return EventBuckets{last90Days.list.first(static_cast<int>(range)), last90Days.groups};
    };
    return {tamsel::countsOfPracticeDays(days, now, calendar),
            first(TimeRange::last7Days),
            first(TimeRange::last30Days),
            last90Days,
            lastMonths(monthsPerYear, false, days, now, calendar),
            lastMonths(monthsPerYear, true, days, now, calendar)};
}

const EventBuckets& PracticeTimeDetailViewModel::list() const {
    switch (m_timeRange) {
    case TimeRange::last7Days:
        return m_lists.last7Days;
    case TimeRange::last30Days:
        return m_lists.last30Days;
    case TimeRange::last90Days:
        return m_lists.last90Days;
    case TimeRange::last12Months:
        return m_lists.twelveMonths;
    case TimeRange::allMonths:
        return m_lists.allMonths;
    }
    trap();
}

void PracticeTimeDetailViewModel::setTimeRange(TimeRange timeRange) {
    if (std::exchange(m_timeRange, timeRange) == timeRange)
        return;
    updateChart();
    Q_EMIT timeRangeChanged();
}

void PracticeTimeDetailViewModel::updateChart() {
    const auto reports = sessionsReports();
    m_minutes.clear();
    for (const ChartData::SessionsReport& report : reports)
        m_minutes += report.minutes;
    m_chart.setContent(buildChart(reports, m_timeRange, m_platform.calendar, m_colors));
}

QList<ChartData::SessionsReport> PracticeTimeDetailViewModel::sessionsReports() const {
    return tamsel::sessionsReports(list(), m_journal, m_platform.uuids);
}

QString PracticeTimeDetailViewModel::rowTitle(int index) const {
    const Date start = list().list.at(index).start;
    return QStringLiteral("%1: %2").arg(isInMonths(m_timeRange) ? monthTitle(start, m_platform.calendar)
                                                                : dayTitle(start, m_platform.calendar),
                                        practiceTimeText(m_minutes.at(index)));
}

PracticeTimeDetailViewModel::DayRow PracticeTimeDetailViewModel::dayRow(int index) const {
    const auto& day = list().list.at(index);
    return {index,
            rowTitle(index),
            m_platform.uuids.next(),
            {DayOfEvents{day.start, eventsAt(list().positions(day), *m_journal)}}};
}

PracticeTimeDetailViewModel::MonthRow PracticeTimeDetailViewModel::monthRow(int index) const {
    const auto& month = list().list.at(index);
    return {index,
            rowTitle(index),
            m_platform.uuids.next(),
            {MonthOfEvents{month.start, eventsAt(list().positions(month), *m_journal)}}};
}

QList<ReportFigure> PracticeTimeDetailViewModel::practiceDayFigures() const {
    const PracticeDayCounts& counts = countsOfPracticeDays();
    return {{QStringLiteral("practice_days_7"), QString::number(counts.days7), QStringLiteral("in 7 days")},
            {QStringLiteral("practice_days_30"), QString::number(counts.days30), QStringLiteral("in 30 days")},
            {QStringLiteral("practice_days_365"), QString::number(counts.days365), QStringLiteral("in 365 days")},
            {QStringLiteral("practice_days_all"), QString::number(counts.allTime), QStringLiteral("all time")}};
}

QList<ReportRow> PracticeTimeDetailViewModel::rows() const {
    QList<ReportRow> rows;
    const auto count = static_cast<int>(list().list.size());
    rows.reserve(count);
    for (int i = 0; i < count; ++i)
        rows += {QStringLiteral("practice_time_row_%1").arg(i), rowTitle(i), QString(), false};
    return rows;
}

QString PracticeTimeDetailViewModel::emptyText() const {
    if (!m_chart.isEmpty())
        return {};
    return QStringLiteral("Nothing was recorded in this time. Practice for a minute or more and save, and it appears "
                          "here.");
}

void PracticeTimeDetailViewModel::selectTimeRange(int value) {
    if (const auto range = rangeOfValue(m_ranges, value))
        setTimeRange(*range);
}

void PracticeTimeDetailViewModel::openRow(int row) {
    if (row >= 0 && row < list().list.size())
        Q_EMIT destinationRequested(isInMonths(m_timeRange) ? monthRow(row).route : dayRow(row).route);
}

void PracticeTimeDetailViewModel::openBar(int bar) {
    // The newest is first in the list and last in the chart.
    openRow(static_cast<int>(m_chart.content().bars.size()) - 1 - bar);
}

} // namespace tamsel
