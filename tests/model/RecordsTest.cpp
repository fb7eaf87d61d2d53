#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "model/HistoryEvent.h"
#include "model/Note.h"
#include "model/PracticeSession.h"
#include "tests/support/SequentialUuids.h"

#include <QSet>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <limits>
#include <vector>

namespace tamsel {
namespace {

using test::SequentialUuids;

const Exercise scales{QStringLiteral("Scales"), SequentialUuids::numbered(1)};
const Exercise chords{QStringLiteral("Chords"), SequentialUuids::numbered(2)};

// Every change makes another value: unequal, and (where the hash takes all fields in) with another hash.
template <class Record>
void expectEachToMatter(const Record& record, const std::vector<std::function<void(Record&)>>& changes) {
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Record changed = record;
        EXPECT_EQ(changed, record);
        EXPECT_EQ(qHash(changed), qHash(record));
        changes[i](changed);
        EXPECT_NE(changed, record) << "change " << i;
        EXPECT_NE(qHash(changed), qHash(record)) << "change " << i;
    }
}

TEST(RecordsTest, AnExerciseIsItsNameAndItsId) {
    expectEachToMatter<Exercise>(scales, {[](Exercise& e) { e.name = QStringLiteral("scales"); },
                                          [](Exercise& e) { e.id = SequentialUuids::numbered(9); }});
}

TEST(RecordsTest, AHistoryEventIsAllOfItsFields) {
    const HistoryEvent event{Date{60}, QStringLiteral("Scales"), 12, 3, 4, SequentialUuids::numbered(1)};
    expectEachToMatter<HistoryEvent>(
        event, {[](HistoryEvent& e) { e.date = Date{61}; }, [](HistoryEvent& e) { e.exerciseName.clear(); },
                [](HistoryEvent& e) { e.practiceTime = 13; }, [](HistoryEvent& e) { e.thumbsUp = 4; },
                [](HistoryEvent& e) { e.thumbsUp = {}; }, [](HistoryEvent& e) { std::swap(e.thumbsUp, e.thumbsDown); },
                [](HistoryEvent& e) { e.thumbsDown = {}; }, [](HistoryEvent& e) { e.id = {}; }});
    HistoryEvent none = event;
    none.thumbsUp = std::nullopt;
    expectEachToMatter<HistoryEvent>(none, {[](HistoryEvent& e) { e.thumbsUp = 0; }});
}

TEST(RecordsTest, ANoteIsAllOfItsFields) {
    const Note note{Date{60}, SequentialUuids::numbered(1), QStringLiteral("slower")};
    expectEachToMatter<Note>(note, {[](Note& n) { n.date = Date{61}; }, [](Note& n) { n.id = {}; },
                                    [](Note& n) { n.value = QStringLiteral("Slower"); }});
}

TEST(RecordsTest, SessionsThatBeganTogetherHashAlikeAndDifferInAnyField) {
    const PracticeSession session{Date{60}, scales, 30, SessionType::timer};
    const std::vector<PracticeSession> others{{Date{60}, chords, 30, SessionType::timer},
                                              {Date{60}, scales, 31, SessionType::timer},
                                              {Date{60}, scales, 30, SessionType::stopwatch}};
    for (const PracticeSession& other : others) {
        EXPECT_NE(session, other);
        EXPECT_EQ(qHash(session), qHash(other));
    }
    const PracticeSession later{Date{60.5}, scales, 30, SessionType::timer};
    EXPECT_NE(session, later);
    EXPECT_NE(qHash(session), qHash(later));
}

TEST(RecordsTest, DatesThatAreEqualHashAlike) {
    // 0 and -0 are equal doubles with different bits.
    const PracticeSession session{Date{0.0}, scales, 30, SessionType::timer};
    const PracticeSession negative{Date{-0.0}, scales, 30, SessionType::timer};
    EXPECT_EQ(session, negative);
    EXPECT_EQ((QSet<PracticeSession>{session, negative}.size()), 1);
}

TEST(RecordsTest, ASessionLastsThreeSecondsAtLeastAndStartsThatMuchBeforeItsEnd) {
    const Date end{1000.5};
    for (const qint64 seconds : {std::numeric_limits<qint64>::min(), qint64(-3), qint64(0), qint64(2)})
        EXPECT_FALSE(PracticeSession::make(end, scales, seconds, SessionType::timer)) << seconds;
    for (const qint64 seconds : {3, 4, 3600}) {
        const auto session = PracticeSession::make(end, scales, seconds, SessionType::stopwatch);
        ASSERT_TRUE(session) << seconds;
        EXPECT_EQ(*session, (PracticeSession{Date{1000.5 - static_cast<double>(seconds)}, scales, seconds,
                                             SessionType::stopwatch}));
    }
}

TEST(RecordsTest, CombiningKeepsTheFirstItemAndTypeAndStartsAnewFromNow) {
    const PracticeSession first{Date{100}, scales, 30, SessionType::stopwatch};
    const PracticeSession later{Date{500}, chords, 12, SessionType::timer};
    EXPECT_EQ(first.combined(later, Date{2000}),
              (PracticeSession{Date{2000 - 42}, scales, 42, SessionType::stopwatch}));
}

using RecordsDeathTest = testing::Test;

TEST(RecordsDeathTest, CombiningStopsTheProgramWhenNoSessionComesOfIt) {
    const PracticeSession empty{Date{100}, scales, 1, SessionType::timer};
    EXPECT_EXIT(empty.combined(empty, Date{200}), testing::KilledBySignal(SIGABRT),
                "Fatal error: Combining two sessions should always generate a valid session\\.");
}

TEST(RecordsDeathTest, CombiningStopsTheProgramWhenTheSumOverflows) {
    const PracticeSession endless{Date{100}, scales, std::numeric_limits<qint64>::max(), SessionType::timer};
    const PracticeSession second{Date{100}, scales, 3, SessionType::timer};
    EXPECT_EXIT(endless.combined(second, Date{200}), testing::KilledBySignal(SIGABRT), "^$");
}

TEST(RecordsTest, NewEventsHaveFreshIdsAndTheCountsThatWereGiven) {
    SequentialUuids uuids;
    EXPECT_EQ(HistoryEvent::make(Date{60}, QStringLiteral("Scales"), 2, uuids),
              (HistoryEvent{Date{60}, QStringLiteral("Scales"), 2, {}, {}, SequentialUuids::numbered(1)}));
    EXPECT_EQ(HistoryEvent::make(Date{60}, QStringLiteral("Scales"), 2, uuids, 0, 5),
              (HistoryEvent{Date{60}, QStringLiteral("Scales"), 2, 0, 5, SequentialUuids::numbered(2)}));
}

TEST(RecordsTest, DatesCountFromTheStartOf2001) {
    EXPECT_EQ(Date::fromUnixSeconds(978307260).secondsSinceReference, 60); // 2001-01-01 00:01:00 UTC
    EXPECT_EQ(Date{60}.unixSeconds(), 978307260);
}

} // namespace
} // namespace tamsel
