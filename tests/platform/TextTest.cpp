#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/NumberText.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>

namespace tamsel {
namespace {

TEST(DecimalText, KeepsTheValueAndSaysThatItIsNotAWholeNumberType) {
    EXPECT_EQ(decimalText(120), QStringLiteral("120.0"));
    EXPECT_EQ(decimalText(-3), QStringLiteral("-3.0"));
    EXPECT_EQ(decimalText(0), QStringLiteral("0.0"));
    EXPECT_EQ(decimalText(100000), QStringLiteral("100000.0"));
    EXPECT_EQ(decimalText(1.7e9), QStringLiteral("1700000000.0"));
    EXPECT_EQ(decimalText(120.7), QStringLiteral("120.7"));
    EXPECT_EQ(decimalText(1731700000.123456), QStringLiteral("1731700000.123456"));
    EXPECT_EQ(decimalText(1e300).toDouble(), 1e300);
}

TEST(Checked, OverflowStopsTheProgram) {
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(checkedAdd(largest - 1, 1), largest);
    EXPECT_EQ(checkedTruncate(-2.9), -2);
    EXPECT_EQ(checkedTruncate(-9223372036854775808.0), std::numeric_limits<qint64>::min());
    EXPECT_EXIT(checkedAdd(largest, 1), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(checkedSubtract(-largest, 2), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(checkedMultiply(largest, 2), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(checkedTruncate(9223372036854775808.0), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(checkedTruncate(std::numeric_limits<double>::quiet_NaN()), testing::KilledBySignal(SIGABRT), "");
}

TEST(FatalError, TellsItsMessageAndStops) {
    EXPECT_EXIT(fatalError(QStringLiteral("No format")), testing::KilledBySignal(SIGABRT),
                "^Fatal error: No format\n$");
    EXPECT_EXIT(fatalError({}), testing::KilledBySignal(SIGABRT), "^Fatal error\n$");
}

TEST(Log, WritesWholeLinesInUtf8) {
    const test::LogCapture captured;
    log(u"unarchived exercise: Étude 🎻");
    log(u"ERROR");
    EXPECT_EQ(captured.lines(), QStringList({QStringLiteral("unarchived exercise: Étude 🎻"), QStringLiteral("ERROR")}));
}

} // namespace
} // namespace tamsel
