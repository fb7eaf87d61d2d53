#include "reports/TimeRange.h"

#include "model/MemorySettingsStore.h"
#include "model/SettingsKeys.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

TEST(TimeRange, FourAreOfferedInTheirOrder) {
    QStringList labels;
    for (const TimeRange range : offeredTimeRanges())
        labels += label(range);
    EXPECT_EQ(labels.join(QStringLiteral(", ")), QStringLiteral("7 days, 30 days, 12 months, All months"));
    EXPECT_EQ(label(TimeRange::last90Days), QStringLiteral("90 days"));
}

TEST(TimeRange, ThePreferenceIsABareNumberAndMustBeOnOffer) {
    MemorySettingsStore store;
    const test::LogCapture log;
    EXPECT_EQ(preferredTimeRange(store), std::nullopt);
    for (const TimeRange range : offeredTimeRanges()) {
        savePreferredTimeRange(store, range);
        EXPECT_EQ(preferredTimeRange(store), range);
    }
    EXPECT_EQ(store.data(keys::preferredTimeRange), QByteArray("0"));
    for (const char* const unusable : {"", "8", "-7", "7.5", "\"7\"", "seven"}) {
        store.setData(keys::preferredTimeRange, unusable);
        EXPECT_EQ(preferredTimeRange(store), std::nullopt) << unusable;
    }
    EXPECT_TRUE(log.lines().isEmpty());
    store.setData(keys::preferredTimeRange, "90");
    EXPECT_EQ(timeRangeOf(90), TimeRange::last90Days);
    EXPECT_EQ(preferredTimeRange(store), std::nullopt);
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("Unable to use saved timeRange, likely experimental")));
}

} // namespace
} // namespace tamsel
