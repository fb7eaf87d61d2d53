#include "reports/Formats.h"

#include "tests/support/UsEnglish.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>

namespace tamsel {
namespace {

class FormatsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }
};

TEST_F(FormatsTest, ClockTimeTurnsToHoursOnlyAboveOneHour) {
    struct Case {
        double seconds;
        const char* text;
    };
    for (const Case& test : {Case{0, "00:00"}, Case{3, "00:03"}, Case{59.9, "00:59"}, Case{123, "02:03"},
                             Case{3599, "59:59"}, Case{3600, "60:00"}, Case{3601, "1:00:01"}, Case{3723, "1:02:03"},
                             Case{36000, "10:00:00"}, Case{360000, "100:00:00"}})
        EXPECT_EQ(formattedTimeInterval(test.seconds), QLatin1String(test.text)) << test.seconds;
    EXPECT_EXIT(formattedTimeInterval(std::numeric_limits<double>::infinity()), testing::KilledBySignal(SIGABRT),
                "Fatal error: Unable to parse time. timeInterval = inf");
}

TEST_F(FormatsTest, AbbreviatedAndSpokenDurations) {
    struct Case {
        qint64 seconds;
        const char* abbreviated;
        const char* spoken;
        const char* full;
    };
    for (const Case& test :
         {Case{0, "0m", "0 seconds", "0 minutes"}, Case{59, "0m", "59 seconds", "0 minutes"},
          Case{60, "1m", "1 minute", "1 minute"}, Case{123, "2m", "2 minutes, 3 seconds", "2 minutes"},
          Case{3600, "1h", "1 hour", "1 hour"}, Case{3900, "1h 5m", "1 hour, 5 minutes", "1 hour, 5 minutes"},
          Case{90001, "25h", "25 hours, 1 second", "25 hours"}}) {
        EXPECT_EQ(abbreviatedHoursAndMinutes(test.seconds), QLatin1String(test.abbreviated)) << test.seconds;
        EXPECT_EQ(spokenDuration(test.seconds), QLatin1String(test.spoken)) << test.seconds;
        EXPECT_EQ(fullHoursAndMinutes(test.seconds), QLatin1String(test.full)) << test.seconds;
    }
}

TEST_F(FormatsTest, TotalsOfPracticeTime) {
    struct Case {
        qint64 minutes;
        const char* text;
        const char* withDays;
    };
    for (const Case& test :
         {Case{0, "0m", "0m"}, Case{59, "59m", "59m"}, Case{60, "1h", "1h"}, Case{61, "1h 1m", "1h 1m"},
          Case{120, "2h", "2h"}, Case{1439, "23h 59m", "23h 59m"}, Case{1440, "24h", "1d 24h 0m"},
          Case{1500, "25h", "1d 25h 0m"}, Case{60061, "1001h 1m", "41d 1001h 1m"}}) {
        // In two events, as it is the sum that counts.
        const QList<HistoryEvent> events = {{{}, {}, test.minutes / 2, {}, {}, {}},
                                            {{}, {}, test.minutes - test.minutes / 2, {}, {}, {}}};
        EXPECT_EQ(totalPracticeTimeText(events), QLatin1String(test.text));
        EXPECT_EQ(totalPracticeTimeTextWithDays(events), QLatin1String(test.withDays));
    }
    EXPECT_EQ(totalPracticeTimeText({}), QStringLiteral("0m"));
    const HistoryEvent endless{{}, {}, std::numeric_limits<qint64>::max(), {}, {}, {}};
    EXPECT_EXIT(totalPracticeTimeText({endless, endless}), testing::KilledBySignal(SIGABRT), "");
}

TEST_F(FormatsTest, TitlesHaveTheYearOfTheirWeek) {
    const Calendar utc(QStringLiteral("UTC"));
    const Calendar tokyo(QStringLiteral("Asia/Tokyo"));
    const Calendar mexico(QStringLiteral("America/Mexico_City"));
    struct Case {
        double moment;
        const Calendar& calendar;
        const char* day;
        const char* month;
        const char* longDay;
        const char* shortDate;
        const char* spoken;
    };
    // In the United States a week begins on Sunday, and the one with January 1 is the first: December 31, 2024, a
    // Tuesday, lies in the first week of 2025, and January 1, 2022, a Saturday, ends a week of 2022.
    for (const Case& test :
         {Case{1710417600, utc, "03/14/24", "Mar 2024", "Mar 14 2024", "3/14/24", "March 14, 2024"},
          Case{1710432000, utc, "03/14/24", "Mar 2024", "Mar 14 2024", "3/14/24", "March 14, 2024"},
          Case{1710432000, tokyo, "03/15/24", "Mar 2024", "Mar 15 2024", "3/15/24", "March 15, 2024"},
          Case{1784093400, mexico, "07/14/26", "Jul 2026", "Jul 14 2026", "7/14/26",
               "July 14, 2026"}, // from Python's zoneinfo
          Case{1735646400, utc, "12/31/25", "Dec 2025", "Dec 31 2025", "12/31/24", "December 31, 2024"},
          Case{1640995200, utc, "01/01/22", "Jan 2022", "Jan 01 2022", "1/1/22", "January 1, 2022"},
          Case{-62130000000, utc, "03/06/01", "Mar 0001", "Mar 06 0001", "3/6/01", "March 6, 1"}}) {
        const Date date = Date::fromUnixSeconds(test.moment);
        EXPECT_EQ(dayTitle(date, test.calendar), QLatin1String(test.day));
        EXPECT_EQ(monthTitle(date, test.calendar), QLatin1String(test.month));
        EXPECT_EQ(longDayTitle(date, test.calendar), QLatin1String(test.longDay));
        EXPECT_EQ(shortDate(date, test.calendar), QLatin1String(test.shortDate));
        EXPECT_EQ(fullDay(date, test.calendar), QLatin1String(test.spoken));
    }
}

} // namespace
} // namespace tamsel
