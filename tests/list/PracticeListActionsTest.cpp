#include "list/PracticeListViewModel.h"
#include "model/SettingsKeys.h"
#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using Section = PracticeListViewModel::Section;

class PracticeListActionsTest : public testing::Test {
protected:
    PracticeListActionsTest() {
        singletons().exercises.setItems({a, b, c});
        list.emplace(singletons(), world.platform);
        list->onAppear();
    }

    Singletons& singletons() { return *world.singletons; }
    const QList<Exercise>& items() { return singletons().exercises.items(); }
    const QList<Exercise>& archived() { return singletons().exercises.archivedItems(); }
    void practise(const Exercise& exercise, qint64 seconds) {
        singletons().history.record(*PracticeSession::make(world.clock.now(), exercise, seconds, SessionType::timer));
        world.mainQueue.runDue();
    }
    int reloadsLogged() {
        return static_cast<int>(
            console.lines().count(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData")));
    }

    const test::LogCapture console;
    test::World world;
    const Exercise a{QStringLiteral("A"), test::SequentialUuids::numbered(101)};
    const Exercise b{QStringLiteral("B"), test::SequentialUuids::numbered(102)};
    const Exercise c{QStringLiteral("C"), test::SequentialUuids::numbered(103)};
    std::optional<PracticeListViewModel> list;
};

TEST_F(PracticeListActionsTest, ArchivingFromTheItems) {
    list->act(Section::Exercises, 1, 0);
    EXPECT_EQ(items(), (QList<Exercise>{a, c}));
    EXPECT_EQ(archived(), QList<Exercise>{b});
    EXPECT_EQ(list->notice()->text(), QStringLiteral("Archived “B”"));
    world.mainQueue.runDue();
    EXPECT_EQ(list->archivedItemsCount(), 1);
    EXPECT_EQ(list->exerciseRows()->count(), 2);
    list->act(Section::Exercises, 2, 0);
    list->act(Section::Exercises, -1, 0);
    list->act(Section::Exercises, 0, 1);
    EXPECT_EQ(items().size(), 2) << "no such row, no such action";
}

TEST_F(PracticeListActionsTest, ArchivingFromTheLogClearsTheItemsWholeDay) {
    practise(b, 60);
    practise(a, 30);
    practise(b, 90);
    ASSERT_EQ(list->dailyLogRows()->count(), 3);
    list->act(Section::DailyLog, 0, 0);
    EXPECT_EQ(archived(), QList<Exercise>{b});
    EXPECT_EQ(singletons().dailyLog.practiceSessions().size(), 3) << "on a later turn of the main queue";
    const int before = reloadsLogged();
    world.mainQueue.runDue();
    ASSERT_EQ(singletons().dailyLog.practiceSessions().size(), 1);
    EXPECT_EQ(singletons().dailyLog.practiceSessions().first().exercise, a);
    EXPECT_EQ(reloadsLogged(), before + 1);
    EXPECT_EQ(singletons().history.events().size(), 2) << "the history stays";
}

TEST_F(PracticeListActionsTest, UnarchivingPutsTheItemInFront) {
    list->archive(b);
    world.mainQueue.runDue();
    list->act(Section::Archive, 0, 0);
    EXPECT_EQ(items(), (QList<Exercise>{b, a, c}));
    EXPECT_TRUE(archived().isEmpty());
    EXPECT_TRUE(console.lines().contains(QStringLiteral("unarchived exercise: B")));
    world.mainQueue.runDue();
    EXPECT_EQ(list->archivedItemsCount(), 0);

    list->unarchive(c);
    EXPECT_EQ(items(), (QList<Exercise>{b, a, c})) << "it was not in the archive";
    EXPECT_TRUE(console.lines().contains(QStringLiteral("unarchived exercise: C")));
}

TEST_F(PracticeListActionsTest, DeletingRemovesTheOldestKeysAndNothingElse) {
    practise(b, 60);
    list->archive(b);
    world.mainQueue.runDue();
    const QString legacy = keys::uuidText(b.id) + keys::legacy::tempo;
    world.store.setInteger(legacy, 80);
    world.store.setData(keys::settings(b.id), "{}");
    world.store.setData(keys::notes(b), "[]");
    list->act(Section::Archive, 0, 1);
    EXPECT_TRUE(archived().isEmpty());
    EXPECT_TRUE(console.lines().contains(QStringLiteral("deleted archived exercise: B")));
    EXPECT_FALSE(world.store.value(legacy));
    EXPECT_TRUE(world.store.value(keys::settings(b.id)));
    EXPECT_TRUE(world.store.value(keys::notes(b)));
    EXPECT_EQ(singletons().history.events().size(), 1);

    list->deleteArchived(a);
    EXPECT_TRUE(items().contains(a)) << "only what is archived is deleted";
    EXPECT_TRUE(console.lines().contains(QStringLiteral("deleted archived exercise: A")));
    EXPECT_EQ(list->notice()->text(), QString());
}

TEST_F(PracticeListActionsTest, UndoBringsBackExactlyWhatWas) {
    practise(b, 60);
    practise(a, 30);
    practise(b, 90);
    const QList<PracticeSession> log = singletons().dailyLog.practiceSessions();
    list->act(Section::DailyLog, 2, 0);
    world.mainQueue.runDue();
    list->undo();
    world.mainQueue.runDue();
    EXPECT_EQ(items(), (QList<Exercise>{a, b, c}));
    EXPECT_TRUE(archived().isEmpty());
    EXPECT_EQ(singletons().dailyLog.practiceSessions(), log);
    EXPECT_EQ(list->dailyLogRows()->count(), 3);
    EXPECT_EQ(list->notice()->text(), QString());

    for (const Exercise& each : {a, b, c})
        list->archive(each);
    list->deleteArchived(b);
    EXPECT_EQ(list->notice()->text(), QStringLiteral("Deleted “B”"));
    list->undo();
    EXPECT_EQ(archived(), (QList<Exercise>{a, b, c}));
    list->undo();
    EXPECT_EQ(archived(), (QList<Exercise>{a, b, c})) << "only the last one";
}

TEST_F(PracticeListActionsTest, UndoKeepsWhatHappenedMeanwhile) {
    list->archive(b);
    singletons().exercises.rename(b, QStringLiteral("B flat"));
    list->undo();
    EXPECT_EQ(items().at(1).name, QStringLiteral("B flat"));
    list->archive(a);
    list->unarchive(c);
    EXPECT_EQ(list->notice()->text(), QStringLiteral("Archived “A”"));
    list->unarchive(a);
    EXPECT_EQ(list->notice()->text(), QString());
    list->undo();
    EXPECT_EQ(items().count(a), 1) << "it had come back by hand";
    EXPECT_TRUE(archived().isEmpty());
}

TEST_F(PracticeListActionsTest, UndoIsOfferedForSomeSecondsAndForTheLastRemoval) {
    list->archive(a);
    world.mainQueue.advance(TimedNotice::undoTime - 1s);
    list->archive(b);
    world.mainQueue.advance(TimedNotice::undoTime - 1s);
    EXPECT_EQ(list->notice()->text(), QStringLiteral("Archived “B”")) << "its own seconds are not over";
    world.mainQueue.advance(1s);
    EXPECT_EQ(list->notice()->text(), QString());
    list->undo();
    EXPECT_EQ(items(), (QList<Exercise>{b, c})) << "a key still takes it back";

    list->archive(b);
    list->onAppear();
    EXPECT_EQ(list->notice()->text(), QString());
    list->undo();
    EXPECT_EQ(items(), QList<Exercise>{c}) << "what lies before another visit stays";
}

TEST_F(PracticeListActionsTest, AShakeTakesBackTheLastRemovalWhileTheListIsSeen) {
    class Device final : public ShakeSource {
    public:
        void shake() { postDeviceDidShakeNotification(); }
    } device;
    Platform platform = world.platform;
    platform.shakeSource = &device;
    list.emplace(singletons(), platform);
    list->onAppear();
    list->archive(a);
    device.shake();
    EXPECT_EQ(archived(), QList<Exercise>{a}) << "on a turn of the main queue";
    world.mainQueue.runDue();
    EXPECT_TRUE(archived().isEmpty());
    list->archive(a);
    list->onDisappear();
    device.shake();
    world.mainQueue.runDue();
    EXPECT_EQ(archived(), QList<Exercise>{a});
}

TEST_F(PracticeListActionsTest, TheMenuActsOnTheRowThatItWasOpenedFor) {
    list->openRowMenu(Section::Exercises, 1);
    EXPECT_EQ(list->rowMenuTitle(), QStringLiteral("B"));
    ASSERT_EQ(list->rowMenuActions().size(), 1);
    EXPECT_EQ(list->rowMenuActions().first().title, QStringLiteral("archive"));
    singletons().exercises.add(QStringLiteral("0"));
    world.mainQueue.runDue();
    list->actFromMenu(0);
    EXPECT_EQ(archived(), QList<Exercise>{b}) << "though another row stands there now";
    EXPECT_FALSE(list->rowMenuIsPresented());
    list->actFromMenu(0);
    EXPECT_EQ(archived().size(), 1);

    world.mainQueue.runDue();
    list->openRowMenu(Section::Archive, 0);
    QStringList titles;
    for (const RowAction& action : list->rowMenuActions())
        titles += action.title;
    EXPECT_EQ(titles, QStringList({QStringLiteral("unarchive"), QStringLiteral("delete")}));
    list->openRowMenu(Section::Archive, 1);
    EXPECT_FALSE(list->rowMenuIsPresented());
}

class ReviewPromptTest : public PracticeListActionsTest {
protected:
    void practiseInAll(qint64 minutes) {
        singletons().history.setEvents({HistoryEvent::make(world.clock.now(), a.name, minutes - 1, world.uuids),
                                        HistoryEvent::make(world.clock.now(), b.name, 1, world.uuids)});
    }
    bool appears() {
        list->onAppear();
        const bool requested = list->requestToPresentAppStoreReview();
        list->presentReview();
        EXPECT_FALSE(list->requestToPresentAppStoreReview());
        EXPECT_EQ(list->reviewCardIsPresented(), requested);
        list->closeReview();
        return requested;
    }
};

TEST_F(ReviewPromptTest, ComesFirstAfterThreeHoursAndNotAtTheStart) {
    practiseInAll(181);
    list.emplace(singletons(), world.platform);
    EXPECT_FALSE(appears()) << "the first appearance of the process";
    practiseInAll(180);
    EXPECT_FALSE(appears());
    practiseInAll(181);
    EXPECT_TRUE(appears());
    EXPECT_EQ(world.store.integer(keys::numberOfPromptsForReview), 1);
    EXPECT_EQ(world.store.real(keys::dateOfLastReviewRequest), world.clock.now().unixSeconds());
    EXPECT_FALSE(appears());
}

TEST_F(ReviewPromptTest, ComesASecondTimeAfterTenHoursAndAWeekAndNeverAgain) {
    practiseInAll(181);
    ASSERT_TRUE(appears());
    const Date first = world.clock.now();
    practiseInAll(601);
    // Noon seven days later: the day of the first is the day seven days ago, not before it.
    world.clock.wall = first + 7 * 86'400;
    EXPECT_FALSE(appears());
    world.clock.wall = first + 7 * 86'400 + 43'199;
    EXPECT_FALSE(appears()) << "23:59:59 of the same day";
    world.clock.wall = first + 7 * 86'400 + 43'200;
    practiseInAll(600);
    EXPECT_FALSE(appears());
    practiseInAll(601);
    EXPECT_TRUE(appears());
    EXPECT_EQ(world.store.integer(keys::numberOfPromptsForReview), 2);
    world.clock.advance(24h * 1000);
    practiseInAll(100'000);
    EXPECT_FALSE(appears());
}

TEST_F(ReviewPromptTest, NeverComesUnderAnInterfaceTest) {
    Platform platform = world.platform;
    platform.launch.isUnderInterfaceTest = true;
    list.emplace(singletons(), platform);
    practiseInAll(10'000);
    list->onAppear();
    EXPECT_FALSE(appears());
}

TEST_F(ReviewPromptTest, AMissingSoftwareCentreIsSaid) {
    practiseInAll(181);
    list->onAppear();
    list->presentReview();
    EXPECT_TRUE(list->reviewPageIsOffered());
    list->reviewPageOpened(false);
    EXPECT_TRUE(list->reviewCardIsPresented());
    EXPECT_FALSE(list->reviewPageIsOffered());
    list->reviewPageOpened(true);
    EXPECT_FALSE(list->reviewCardIsPresented());
}

} // namespace
} // namespace tamsel
