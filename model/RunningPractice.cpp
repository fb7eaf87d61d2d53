#include "model/RunningPractice.h"

#include "model/Json.h"
#include "model/SetAside.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "platform/Log.h"

#include <algorithm>

namespace tamsel {

RunningPractice::RunningPractice(SettingsStore& userDefaults, const Clock& clock)
    : m_userDefaults(userDefaults), m_clock(clock) {
    auto stored = readDocument<QList<PracticeSession>>(userDefaults, keys::runningPractice);
    if (stored.isUnreadable()) {
        log(stored.problem);
        setAside(userDefaults, keys::runningPractice);
        userDefaults.remove(keys::runningPractice);
    }
    m_left = std::move(stored.value).value_or(QList<PracticeSession>());
    m_left.removeIf([](const PracticeSession& run) { return run.seconds < PracticeSession::minimumSeconds; });
    if (stored.value && m_left.isEmpty())
        userDefaults.remove(keys::runningPractice);
}

void RunningPractice::update(const Exercise& exercise, SessionType type, qint64 seconds) {
    const auto run = PracticeSession::make(m_clock.now(), exercise, seconds, type);
    if (!run)
        return;
    const auto found = std::ranges::find(m_running, type, &PracticeSession::type);
    if (found == m_running.end())
        m_running += *run;
    else if (found->exercise != exercise || seconds < found->seconds || seconds - found->seconds >= largestLag)
        *found = *run;
    else
        return;
    save();
}

void RunningPractice::end(SessionType type) {
    if (m_running.removeIf([type](const PracticeSession& run) { return run.type == type; }) > 0)
        save();
}

void RunningPractice::forgetLeft() {
    if (m_left.isEmpty())
        return;
    m_left.clear();
    save();
    m_leftChanged.notify();
}

void RunningPractice::save() {
    const QList<PracticeSession> runs = m_left + m_running;
    const auto document = json::encode(runs);
    if (runs.isEmpty() || !document)
        m_userDefaults.remove(keys::runningPractice);
    else
        m_userDefaults.setData(keys::runningPractice, *document);
}

} // namespace tamsel
