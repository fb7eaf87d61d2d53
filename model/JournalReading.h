#pragma once

#include "model/EventNames.h"
#include "model/HistoryEvent.h"
#include "model/SettingsStore.h"
#include "model/StoredDocument.h"

#include <QList>

#include <future>
#include <optional>

namespace tamsel {

// The stored events, read on a thread of its own, so that a program with decades of them can do the rest of its start
// meanwhile. The stored events must not change until it is finished. Main thread only.
class JournalReading {
public:
    // The store is not needed any more when this returns; a file that it lies in is.
    explicit JournalReading(const SettingsStore& store);

    struct Journal {
        StoredDocument<QList<HistoryEvent>> document;
        EventNames names; // of the events
    };
    // Waits for it. Nothing when the store's file could not be read: the store then knows what to say. Once only.
    std::optional<Journal> finish() { return m_journal.get(); }

private:
    std::future<std::optional<Journal>> m_journal;
};

} // namespace tamsel
