#include "reports/PracticeTimeDetailViewModel.h"

#include "model/EventBuckets.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/ChartBuilder.h"
#include "reports/Formats.h"

#include <utility>

namespace tamsel {

namespace {

QString withTotal(const QString& date, qint64 minutes) {
    return QStringLiteral("%1: %2").arg(date, practiceTimeText(minutes));
}

} // namespace

PracticeTimeDetailViewModel::PracticeTimeDetailViewModel(Singletons& singletons,
                                                         const std::optional<Exercise>& exercise, TimeRange timeRange,
                                                         const Platform& platform, ItemColors& colors)
    : m_platform(platform), m_colors(colors), m_exerciseName(exercise ? exercise->name : QString()),
      m_ranges(rangesToOffer(singletons.history.events(), platform.clock.now(), platform.calendar)),
      m_timeRange(timeRange) {
    log(QStringLiteral("PracticeTimeDetailViewModel.init"));
    const QList<HistoryEvent>& events = singletons.history.events();
    const Calendar& calendar = platform.calendar;
    const Date now = platform.clock.now();
    const auto days = daysOfExercise(exercise, events, singletons.history.days());
    m_countsOfPracticeDays = tamsel::countsOfPracticeDays(days, now, calendar);
    // The shorter lists of days are the beginnings of the longest.
    m_last90DaysOfEvents =
        daysOfEvents(lastDays(static_cast<int>(TimeRange::last90Days), days, now, calendar), events, calendar);
    m_last30DaysOfEvents = m_last90DaysOfEvents.first(static_cast<int>(TimeRange::last30Days));
    m_last7DaysOfEvents = m_last90DaysOfEvents.first(static_cast<int>(TimeRange::last7Days));
    const auto ofMonths = [&](bool allMonths) {
        return monthsOfEvents(lastMonths(monthsPerYear, allMonths, days, now, calendar), events, calendar);
    };
    m_twelveMonthsOfEvents = ofMonths(false);
    m_allMonthsOfEvents = ofMonths(true);
    updateChart();
}

const QList<DayOfEvents>* PracticeTimeDetailViewModel::days() const {
    switch (m_timeRange) {
    case TimeRange::last7Days:
        return &m_last7DaysOfEvents;
    case TimeRange::last30Days:
        return &m_last30DaysOfEvents;
    case TimeRange::last90Days:
        return &m_last90DaysOfEvents;
    case TimeRange::last12Months:
    case TimeRange::allMonths:
        return nullptr;
    }
    trap();
}

const QList<MonthOfEvents>& PracticeTimeDetailViewModel::months() const {
    return m_timeRange == TimeRange::allMonths ? m_allMonthsOfEvents : m_twelveMonthsOfEvents;
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
    return days() != nullptr ? tamsel::sessionsReports(*days(), m_platform.uuids)
                             : tamsel::sessionsReports(months(), m_platform.uuids);
}

QList<PracticeTimeDetailViewModel::DayRow> PracticeTimeDetailViewModel::dayRows() const {
    QList<DayRow> rows;
    if (days() == nullptr)
        return rows;
    for (const DayOfEvents& day : *days()) {
        rows += {static_cast<int>(rows.size()),
                 withTotal(dayTitle(day.day, m_platform.calendar), m_minutes.at(rows.size())),
                 m_platform.uuids.next(),
                 {day}};
    }
    return rows;
}

QList<PracticeTimeDetailViewModel::MonthRow> PracticeTimeDetailViewModel::monthRows() const {
    QList<MonthRow> rows;
    if (days() != nullptr)
        return rows;
    for (const MonthOfEvents& month : months()) {
        rows += {static_cast<int>(rows.size()),
                 withTotal(monthTitle(month.month, m_platform.calendar), m_minutes.at(rows.size())),
                 m_platform.uuids.next(),
                 {month}};
    }
    return rows;
}

QList<ReportFigure> PracticeTimeDetailViewModel::practiceDayFigures() const {
    const PracticeDayCounts& counts = m_countsOfPracticeDays;
    return {{QStringLiteral("practice_days_7"), QString::number(counts.days7), QStringLiteral("in 7 days")},
            {QStringLiteral("practice_days_30"), QString::number(counts.days30), QStringLiteral("in 30 days")},
            {QStringLiteral("practice_days_365"), QString::number(counts.days365), QStringLiteral("in 365 days")},
            {QStringLiteral("practice_days_all"), QString::number(counts.allTime), QStringLiteral("all time")}};
}

QList<ReportRow> PracticeTimeDetailViewModel::rows() const {
    QList<ReportRow> lines;
    const auto add = [&lines](const auto& rows) {
        lines.reserve(rows.size());
        for (const auto& row : rows)
            lines += {QStringLiteral("practice_time_row_%1").arg(row.index), row.title, QString(), false};
    };
    add(dayRows());
    add(monthRows());
    return lines;
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
    const auto openIn = [&](const auto& list) {
        if (row >= 0 && row < list.size())
            Q_EMIT destinationRequested({list.at(row)});
    };
    if (days() != nullptr)
        openIn(*days());
    else
        openIn(months());
}

void PracticeTimeDetailViewModel::openBar(int bar) {
    // The newest is first in the list and last in the chart.
    openRow(static_cast<int>(m_chart.content().bars.size()) - 1 - bar);
}

} // namespace tamsel
