#pragma once

#include "model/HistoryEvent.h"
#include "platform/Date.h"

#include <QList>

namespace tamsel {

// One calendar month of the journal.
struct MonthOfEvents {
    Date month; // its start
    QList<HistoryEvent> events;

    bool operator==(const MonthOfEvents&) const = default;
};

inline size_t qHash(const MonthOfEvents& month, size_t seed = 0) {
    return qHashMulti(seed, month.month.secondsSinceReference, month.events);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::MonthOfEvents, Q_RELOCATABLE_TYPE);
