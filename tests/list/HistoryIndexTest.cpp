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
    void expectInStep(const HistoryIndex& index) {
        for (const QString& name : {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}) {
            std::optional<Date> last;
            qint64 all = 0;
            qint64 recent = 0;
            for (const HistoryEvent& each : history().events()) {
                if (each.exerciseName != name)
                    continue;
                last = last ? std::max(*last, each.date) : each.date;
                all += each.practiceTime;
                recent += each.date >= since ? each.practiceTime : 0;
            }
            EXPECT_EQ(index.lastPracticedDate(name), last) << name.toStdString();
            EXPECT_EQ(index.practiceTime(name, std::nullopt), all) << name.toStdString();
            EXPECT_EQ(index.practiceTime(name, since), recent) << name.toStdString();
        }
    }

    test::World world;
    const Date since{200};
};

TEST_F(HistoryIndexTest, FollowsRecordingsRenamesAndReplacements) {
    history().setEvents({event("A", 300, 5), event("A", 100, 7), event("B", 200, 11), event("A", 199.5, 13)});
    HistoryIndex index(history());
    expectInStep(index);

    const Exercise c{QStringLiteral("C"), world.uuids.next()};
    history().record(*PracticeSession::make(world.clock.now(), c, 120, SessionType::timer));
    history().record(*PracticeSession::make(world.clock.now(), c, 59, SessionType::timer));
    index.update();
    expectInStep(index);

    history().renameExercise(QStringLiteral("A"), QStringLiteral("B"));
    // The rename's work is done on a queue of its own.
    while (history().events().first().exerciseName != QStringLiteral("B"))
        yieldAndRun();
    index.update();
    expectInStep(index);

    // As many events as before, and others.
    QList<HistoryEvent> events = history().events();
    events.first() = event("C", 500, 1);
    history().setEvents(events);
    index.update();
    expectInStep(index);
    history().setEvents({});
    index.update();
    expectInStep(index);
}

TEST_F(HistoryIndexTest, TakesInAWholeJournalAndWhatFollows) {
    QList<HistoryEvent> events;
    for (int i = 0; i < 600; ++i)
        events += event(i % 3 == 0 ? "A" : i % 7 == 0 ? "B" : "C", i < 400 ? i : 800 - i, i);
    history().setEvents(events.first(300));
    HistoryIndex index(history());
    expectInStep(index);
    for (const qsizetype length : {301, 303, 600}) {
        history().setEvents(events.first(length));
        index.update();
        expectInStep(index);
    }
    const Exercise c{QStringLiteral("C"), world.uuids.next()};
    for (int i = 0; i < 300; ++i)
        history().record(*PracticeSession::make(world.clock.now(), c, 60 * i + 60, SessionType::timer));
    index.update();
    expectInStep(index);
}

TEST_F(HistoryIndexTest, MinutesThatOverflowStopTheProgram) {
    history().setEvents({event("A", 1, std::numeric_limits<qint64>::max()), event("A", 2, 1)});
    const HistoryIndex index(history());
    EXPECT_EQ(index.practiceTime(QStringLiteral("A"), Date{2}), 1);
    EXPECT_DEATH(index.practiceTime(QStringLiteral("A"), std::nullopt), "");
}

} // namespace
} // namespace tamsel
