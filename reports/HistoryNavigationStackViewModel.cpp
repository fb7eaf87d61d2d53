#include "reports/HistoryNavigationStackViewModel.h"

#include "platform/Log.h"
#include "reports/ReportData.h"

namespace tamsel {

namespace {

TimeRange firstTimeRange(const Singletons& singletons, const Platform& platform) {
    const TimeRange preferred = preferredTimeRange(singletons.userDefaults).value_or(TimeRange::last7Days);
    // The others are always on offer; this one costs a look at the whole journal.
    if (preferred != TimeRange::allMonths ||
        rangesToOffer(singletons.history, platform.clock.now(), platform.calendar).contains(preferred))
        return preferred;
    log(QStringLiteral("Unable to use saved timeRange, likely experimental"));
    return TimeRange::last7Days;
}

} // namespace

HistoryNavigationStackViewModel::HistoryNavigationStackViewModel(Singletons& singletons, const Platform& platform)
    : m_reports(singletons, platform),
      m_historyViewModel(singletons, platform, m_reports.colors(), firstTimeRange(singletons, platform)) {
    connect(&m_historyViewModel, &HistoryViewModel::historyDestinationRequested, this,
            [this](const destinations::FromHistoryView& destination) { m_reports.open(destination); });
    connect(&m_historyViewModel, &HistoryViewModel::barDestinationRequested, this,
            [this](const destinations::FromPracticeTimeDetailView& destination) { m_reports.open(destination); });
}

} // namespace tamsel
