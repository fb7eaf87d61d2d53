#include "list/HistoryNavigationStackViewModel.h"

#include "list/OpenReport.h"
#include "reports/ReportData.h"

namespace tamsel {

HistoryNavigationStackViewModel::HistoryNavigationStackViewModel(Singletons& singletons, const Platform& platform,
                                                                 const Coordinator& coordinator)
    : m_historyViewModel(
          singletons, platform, coordinator.itemColors(),
          firstTimeRange(singletons.history, singletons.userDefaults, platform.clock.now(), platform.calendar)) {
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
