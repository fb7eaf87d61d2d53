#pragma once

#include "model/Exercise.h"
#include "model/PracticeSession.h"
#include "model/SettingsStore.h"
#include "platform/Clock.h"
#include "platform/Observable.h"

#include <QList>

namespace tamsel {

// Keeps on disk what is being practised, so that a crash or a loss of power costs a few seconds at most. What an
// earlier start has left there is offered, and recorded only when its owner says so. Main thread only.
class RunningPractice {
public:
    // How far what is on disk may lie behind, in seconds of practice.
    static constexpr qint64 largestLag = 3;

    // Takes what is left over. A value that cannot be read is set aside; runs too short for a session are dropped.
    RunningPractice(SettingsStore& userDefaults, const Clock& clock);

    // A run of the item has lasted this long. At most one run of each type is kept.
    void update(const Exercise& exercise, SessionType type, qint64 seconds);
    // The run of this type is over: recorded, or dropped by its owner. To be one transaction with the recording.
    void end(SessionType type);

    // The runs that an earlier start has left, with their times as they were last seen.
    const QList<PracticeSession>& left() const { return m_left; }
    // They have been recorded, or are not wanted. To be one transaction with the recording.
    void forgetLeft();
    Observable& leftChanged() { return m_leftChanged; }

private:
    void save();

    SettingsStore& m_userDefaults;
    const Clock& m_clock;
    QList<PracticeSession> m_left;
    QList<PracticeSession> m_running; // as last saved
    Observable m_leftChanged;
};

} // namespace tamsel
