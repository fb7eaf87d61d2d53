#include "list/PracticeListViewModel.h"

#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

QStringList texts(const ListRowModel& model) {
    QStringList result;
    for (const ListRow& row : model.rows())
        result += row.name + QLatin1Char('|') + row.detail + QLatin1Char('|') + row.durationText;
    return result;
}

class PracticeListViewModelTest : public testing::Test {
protected:
    PracticeListViewModelTest() { singletons().exercises.setItems({a, b}); }

    Singletons& singletons() { return *world.singletons; }
    void record(const Exercise& exercise, qint64 seconds, SessionType type = SessionType::timer) {
        singletons().history.record(*PracticeSession::make(world.clock.now(), exercise, seconds, type));
    }

    test::World world;
    const Exercise a{QStringLiteral("A"), test::SequentialUuids::numbered(101)};
    const Exercise b{QStringLiteral("B"), test::SequentialUuids::numbered(102)};
};

TEST_F(PracticeListViewModelTest, ShowsTodaysSessionsFoldedAndTheOtherItems) {
    PracticeListViewModel list(singletons(), world.platform);
    EXPECT_EQ(list.dailyLogTitle(), QString());
    EXPECT_EQ(texts(*list.exerciseRows()),
              QStringList({QStringLiteral("A|Not practised yet|"), QStringLiteral("B|Not practised yet|")}));
    record(a, 1500);
    record(a, 2400, SessionType::stopwatch);
    EXPECT_EQ(texts(*list.dailyLogRows()), QStringList(QStringLiteral("A|Timer|1h 5m")));
    EXPECT_EQ(texts(*list.exerciseRows()), QStringList(QStringLiteral("B|Not practised yet|")));
    record(b, 42);
    record(a, 60);
    EXPECT_EQ(
        texts(*list.dailyLogRows()),
        QStringList({QStringLiteral("A|Timer|1h 5m"), QStringLiteral("B|Timer|00:42"), QStringLiteral("A|Timer|1m")}));
    EXPECT_TRUE(texts(*list.exerciseRows()).isEmpty());
    EXPECT_EQ(list.dailyLogTitle(), QStringLiteral("Mar 14 2024 1h 6m"));

    list.onAppear();
    EXPECT_TRUE(world.mainQueue.empty()) << "the first appearance has nothing to reload";
    world.clock.advance(24h);
    const test::LogCapture log;
    list.onAppear();
    EXPECT_TRUE(log.lines().contains(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData")));
    EXPECT_FALSE(texts(*list.dailyLogRows()).isEmpty()) << "on a later turn of the main queue";
    world.mainQueue.runDue();
    EXPECT_TRUE(texts(*list.dailyLogRows()).isEmpty()) << "another day";
    EXPECT_EQ(texts(*list.exerciseRows()),
              QStringList({QStringLiteral("A|Mar 14 2024|"), QStringLiteral("B|Not practised yet|")}))
        << "42 seconds are no history";
}

TEST_F(PracticeListViewModelTest, ClosingTheAlertAddsAnItemAndOpensIt) {
    PracticeListViewModel list(singletons(), world.platform);
    const auto close = [&](const QString& text) {
        list.addTapped();
        EXPECT_TRUE(list.addExerciseAlertIsPresented());
        list.setAddExerciseAlertTextFieldText(text);
        list.setAddExerciseAlertIsPresented(false);
    };
    close(QString());
    EXPECT_EQ(singletons().exercises.items(), (QList<Exercise>{a, b}));
    close(QStringLiteral(" "));
    ASSERT_EQ(singletons().exercises.items().size(), 3) << "a blank is a name";
    const Exercise added = singletons().exercises.items().first();
    EXPECT_EQ(added.name, QStringLiteral(" "));
    EXPECT_FALSE(list.takeDestination()) << "on a later turn of the main queue";
    world.mainQueue.runDue();
    EXPECT_EQ(list.addExerciseAlertTextFieldText(), QString());
    EXPECT_EQ(list.takeDestination(), (destinations::FromPracticeList{added, std::nullopt}));
    list.setAddExerciseAlertIsPresented(false);
    EXPECT_EQ(singletons().exercises.items().size(), 3) << "it was closed already";
}

TEST_F(PracticeListViewModelTest, RowsOpenTheirItem) {
    record(a, 60);
    PracticeListViewModel list(singletons(), world.platform);
    list.openExercise(0);
    EXPECT_EQ(list.takeDestination(), (destinations::FromPracticeList{b, std::nullopt}));
    list.openDailyLogRow(0);
    EXPECT_EQ(list.takeDestination()->exercise, a);
    list.openExercise(1);
    list.openDailyLogRow(-1);
    EXPECT_FALSE(list.takeDestination());
}

TEST_F(PracticeListViewModelTest, AppearingTakesTheMetronomeOver) {
    PracticeListViewModel list(singletons(), world.platform);
    singletons().metronome.setTempo(96.5);
    list.onAppear();
    EXPECT_EQ(list.metronomeViewModel()->tempo(), 96);
    list.metronomeViewModel()->setIsPlaying(true);
    world.output.render(100);
    world.output.settle();
    world.mainQueue.runDue();
    EXPECT_EQ(list.metronomeViewModel()->beatIndicatorIndex(), 0) << "it hears the clicks";
    list.metronomeViewModel()->setIsPlaying(false);
}

TEST_F(PracticeListViewModelTest, SaysWhenItBeginsAndEnds) {
    const test::LogCapture log;
    { const PracticeListViewModel list(singletons(), world.platform); }
    EXPECT_TRUE(log.lines().contains(QStringLiteral("PracticeListViewModel.init")));
    EXPECT_EQ(log.lines().last(), QStringLiteral("PracticeListViewModel.deinit"));
}

} // namespace
} // namespace tamsel
