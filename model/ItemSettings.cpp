#include "model/ItemSettings.h"

#include "model/DataDump.h"
#include "model/KeysWithPrefix.h"
#include "model/SettingsKeys.h"
#include "model/StoredSettings.h"

namespace tamsel {

void ItemSettings::replace(const DataDump& dump) {
    m_userDefaults.atomically([&] {
        for (const QString& key : keysWithPrefix(m_userDefaults, keys::settingsPrefix))
            m_userDefaults.remove(key);
        for (const auto& [exercise, settings] : dump.allExerciseSettings)
            storeSettings(m_userDefaults, exercise.id, settings);
    });
}

} // namespace tamsel
