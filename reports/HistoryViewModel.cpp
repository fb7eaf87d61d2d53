#include "reports/HistoryViewModel.h"

#include "platform/TimeUnits.h"
#include "reports/ReportData.h"

#include <utility>

namespace tamsel {

HistoryViewModel::HistoryViewModel(Singletons& singletons, const Platform& platform, ItemColors& colors,
                                   TimeRange timeRange)
    : m_singletons(singletons), m_platform(platform), m_colors(colors), m_shareFeature(singletons.history),
      m_timeRange(timeRange) {
    m_subscription = singletons.history.eventsChanged().subscribe([this] {
        if (std::exchange(m_willReload, true))
            return;
        m_platform.mainQueue.async([self = std::weak_ptr(m_self)] {
            const auto history = self.lock();
            if (!history)
                return;
            (*history)->m_willReload = false;
            // What no screen has asked for is worked out when one does.
            if ((*history)->m_practiceTime.current || (*history)->m_topExercises.current)
                (*history)->reload();
        });
    });
}

QList<TimeRange> HistoryViewModel::ranges() const {
    return rangesToOffer(m_singletons.history, m_platform.clock.now(), m_platform.calendar);
}

void HistoryViewModel::setTimeRange(TimeRange timeRange) {
    if (std::exchange(m_timeRange, timeRange) == timeRange)
        return;
    savePreferredTimeRange(m_singletons.userDefaults, timeRange);
    reload();
}

void HistoryViewModel::reload() {
    m_practiceTime.expire();
    m_topExercises.expire();
    Q_EMIT overviewsChanged();
}

PracticeTimeOverviewViewModel* HistoryViewModel::practiceTimeOverview() {
    if (!m_practiceTime.current) {
        m_practiceTime.current =
            std::make_unique<PracticeTimeOverviewViewModel>(m_singletons.history, m_timeRange, m_platform, m_colors);
    }
    return m_practiceTime.current.get();
}

TopExercisesOverviewViewModel* HistoryViewModel::topExercisesOverview() {
    if (!m_topExercises.current) {
        m_topExercises.current =
            std::make_unique<TopExercisesOverviewViewModel>(m_singletons.history, m_timeRange, m_platform, m_colors);
    }
    return m_topExercises.current.get();
}

void HistoryViewModel::selectTimeRange(int option) {
    const QList<TimeRange> offered = ranges();
    if (option >= 0 && option < offered.size())
        setTimeRange(offered.at(option));
}

void HistoryViewModel::openPracticeTime() {
    Q_EMIT historyDestinationRequested({destinations::FromHistoryView::PracticeTime{std::nullopt, m_timeRange}});
}

void HistoryViewModel::openTopExercises() {
    Q_EMIT historyDestinationRequested({destinations::FromHistoryView::Exercises{m_timeRange}});
}

void HistoryViewModel::openBar(int bar) {
    const History& history = m_singletons.history;
    const auto openIn = [&](const auto& buckets) {
        // The newest is first in the list and last in the chart.
        const qsizetype bucket = practiceTimeOverview()->chart()->bars().size() - 1 - bar;
        if (bar >= 0 && bucket >= 0 && bucket < buckets.size())
            Q_EMIT barDestinationRequested({buckets.at(bucket)});
    };
    if (isInMonths(m_timeRange))
        openIn(history.eventsByMonth(monthsPerYear, m_timeRange == TimeRange::allMonths));
    else
        openIn(history.eventsByDay(static_cast<int>(m_timeRange)));
}

} // namespace tamsel
