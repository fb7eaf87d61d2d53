#include "model/PendingChanges.h"

#include "model/DataTail.h"

#include <algorithm>
#include <utility>

namespace tamsel {

void PendingChanges::set(const QString& key, SettingsValue value) {
    m_changes[key] = std::move(value);
}

void PendingChanges::remove(const QString& key) {
    m_changes[key] = Removal();
}

void PendingChanges::replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) {
    const auto found = m_changes.find(key);
    if (found == m_changes.end()) {
        m_changes[key] = Tail{keptBytes, tail.toByteArray()};
    } else if (auto* earlier = std::get_if<Tail>(&*found)) {
        requireKeptBytes(keptBytes, earlier->keptBytes + earlier->bytes.size());
        earlier->bytes.truncate(std::max<qsizetype>(keptBytes - earlier->keptBytes, 0));
        earlier->bytes.append(tail);
        earlier->keptBytes = std::min(keptBytes, earlier->keptBytes);
    } else {
        if (std::holds_alternative<Removal>(*found))
            *found = SettingsValue();
        replaceDataTail(std::get<SettingsValue>(*found), keptBytes, tail);
    }
}

const PendingChanges::Change* PendingChanges::find(const QString& key) const {
    const auto found = m_changes.constFind(key);
    return found == m_changes.cend() ? nullptr : &*found;
}

std::optional<SettingsValue> PendingChanges::applied(const Change& change, std::optional<SettingsValue> stored) {
    if (const auto* value = std::get_if<SettingsValue>(&change))
        return *value;
    const auto* tail = std::get_if<Tail>(&change);
    if (tail == nullptr)
        return std::nullopt;
    SettingsValue value = std::move(stored).value_or(SettingsValue());
    replaceDataTail(value, tail->keptBytes, tail->bytes);
    return value;
}

} // namespace tamsel
