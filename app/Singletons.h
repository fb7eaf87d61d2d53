#pragma once

#include "metronome/AudioOutput.h"
#include "metronome/AudioSession.h"
#include "metronome/Metronome.h"
#include "model/DailyLog.h"
#include "model/DataStores.h"
#include "model/Exercises.h"
#include "model/History.h"
#include "model/JournalReading.h"
#include "model/Notes.h"
#include "model/RunningPractice.h"
#include "model/SettingsStore.h"
#include "platform/Platform.h"

#include <optional>

namespace tamsel {

// The composition root: the stores and the one metronome, made once, in the order of the members, and complete when the
// constructor returns. The only place that makes a store. Main thread only.
class Singletons {
public:
    // Everything handed in by reference must outlive it. `journal` is what was begun to be read of the settings store.
    Singletons(SettingsStore& settingsStore, const Platform& platform, AudioOutput& audioOutput,
               AudioSession& audioSession, std::optional<JournalReading> journal = {});

    Singletons(const Singletons&) = delete;
    Singletons& operator=(const Singletons&) = delete;

    // Those that an import or a backup replaces.
    DataStores dataStores() { return {userDefaults, exercises, history, notes}; }

    DailyLog dailyLog;
    Exercises exercises;
    History history;
    Metronome metronome;
    Notes notes;
    RunningPractice runningPractice;
    SettingsStore& userDefaults;
};

} // namespace tamsel
