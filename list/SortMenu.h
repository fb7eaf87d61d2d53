#pragma once

#include "list/SortOrder.h"
#include "list/ToolbarMenuViewModel.h"
#include "reports/TimeRange.h"

#include <QList>

#include <functional>

namespace tamsel {

// What the user chose. The range belongs to the order by practice time; nothing keeps the one before.
using SortChoice = std::function<void(SortOrder, std::optional<TimeRange>)>;

// The options of the practice list's sort menu, the chosen ones marked.
QList<ToolbarMenuOption> sortMenuOptions(SortOrder order, TimeRange range, const SortChoice& choose);

} // namespace tamsel
