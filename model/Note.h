#pragma once

#include "platform/Date.h"

#include <QHashFunctions>
#include <QString>
#include <QTypeInfo>
#include <QUuid>

namespace tamsel {

// A dated text on an item. Its identity is `id`; the text is the only part that is ever edited.
struct Note {
    Date date; // when it was written
    QUuid id;
    QString value;

    bool operator==(const Note&) const = default;
};

inline size_t qHash(const Note& note, size_t seed = 0) {
    return qHashMulti(seed, note.date.secondsSinceReference, note.id, note.value);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::Note, Q_RELOCATABLE_TYPE);
