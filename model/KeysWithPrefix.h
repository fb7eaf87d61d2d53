#pragma once

#include "model/SettingsStore.h"

#include <QStringList>

namespace tamsel {

// The keys of the store that begin so. Costs a read of the whole store.
inline QStringList keysWithPrefix(const SettingsStore& store, const QString& prefix) {
    QStringList keys = store.dictionaryRepresentation().keys();
    keys.removeIf([&prefix](const QString& key) { return !key.startsWith(prefix); });
    return keys;
}

} // namespace tamsel
