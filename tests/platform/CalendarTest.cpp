#include "platform/Calendar.h"

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <string>

namespace tamsel {
namespace {

// Unix seconds, from Python's zoneinfo on the zone database (for the year 33658 from GNU date): the day's local date
// was taken from the moment, and its first second, that of the next date and that of the month's first date were
// searched for second by second.
struct Case {
    const char* what;
    const char* zone;
    double moment;
    double startOfDay;
    double startOfNextDay;
    double startOfMonth;
};

class CalendarTest : public testing::TestWithParam<Case> {};

TEST_P(CalendarTest, DaysAndMonthsBeginWhereTheZoneSays) {
    const Case& test = GetParam();
    const Calendar calendar(QString::fromLatin1(test.zone));
    const Date moment = Date::fromUnixSeconds(test.moment);
    EXPECT_EQ(calendar.startOfDay(moment).unixSeconds(), test.startOfDay);
    EXPECT_EQ(calendar.startOfNextDay(moment).unixSeconds(), test.startOfNextDay);
    EXPECT_EQ(calendar.startOfMonth(moment).unixSeconds(), test.startOfMonth);
    EXPECT_TRUE(calendar.sameDay(Date::fromUnixSeconds(test.startOfDay), moment));
    EXPECT_FALSE(calendar.sameDay(Date::fromUnixSeconds(test.startOfDay - 1), moment));
    EXPECT_FALSE(calendar.sameDay(Date::fromUnixSeconds(test.startOfNextDay), moment));
    EXPECT_LT(calendar.monthNumber(Date::fromUnixSeconds(test.startOfMonth - 1)), calendar.monthNumber(moment));
}

INSTANTIATE_TEST_SUITE_P(
    Zones, CalendarTest,
    testing::Values(
        Case{"plain day", "UTC", 1710417600, 1710374400, 1710460800, 1709251200},
        Case{"with a fraction of a second", "UTC", 1710374400.25, 1710374400, 1710460800, 1709251200},
        Case{"one second before midnight", "UTC", 1710374399, 1710288000, 1710374400, 1709251200},
        Case{"23 hours, clocks go forward at 02:00", "Europe/Berlin", 1711879200, 1711839600, 1711922400, 1709247600},
        Case{"25 hours, clocks go back at 03:00", "Europe/Berlin", 1730026800, 1729980000, 1730070000, 1727733600},
        Case{"23 hours in the southern spring", "Australia/Sydney", 1728136800, 1728136800, 1728219600, 1727704800},
        Case{"25 hours in the southern autumn", "Australia/Sydney", 1712430000, 1712408400, 1712498400, 1711890000},
        Case{"half an hour forward", "Australia/Lord_Howe", 1728136800, 1728135000, 1728219600, 1727703000},
        Case{"half an hour back", "Australia/Lord_Howe", 1712430000, 1712408400, 1712496600, 1711890000},
        Case{"midnight skipped in Sao Paulo, the day starts at 01:00", "America/Sao_Paulo", 1541343600, 1541300400,
             1541383200, 1541041200},
        Case{"midnight skipped in Santiago", "America/Santiago", 1725768000, 1725768000, 1725850800, 1725163200},
        Case{"clocks go back at midnight, 23:00 comes twice", "America/Santiago", 1712458800, 1712372400, 1712462400,
             1711940400},
        Case{"midnight skipped in Beirut", "Asia/Beirut", 1711836000, 1711836000, 1711918800, 1709244000},
        Case{"midnight comes twice", "America/Havana", 1730610000, 1730606400, 1730696400, 1730433600},
        Case{"half-hour zone", "Asia/Kolkata", 1710417600, 1710354600, 1710441000, 1709231400},
        Case{"quarter-hour zone", "Asia/Kathmandu", 1710417600, 1710353700, 1710440100, 1709230500},
        Case{"quarter-hour zone with daylight saving", "Pacific/Chatham", 1727531000, 1727522100, 1727604900,
             1725102900},
        Case{"offset changed for good, half an hour forward", "Asia/Pyongyang", 1525446000, 1525446000, 1525532400,
             1525102200},
        Case{"offset changed for good, half an hour back", "Asia/Pyongyang", 1439600000, 1439566200, 1439652600,
             1438354800},
        Case{"offset changed for good in the night", "America/Caracas", 1462095000, 1462077000, 1462161600, 1462077000},
        Case{"daylight saving given up lately", "America/Mexico_City", 1784093400, 1784008800, 1784095200, 1782885600},
        Case{"daylight saving taken up again lately", "Africa/Cairo", 1784064600, 1784062800, 1784149200, 1782853200},
        Case{"offset changed for good lately", "Asia/Almaty", 1768415400, 1768330800, 1768417200, 1767207600},
        Case{"offset with seconds", "Africa/Monrovia", 63590000, 63506670, 63593070, 63074670},
        Case{"first 44 minutes and 30 seconds of a day skipped", "Africa/Monrovia", 63593070, 63593070, 63676800,
             63074670},
        Case{"the next day skipped", "Pacific/Apia", 1325230000, 1325152800, 1325239200, 1322733600},
        Case{"the day before skipped", "Pacific/Apia", 1325239200, 1325239200, 1325325600, 1322733600},
        Case{"before the first moment told in seconds", "UTC", -2208988800, -2208988800, -2208902400, -2208988800},
        Case{"the year 1", "UTC", -62130000000, -62130067200, -62129980800, -62130499200},
        Case{"rules that last, north", "America/New_York", 16742000000, 16741915200, 16742001600, 16740878400},
        Case{"rules that last, south", "Australia/Sydney", 16750000000, 16749982800, 16750069200, 16748776800},
        Case{"beyond what the database lists", "Europe/Berlin", 2382561000, 2382559200, 2382645600, 2382472800},
        Case{"beyond the table", "Europe/Berlin", 2855946600, 2855944800, 2856031200, 2855858400},
        Case{"just beyond the century", "Europe/Berlin", 4120000000, 4119976800, 4120063200, 4118076000},
        Case{"the year 33658", "America/New_York", 1000000000000, 999999921600, 1000000008000, 999997761600}),
    [](const auto& instance) {
        std::string name;
        for (const char c : std::string(instance.param.what))
            name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
        return name;
    });

TEST(Calendar, TheOrderOfTheQuestionsDoesNotMatter) {
    // What was found for one moment must not be taken for another: every day of three years, forwards, backwards and in
    // leaps, counted by a calendar that was asked for nothing before.
    const Calendar calendar(QStringLiteral("Europe/Berlin"));
    constexpr double noon = 1640000000;
    constexpr int days = 1100;
    for (const int step : {1, days - 1, 397}) {
        for (int i = 0, at = 0; i < days; ++i, at = (at + step) % days) {
            const Date moment = Date::fromUnixSeconds(noon + 86400.0 * at);
            ASSERT_EQ(calendar.dayNumber(moment), Calendar(QStringLiteral("Europe/Berlin")).dayNumber(moment)) << at;
        }
    }
}

TEST(Calendar, MonthsAreAddedWithoutWrapping) {
    struct Sum {
        const char* zone;
        double moment;
        qint64 months;
        double expected;
    };
    // From GNU date.
    for (const Sum& test : {Sum{"Europe/Berlin", 1711879200, -1, 1709204400},  // March 31 to February 29
                            Sum{"Europe/Berlin", 1711879200, -13, 1677582000}, // February 28
                            Sum{"Europe/Berlin", 1711879200, 7, 1730372400},   // October 31, other offset
                            Sum{"Europe/Berlin", 1711879200, 1, 1714471200},   // April 30
                            Sum{"Europe/Berlin", 1711879200, -3, 1704020400},  // over the New Year
                            Sum{"Europe/Berlin", 1706664600, 2, 1711846800},   // 02:30 is skipped: 03:00
                            Sum{"UTC", 1709208000, 0, 1709208000}}) {
        const Calendar calendar(QString::fromLatin1(test.zone));
        const auto sum = calendar.addingMonths(Date::fromUnixSeconds(test.moment), test.months);
        ASSERT_TRUE(sum);
        EXPECT_EQ(sum->unixSeconds(), test.expected) << test.months;
    }
}

TEST(Calendar, TheFarEndsOfDatesStandStill) {
    const Calendar calendar(QStringLiteral("America/New_York"));
    for (const double far : {1e14, 1e300, std::numeric_limits<double>::infinity()}) {
        const Date future{far};
        EXPECT_EQ(calendar.dayNumber(future), calendar.dayNumber(Date{1e13}));
        EXPECT_EQ(calendar.dayNumber(Date{-far}), calendar.dayNumber(Date{-1e13}));
        EXPECT_GT(calendar.startOfNextDay(future), calendar.startOfMonth(future));
    }
    EXPECT_FALSE(calendar.addingMonths({0}, 1'000'000'000));
    EXPECT_FALSE(calendar.addingMonths({0}, std::numeric_limits<qint64>::min()));
}

TEST(Calendar, UnknownZoneCountsAsUtc) {
    const Calendar calendar(QStringLiteral("Nowhere/Atall"));
    EXPECT_EQ(calendar.startOfDay(Date::fromUnixSeconds(1710417600)).unixSeconds(), 1710374400);
}

} // namespace
} // namespace tamsel
