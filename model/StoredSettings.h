#pragma once

#include "model/ExerciseSettings.h"
#include "model/SettingsStore.h"

#include <QUuid>

#include <optional>

namespace tamsel {

// The one place that reads and writes an item's settings. Main thread only.

// Nothing when none are stored or they cannot be read; the caller then uses the defaults.
std::optional<ExerciseSettings> storedSettings(const SettingsStore& store, const QUuid& exerciseId);

// Settings that cannot be read are set aside before they are replaced, with a line on the console.
void storeSettings(SettingsStore& store, const QUuid& exerciseId, const ExerciseSettings& settings);

} // namespace tamsel
