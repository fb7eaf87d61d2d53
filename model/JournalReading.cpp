#include "model/JournalReading.h"

#include "model/SettingsKeys.h"
#include "model/Snapshot.h"

#include <utility>

namespace tamsel {

JournalReading::JournalReading(const SettingsStore& store)
    : m_journal(
          std::async(std::launch::async, [stored = snapshotOf(store, keys::historyEvents)]() -> std::optional<Journal> {
              auto value = stored();
              if (!value)
                  return std::nullopt;
              Journal journal{readDocument<QList<HistoryEvent>>(*std::move(value), keys::historyEvents), {}};
              if (journal.document.value)
                  journal.names.update(*journal.document.value);
              return journal;
          })) {}

} // namespace tamsel
