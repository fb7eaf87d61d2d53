#include "model/MemorySettingsStore.h"

#include "model/DataTail.h"

#include <utility>

namespace tamsel {

std::optional<SettingsValue> MemorySettingsStore::value(const QString& key) const {
    const auto found = m_values.constFind(key);
    return found == m_values.cend() ? std::nullopt : std::optional(*found);
}

void MemorySettingsStore::set(const QString& key, SettingsValue value) {
    m_values[key] = std::move(value);
}

void MemorySettingsStore::replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) {
    replaceDataTail(m_values[key], keptBytes, tail);
}

void MemorySettingsStore::remove(const QString& key) {
    m_values.remove(key);
}

} // namespace tamsel
