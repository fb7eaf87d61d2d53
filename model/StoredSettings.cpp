#include "model/StoredSettings.h"

#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"

namespace tamsel {

std::optional<ExerciseSettings> storedSettings(const SettingsStore& store, const QUuid& exerciseId) {
    const QString key = keys::settings(exerciseId);
    const auto data = store.data(key);
    if (!data)
        return std::nullopt;
    auto decoded = json::decode<ExerciseSettings>(*data, key);
    if (!decoded)
        return std::nullopt;
    return *std::move(decoded);
}

void storeSettings(SettingsStore& store, const QUuid& exerciseId, const ExerciseSettings& settings) {
    const auto document = json::encode(settings);
    if (!document)
        return;
    const QString key = keys::settings(exerciseId);
    if (store.value(key) && !storedSettings(store, exerciseId))
        setAside(store, key);
    store.setData(key, *document);
}

} // namespace tamsel
