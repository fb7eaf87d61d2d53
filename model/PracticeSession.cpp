#include "model/PracticeSession.h"

#include "platform/Checked.h"
#include "platform/FatalError.h"

namespace tamsel {

std::optional<PracticeSession> PracticeSession::make(Date end, const Exercise& exercise, qint64 seconds,
                                                     SessionType type) {
    if (seconds < minimumSeconds)
        return std::nullopt;
    return PracticeSession{end - static_cast<double>(seconds), exercise, seconds, type};
}

PracticeSession PracticeSession::combined(const PracticeSession& later, Date now) const {
    const auto session = make(now, exercise, checkedAdd(seconds, later.seconds), type);
    if (!session)
        fatalError(QStringLiteral("Combining two sessions should always generate a valid session."));
    return *session;
}

} // namespace tamsel
