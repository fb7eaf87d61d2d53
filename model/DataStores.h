#pragma once

#include "model/DataDump.h"
#include "model/Exercises.h"
#include "model/History.h"
#include "model/Notes.h"
#include "model/SettingsStore.h"
#include "model/UserData.h"

namespace tamsel {

// The stores that hold a user's data, for making a document of them and for replacing what they hold. A group of
// references; main thread only.
struct DataStores {
    SettingsStore& userDefaults;
    Exercises& exercises;
    History& history;
    Notes& notes;

    // The document of what the stores hold. Two active items that are equal stop the program: no edit makes them.
    DataDump makeDataDump() const;

    // Hands each store its part, in one transaction: whoever looks at the disk finds the old data or the new.
    void replace(const DataDump& dump) const;
    // The same with data that was taken before, back to the byte.
    void replace(const UserData& data) const;
};

// The same document, of what lies in a settings store: for when the main thread is not to be kept waiting. What cannot
// be read counts as empty, as it does to the stores; only the history is an error. Any thread.
json::Result<DataDump> makeDataDump(const UserData::Values& values);

} // namespace tamsel
