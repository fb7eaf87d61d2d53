#pragma once

#include "model/Exercise.h"
#include "platform/Date.h"

#include <QHashFunctions>
#include <QTypeInfo>

#include <optional>

namespace tamsel {

enum class SessionType { timer, stopwatch };

// One finished stretch of timed practice. Its identity is `date`, which alone is hashed; equality takes all fields in.
struct PracticeSession {
    // The shortest practice that makes a session.
    static constexpr qint64 minimumSeconds = 3;

    Date date; // when it began
    Exercise exercise;
    qint64 seconds = 0;
    SessionType type = SessionType::timer;

    // A session that ended at `end`; none when it was shorter than `minimumSeconds`.
    static std::optional<PracticeSession> make(Date end, const Exercise& exercise, qint64 seconds, SessionType type);

    // This session and a later stretch as one that ends `now`: item and type of this one, both lengths together.
    // Stops the program when the sum overflows, or with a message when it makes no session.
    PracticeSession combined(const PracticeSession& later, Date now) const;

    bool operator==(const PracticeSession&) const = default;
};

inline size_t qHash(const PracticeSession& session, size_t seed = 0) {
    return qHashMulti(seed, session.date.secondsSinceReference);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::PracticeSession, Q_RELOCATABLE_TYPE);
