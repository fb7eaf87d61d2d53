#pragma once

#include "model/SettingsStore.h"

namespace tamsel {

// How the practice list orders its items.
enum class SortOrder { name, practiceRecency, practiceTime };

// The order kept under "sortOrder" as an object with its name as the one key; by name when none is stored or it cannot
// be read.
SortOrder storedSortOrder(const SettingsStore& store);
void saveSortOrder(SettingsStore& store, SortOrder order);

} // namespace tamsel
