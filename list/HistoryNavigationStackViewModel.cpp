#include "list/HistoryNavigationStackViewModel.h"

#include "list/OpenReport.h"
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

HistoryNavigationStackViewModel::HistoryNavigationStackViewModel(Singletons& singletons, const Platform& platform,
                                                                 const Coordinator& coordinator)
    : m_historyViewModel(singletons, platform, coordinator.itemColors(), firstTimeRange(singletons, platform)) {
    connect(&m_historyViewModel, &HistoryViewModel::historyDestinationRequested, this,
            [this, &coordinator](const destinations::FromHistoryView& destination) {
                openReport(*this, coordinator, destination);
            });
    connect(&m_historyViewModel, &HistoryViewModel::barDestinationRequested, this,
            [this, &coordinator](const destinations::FromPracticeTimeDetailView& destination) {
                openReport(*this, coordinator, destination);
            });
}

} // namespace tamsel
