#pragma once

#include "model/DataReplacing.h"
#include "model/Exercise.h"
#include "model/SettingsStore.h"
#include "platform/Observable.h"
#include "platform/UuidSource.h"

#include <QList>

#include <functional>

namespace tamsel {

// The one store of practice items: the active list, in the user's order, and the archive. Main thread only.
// Every change to either list is saved and published before the call returns.
class Exercises final : public DataReplacing {
public:
    // Loads the archive, then the active items. A fresh store gets the one item "Untitled practice", which is saved so
    // that it keeps its identity. Data that does not decode counts as an empty list; a copy of it is set aside first.
    Exercises(SettingsStore& userDefaults, UuidSource& uuids);

    const QList<Exercise>& items() const { return m_items; }
    const QList<Exercise>& archivedItems() const { return m_archivedItems; }
    Observable& itemsChanged() { return m_itemsChanged; }
    Observable& archivedItemsChanged() { return m_archivedItemsChanged; }

    void setItems(QList<Exercise> items);
    void setArchivedItems(QList<Exercise> items);

    using Completion = std::function<void(const Exercise&)>;

    // Puts a new item at the front of the active list.
    Exercise add(const QString& name);
    // Gives the active or archived item of this identity another name. The completion gets the renamed item.
    void rename(const Exercise& exercise, const QString& name, const Completion& completion = {});
    // Moves an active item to the end of the archive; an item that is not active changes nothing. The completion runs
    // in either case.
    void archive(const Exercise& exercise, const Completion& completion = {});
    // Moves an archived item to the front of the active list.
    void unarchive(const Exercise& exercise);
    // Removes the item from whichever list holds it, and its settings of the oldest format.
    void remove(const Exercise& exercise);
    // Moves the active item at one position to another.
    void move(qsizetype from, qsizetype to);

    void replace(const DataDump& dump) override;
    void reload() override;

private:
    void load();
    void saveItems() const;
    void saveArchivedItems() const;

    SettingsStore& m_userDefaults;
    UuidSource& m_uuids;
    QList<Exercise> m_archivedItems;
    QList<Exercise> m_items;
    Observable m_itemsChanged;
    Observable m_archivedItemsChanged;
};

} // namespace tamsel
