#include "app/SettingsStoreChoice.h"

#include "tests/support/FakeClock.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

TEST(SettingsStoreChoice, TheStandardSuiteLiesInTheDataFolder) {
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    const test::FakeClock clock;
    const auto choice =
        chooseSettingsStore(LaunchConditions::from({QStringLiteral("tamsel"), QStringLiteral("ui_testing")}), clock);
    EXPECT_FALSE(choice.isTest);
    EXPECT_EQ(choice.folder, data.path() + QStringLiteral("/tamsel"));
    EXPECT_EQ(choice.suite, QStringLiteral("standard"));
    qunsetenv("XDG_DATA_HOME");
}

TEST(SettingsStoreChoice, EachTestLaunchGetsAFreshSuite) {
    test::FakeClock clock(Date::fromUnixSeconds(1731700000.125));
    const auto launch = LaunchConditions::from({QStringLiteral("tamsel"), QStringLiteral("UI_TESTING")});
    const auto first = chooseSettingsStore(launch, clock);
    const auto second = chooseSettingsStore(launch, clock);
    EXPECT_TRUE(first.isTest);
    EXPECT_EQ(first.suite, QStringLiteral("UITests_1731700000.125"));
    EXPECT_NE(first.folder, second.folder) << "even at the same moment";
    EXPECT_FALSE(first.folder.startsWith(standardDataFolder()));
    for (const auto& choice : {first, second})
        QDir(choice.folder).removeRecursively();
}

} // namespace
} // namespace tamsel
