#pragma once

#include "model/DataReplacing.h"
#include "model/SettingsStore.h"

namespace tamsel {

// The settings of all items together (StoredSettings.h has those of one). Main thread only.
class ItemSettings final : public DataReplacing {
public:
    explicit ItemSettings(SettingsStore& userDefaults) : m_userDefaults(userDefaults) {}

    void replace(const DataDump& dump) override;
    // They are read from the settings store each time.
    void reload() override {}

private:
    SettingsStore& m_userDefaults;
};

} // namespace tamsel
