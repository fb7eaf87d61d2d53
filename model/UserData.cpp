#include "model/UserData.h"

#include "model/SettingsKeys.h"

namespace tamsel {

UserData::UserData(const Values& all) {
    for (auto each = all.cbegin(); each != all.cend(); ++each) {
        if (isPart(each.key()))
            m_values.insert(each.key(), each.value());
    }
}

bool UserData::isPart(const QString& key) {
    return key == keys::exercises || key == keys::archivedExercises || key == keys::historyEvents ||
           key.startsWith(keys::notesPrefix) || key.startsWith(keys::settingsPrefix);
}

void UserData::putInto(SettingsStore& store) const {
    const UserData present = of(store);
    store.atomically([&] {
        for (const QString& key : present.m_values.keys()) {
            if (!m_values.contains(key))
                store.remove(key);
        }
        for (auto each = m_values.cbegin(); each != m_values.cend(); ++each)
            store.set(each.key(), each.value());
    });
}

} // namespace tamsel
