#pragma once

#include "model/SettingsStore.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

namespace tamsel::bench {

// A plausible player's life, always the same for the same years: in thirty of them about 150,000 events, 2,000 items,
// of which one in three is archived, and 20,000 notes.
struct Life {
    int years = 30;

    // Stores it as the app would have, up to `now`.
    void store(SettingsStore& settingsStore, Date now, const Calendar& calendar) const;
};

} // namespace tamsel::bench
