#include "model/History.h"

#include "model/Json.h"
#include "model/SettingsKeys.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <utility>

namespace tamsel {

namespace {

constexpr qint64 secondsPerMinute = 60;

// The events from `first` on, with the new name where they carry the old one. Fresh identifiers come later, on the
// main thread; a renamed event has a null one until then.
QList<HistoryEvent> renamed(QList<HistoryEvent> events, qsizetype first, const QString& oldName,
                            const QString& newName) {
    for (qsizetype i = first; i < events.size(); ++i) {
        if (events.at(i).exerciseName == oldName)
            events[i] = HistoryEvent{events.at(i).date, newName, events.at(i).practiceTime, {}, {}, QUuid()};
    }
    return events;
}

} // namespace

History::History(DailyLog& dailyLog, SettingsStore& userDefaults, Queue& mainQueue, UuidSource& uuids, WorkQueue queue)
    : m_dailyLog(dailyLog), m_userDefaults(userDefaults), m_mainQueue(mainQueue), m_uuids(uuids),
      m_queue(std::move(queue)) {
    auto data = userDefaults.data(keys::historyEvents);
    if (!data)
        return;
    if (data->endsWith(']'))
        m_extendableBytes = data->size();
    auto decoded = json::decode<QList<HistoryEvent>>(*std::move(data), keys::historyEvents);
    if (!decoded) {
        log(QStringLiteral("The history in %1 cannot be read: %2")
                .arg(userDefaults.location(), decoded.error().message));
        fatalError({});
    }
    m_events = *std::move(decoded);
}

History::~History() = default;

void History::setEvents(QList<HistoryEvent> events) {
    m_events = std::move(events);
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
    const bool extendable = m_extendableBytes.has_value() && !m_events.isEmpty();
    m_events += event;
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
    const auto document = json::encode(m_events);
    if (!document)
        return;
    m_userDefaults.setData(keys::historyEvents, *document);
    m_extendableBytes = document->size();
}

void History::renameExercise(const QString& oldName, const QString& newName, std::function<void()> completion) {
    auto finish = [self = std::weak_ptr(m_self), generation = m_generation, oldName, newName,
                   completion = std::move(completion)](const QList<HistoryEvent>& rebuilt) mutable {
        const auto history = self.lock();
        if (!history)
            return;
        History& store = **history;
        if (store.m_generation != generation) {
            // The list was replaced meanwhile: what was computed is about another list.
            store.renameExercise(oldName, newName, std::move(completion));
            return;
        }
        // What was recorded meanwhile stands behind the rest.
        const qsizetype known = rebuilt.size();
        QList<HistoryEvent> events = renamed(rebuilt + store.m_events.sliced(known), known, oldName, newName);
        for (HistoryEvent& event : events) {
            if (event.id.isNull() && event.exerciseName == newName)
                event.id = store.m_uuids.next();
        }
        store.setEvents(std::move(events));
        if (completion)
            completion();
    };
    m_queue->async([&mainQueue = m_mainQueue, events = m_events, oldName, newName, finish = std::move(finish)] {
        mainQueue.async([finish, rebuilt = renamed(events, 0, oldName, newName)]() mutable { finish(rebuilt); });
    });
}

} // namespace tamsel
