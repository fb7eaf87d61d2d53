#pragma once

#include "model/DataReplacing.h"
#include "model/Exercise.h"
#include "model/Note.h"
#include "model/SettingsStore.h"

#include <QList>

#include <optional>

namespace tamsel {

// The dated texts of each item. A small value that holds only the settings store; every operation reads and writes
// there. Main thread only.
class Notes final : public DataReplacing {
public:
    explicit Notes(SettingsStore& userDefaults) : m_userDefaults(&userDefaults) {}

    // The stored list; nothing when there is none, or when it cannot be read.
    std::optional<QList<Note>> notes(const Exercise& exercise) const;

    // Appends. A stored list that cannot be read is set aside first, with a line on the console.
    void add(const Note& note, const Exercise& exercise);
    // Puts a note that was removed back at its place in the stored list, or at the end of a list that is shorter now.
    void insert(const Note& note, qsizetype index, const Exercise& exercise);
    // Removes the note of this identity. Stops the program when the item has no notes.
    void remove(const Note& note, const Exercise& exercise);
    // Replaces the note of this identity. Stops the program when the item has no notes.
    void update(const Note& note, const Exercise& exercise);

    void replace(const DataDump& dump) override;
    // They are read from the settings store each time.
    void reload() override {}

private:
    void save(const QList<Note>& notes, const Exercise& exercise);

    SettingsStore* m_userDefaults;
};

} // namespace tamsel
