#pragma once

#include "platform/Clock.h"
#include "platform/LaunchConditions.h"

#include <QString>

namespace tamsel {

// Where this launch keeps its data.
struct SettingsStoreChoice {
    QString folder;
    QString suite; // "standard", or the name of a fresh suite
    bool isTest = false;
};

// The standard suite in the application's data folder; under test a fresh suite, named after the moment, in a temporary
// folder of its own. A folder that cannot be made stops the program.
SettingsStoreChoice chooseSettingsStore(const LaunchConditions& launch, const Clock& clock);

// $XDG_DATA_HOME/tamsel, by default ~/.local/share/tamsel.
QString standardDataFolder();

} // namespace tamsel
