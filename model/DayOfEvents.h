#pragma once

#include "model/HistoryEvent.h"
#include "platform/Date.h"

#include <QList>

namespace tamsel {

// One calendar day of the journal.
struct DayOfEvents {
    Date day; // its start
    QList<HistoryEvent> events;

    bool operator==(const DayOfEvents&) const = default;
};

inline size_t qHash(const DayOfEvents& day, size_t seed = 0) {
    return qHashMulti(seed, day.day.secondsSinceReference, day.events);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::DayOfEvents, Q_RELOCATABLE_TYPE);
