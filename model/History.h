#pragma once

#include "model/DailyLog.h"
#include "model/DataReplacing.h"
#include "model/DayOfEvents.h"
#include "model/EventNames.h"
#include "model/Exercise.h"
#include "model/HistoryEvent.h"
#include "model/JournalReading.h"
#include "model/MonthOfEvents.h"
#include "model/PracticeSession.h"
#include "model/SettingsStore.h"
#include "model/StoredDocument.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/Observable.h"
#include "platform/Queue.h"
#include "platform/SerialQueue.h"
#include "platform/UuidSource.h"

#include <QList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tamsel {

// Every event ever recorded, in the order of recording: the journal that the reports read. Main thread, except that a
// rename does its work on a queue of its own. Every change is saved and published before the call returns.
class History final : public DataReplacing {
public:
    using WorkQueue = std::unique_ptr<Queue>;

    // Loads the events, or takes over what was begun to be read of the same settings store. Stored events that do not
    // decode stop the program, with one line on the console that names the file and the place: history is never
    // silently discarded, and its bytes stay as they are.
    History(DailyLog& dailyLog, SettingsStore& userDefaults, const Clock& clock, const Calendar& calendar,
            Queue& mainQueue, UuidSource& uuids, WorkQueue queue = std::make_unique<SerialQueue>("History"),
            std::optional<JournalReading> reading = {});
    ~History() override;

    // Until the next change.
    const QList<HistoryEvent>& events() const { return *m_events; }
    // The list of the events, for what has to tell of it later as it is now: recording adds to its end, and every other
    // change leaves it as it was and takes another list. A copy of the list would make the next recording copy it all.
    std::shared_ptr<const QList<HistoryEvent>> journal() const { return m_events; }
    // The numbers of the calendar days that the events lie on, in their order. Told once for each event.
    const std::vector<int>& days() const;
    // The numbers of the events' names. Told once likewise.
    const EventNames& names() const;
    Observable& eventsChanged() { return m_eventsChanged; }
    // Counts every change but an append: while it stays, events were added at the end at most.
    quint64 generation() const { return m_generation; }

    void setEvents(QList<HistoryEvent> events);

    // Records a finished session: appended to today's log unchanged and, from one minute up, to the events in whole
    // minutes. Costs the same however long the history is.
    void record(const PracticeSession& session);

    // Gives the events named `oldName` the new name. Their counts are dropped and their identifiers fresh, which is
    // deliberate. Publishes and saves on the main queue, then calls the completion there.
    void renameExercise(const QString& oldName, const QString& newName, std::function<void()> completion = {});
    // Does at once what renames have left to do; their completions still come on the main queue.
    void finishRenames();

    void replace(const DataDump& dump) override;
    void reload() override;

    // The last so many days, today first, each with its events (those of the exercise, where one is given) in the order
    // of recording. Days are counted in steps of 86,400 seconds: where the clocks change, a day may come twice or be
    // left out, and the list still has that many entries. A count below zero stops the program.
    QList<DayOfEvents> eventsByDay(int days, const std::optional<Exercise>& exercise = {}) const;
    // The last so many months, the current one first; with `allMonths`, every month back to the earliest event. Empty,
    // deliberately, when that time holds no event.
    QList<MonthOfEvents> eventsByMonth(int months, bool allMonths, const std::optional<Exercise>& exercise = {}) const;

private:
    struct Rename {
        QString oldName;
        QString newName;
        bool operator==(const Rename&) const = default;
    };

    void load(StoredDocument<QList<HistoryEvent>> stored);
    // Starts the work of a rename on the queue.
    void rebuild(const Rename& rename, std::function<void()> completion);
    // Takes the list that a rename gives, with fresh identifiers for the renamed events.
    void takeOver(const Rename& rename, QList<HistoryEvent> events);
    void append(const HistoryEvent& event);
    void save();

    DailyLog& m_dailyLog;
    SettingsStore& m_userDefaults;
    const Clock& m_clock;
    const Calendar& m_calendar;
    Queue& m_mainQueue;
    UuidSource& m_uuids;
    std::shared_ptr<QList<HistoryEvent>> m_events; // never null
    // Length of the stored document while it ends in the list's bracket, so that an event can be added behind the rest;
    // nothing when the next save has to write the whole.
    std::optional<qsizetype> m_extendableBytes;
    // What a rename was computed from is stale when it differs.
    quint64 m_generation = 0;
    QList<Rename> m_renames; // not taken over yet
    // Of so many first events, while the generation stays.
    mutable std::vector<int> m_days;
    mutable quint64 m_daysGeneration = 0;
    mutable EventNames m_names; // likewise
    mutable quint64 m_namesGeneration = 0;
    Observable m_eventsChanged;
    // Given to work on other queues, which does nothing once this store is gone.
    std::shared_ptr<History*> m_self = std::make_shared<History*>(this);
    WorkQueue m_queue;
};

} // namespace tamsel
