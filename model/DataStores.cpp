#include "model/DataStores.h"

#include "model/DataReplacing.h"
#include "model/ItemSettings.h"
#include "model/MemorySettingsStore.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "model/StoredSettings.h"
#include "platform/FatalError.h"

#include <QSet>

namespace tamsel {

namespace {

// The document of these lists, with the settings and notes that lie in the settings store.
DataDump documentOf(const QList<Exercise>& archivedItems, const QList<Exercise>& items,
                    const QList<HistoryEvent>& events, const SettingsStore& userDefaults, const Notes& notes) {
    DataDump dump{archivedItems, items, {}, events, {}};
    if (QSet<Exercise>(items.cbegin(), items.cend()).size() != items.size())
        trap();
    for (const Exercise& exercise : items) {
        dump.allExerciseSettings.append(
            {exercise, storedSettings(userDefaults, exercise.id).value_or(ExerciseSettings())});
        if (const auto stored = notes.notes(exercise))
            dump.allNotes.append({exercise, *stored});
    }
    return dump;
}

} // namespace

DataDump DataStores::makeDataDump() const {
    return documentOf(exercises.archivedItems(), exercises.items(), history.events(), userDefaults, notes);
}

json::Result<DataDump> makeDataDump(const UserData::Values& values) {
    MemorySettingsStore store(values);
    const auto read = [&store]<class T>(const QString& key, QList<T> otherwise) {
        return readDocument<QList<T>>(store, key).value.value_or(std::move(otherwise));
    };
    auto events = readDocument<QList<HistoryEvent>>(store, keys::historyEvents);
    if (events.isUnreadable())
        return json::Error{events.problem};
    return documentOf(read(keys::archivedExercises, QList<Exercise>()), read(keys::exercises, QList<Exercise>()),
                      std::move(events.value).value_or(QList<HistoryEvent>()), store, Notes(store));
}

void DataStores::replace(const DataDump& dump) const {
    ItemSettings settings(userDefaults);
    history.finishRenames();
    userDefaults.atomically([&] {
        for (DataReplacing* const store :
             std::initializer_list<DataReplacing*>{&settings, &notes, &history, &exercises})
            store->replace(dump);
    });
}

void DataStores::replace(const UserData& data) const {
    history.finishRenames();
    data.putInto(userDefaults);
    history.reload();
    exercises.reload();
}

} // namespace tamsel
