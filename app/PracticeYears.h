#pragma once

#include "model/HistoryEvent.h"
#include "platform/Calendar.h"
#include "platform/Date.h"
#include "platform/UuidSource.h"

#include <QList>
#include <QString>

#include <cstdint>

namespace tamsel {

// A made-up player's journal, to be looked at and measured: years of it up to now, always the same for the same seed,
// calendar and moment. Warm-ups stay, pieces come and go, some weeks are better than others, and holidays are holidays.
struct PracticeYears {
    int years = 1;
    std::uint64_t seed = 1;
    // How many times as much is practised as one player would.
    int diligence = 1;

    QList<HistoryEvent> events(Date now, const Calendar& calendar, UuidSource& uuids) const;

    // The items, the ones that are practised all the time first.
    static const QList<QString>& itemNames();
};

} // namespace tamsel
