#include "app/Singletons.h"

#include "model/LegacySettings.h"

#include <memory>
#include <utility>

namespace tamsel {

Singletons::Singletons(SettingsStore& settingsStore, const Platform& platform, AudioOutput& audioOutput,
                       AudioSession& audioSession, std::optional<JournalReading> journal)
    : dailyLog(settingsStore, platform.clock, platform.calendar), exercises(settingsStore, platform.uuids),
      history(dailyLog, settingsStore, platform.clock, platform.calendar, platform.mainQueue, platform.uuids,
              std::make_unique<SerialQueue>("History"), std::move(journal)),
      metronome(audioOutput, audioSession), notes(settingsStore), runningPractice(settingsStore, platform.clock),
      userDefaults(settingsStore) {
    migrateLegacySettings(settingsStore, exercises.items() + exercises.archivedItems());
}

} // namespace tamsel
