#include "model/DataSummary.h"

#include "model/MemorySettingsStore.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"

#include <algorithm>

namespace tamsel {

namespace {

void countEvents(DataSummary& summary, const QList<HistoryEvent>& events) {
    summary.events = events.size();
    for (const HistoryEvent& event : events) {
        summary.firstEvent = std::min(event.date, summary.firstEvent.value_or(event.date));
        summary.lastEvent = std::max(event.date, summary.lastEvent.value_or(event.date));
    }
}

} // namespace

DataSummary DataSummary::of(const DataDump& dump) {
    DataSummary summary;
    summary.items = dump.allExercises.size();
    summary.archivedItems = dump.allArchivedExercises.size();
    for (const auto& [exercise, notes] : dump.allNotes)
        summary.notes += notes.size();
    countEvents(summary, dump.allHistory);
    return summary;
}

json::Result<DataSummary> DataSummary::of(const UserData& data) {
    const MemorySettingsStore store(data.values());
    const auto items = readDocument<QList<Exercise>>(store, keys::exercises);
    const auto archived = readDocument<QList<Exercise>>(store, keys::archivedExercises);
    const auto events = readDocument<QList<HistoryEvent>>(store, keys::historyEvents);
    for (const QString& problem : {items.problem, archived.problem, events.problem}) {
        if (!problem.isEmpty())
            return json::Error{problem};
    }
    DataSummary summary;
    summary.items = items.value.value_or(QList<Exercise>()).size();
    summary.archivedItems = archived.value.value_or(QList<Exercise>()).size();
    for (const QString& key : data.values().keys()) {
        if (key.startsWith(keys::notesPrefix))
            summary.notes += readDocument<QList<Note>>(store, key).value.value_or(QList<Note>()).size();
    }
    countEvents(summary, events.value.value_or(QList<HistoryEvent>()));
    return summary;
}

} // namespace tamsel
