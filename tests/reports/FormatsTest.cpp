#include "reports/Formats.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <csignal>
#include <limits>

namespace tamsel {
namespace {

class FormatsTest : public testing::Test {
protected:
    // The texts are asked for in one language, whatever this machine's is. Formatters are made once, so it stays.
    static void SetUpTestSuite() {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(icu::Locale::getUS(), status);
    }
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
    };
    for (const Case& test : {Case{0, "0m", "0 seconds"}, Case{59, "0m", "59 seconds"}, Case{60, "1m", "1 minute"},
                             Case{123, "2m", "2 minutes, 3 seconds"}, Case{3600, "1h", "1 hour"},
                             Case{3900, "1h 5m", "1 hour, 5 minutes"}, Case{90001, "25h", "25 hours, 1 second"}}) {
        EXPECT_EQ(abbreviatedHoursAndMinutes(test.seconds), QLatin1String(test.abbreviated)) << test.seconds;
        EXPECT_EQ(spokenDuration(test.seconds), QLatin1String(test.spoken)) << test.seconds;
    }
}

TEST_F(FormatsTest, TheLongDayTitleHasTheYearOfItsWeek) {
    const Calendar utc(QStringLiteral("UTC"));
    const Calendar tokyo(QStringLiteral("Asia/Tokyo"));
    EXPECT_EQ(longDayTitle(Date::fromUnixSeconds(1710417600), utc), QStringLiteral("Mar 14 2024"));
    EXPECT_EQ(longDayTitle(Date::fromUnixSeconds(1710432000), utc), QStringLiteral("Mar 14 2024"));
    EXPECT_EQ(longDayTitle(Date::fromUnixSeconds(1710432000), tokyo), QStringLiteral("Mar 15 2024"));
    // Tuesday, 31 December 2024: in the United States its week, from Sunday on, is the first of 2025.
    EXPECT_EQ(longDayTitle(Date::fromUnixSeconds(1735646400), utc), QStringLiteral("Dec 31 2025"));
}

} // namespace
} // namespace tamsel
