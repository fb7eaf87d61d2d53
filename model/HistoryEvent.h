#pragma once

#include "platform/Date.h"
#include "platform/UuidSource.h"

#include <QHashFunctions>
#include <QString>
#include <QTypeInfo>
#include <QUuid>

#include <optional>

namespace tamsel {

// One permanent record of practice. It knows its item by name only.
struct HistoryEvent {
    Date date; // when the practice took place
    QString exerciseName;
    qint64 practiceTime = 0; // whole minutes
    std::optional<qint64> thumbsUp;
    std::optional<qint64> thumbsDown;
    QUuid id;

    // A new event, with a fresh identifier.
    static HistoryEvent make(Date date, const QString& exerciseName, qint64 practiceTime, UuidSource& uuids,
                             std::optional<qint64> thumbsUp = {}, std::optional<qint64> thumbsDown = {}) {
        return {date, exerciseName, practiceTime, thumbsUp, thumbsDown, uuids.next()};
    }

    bool operator==(const HistoryEvent&) const = default;
};

inline size_t qHash(const HistoryEvent& event, size_t seed = 0) {
    // An absent count hashes apart from every present one.
    const auto count = [](const std::optional<qint64>& value) {
        return qHashMulti(0, value.has_value(), value.value_or(0));
    };
    return qHashMulti(seed, event.date.secondsSinceReference, event.exerciseName, event.practiceTime,
                      count(event.thumbsUp), count(event.thumbsDown), event.id);
}

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::HistoryEvent, Q_RELOCATABLE_TYPE);
