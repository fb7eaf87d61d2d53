#include "model/StoredSettings.h"

#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"

namespace tamsel {

std::optional<ExerciseSettings> storedSettings(const SettingsStore& store, const QUuid& exerciseId) {
    return readDocument<ExerciseSettings>(store, keys::settings(exerciseId)).value;
}

void storeSettings(SettingsStore& store, const QUuid& exerciseId, const ExerciseSettings& settings) {
    const auto document = json::encode(settings);
    if (!document)
        return;
    const QString key = keys::settings(exerciseId);
    if (readDocument<ExerciseSettings>(store, key).isUnreadable())
        setAside(store, key);
    store.setData(key, *document);
}

} // namespace tamsel
