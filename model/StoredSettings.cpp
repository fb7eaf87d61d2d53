#include "model/StoredSettings.h"

#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "platform/Log.h"

namespace tamsel {

std::optional<ExerciseSettings> storedSettings(const SettingsStore& store, const QUuid& exerciseId) {
    return readDocument<ExerciseSettings>(store, keys::settings(exerciseId)).value;
}

void storeSettings(SettingsStore& store, const QUuid& exerciseId, const ExerciseSettings& settings) {
    const auto document = json::encode(settings);
    if (!document)
        return;
    const QString key = keys::settings(exerciseId);
    if (readDocument<ExerciseSettings>(store, key).isUnreadable()) {
        log(QStringLiteral("%1 in %2 cannot be read; a copy is kept under %3")
                .arg(key, store.location(), setAside(store, key)));
    }
    store.setData(key, *document);
}

} // namespace tamsel
