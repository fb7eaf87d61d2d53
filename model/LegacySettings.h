#pragma once

#include "model/Exercise.h"
#include "model/SettingsStore.h"

#include <QList>

namespace tamsel {

// Carries the settings of the oldest format, one key for each, over into one record for each of the items, and removes
// the old keys. An item that has a record already keeps it. Runs at most once. Main thread only.
void migrateLegacySettings(SettingsStore& store, const QList<Exercise>& exercises);

} // namespace tamsel
