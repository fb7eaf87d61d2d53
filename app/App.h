#pragma once

#include "app/ContentViewModel.h"
#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "metronome/AudioOutput.h"
#include "metronome/AudioSession.h"
#include "model/Backups.h"
#include "model/JournalReading.h"
#include "model/SettingsStore.h"
#include "platform/Platform.h"

#include <optional>

namespace tamsel {

// The program: its stores, its navigation, and the root of its screens. Made once, before the first screen is shown.
// Main thread only.
class App {
public:
    // `acceleration` is 1 in normal use: how many seconds of practice pass in one. An audio session that cannot be set
    // up is logged, and the program goes on. `journal` is what was begun to be read of the settings store, if it was.
    // `tipProvider` is null where no store could take a tip. Everything handed in by reference must outlive the app.
    App(SettingsStore& settingsStore, const Platform& platform, AudioOutput& audioOutput, AudioSession& audioSession,
        int acceleration, std::optional<JournalReading> journal = {}, TipProvider* tipProvider = nullptr,
        Backups::WorkQueue backupQueue = std::make_unique<SerialQueue>("Backups"));

    App(const App&) = delete;
    App& operator=(const App&) = delete;

    Singletons& singletons() { return m_singletons; }
    Backups& backups() { return m_backups; }
    ContentViewModel& content() { return *m_content; }

private:
    Singletons m_singletons;
    Backups m_backups;
    Coordinator m_coordinator;
    std::optional<ContentViewModel> m_content; // made last, when the audio session is set up
};

} // namespace tamsel
