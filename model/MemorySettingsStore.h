#pragma once

#include "model/SettingsStore.h"

#include <utility>

namespace tamsel {

// A settings store that lives as long as the object: for tests and previews. Nothing in it can fail. Main thread only.
class MemorySettingsStore : public SettingsStore {
public:
    MemorySettingsStore() = default;
    explicit MemorySettingsStore(QMap<QString, SettingsValue> values) : m_values(std::move(values)) {}

    std::optional<SettingsValue> value(const QString& key) const override;
    void set(const QString& key, SettingsValue value) override;
    void replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) override;
    void remove(const QString& key) override;
    QMap<QString, SettingsValue> dictionaryRepresentation() const override { return m_values; }
    void atomically(const std::function<void()>& changes) override { changes(); }
    std::optional<QString> writeFailure() const override { return std::nullopt; }
    bool retryFailedWrites() override { return true; }
    QString location() const override { return QStringLiteral("memory"); }

private:
    QMap<QString, SettingsValue> m_values;
};

} // namespace tamsel
