#pragma once

#include "model/Json.h"
#include "model/SettingsStore.h"
#include "platform/FatalError.h"

#include <QList>

#include <functional>
#include <optional>

namespace tamsel {

// One step that carries stored data over to a newer format. It runs at most once: `flagKey` is a bool that says so.
// Without old data there is nothing to carry over and nothing is written.
struct MigrationKeys {
    QString oldKey;
    QString flagKey;
    QString newKey;
};

namespace migration {

template <class Old>
Old decodeOrStop(const QByteArray& document, const QString& key) {
    auto decoded = json::decode<Old>(document, key);
    if (!decoded)
        fatalError(QStringLiteral("Unable to decode existing data for migration"));
    return *std::move(decoded);
}

template <class New>
void replace(SettingsStore& store, const MigrationKeys& keys, const New& value) {
    const auto document = json::encode(value);
    if (!document)
        fatalError(QStringLiteral("Unable to encode transformed data for migration"));
    store.atomically([&] {
        store.remove(keys.oldKey);
        store.setData(keys.newKey, *document);
        store.setBoolean(keys.flagKey, true);
    });
}

} // namespace migration

// The old value is one document.
template <class Old, class New>
void migrate(SettingsStore& store, const MigrationKeys& keys, const std::function<New(const Old&)>& transform) {
    if (store.boolean(keys.flagKey))
        return;
    const auto data = store.data(keys.oldKey);
    if (!data)
        return;
    migration::replace(store, keys, transform(migration::decodeOrStop<Old>(*data, keys.oldKey)));
}

// The old value is an array of documents, one for each element.
template <class Old, class New>
void migrateArray(SettingsStore& store, const MigrationKeys& keys,
                  const std::function<New(const QList<Old>&)>& transform) {
    if (store.boolean(keys.flagKey))
        return;
    const auto elements = store.array(keys.oldKey);
    if (!elements)
        return;
    QList<Old> old;
    for (const SettingsValue& element : *elements) {
        const auto* document = std::get_if<QByteArray>(&element.value);
        if (document == nullptr)
            fatalError(QStringLiteral("Unable to decode existing data for migration"));
        old += migration::decodeOrStop<Old>(*document, keys.oldKey);
    }
    migration::replace(store, keys, transform(old));
}

} // namespace tamsel
