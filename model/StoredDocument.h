#pragma once

#include "model/Json.h"
#include "model/SettingsStore.h"

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace tamsel {

// What lies under a key that should hold a document: nothing, something that cannot be read, or a value.
template <class T>
struct StoredDocument {
    std::optional<T> value;
    // The place and the reason when something is there that cannot be read, of whatever kind; empty otherwise.
    QString problem;
    // Length of the bytes, and the last of them.
    qsizetype size = 0;
    char lastByte = 0;

    bool isUnreadable() const { return !problem.isEmpty(); }
    bool isAbsent() const { return !value && !isUnreadable(); }
};

// Reads what was found under the key. Any thread.
template <class T>
StoredDocument<T> readDocument(std::optional<SettingsValue> stored, const QString& key) {
    if (!stored)
        return {};
    if (!std::holds_alternative<QByteArray>(stored->value))
        return {std::nullopt, key + QStringLiteral(": expected data")};
    QByteArray bytes = std::get<QByteArray>(std::move(stored->value));
    const qsizetype size = bytes.size();
    const char lastByte = bytes.isEmpty() ? '\0' : bytes.back();
    auto decoded = json::decode<T>(std::move(bytes), key);
    if (!decoded)
        return {std::nullopt, decoded.error().message};
    return {*std::move(decoded), {}, size, lastByte};
}

template <class T>
StoredDocument<T> readDocument(const SettingsStore& store, const QString& key) {
    return readDocument<T>(store.value(key), key);
}

} // namespace tamsel
