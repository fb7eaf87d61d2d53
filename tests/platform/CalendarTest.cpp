#include "platform/Calendar.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace tamsel {
namespace {

struct Case {
    const char* what;
    const char* zone;
    // Unix seconds, worked out with the system's date command (GNU date and the zone database).
    double moment;
    double startOfDay;
    double startOfNextDay;
};

class CalendarTest : public testing::TestWithParam<Case> {};

TEST_P(CalendarTest, DaysBeginAndEndWhereTheZoneSays) {
    const Case& test = GetParam();
    const Calendar calendar(QString::fromLatin1(test.zone));
    const Date moment = Date::fromUnixSeconds(test.moment);
    EXPECT_EQ(calendar.startOfDay(moment).unixSeconds(), test.startOfDay);
    EXPECT_EQ(calendar.startOfNextDay(moment).unixSeconds(), test.startOfNextDay);
    EXPECT_TRUE(calendar.sameDay(Date::fromUnixSeconds(test.startOfDay), moment));
    EXPECT_FALSE(calendar.sameDay(Date::fromUnixSeconds(test.startOfDay - 1), moment));
    EXPECT_FALSE(calendar.sameDay(Date::fromUnixSeconds(test.startOfNextDay), moment));
}

INSTANTIATE_TEST_SUITE_P(
    Zones, CalendarTest,
    testing::Values(Case{"plain day", "UTC", 1710417600, 1710374400, 1710460800},
                    Case{"with a fraction of a second", "UTC", 1710374400.25, 1710374400, 1710460800},
                    Case{"23 hours: clocks go forward at 02:00", "Europe/Berlin", 1711879200, 1711839600, 1711922400},
                    Case{"25 hours: clocks go back at 03:00", "Europe/Berlin", 1730026800, 1729980000, 1730070000},
                    Case{"midnight skipped, the day starts at 01:00", "America/Sao_Paulo", 1541343600, 1541300400,
                         1541383200},
                    Case{"quarter-hour zone", "Asia/Kathmandu", 1710417600, 1710353700, 1710440100},
                    Case{"the next day skipped", "Pacific/Apia", 1325230000, 1325152800, 1325239200},
                    Case{"far past", "UTC", -2208988800, -2208988800, -2208902400}),
    [](const auto& instance) {
        std::string name;
        for (const char c : std::string(instance.param.what))
            name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
        return name;
    });

TEST(Calendar, UnknownZoneCountsAsUtc) {
    const Calendar calendar(QStringLiteral("Nowhere/Atall"));
    EXPECT_EQ(calendar.startOfDay(Date::fromUnixSeconds(1710417600)).unixSeconds(), 1710374400);
}

} // namespace
} // namespace tamsel
