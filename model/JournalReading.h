#pragma once

#include "model/HistoryEvent.h"
#include "model/SettingsStore.h"
#include "model/StoredDocument.h"

#include <QList>

#include <future>
#include <optional>

namespace tamsel {

// The stored events, read on a thread of its own, so that a program with decades of them can do the rest of its start
// meanwhile. What changes in the store after the constructor may or may not be among them. Main thread only.
class JournalReading {
public:
    // The store is not needed any more when this returns; a file that it lies in is.
    explicit JournalReading(const SettingsStore& store);

    // Waits for the events. Nothing when the store's file could not be read: the store then knows what to say. Once
    // only.
    std::optional<StoredDocument<QList<HistoryEvent>>> finish() { return m_document.get(); }

private:
    std::future<std::optional<StoredDocument<QList<HistoryEvent>>>> m_document;
};

} // namespace tamsel
