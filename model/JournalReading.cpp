#include "model/JournalReading.h"

#include "model/SettingsKeys.h"
#include "model/Snapshot.h"

#include <utility>

namespace tamsel {

JournalReading::JournalReading(const SettingsStore& store)
    : m_document(std::async(std::launch::async, [stored = snapshotOf(store, keys::historyEvents)] {
          auto value = stored();
          return value ? std::optional(readDocument<QList<HistoryEvent>>(*std::move(value), keys::historyEvents))
                       : std::nullopt;
      })) {}

} // namespace tamsel
