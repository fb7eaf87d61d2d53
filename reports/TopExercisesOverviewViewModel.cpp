#include "reports/TopExercisesOverviewViewModel.h"

#include "model/EventCutoff.h"
#include "reports/Ranking.h"
#include "reports/ReportData.h"

#include <algorithm>

namespace tamsel {

TopExercisesOverviewViewModel::TopExercisesOverviewViewModel(History& history, TimeRange timeRange,
                                                             const Platform& platform, ItemColors& colors)
    : m_history(history), m_timeRange(timeRange), m_platform(platform), m_colors(colors) {
    compute();
    m_subscription = history.eventsChanged().subscribe([this] {
        m_platform.mainQueue.async([self = std::weak_ptr(m_self)] {
            const auto overview = self.lock();
            if (!overview)
                return;
            (*overview)->compute();
            Q_EMIT(*overview)->dataChanged();
        });
    });
}

void TopExercisesOverviewViewModel::compute() {
    constexpr qsizetype mostRecords = 5;
    const Date cutoff = cutoffOfLastDays(static_cast<int>(m_timeRange), m_platform.clock.now(), m_platform.calendar);
    const auto records = rankingSince(cutoff, m_history, m_platform);
    m_topExercise = records.isEmpty() ? std::nullopt : std::optional(records.first().exercise);
    m_data = records.first(std::min(records.size(), mostRecords));
}

QList<RankedItem> TopExercisesOverviewViewModel::items() const {
    return rankedItems(m_data, m_colors);
}

QString TopExercisesOverviewViewModel::explanation() const {
    if (!m_data.isEmpty())
        return {};
    if (m_timeRange == TimeRange::allMonths)
        return QStringLiteral("The full ranking of all your months is one tap away.");
    return QStringLiteral(
        "Nothing was recorded in this time. Practice an item for a minute or more and it appears here.");
}

} // namespace tamsel
