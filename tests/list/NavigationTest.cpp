#include "list/DeviceShakeViewModifier.h"
#include "list/PracticeNavigationStackViewModel.h"
#include "list/TabViewModel.h"
#include "model/SettingsKeys.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "tests/support/World.h"

#include <QPointer>
#include <QSet>

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

TEST_F(NavigationTest, DestinationsAreToldApartByEveryField) {
    const PracticeSession session{Date{100}, a, 60, SessionType::timer};
    const auto with = [&](auto change) {
        PracticeSession other = session;
        change(other);
        return destinations::FromPracticeList{a, other};
    };
    const QList<destinations::FromPracticeList> all = {
        {a, std::nullopt},
        {b, std::nullopt},
        {{a.name, b.id}, std::nullopt},
        {{b.name, a.id}, std::nullopt},
        {a, session},
        {b, session},
        with([](PracticeSession& other) { other.date = Date{101}; }),
        with([&](PracticeSession& other) { other.exercise.name = b.name; }),
        with([&](PracticeSession& other) { other.exercise.id = b.id; }),
        with([](PracticeSession& other) { other.seconds = 61; }),
        with([](PracticeSession& other) { other.type = SessionType::stopwatch; }),
    };
    for (qsizetype i = 0; i < all.size(); ++i) {
        for (qsizetype j = 0; j < all.size(); ++j) {
            EXPECT_EQ(all.at(i) == all.at(j), i == j) << i << ' ' << j;
            EXPECT_EQ(qHash(all.at(i)) == qHash(all.at(j)), i == j) << i << ' ' << j;
        }
    }
    const QSet<destinations::FromPracticeView> fromPractice = {
        destinations::FromPracticeView::history(a), destinations::FromPracticeView::notes(a),
        destinations::FromPracticeView::notes(b), destinations::FromPracticeView::notes(a)};
    EXPECT_EQ(fromPractice.size(), 3);
}

TEST_F(NavigationTest, AStackKeepsWhatLiesBelow) {
    NavigationStackViewModel stack;
    QStringList changes;
    QObject::connect(&stack, &NavigationStackViewModel::topChanged,
                     [&] { changes += QStringLiteral("top at %1").arg(stack.depth()); });
    QObject::connect(&stack, &NavigationStackViewModel::rowsInserted,
                     [&](const QModelIndex&, int row) { changes += QStringLiteral("+%1").arg(row); });
    QObject::connect(&stack, &NavigationStackViewModel::rowsRemoved,
                     [&](const QModelIndex&, int row) { changes += QStringLiteral("-%1").arg(row); });
    const auto screen = [](const QString& file) {
        return StackedScreen{file, QStringLiteral("model"), std::make_unique<QObject>()};
    };
    stack.pop();
    EXPECT_EQ(changes, QStringList());
    stack.push(screen(QStringLiteral("A")));
    stack.push(screen(QStringLiteral("B")));
    const QPointer<QObject> below = stack.screenModel(0);
    const QPointer<QObject> top = stack.screenModel(1);
    EXPECT_EQ(stack.index(1).data(NavigationStackViewModel::FileRole), QStringLiteral("B"));
    EXPECT_EQ(stack.index(1).data(NavigationStackViewModel::ScreenModelRole).value<QObject*>(), top);
    stack.pop();
    EXPECT_EQ(stack.screenModel(0), below);
    EXPECT_TRUE(top) << "the window may still be drawing it";
    stack.replaceAll(screen(QStringLiteral("C")));
    EXPECT_FALSE(top);
    EXPECT_TRUE(below);
    EXPECT_EQ(stack.index(0).data(NavigationStackViewModel::FileRole), QStringLiteral("C"));
    EXPECT_EQ(changes.join(QLatin1Char(' ')).toStdString(), "+0 top at 1 +1 top at 2 -1 top at 1 +1 -0 top at 1")
        << "the tab's first screen was never uncovered";
}

TEST_F(NavigationTest, BackClosesNotesAndHistoryBeforeItEndsThePractice) {
    singletons().exercises.setItems({a, b});
    PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
    stack.push(destinations::FromPracticeView::notes(a));
    EXPECT_EQ(stack.depth(), 0) << "there is no practice screen to open them over";
    stack.push(destinations::FromPracticeList{a, std::nullopt});
    PracticeViewModel& practice = *stack.practiceViewModel();
    practice.startTimer(5);
    stack.push(destinations::FromPracticeView::notes(b));
    EXPECT_FALSE(practice.isShowingNotes()) << "of another item";
    for (const bool notes : {true, false}) {
        stack.push(notes ? destinations::FromPracticeView::notes(a) : destinations::FromPracticeView::history(a));
        EXPECT_EQ(practice.isShowingNotes(), notes);
        EXPECT_EQ(practice.isShowingHistory(), !notes);
        stack.back();
        EXPECT_FALSE(practice.isShowingNotes() || practice.isShowingHistory());
        EXPECT_TRUE(practice.timerIsRunning());
    }
    stack.back();
    EXPECT_EQ(stack.depth(), 0);
    stack.back();
}

TEST_F(NavigationTest, TheItemsOwnHistoryLeadsToItsDaysAndBack) {
    singletons().exercises.setItems({a, b});
    PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
    stack.push(destinations::FromPracticeList{a, std::nullopt});
    stack.push(destinations::FromPracticeView::history(a));
    auto* const detail = qobject_cast<PracticeTimeDetailViewModel*>(stack.screenModel(1));
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->exerciseName(), a.name);
    detail->openRow(0);
    ASSERT_EQ(stack.depth(), 3);
    stack.back();
    EXPECT_EQ(stack.screenModel(1), detail);
    EXPECT_TRUE(stack.practiceViewModel()->isShowingHistory());
    stack.back();
    EXPECT_EQ(stack.depth(), 1);
    EXPECT_FALSE(stack.practiceViewModel()->isShowingHistory());
}

TEST_F(NavigationTest, APracticeGoesOnBehindTheOtherTabs) {
    singletons().exercises.setItems({a});
    TabViewModel tabs(singletons(), world.platform, coordinator);
    PracticeViewModel* const practice = tabs.practiceNavigationStack()->practiceViewModel();
    practice->startTimer(5);
    practice->metronomeViewModel()->setIsPlaying(true);
    for (const int tab : {1, 2, 0}) {
        tabs.setSelectedTabIndex(tab);
        world.mainQueue.advance(20s);
    }
    EXPECT_EQ(tabs.practiceNavigationStack()->practiceViewModel(), practice);
    EXPECT_EQ(practice->timerSecondsRemaining(), 240);
    EXPECT_TRUE(practice->timerIsRunning());
    EXPECT_TRUE(practice->metronomeViewModel()->isPlaying());
    EXPECT_TRUE(singletons().dailyLog.practiceSessions().isEmpty()) << "nothing was ended";
}

TEST_F(NavigationTest, AShakeCallsTheActionOnceOnTheMainQueue) {
    int calls = 0;
    std::optional<DeviceShakeViewModifier> modifier(std::in_place, &world.shakes, world.mainQueue, [&] { ++calls; });
    const DeviceShakeViewModifier nowhere(nullptr, world.mainQueue, [&] { ++calls; });
    world.shakes.shake();
    EXPECT_EQ(calls, 0) << "on a turn of its own";
    world.mainQueue.runDue();
    EXPECT_EQ(calls, 1);
    world.shakes.shake();
    world.shakes.shake();
    world.mainQueue.runDue();
    EXPECT_EQ(calls, 3);
    world.shakes.shake();
    modifier.reset();
    world.mainQueue.runDue();
    world.shakes.shake();
    world.mainQueue.runDue();
    EXPECT_EQ(calls, 3);
}

TEST_F(NavigationTest, GoingBackOrOnSavesWhatRuns) {
    singletons().exercises.setItems({a, b});
    PracticeNavigationStackViewModel stack(singletons(), world.platform, coordinator);
    stack.push(destinations::FromPracticeList{a, std::nullopt});
    stack.practiceViewModel()->startTimer(5);
    world.mainQueue.advance(90s);
    stack.pop();
    EXPECT_EQ(stack.practiceViewModel(), nullptr);
    ASSERT_EQ(singletons().dailyLog.practiceSessions().size(), 1);
    EXPECT_EQ(singletons().dailyLog.practiceSessions().first().seconds, 90);
    stack.pop();

    stack.push(destinations::FromPracticeList{a, std::nullopt});
    stack.practiceViewModel()->startStopwatch();
    world.mainQueue.advance(30s);
    stack.push(destinations::FromPracticeList{b, std::nullopt});
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
    stack.push(destinations::FromPracticeList{a, std::nullopt});
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
