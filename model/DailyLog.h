#pragma once

#include "model/PracticeSession.h"
#include "model/SettingsStore.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/Observable.h"

#include <QList>

#include <functional>

namespace tamsel {

// Today's practice sessions, in the order in which they were recorded. Main thread only.
// Every change is saved and published before the call returns.
class DailyLog {
public:
    // Loads the sessions whose calendar day is today's; those of earlier days are dropped. Data that does not decode
    // counts as an empty list; a copy of it is set aside first.
    DailyLog(SettingsStore& userDefaults, const Clock& clock, const Calendar& calendar);

    const QList<PracticeSession>& practiceSessions() const { return m_practiceSessions; }
    Observable& practiceSessionsChanged() { return m_practiceSessionsChanged; }

    // Appends a finished session, unchanged.
    void add(const PracticeSession& session);

    // Removes every session that satisfies the predicate; the rest keep their order.
    void removeSessions(const std::function<bool(const PracticeSession&)>& predicate);

    // Gives the sessions of the item named `oldName` the new name. Their dates become now minus their lengths, a
    // deliberate simplification. An empty new name changes no session.
    void renameExercise(const QString& oldName, const QString& newName);

    // Replaces the whole log.
    void setPracticeSessions(QList<PracticeSession> sessions);

private:
    SettingsStore& m_userDefaults;
    const Clock& m_clock;
    QList<PracticeSession> m_practiceSessions;
    Observable m_practiceSessionsChanged;
};

} // namespace tamsel
