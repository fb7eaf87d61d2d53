#include "reports/HistoryViewModel.h"

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
    return rangesToOffer(m_singletons.history.events(), m_platform.clock.now(), m_platform.calendar);
}

void HistoryViewModel::setTimeRange(TimeRange timeRange) {
    if (std::exchange(m_timeRange, timeRange) == timeRange)
        return;
    savePreferredTimeRange(m_singletons.userDefaults, timeRange);
    reload();
}

void HistoryViewModel::onAppear() {
    if (m_madeOn && m_platform.calendar.dayNumber(m_platform.clock.now()) != *m_madeOn)
        reload();
}

template <class T>
T& HistoryViewModel::present(Made<T>& made) {
    if (!made.current) {
        made.current = std::make_unique<T>(m_singletons.history, m_timeRange, m_platform, m_colors);
        m_madeOn = m_platform.calendar.dayNumber(m_platform.clock.now());
    }
    return *made.current;
}

void HistoryViewModel::reload() {
    m_practiceTime.expire();
    m_topExercises.expire();
    Q_EMIT overviewsChanged();
}

PracticeTimeOverviewViewModel* HistoryViewModel::practiceTimeOverview() {
    return &present(m_practiceTime);
}

TopExercisesOverviewViewModel* HistoryViewModel::topExercisesOverview() {
    return &present(m_topExercises);
}

void HistoryViewModel::selectTimeRange(int value) {
    if (const auto range = rangeOfValue(ranges(), value))
        setTimeRange(*range);
}

void HistoryViewModel::openPracticeTime() {
    Q_EMIT historyDestinationRequested({destinations::FromHistoryView::PracticeTime{std::nullopt, m_timeRange}});
}

void HistoryViewModel::openTopExercises() {
    Q_EMIT historyDestinationRequested({destinations::FromHistoryView::Exercises{m_timeRange}});
}

void HistoryViewModel::openBar(int bar) {
    PracticeTimeOverviewViewModel& overview = *practiceTimeOverview();
    // The newest is first in the list and last in the chart.
    const qsizetype report = overview.chart()->bars().size() - 1 - bar;
    if (bar < 0 || report < 0)
        return;
    // That of the bar as it is shown, also when midnight has passed since.
    const Date date = overview.sessionsReports().at(report).date;
    const History& history = m_singletons.history;
    const Calendar& calendar = m_platform.calendar;
    if (isInMonths(m_timeRange))
        Q_EMIT barDestinationRequested({eventsOfMonth(history, calendar.monthNumber(date), calendar)});
    else
        Q_EMIT barDestinationRequested({eventsOfDay(history, calendar.dayNumber(date), calendar)});
}

} // namespace tamsel
