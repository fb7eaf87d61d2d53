#pragma once

#include "list/Coordinator.h"
#include "list/NavigationStackViewModel.h"
#include "reports/ReportDestinations.h"

namespace tamsel {

// Open the report behind the destination over what is on the stack, and what is opened from there on the same one. The
// coordinator must outlive the stack. Main thread only.
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromHistoryView& destination);
// The same with a report that the coordinator has made already.
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator, StackedScreen report);
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromPracticeTimeDetailView& destination);
void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromMonthReport& destination);

} // namespace tamsel
