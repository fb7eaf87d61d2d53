#include "list/PracticeNavigationStackViewModel.h"
#include "list/TabViewModel.h"
#include "model/SettingsKeys.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class NavigationTest : public testing::Test {
protected:
    Singletons& singletons() { return *world.singletons; }

    test::World world;
    const Exercise a{QStringLiteral("A"), test::SequentialUuids::numbered(101)};
    const Exercise b{QStringLiteral("B"), test::SequentialUuids::numbered(102)};
    const Coordinator coordinator{*world.singletons, world.platform, 1};
};

TEST_F(NavigationTest, OneItemAtLaunchOpensAtOnce) {
    for (const qsizetype count : {0, 1, 2}) {
        singletons().exercises.setItems(QList<Exercise>{a, b}.first(count));
        PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
        EXPECT_EQ(stack.practiceViewToShowOnAppLaunch().has_value(), count == 1) << count;
        EXPECT_EQ(stack.practiceViewModel() != nullptr, count == 1) << count;
    }
}

TEST_F(NavigationTest, GoingBackOrOnSavesWhatRuns) {
    singletons().exercises.setItems({a, b});
    PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
    stack.push({a, std::nullopt});
    stack.practiceViewModel()->startTimer(5);
    world.mainQueue.advance(90s);
    stack.pop();
    EXPECT_EQ(stack.practiceViewModel(), nullptr);
    ASSERT_EQ(singletons().dailyLog.practiceSessions().size(), 1);
    EXPECT_EQ(singletons().dailyLog.practiceSessions().first().seconds, 90);
    stack.pop();

    stack.push({a, std::nullopt});
    stack.practiceViewModel()->startStopwatch();
    world.mainQueue.advance(30s);
    stack.push({b, std::nullopt});
    EXPECT_EQ(stack.practiceViewModel()->exercise(), b);
    ASSERT_EQ(singletons().dailyLog.practiceSessions().size(), 2);

    stack.practiceViewModel()->startStopwatch();
    world.mainQueue.advance(30s);
    stack.leave();
    EXPECT_EQ(singletons().dailyLog.practiceSessions().size(), 3);
}

TEST_F(NavigationTest, TheMetronomePlaysOnUnderTheScreenThatIsOnTop) {
    singletons().exercises.setItems({a, b});
    PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
    MetronomeViewModel& compact = *stack.practiceList()->metronomeViewModel();
    stack.practiceList()->onAppear();
    compact.setIsPlaying(true);
    for (int click = 0; click < 3 && !compact.isVisualBellOn(); ++click) {
        world.output.render(22050);
        world.output.settle();
        world.mainQueue.runDue();
    }
    EXPECT_TRUE(compact.isVisualBellOn());
    stack.push({a, std::nullopt});
    MetronomeViewModel& full = *stack.practiceViewModel()->metronomeViewModel();
    EXPECT_TRUE(full.isPlaying());
    const auto playOn = [this] {
        world.output.render(3 * 44100);
        world.output.settle();
        world.mainQueue.runDue();
    };
    playOn(); // with the clicks that had been queued for the list
    int compactBells = 0;
    int fullBells = 0;
    QObject::connect(&compact, &MetronomeViewModel::isVisualBellOnChanged, [&] { ++compactBells; });
    QObject::connect(&full, &MetronomeViewModel::isVisualBellOnChanged, [&] { ++fullBells; });
    playOn();
    EXPECT_EQ(compactBells, 0) << "only one of them hears the clicks";
    EXPECT_EQ(fullBells, 3) << "one a second, at the item's 60 beats per minute";
    full.setIsPlaying(false);
    stack.pop();
    stack.practiceList()->onAppear();
    EXPECT_FALSE(compact.isPlaying());
    EXPECT_FALSE(compact.isVisualBellOn()) << "it was stopped under the other screen and must not stay lit";
    EXPECT_EQ(compact.tempo(), 60) << "the tempo that the practice screen left";
}

TEST_F(NavigationTest, OnlyReadersOfAnEarlierMessageSeeTheBadge) {
    struct Case {
        bool thanks;
        bool july;
        bool august;
        bool badge;
    };
    for (const Case& test :
         {Case{false, false, false, false}, Case{false, false, true, false}, Case{true, false, false, true},
          Case{false, true, false, true}, Case{true, true, false, true}, Case{true, false, true, false},
          Case{false, true, true, false}}) {
        world.store.setBoolean(keys::hasReadThanksMessage, test.thanks);
        world.store.setBoolean(keys::hasReadJul15Message, test.july);
        world.store.setBoolean(keys::hasReadThanksMessageAug5, test.august);
        const TabViewModel tabs(singletons(), world.platform, coordinator);
        EXPECT_EQ(tabs.showUnreadVariantOfThanksTabItem(), test.badge);
    }
}

TEST_F(NavigationTest, SelectingTheThanksTabRemovesTheBadgeForGood) {
    world.store.setBoolean(keys::hasReadJul15Message, true);
    TabViewModel tabs(singletons(), world.platform, coordinator);
    EXPECT_EQ(tabs.selectedTabIndex(), 0);
    EXPECT_EQ(tabs.thanksTabItem(),
              (TabItem{QStringLiteral("thanks_tab"), QStringLiteral("sparkles"), QStringLiteral("New!")}));
    tabs.setSelectedTabIndex(1);
    EXPECT_TRUE(tabs.showUnreadVariantOfThanksTabItem());
    EXPECT_FALSE(world.store.boolean(keys::hasReadThanksMessage));
    tabs.setSelectedTabIndex(2);
    EXPECT_EQ(tabs.thanksTabItem(),
              (TabItem{QStringLiteral("thanks_tab"), QStringLiteral("heart"), QStringLiteral("Thanks")}));
    EXPECT_TRUE(world.store.boolean(keys::hasReadThanksMessage));
    EXPECT_TRUE(world.store.boolean(keys::hasReadThanksMessageAug5));
    EXPECT_FALSE(TabViewModel(singletons(), world.platform, coordinator).showUnreadVariantOfThanksTabItem());

    world.store.setBoolean(keys::hasReadThanksMessageAug5, false);
    TabViewModel again(singletons(), world.platform, coordinator);
    ASSERT_TRUE(again.showUnreadVariantOfThanksTabItem());
    again.setShowUnreadVariantOfThanksTabItem(false);
    EXPECT_TRUE(world.store.boolean(keys::hasReadThanksMessageAug5)) << "clearing the flag marks as well";
}

} // namespace
} // namespace tamsel
