#pragma once

#include "list/Coordinator.h"
#include "list/NavigationStackViewModel.h"
#include "reports/ReportDestinations.h"

namespace tamsel {

// Open the report behind the destination over what is on the stack, and what is opened from there on the same one. The
// coordinator must outlive the stack. Main thread only.
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromHistoryView& destination);
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromPracticeTimeDetailView& destination);
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromMonthReport& destination);

} // namespace tamsel
