#pragma once

#include "model/SettingsStore.h"

#include <QStringList>

namespace tamsel {

// The changes of a settings store that are not on disk yet: at most one for each key, as a later one takes up what an
// earlier one left. Writing all of them in one transaction is therefore the same as writing each in its turn, and what
// waits for a full disk to empty never takes more memory than the values themselves.
class PendingChanges {
public:
    struct Removal {};
    // The first `keptBytes` bytes of what is on disk stay; these follow.
    struct Tail {
        qsizetype keptBytes;
        QByteArray bytes;
    };
    using Change = std::variant<SettingsValue, Tail, Removal>;

    void set(const QString& key, SettingsValue value);
    void remove(const QString& key);
    void replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail);
    void clear() { m_changes.clear(); }

    bool isEmpty() const { return m_changes.isEmpty(); }
    const QMap<QString, Change>& all() const { return m_changes; }
    // The change under the key; null where there is none.
    const Change* find(const QString& key) const;

    // What a key holds once the change is made to what it holds on disk.
    static std::optional<SettingsValue> applied(const Change& change, std::optional<SettingsValue> stored);

private:
    QMap<QString, Change> m_changes;
};

} // namespace tamsel
