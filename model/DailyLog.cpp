#include "model/DailyLog.h"

#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"

#include <utility>

namespace tamsel {

DailyLog::DailyLog(SettingsStore& userDefaults, const Clock& clock, const Calendar& calendar)
    : m_userDefaults(userDefaults), m_clock(clock) {
    const auto stored = readDocument<QList<PracticeSession>>(userDefaults, keys::practiceSessions);
    if (stored.isUnreadable())
        setAside(userDefaults, keys::practiceSessions);
    if (!stored.value)
        return;
    const Date today = calendar.startOfDay(clock.now());
    for (const PracticeSession& session : *stored.value) {
        if (calendar.startOfDay(session.date) == today)
            m_practiceSessions += session;
    }
}

void DailyLog::add(const PracticeSession& session) {
    setPracticeSessions(m_practiceSessions + QList<PracticeSession>{session});
}

void DailyLog::removeSessions(const std::function<bool(const PracticeSession&)>& predicate) {
    QList<PracticeSession> sessions = m_practiceSessions;
    sessions.removeIf(predicate);
    setPracticeSessions(std::move(sessions));
}

void DailyLog::renameExercise(const QString& oldName, const QString& newName) {
    QList<PracticeSession> sessions = m_practiceSessions;
    for (PracticeSession& session : sessions) {
        if (session.exercise.name != oldName || newName.isEmpty())
            continue;
        const Exercise renamed{newName, session.exercise.id};
        session = PracticeSession::make(m_clock.now(), renamed, session.seconds, session.type).value_or(session);
    }
    setPracticeSessions(std::move(sessions));
}

void DailyLog::setPracticeSessions(QList<PracticeSession> sessions) {
    m_practiceSessions = std::move(sessions);
    if (const auto document = json::encode(m_practiceSessions))
        m_userDefaults.setData(keys::practiceSessions, *document);
    m_practiceSessionsChanged.notify();
}

} // namespace tamsel
