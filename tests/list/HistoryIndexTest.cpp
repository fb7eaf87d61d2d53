#include "list/HistoryIndex.h"

#include "tests/support/World.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>

namespace tamsel {
namespace {

class HistoryIndexTest : public testing::Test {
protected:
    History& history() { return world.singletons->history; }
    HistoryEvent event(const char* name, double date, qint64 minutes) {
        return HistoryEvent::make({date}, QString::fromLatin1(name), minutes, world.uuids);
    }
    void yieldAndRun() {
        std::this_thread::yield();
        world.mainQueue.runDue();
    }
    // What the events say, read from the beginning.
    HistoryIndex::Practice practiceOf(const QString& name, std::optional<Date> since) {
        HistoryIndex::Practice practice;
        for (const HistoryEvent& each : history().events()) {
            if (each.exerciseName != name)
                continue;
            practice.last = practice.last ? std::max(*practice.last, each.date) : each.date;
            practice.minutes += !since || each.date >= *since ? each.practiceTime : 0;
        }
        return practice;
    }
    // An index that keeps its span takes in what changed; one that goes through spans looks for each in the journal.
    void expectInStep(HistoryIndex& index) {
        const auto expect = [this](HistoryIndex& each, std::optional<Date> since) {
            each.update(since);
            for (const QString& name : {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")})
                EXPECT_EQ(each.practice(name), practiceOf(name, since)) << name.toStdString();
        };
        expect(index, Date{200});
        for (const std::optional<Date> since :
             {std::optional<Date>(), std::optional(Date{0}), std::optional(Date{300}), std::optional<Date>(),
              std::optional(Date{2'500}), std::optional(Date{1e10})})
            expect(changing, since);
    }

    test::World world;
    HistoryIndex changing{history()};
};

TEST_F(HistoryIndexTest, FollowsRecordingsRenamesAndReplacements) {
    history().setEvents({event("A", 300, 5), event("A", 100, 7), event("B", 200, 11), event("A", 199.5, 13)});
    HistoryIndex index(history());
    expectInStep(index);

    const Exercise c{QStringLiteral("C"), world.uuids.next()};
    history().record(*PracticeSession::make(world.clock.now(), c, 120, SessionType::timer));
    history().record(*PracticeSession::make(world.clock.now(), c, 59, SessionType::timer));
    expectInStep(index);

    history().renameExercise(QStringLiteral("A"), QStringLiteral("B"));
    // The rename's work is done on a queue of its own.
    while (history().events().first().exerciseName != QStringLiteral("B"))
        yieldAndRun();
    expectInStep(index);

    // As many events as before, and others.
    QList<HistoryEvent> events = history().events();
    events.first() = event("C", 500, 1);
    history().setEvents(events);
    expectInStep(index);
    history().setEvents({});
    expectInStep(index);
}

TEST_F(HistoryIndexTest, TakesInAWholeJournalAndWhatFollows) {
    QList<HistoryEvent> events;
    // The clock was set back once, for some thousands of events.
    for (int i = 0; i < 6'000; ++i)
        events += event(i % 3 == 0 ? "A" : i % 7 == 0 ? "B" : "C", i < 3'000 ? i : i - 2'900, i);
    history().setEvents(events.first(300));
    HistoryIndex index(history());
    expectInStep(index);
    for (const qsizetype length : {301, 303, 6'000}) {
        history().setEvents(events.first(length));
        expectInStep(index);
    }
    const Exercise c{QStringLiteral("C"), world.uuids.next()};
    for (int i = 0; i < 300; ++i)
        history().record(*PracticeSession::make(world.clock.now(), c, 60 * i + 60, SessionType::timer));
    expectInStep(index);
}

TEST_F(HistoryIndexTest, MinutesThatOverflowStopTheProgram) {
    history().setEvents({event("A", 1, std::numeric_limits<qint64>::max()), event("A", 2, 1)});
    HistoryIndex index(history());
    index.update(Date{2});
    EXPECT_EQ(index.practice(QStringLiteral("A")).minutes, 1);
    index.update(std::nullopt);
    EXPECT_DEATH(index.practice(QStringLiteral("A")), "");
}

} // namespace
} // namespace tamsel
