#include "reports/PracticeTimeOverviewViewModel.h"

#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/TimeUnits.h"
#include "reports/ChartBuilder.h"
#include "reports/Formats.h"
#include "reports/ReportData.h"

namespace tamsel {

PracticeTimeOverviewViewModel::PracticeTimeOverviewViewModel(const History& history, TimeRange timeRange,
                                                             const Platform& platform, ItemColors& colors)
    : m_timeRange(timeRange), m_sessionsReports(tamsel::sessionsReports(history, timeRange, platform)) {
    m_chart.setContent(buildChart(m_sessionsReports, timeRange, platform.calendar, colors));
}

QString PracticeTimeOverviewViewModel::total() const {
    return total(m_sessionsReports);
}

QString PracticeTimeOverviewViewModel::subtitle(TimeRange timeRange) {
    const auto overTheLast = [](QLatin1String time) {
        return QStringLiteral("Over the last %1 you've practiced").arg(time);
    };
    switch (timeRange) {
    case TimeRange::last7Days:
        return overTheLast(QLatin1String("week"));
    case TimeRange::last30Days:
        return overTheLast(QLatin1String("month"));
    case TimeRange::last90Days:
        return overTheLast(QLatin1String("three months"));
    case TimeRange::last12Months:
        return overTheLast(QLatin1String("year"));
    case TimeRange::allMonths:
        return QStringLiteral("In total, you've practiced");
    }
    trap();
}

QString PracticeTimeOverviewViewModel::total(const QList<ChartData::SessionsReport>& reports) {
    return fullHoursAndMinutes(checkedMultiply(totalMinutes(reports), secondsPerMinute));
}

} // namespace tamsel
