#pragma once

#include "model/Exercise.h"
#include "model/HistoryEvent.h"
#include "platform/Clock.h"
#include "platform/Queue.h"

#include <QList>

// What the benchmarks of models and screens stand on: a journal of any length, and a world that does not move.
namespace tamsel::bench {

class StandingClock final : public Clock {
public:
    Date now() const override { return Date::fromUnixSeconds(1710417600); }
    std::chrono::nanoseconds hostTime() const override { return {}; }
};

// Does at once what is asked of it, and nothing later.
class NoQueue final : public Queue {
public:
    void async(Work work) override { work(); }
    void asyncAfter(std::chrono::nanoseconds, Work) override {}
};

struct Journal {
    QList<Exercise> items;
    // Half an hour apart, the last one half an hour before `now`, spread over all items.
    QList<HistoryEvent> events;

    static Journal make(qint64 itemCount, qint64 eventCount, Date now) {
        const auto numbered = [](qint64 i, uchar kind) {
            return QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, kind);
        };
        Journal journal;
        for (qint64 i = 0; i < itemCount; ++i)
            journal.items += {QStringLiteral("Étude op. %1 no. %2").arg(i * 7'919 % 640).arg(i), numbered(i, 1)};
        for (qint64 i = 0; i < eventCount; ++i)
            journal.events += {now - static_cast<double>(eventCount - i) * 1'800.0,
                               journal.items.at(i * 6'007 % itemCount).name,
                               i % 50 + 1,
                               {},
                               {},
                               numbered(i, 2)};
        return journal;
    }
};

} // namespace tamsel::bench
