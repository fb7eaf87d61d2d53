#include "reports/TopExercisesDetailViewModel.h"

#include "model/EventCutoff.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/Ranking.h"
#include "reports/ReportData.h"

#include <utility>

namespace tamsel {

TopExercisesDetailViewModel::TopExercisesDetailViewModel(const History& history, TimeRange timeRange,
                                                         const Platform& platform, ItemColors& colors)
    : m_colors(colors), m_ranges(rangesToOffer(history.events(), platform.clock.now(), platform.calendar)),
      m_timeRange(timeRange) {
    log(QStringLiteral("TopExercisesDetailViewModel.init"));
    const Date now = platform.clock.now();
    const auto ofDays = [&](TimeRange range) {
        return rankingSince(cutoffOfLastDays(static_cast<int>(range), now, platform.calendar), history, platform);
    };
    const auto ofMonths = [&](int months) {
        return rankingSince(cutoffOfLastMonths(months, now, platform.calendar), history, platform);
    };
    m_last7DaysData = ofDays(TimeRange::last7Days);
    m_last30DaysData = ofDays(TimeRange::last30Days);
    m_last90DaysData = ofDays(TimeRange::last90Days);
    m_last12MonthsData = ofMonths(monthsPerYear);
    m_allMonthsData = ofMonths(allMonthsCount);
}

const TopExercisesDetailViewModel::Records& TopExercisesDetailViewModel::data() const {
    switch (m_timeRange) {
    case TimeRange::last7Days:
        return m_last7DaysData;
    case TimeRange::last30Days:
        return m_last30DaysData;
    case TimeRange::last90Days:
        return m_last90DaysData;
    case TimeRange::last12Months:
        return m_last12MonthsData;
    case TimeRange::allMonths:
        return m_allMonthsData;
    }
    trap();
}

void TopExercisesDetailViewModel::setTimeRange(TimeRange timeRange) {
    if (std::exchange(m_timeRange, timeRange) != timeRange)
        Q_EMIT timeRangeChanged();
}

QList<RankedItem> TopExercisesDetailViewModel::items() const {
    return rankedItems(data(), m_colors);
}

QString TopExercisesDetailViewModel::emptyText() const {
    if (!data().isEmpty())
        return {};
    return QStringLiteral("Nothing was recorded in this time. Choose a longer one, or practice an item for a minute or "
                          "more.");
}

void TopExercisesDetailViewModel::selectTimeRange(int value) {
    if (const auto range = rangeOfValue(m_ranges, value))
        setTimeRange(*range);
}

void TopExercisesDetailViewModel::openItem(int item) {
    if (item < 0 || item >= data().size())
        return;
    // Events know their item by its name only, and so do the reports.
    const Exercise exercise{data().at(item).exercise, QUuid()};
    Q_EMIT destinationRequested({destinations::FromHistoryView::PracticeTime{exercise, m_timeRange}});
}

} // namespace tamsel
