#include "model/Notes.h"

#include "model/DataDump.h"
#include "model/Json.h"
#include "model/KeysWithPrefix.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tamsel {

std::optional<QList<Note>> Notes::notes(const Exercise& exercise) const {
    return readDocument<QList<Note>>(*m_userDefaults, keys::notes(exercise)).value;
}

void Notes::add(const Note& note, const Exercise& exercise) {
    insert(note, std::numeric_limits<qsizetype>::max(), exercise);
}

void Notes::insert(const Note& note, qsizetype index, const Exercise& exercise) {
    const QString key = keys::notes(exercise);
    auto present = readDocument<QList<Note>>(*m_userDefaults, key);
    if (present.isUnreadable()) {
        log(QStringLiteral("%1 in %2 cannot be read; a copy is kept under %3")
                .arg(key, m_userDefaults->location(), setAside(*m_userDefaults, key)));
    }
    QList<Note> notes = std::move(present.value).value_or(QList<Note>());
    notes.insert(std::min(index, notes.size()), note);
    save(notes, exercise);
}

void Notes::remove(const Note& note, const Exercise& exercise) {
    auto present = notes(exercise);
    if (!present)
        fatalError(QStringLiteral("Expected a note to delete"));
    present->removeIf([&note](const Note& each) { return each.id == note.id; });
    save(*present, exercise);
}

void Notes::update(const Note& note, const Exercise& exercise) {
    auto present = notes(exercise);
    if (!present)
        fatalError(QStringLiteral("Expected a note to update"));
    for (Note& each : *present) {
        if (each.id == note.id)
            each = note;
    }
    save(*present, exercise);
}

void Notes::replace(const DataDump& dump) {
    m_userDefaults->atomically([&] {
        for (const QString& key : keysWithPrefix(*m_userDefaults, keys::notesPrefix))
            m_userDefaults->remove(key);
        for (const auto& [exercise, notes] : dump.allNotes)
            save(notes, exercise);
    });
}

void Notes::save(const QList<Note>& notes, const Exercise& exercise) {
    if (const auto document = json::encode(notes))
        m_userDefaults->setData(keys::notes(exercise), *document);
}

} // namespace tamsel
