#include "reports/ReportData.h"

#include "model/EventBuckets.h"
#include "tests/reports/Journal.h"

#include <QSet>

#include <gtest/gtest.h>

#include <csignal>
#include <limits>

namespace tamsel {
namespace {

constexpr double day = test::Journal::day;
constexpr double noon = 12 * 3600.0;

QList<qint64> minutesOf(const QList<DayOfEvents>& days) {
    QList<qint64> minutes;
    for (const DayOfEvents& each : days) {
        minutes += 0;
        for (const HistoryEvent& event : each.events)
            minutes.last() += event.practiceTime;
    }
    return minutes;
}

class ReportDataTest : public testing::Test {
protected:
    test::Journal journal;
    // In a zone, from a moment there.
    void moveTo(const char* zone, double now) {
        journal.singletons.reset();
        journal.calendar = Calendar(QString::fromLatin1(zone));
        journal.clock.wall = Date::fromUnixSeconds(now);
        journal.restart();
    }
};

TEST_F(ReportDataTest, EveryDayIsListedAndAnEventLiesInItsOwn) {
    journal.add(noon, "A", 1);           // at 00:00 today
    journal.add(noon + 1, "B", 2);       // a second earlier
    journal.add(noon + 60, "C", 3);      // 23:59 yesterday
    journal.add(noon + day, "D", 4);     // 00:00 yesterday
    journal.add(noon + 6 * day, "E", 5); // 00:00 six days ago
    journal.add(noon + 6 * day + 1, "F", 6);
    journal.add(-day, "G", 7); // tomorrow: the clock was set back
    EXPECT_EQ(minutesOf(journal.history().eventsByDay(7)), (QList<qint64>{1, 9, 0, 0, 0, 0, 5}));
    EXPECT_EQ(journal.history().eventsByDay(7).first().day, Date::fromUnixSeconds(1710374400));
    EXPECT_EQ(minutesOf(journal.history().eventsByDay(7, Exercise{QStringLiteral("C"), QUuid()})),
              (QList<qint64>{0, 3, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(journal.history().eventsByDay(0).isEmpty());
    EXPECT_EXIT(journal.history().eventsByDay(-1), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(ReportDataTest, AcrossADaylightSavingChangeTheListKeepsItsLength) {
    struct Case {
        const char* what;
        const char* zone;
        // Unix seconds, from GNU date.
        double now;
        double lastDay;
        qsizetype differing; // days that differ among the 7 entries
    };
    for (const Case& test :
         {Case{"half past midnight, the day with 23 hours is left out", "Europe/Berlin", 1711924200, 1711321200, 7},
          Case{"late on the day with 25 hours, which comes twice", "Europe/Berlin", 1730068200, 1729548000, 6},
          Case{"behind a day that the zone skipped", "Pacific/Apia", 1325241000, 1324720800, 7}}) {
        moveTo(test.zone, test.now);
        const QList<DayOfEvents> days = journal.history().eventsByDay(7);
        ASSERT_EQ(days.size(), 7) << test.what;
        EXPECT_EQ(days.last().day.unixSeconds(), test.lastDay) << test.what;
        QSet<double> different;
        for (const DayOfEvents& each : days)
            different += each.day.secondsSinceReference;
        EXPECT_EQ(different.size(), test.differing) << test.what;
    }
}

TEST_F(ReportDataTest, MonthsAreEmptyTogetherOrListedAll) {
    const auto& history = journal.history();
    EXPECT_TRUE(history.eventsByMonth(12, false).isEmpty());
    EXPECT_TRUE(history.eventsByMonth(12, true).isEmpty());
    journal.addAt(Date::fromUnixSeconds(1680307199), "Old", 5); // 2023-03-31 23:59:59
    EXPECT_TRUE(history.eventsByMonth(12, false).isEmpty()) << "April 2023 is the twelfth month";
    EXPECT_EQ(history.eventsByMonth(12, true).size(), 13);
    journal.addAt(Date::fromUnixSeconds(1680307200), "New", 5);
    const QList<MonthOfEvents> year = history.eventsByMonth(12, false);
    ASSERT_EQ(year.size(), 12);
    EXPECT_EQ(year.first().month, Date::fromUnixSeconds(1709251200)); // 2024-03-01
    EXPECT_EQ(year.last().month, Date::fromUnixSeconds(1680307200));
    EXPECT_EQ(year.last().events.size(), 1);
    EXPECT_EQ(history.eventsByMonth(12, true).last().events.first().exerciseName, QStringLiteral("Old"));
    EXPECT_TRUE(history.eventsByMonth(12, true, Exercise{QStringLiteral("Nobody"), QUuid()}).isEmpty());
}

TEST_F(ReportDataTest, TheLastMonthsAreFoundFromThe31st) {
    moveTo("Europe/Berlin", 1711879200); // 2024-03-31 12:00
    journal.addAt(Date::fromUnixSeconds(1709204400), "Leap day", 29);
    const QList<MonthOfEvents> months = journal.history().eventsByMonth(3, false);
    ASSERT_EQ(months.size(), 3);
    EXPECT_EQ(months[1].month, Date::fromUnixSeconds(1706742000)); // 2024-02-01, from GNU date
    EXPECT_EQ(months[1].events.size(), 1);
}

TEST_F(ReportDataTest, TheNumbersOfTheJournalFollowItsChanges) {
    const auto expectNumbers = [this](const char* what) {
        std::vector<int> days;
        QStringList names;
        std::vector<int> numbers;
        for (const HistoryEvent& event : journal.history().events()) {
            days.push_back(journal.calendar.dayNumber(event.date));
            if (!names.contains(event.exerciseName))
                names += event.exerciseName;
            numbers.push_back(static_cast<int>(names.indexOf(event.exerciseName)));
        }
        EXPECT_EQ(journal.history().days(), days) << what;
        EXPECT_EQ(journal.history().names().numbers(), numbers) << what;
        EXPECT_EQ(journal.history().names().names(), names) << what;
    };
    expectNumbers("empty");
    journal.add(60, "A", 1);
    expectNumbers("replaced");
    journal.history().record(
        *PracticeSession::make(journal.clock.now() + day, {QStringLiteral("B"), QUuid()}, 60, SessionType::timer));
    expectNumbers("one more");
    QList<HistoryEvent> events = journal.history().events();
    events.first().date = journal.clock.now() - 5 * day;
    journal.history().setEvents(events);
    expectNumbers("replaced by as many");
    journal.history().setEvents({});
    expectNumbers("emptied");
}

TEST_F(ReportDataTest, OneDayOrMonthHoldsWhatTheListsHold) {
    // Ten weeks around the end of daylight saving in a zone whose clocks go back at midnight.
    moveTo("America/Santiago", 1714521600);
    QList<HistoryEvent> events;
    for (int hour = 0; hour < 70 * 24; ++hour)
        events += HistoryEvent::make(journal.clock.now() - 3600.0 * hour, QStringLiteral("A"), 1, journal.uuids);
    journal.history().setEvents(events);
    const History& history = journal.history();
    for (const DayOfEvents& each : history.eventsByDay(30))
        EXPECT_EQ(eventsOfDay(history, journal.calendar.dayNumber(each.day), journal.calendar), each);
    for (const MonthOfEvents& each : history.eventsByMonth(0, true))
        EXPECT_EQ(eventsOfMonth(history, journal.calendar.monthNumber(each.month), journal.calendar), each);
}

TEST_F(ReportDataTest, AllMonthsAreOfferedOnceTheJournalIsOlderThanAYear) {
    const auto offered = [this] {
        return rangesToOffer(journal.history().events(), journal.clock.now(), journal.calendar)
            .contains(TimeRange::allMonths);
    };
    EXPECT_FALSE(offered());
    journal.addAt(Date::fromUnixSeconds(1677628800), "At the start of the month twelve months back", 1); // 2023-03-01
    EXPECT_FALSE(offered());
    EXPECT_EQ(rangesToOffer(journal.history().events(), journal.clock.now(), journal.calendar),
              (QList<TimeRange>{TimeRange::last7Days, TimeRange::last30Days, TimeRange::last12Months}));
    journal.addAt(Date::fromUnixSeconds(1677628799), "A second earlier", 1);
    EXPECT_TRUE(offered());
}

TEST_F(ReportDataTest, RankingSumsByNameAndPutsTheLargestFirst) {
    journal.add(60, "scales", 10);
    journal.add(60, "Étude", 20);
    journal.add(60, "scales", 15);
    journal.add(60, "Scales", 20);
    journal.add(10 * day, "scales", 100);
    QStringList lines;
    for (const auto& record : rankingSince(journal.clock.now() - day, journal.history(), journal.platform))
        lines += QStringLiteral("%1 %2").arg(record.exercise).arg(record.minutes);
    EXPECT_EQ(lines,
              (QStringList{QStringLiteral("scales 25"), QStringLiteral("Scales 20"), QStringLiteral("Étude 20")}));

    journal.add(60, "scales", std::numeric_limits<qint64>::max());
    EXPECT_EXIT(ranking(journal.history().events(), journal.uuids), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(ReportDataTest, ManyNamesKeepTheirOwnSums) {
    // More than any short-cut for recent names holds, each twice, with texts of their own.
    QList<HistoryEvent> events;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 5000; ++i)
            events += HistoryEvent{journal.clock.now(), QStringLiteral("Item %1").arg(i), i, {}, {}, QUuid()};
    }
    events += HistoryEvent{journal.clock.now(), QString(), 7, {}, {}, QUuid()};
    const auto records = ranking(events, journal.uuids);
    ASSERT_EQ(records.size(), 5001);
    EXPECT_EQ(records.first().exercise, QStringLiteral("Item 4999"));
    for (const auto& record : records) {
        const qint64 expected = record.exercise.isEmpty() ? 7 : 2 * record.exercise.mid(5).toLongLong();
        ASSERT_EQ(record.minutes, expected);
    }
}

TEST_F(ReportDataTest, PracticeDaysAreCountedOnce) {
    const auto counts = [this](const char* name = nullptr) {
        const auto exercise =
            name == nullptr ? std::nullopt : std::optional(Exercise{QString::fromUtf8(name), QUuid()});
        return countsOfPracticeDays(daysOfExercise(exercise, journal.history().events(), journal.history().days()),
                                    journal.clock.now(), journal.calendar);
    };
    EXPECT_EQ(counts(), (PracticeDayCounts{0, 0, 0, 0}));
    journal.add(0, "A", 1);
    journal.add(3600, "B", 1);
    journal.add(noon + 6 * day, "A", 1);
    journal.add(noon + 6 * day + 1, "A", 1);
    journal.add(30 * day, "A", 1);
    journal.add(5000 * day, "A", 1);
    journal.add(0, "A", 1); // recorded later than what is older
    EXPECT_EQ(counts(), (PracticeDayCounts{2, 3, 4, 5}));
    EXPECT_EQ(counts("B"), (PracticeDayCounts{1, 1, 1, 1}));
}

TEST_F(ReportDataTest, TheAverageBeginsWithTheOldestPractice) {
    const auto average = [this](TimeRange range) {
        return averageMinutes(sessionsReports(journal.history(), range, journal.platform));
    };
    EXPECT_EQ(average(TimeRange::last7Days), 0);
    EXPECT_EQ(average(TimeRange::allMonths), 0);
    journal.add(3 * day, "A", 30);
    journal.add(3 * day, "B", 15);
    EXPECT_EQ(average(TimeRange::last7Days), 45.0 / 4);
    EXPECT_EQ(average(TimeRange::last12Months), 45);
    journal.add(6 * day, "C", 0);
    EXPECT_EQ(average(TimeRange::last7Days), 45.0 / 7) << "a session of no minute counts as one";
}

} // namespace
} // namespace tamsel
