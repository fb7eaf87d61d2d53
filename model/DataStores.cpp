#include "model/DataStores.h"

#include "model/DataReplacing.h"
#include "model/ItemSettings.h"
#include "model/StoredSettings.h"
#include "platform/FatalError.h"

#include <QSet>

namespace tamsel {

DataDump DataStores::makeDataDump() const {
    DataDump dump{exercises.archivedItems(), exercises.items(), {}, history.events(), {}};
    if (QSet<Exercise>(dump.allExercises.cbegin(), dump.allExercises.cend()).size() != dump.allExercises.size())
        trap();
    for (const Exercise& exercise : dump.allExercises) {
        dump.allExerciseSettings.append(
            {exercise, storedSettings(userDefaults, exercise.id).value_or(ExerciseSettings())});
        if (const auto stored = notes.notes(exercise))
            dump.allNotes.append({exercise, *stored});
    }
    return dump;
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
