#pragma once

#include "model/SettingsStore.h"

#include <QMap>
#include <QString>

#include <utility>

namespace tamsel {

// Everything that an import replaces, as it lies in the settings store, byte for byte: the items, the archive, the
// history, and the settings and notes of every item, of archived ones and of some that are gone as well. Today's log
// and the preferences stay what they are.
class UserData {
public:
    using Values = QMap<QString, SettingsValue>;

    // The part of these values, those of a whole settings store, that is a user's data.
    explicit UserData(const Values& all);
    static UserData of(const SettingsStore& store) { return UserData(store.dictionaryRepresentation()); }

    static bool isPart(const QString& key);

    const Values& values() const { return m_values; }

    // Makes the store hold this and no other user's data, in one transaction. The stores on it do not hear of it.
    void putInto(SettingsStore& store) const;

    bool operator==(const UserData&) const = default;

private:
    Values m_values;
};

} // namespace tamsel
