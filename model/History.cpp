#include "model/History.h"

#include "model/DataDump.h"
#include "model/EventBuckets.h"
#include "model/Json.h"
#include "model/SettingsKeys.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

// The events from `first` on, with the new name where they carry the old one. Those have no identifier yet.
QList<HistoryEvent> renamed(QList<HistoryEvent> events, qsizetype first, const QString& oldName,
                            const QString& newName) {
    for (qsizetype i = first; i < events.size(); ++i) {
        if (events.at(i).exerciseName == oldName)
            events[i] = HistoryEvent{events.at(i).date, newName, events.at(i).practiceTime, {}, {}, QUuid()};
    }
    return events;
}

} // namespace

History::History(DailyLog& dailyLog, SettingsStore& userDefaults, const Clock& clock, const Calendar& calendar,
                 Queue& mainQueue, UuidSource& uuids, WorkQueue queue, std::optional<JournalReading> reading)
    : m_dailyLog(dailyLog), m_userDefaults(userDefaults), m_clock(clock), m_calendar(calendar), m_mainQueue(mainQueue),
      m_uuids(uuids), m_queue(std::move(queue)) {
    if (auto read = reading ? reading->finish() : std::nullopt) {
        load(std::move(read->document));
        m_names = std::move(read->names);
    } else {
        load(readDocument<QList<HistoryEvent>>(m_userDefaults, keys::historyEvents));
    }
}

void History::load(StoredDocument<QList<HistoryEvent>> stored) {
    if (stored.isUnreadable()) {
        log(QStringLiteral("The history in %1 cannot be read: %2").arg(m_userDefaults.location(), stored.problem));
        fatalError({});
    }
    m_extendableBytes = stored.lastByte == ']' ? std::optional(stored.size) : std::nullopt;
    m_events = std::make_shared<QList<HistoryEvent>>(std::move(stored.value).value_or(QList<HistoryEvent>()));
}

History::~History() {
    // Its work ends here. What it had left is done now, so that no rename is lost with the program.
    m_queue.reset();
    finishRenames();
}

void History::finishRenames() {
    for (const Rename& rename : std::exchange(m_renames, {}))
        takeOver(rename, renamed(*m_events, 0, rename.oldName, rename.newName));
}

void History::replace(const DataDump& dump) {
    setEvents(dump.allHistory);
}

void History::reload() {
    load(readDocument<QList<HistoryEvent>>(m_userDefaults, keys::historyEvents));
    ++m_generation;
    m_eventsChanged.notify();
}

void History::setEvents(QList<HistoryEvent> events) {
    m_events = std::make_shared<QList<HistoryEvent>>(std::move(events));
    ++m_generation;
    save();
    m_eventsChanged.notify();
}

void History::record(const PracticeSession& session) {
    // Together: the log and the journal agree whatever happens between the two.
    m_userDefaults.atomically([&] {
        m_dailyLog.add(session);
        const qint64 minutes = session.seconds / secondsPerMinute;
        if (minutes > 0)
            append(HistoryEvent::make(session.date, session.exercise.name, minutes, m_uuids));
        // Today's sessions stay as they were recorded: turning minutes back into seconds would only lose seconds.
    });
}

void History::append(const HistoryEvent& event) {
    const bool extendable = m_extendableBytes.has_value() && !m_events->isEmpty();
    *m_events += event;
    const auto document = extendable ? json::encode(event) : std::nullopt;
    if (document) {
        const QByteArray tail = ',' + *document + ']';
        m_userDefaults.replaceTail(keys::historyEvents, *m_extendableBytes - 1, tail);
        *m_extendableBytes += tail.size() - 1;
    } else {
        save();
    }
    m_eventsChanged.notify();
}

void History::save() {
    const auto document = json::encode(*m_events);
    if (!document)
        return;
    m_userDefaults.setData(keys::historyEvents, *document);
    m_extendableBytes = document->size();
}

void History::renameExercise(const QString& oldName, const QString& newName, std::function<void()> completion) {
    m_renames += Rename{oldName, newName};
    rebuild(m_renames.last(), std::move(completion));
}

void History::rebuild(const Rename& rename, std::function<void()> completion) {
    auto finish = [self = std::weak_ptr(m_self), generation = m_generation, rename,
                   completion = std::move(completion)](const QList<HistoryEvent>& rebuilt) mutable {
        const auto history = self.lock();
        if (!history)
            return;
        History& store = **history;
        if (!store.m_renames.contains(rename)) {
            // Finished meanwhile.
            if (completion)
                completion();
            return;
        }
        if (store.m_generation != generation) {
            // The list was replaced meanwhile: what was computed is about another list.
            store.rebuild(rename, std::move(completion));
            return;
        }
        // What was recorded meanwhile stands behind the rest.
        const qsizetype known = rebuilt.size();
        store.takeOver(rename, renamed(rebuilt + store.m_events->sliced(known), known, rename.oldName, rename.newName));
        store.m_renames.removeOne(rename);
        if (completion)
            completion();
    };
    // Handed on, not copied: what the completion holds is released on the main thread.
    m_queue->async([&mainQueue = m_mainQueue, events = *m_events, rename, finish = std::move(finish)]() mutable {
        auto rebuilt = renamed(std::move(events), 0, rename.oldName, rename.newName);
        mainQueue.async([finish = std::move(finish), rebuilt = std::move(rebuilt)]() mutable { finish(rebuilt); });
    });
}

void History::takeOver(const Rename& rename, QList<HistoryEvent> events) {
    for (qsizetype i = 0; i < events.size(); ++i) {
        if (m_events->at(i).exerciseName == rename.oldName)
            events[i].id = m_uuids.next();
    }
    setEvents(std::move(events));
}

const std::vector<int>& History::days() const {
    if (std::exchange(m_daysGeneration, m_generation) != m_generation)
        m_days.clear();
    // Only the first time: taking in one more must not move all.
    if (m_days.empty())
        m_days.reserve(static_cast<std::size_t>(m_events->size()));
    for (auto i = static_cast<qsizetype>(m_days.size()); i < m_events->size(); ++i)
        m_days.push_back(m_calendar.dayNumber(m_events->at(i).date));
    return m_days;
}

const EventNames& History::names() const {
    if (std::exchange(m_namesGeneration, m_generation) != m_generation)
        m_names = {};
    m_names.update(*m_events);
    return m_names;
}

QList<DayOfEvents> History::eventsByDay(int days, const std::optional<Exercise>& exercise) const {
    const auto buckets = lastDays(days, daysOfExercise(exercise, *m_events, this->days()), m_clock.now(), m_calendar);
    return daysOfEvents(buckets, *m_events);
}

QList<MonthOfEvents> History::eventsByMonth(int months, bool allMonths, const std::optional<Exercise>& exercise) const {
    const auto buckets =
        lastMonths(months, allMonths, daysOfExercise(exercise, *m_events, days()), m_clock.now(), m_calendar);
    return monthsOfEvents(buckets, *m_events);
}

} // namespace tamsel
