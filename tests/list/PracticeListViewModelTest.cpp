#include "list/PracticeListViewModel.h"

#include "model/SettingsKeys.h"
#include "tests/support/LogCapture.h"
#include "tests/support/World.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

QStringList texts(const ListRowModel& model) {
    QStringList result;
    for (int row = 0; row < model.count(); ++row) {
        QStringList ofRow;
        for (const auto role : {ListRowModel::NameRole, ListRowModel::DetailRole, ListRowModel::DurationTextRole})
            ofRow += model.data(model.index(row), role).toString();
        result += ofRow.join(QLatin1Char('|'));
    }
    return result;
}

std::string names(const ListRowModel& model) {
    QStringList result;
    for (int row = 0; row < model.count(); ++row)
        result += model.text(row, ListRowModel::NameRole);
    return result.join(QLatin1Char(' ')).toStdString();
}

class PracticeListViewModelTest : public testing::Test {
protected:
    PracticeListViewModelTest() { singletons().exercises.setItems({a, b}); }

    Singletons& singletons() { return *world.singletons; }
    void record(const Exercise& exercise, qint64 seconds, SessionType type = SessionType::timer) {
        singletons().history.record(*PracticeSession::make(world.clock.now(), exercise, seconds, type));
        world.mainQueue.runDue();
    }
    void addItems(const QStringList& itemNames) {
        QList<Exercise> items;
        for (const QString& name : itemNames)
            items += {name, world.uuids.next()};
        singletons().exercises.setItems(items);
        world.mainQueue.runDue();
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
              QStringList({QStringLiteral("A|Mar 14 2024|1h 6m"), QStringLiteral("B|Not practised yet|")}))
        << "42 seconds are no history";
}

// The log and the history both publish when a session is recorded.
TEST_F(PracticeListViewModelTest, WhatTheStoresPublishTogetherIsShownOnce) {
    PracticeListViewModel list(singletons(), world.platform);
    int refreshes = 0;
    QObject::connect(&list, &PracticeListViewModel::sectionsChanged, [&refreshes] { ++refreshes; });
    record(a, 60);
    EXPECT_EQ(refreshes, 1);
    EXPECT_EQ(names(*list.dailyLogRows()), "A");
    world.mainQueue.advance(1h);
    EXPECT_EQ(refreshes, 1);
}

// An item practised today whose case differs from what is searched for is not among the log's rows, and so is not held
// back from the items.
TEST_F(PracticeListViewModelTest, TheThreeSearchesDifferInCase) {
    addItems({QStringLiteral("C Major Scales"), QStringLiteral("Scale of D"), QStringLiteral("Arpeggios"),
              QStringLiteral("scales, old"), QStringLiteral("MAßSTAB")});
    const QList<Exercise> items = singletons().exercises.items();
    singletons().exercises.archive(items.at(3));
    PracticeListViewModel list(singletons(), world.platform);
    record(items.at(1), 60);
    struct Case {
        const char* searched;
        const char* log;
        const char* exercises;
        const char* archive;
        bool nothing;
    };
    for (const Case& test : {
             Case{"scale", "", "C Major Scales Scale of D", "scales, old", false},
             Case{"Scale", "Scale of D", "C Major Scales", "scales, old", false},
             Case{"SCALE", "", "C Major Scales Scale of D", "scales, old", false},
             Case{" ", "Scale of D", "C Major Scales", "scales, old", false},
             Case{"scale ", "", "Scale of D", "", false},
             Case{"maß", "", "MAßSTAB", "", false},
             Case{"violin", "", "", "", true},
             Case{"", "Scale of D", "Arpeggios C Major Scales MAßSTAB", "scales, old", false},
         }) {
        list.setSearchBarText(QString::fromUtf8(test.searched));
        EXPECT_EQ(names(*list.dailyLogRows()), test.log) << test.searched;
        EXPECT_EQ(names(*list.exerciseRows()), test.exercises) << test.searched;
        EXPECT_EQ(names(*list.archiveRows()), test.archive) << test.searched;
        EXPECT_EQ(list.nothingIsFound(), test.nothing) << test.searched;
        EXPECT_EQ(list.dailyLogTitle().isEmpty(), *test.log == '\0') << test.searched;
        EXPECT_FALSE(list.isEmpty());
    }
}

TEST_F(PracticeListViewModelTest, ASearchIsNeverTakenForAnEmptyList) {
    record(a, 60);
    singletons().exercises.setItems({});
    PracticeListViewModel list(singletons(), world.platform);
    EXPECT_FALSE(list.isEmpty()) << "there is today's log";
    list.setSearchBarText(QStringLiteral("violin"));
    EXPECT_FALSE(list.isEmpty()) << "or the search could not be given up";
    EXPECT_TRUE(list.nothingIsFound());
    list.setSearchBarText(QString());
    singletons().dailyLog.setPracticeSessions({});
    world.mainQueue.runDue();
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(PracticeListViewModelTest, AnItemOfTheSearchedNameCanBeAdded) {
    PracticeListViewModel list(singletons(), world.platform);
    list.addSearchedItem();
    EXPECT_EQ(singletons().exercises.items().size(), 2) << "nothing is searched for";
    list.setSearchBarText(QStringLiteral("Long tones"));
    EXPECT_EQ(list.addSearchedItemText(), QStringLiteral("Add “Long tones”"));
    list.addSearchedItem();
    world.mainQueue.runDue();
    const Exercise added = singletons().exercises.items().first();
    EXPECT_EQ(added.name, QStringLiteral("Long tones"));
    EXPECT_EQ(list.takeDestination(), (destinations::FromPracticeList{added, std::nullopt}));
    EXPECT_FALSE(list.isSearching());
}

TEST_F(PracticeListViewModelTest, TheThreeOrders) {
    addItems(
        {QStringLiteral("b"), QStringLiteral("C"), QStringLiteral("E10"), QStringLiteral("E9"), QStringLiteral("D")});
    const double now = world.clock.now().secondsSinceReference;
    constexpr double day = 86'400;
    singletons().history.setEvents({
        HistoryEvent::make({now - 2 * day}, QStringLiteral("C"), 10, world.uuids),
        HistoryEvent::make({now - 40 * day}, QStringLiteral("C"), 500, world.uuids),
        HistoryEvent::make({now - day}, QStringLiteral("E10"), 30, world.uuids),
        HistoryEvent::make({now - 2 * day}, QStringLiteral("b"), 10, world.uuids),
        HistoryEvent::make({now - 3 * day}, QStringLiteral("gone"), 10, world.uuids),
    });
    PracticeListViewModel list(singletons(), world.platform);
    EXPECT_EQ(names(*list.exerciseRows()), "C D E9 E10 b");
    list.setSortOrder(SortOrder::practiceRecency);
    EXPECT_EQ(names(*list.exerciseRows()), "E10 C b D E9");
    list.setSortOrder(SortOrder::practiceTime);
    EXPECT_EQ(names(*list.exerciseRows()), "E10 C b D E9");
    list.setSortOrderTimeRange(TimeRange::last12Months);
    EXPECT_EQ(texts(*list.exerciseRows()),
              QStringList({QStringLiteral("C|Mar 12 2024|8h 30m"), QStringLiteral("E10|Mar 13 2024|30m"),
                           QStringLiteral("b|Mar 12 2024|10m"), QStringLiteral("D|Not practised yet|"),
                           QStringLiteral("E9|Not practised yet|")}));
}

// Noon on 14 March 2024, UTC.
TEST_F(PracticeListViewModelTest, ARangeBeginsAtADayOrAtAMonth) {
    struct Case {
        TimeRange range;
        const char* first; // the first moment that belongs to it
    };
    PracticeListViewModel list(singletons(), world.platform);
    for (const Case& test :
         {Case{TimeRange::last7Days, "2024-03-08T00:00:00Z"}, Case{TimeRange::last30Days, "2024-02-14T00:00:00Z"},
          Case{TimeRange::last90Days, "2023-12-16T00:00:00Z"}, Case{TimeRange::last12Months, "2023-04-01T00:00:00Z"}}) {
        const QDateTime first = QDateTime::fromString(QString::fromLatin1(test.first), Qt::ISODate);
        const Date moment = Date::fromUnixSeconds(static_cast<double>(first.toSecsSinceEpoch()));
        list.setSortOrderTimeRange(test.range);
        singletons().history.setEvents({HistoryEvent::make(moment, a.name, 7, world.uuids),
                                        HistoryEvent::make(moment - 1, a.name, 11, world.uuids)});
        world.mainQueue.runDue();
        EXPECT_EQ(texts(*list.exerciseRows()).first().section(QLatin1Char('|'), 2), QStringLiteral("7m")) << test.first;
        list.setSortOrderTimeRange(TimeRange::allMonths);
        EXPECT_EQ(texts(*list.exerciseRows()).first().section(QLatin1Char('|'), 2), QStringLiteral("18m"))
            << test.first;
    }
}

TEST_F(PracticeListViewModelTest, TheOrderIsKeptAndReadAgain) {
    world.store.setData(keys::sortOrder, R"({"practiceRecency":{}})");
    world.store.setData(keys::preferredTimeRange, "30");
    PracticeListViewModel list(singletons(), world.platform);
    EXPECT_EQ(list.sortOrder(), SortOrder::practiceRecency);
    EXPECT_EQ(list.sortOrderTimeRange(), TimeRange::last30Days);
    list.setSortOrder(SortOrder::practiceTime);
    EXPECT_EQ(world.store.data(keys::sortOrder), R"({"practiceTime":{}})");
    list.setSortOrderTimeRange(TimeRange::allMonths);
    EXPECT_EQ(world.store.data(keys::preferredTimeRange), "0");

    struct Case {
        const char* order;
        const char* range;
        SortOrder readOrder;
        TimeRange readRange;
        const char* writtenOrder;
        const char* writtenRange;
        bool saysSo;
    };
    for (const Case& test : {
             Case{R"({"name":{}})", "7", SortOrder::name, TimeRange::last7Days, R"({"name":{}})", "7", false},
             Case{R"({"practiceTime":{}})", "90", SortOrder::practiceTime, TimeRange::last7Days,
                  R"({"practiceTime":{}})", "7", true},
             Case{R"({"name":{},"practiceTime":{}})", "8", SortOrder::name, TimeRange::last7Days, R"({"name":{}})", "7",
                  false},
             Case{"{}", "\"30\"", SortOrder::name, TimeRange::last7Days, R"({"name":{}})", "7", false},
             Case{R"({"practiceRecency":{}})", "365", SortOrder::practiceRecency, TimeRange::last12Months,
                  R"({"practiceRecency":{}})", "365", false},
         }) {
        world.store.setData(keys::sortOrder, test.order);
        world.store.setData(keys::preferredTimeRange, test.range);
        const test::LogCapture log;
        list.asynchronouslyReloadData();
        EXPECT_EQ(world.store.data(keys::preferredTimeRange), test.range) << "on a later turn of the main queue";
        world.mainQueue.runDue();
        EXPECT_EQ(list.sortOrder(), test.readOrder) << test.order;
        EXPECT_EQ(list.sortOrderTimeRange(), test.readRange) << test.range;
        EXPECT_EQ(world.store.data(keys::sortOrder), test.writtenOrder);
        EXPECT_EQ(world.store.data(keys::preferredTimeRange), test.writtenRange);
        EXPECT_EQ(log.lines().contains(QStringLiteral("Unable to use saved timeRange, likely experimental")),
                  test.saysSo)
            << test.range;
    }
}

TEST_F(PracticeListViewModelTest, TheSortMenuSortsAndMarksWhatIsChosen) {
    PracticeListViewModel list(singletons(), world.platform);
    const ToolbarMenuViewModel& menu = *list.sortMenu();
    EXPECT_EQ(menu.accessibilityIdentifier(), QStringLiteral("sort_order_menu"));
    EXPECT_EQ(menu.image(), QStringLiteral("sortOrder"));
    const auto shown = [&menu] {
        QStringList lines;
        for (qsizetype i = 0; i < menu.options().size(); ++i) {
            const ToolbarMenuOption& option = menu.options().at(i);
            lines += option.title + QLatin1Char('|') + option.accessibilityIdentifier + QLatin1Char('|') + option.image;
            for (const ToolbarMenuSuboption& sub : menu.suboptions(static_cast<int>(i)))
                lines += QLatin1Char(' ') + sub.title + QLatin1Char('|') + sub.accessibilityIdentifier +
                         QLatin1Char('|') + sub.image;
        }
        return lines.join(QLatin1Char('\n')).toStdString();
    };
    EXPECT_EQ(shown(), "Name|sort_by_name|checkmark\n"
                       "Most Recent|sort_by_recency|\n"
                       "Most Practiced|sort_by_practice_time|\n"
                       " Last 7 days|sort_practiceTime_last7Days|\n"
                       " Last 30 days|sort_practiceTime_last30Days|\n"
                       " Last 12 months|sort_practiceTime_last12Months|\n"
                       " All time|sort_practiceTime_allMonths|");
    menu.choose(2);
    EXPECT_EQ(list.sortOrder(), SortOrder::name) << "it leads to the ranges";
    menu.chooseSuboption(2, 3);
    EXPECT_EQ(list.sortOrder(), SortOrder::practiceTime);
    EXPECT_EQ(list.sortOrderTimeRange(), TimeRange::allMonths);
    EXPECT_EQ(menu.options().at(2).image, QStringLiteral("checkmark"));
    EXPECT_EQ(menu.suboptions(2).at(3).image, QStringLiteral("checkmark"));
    menu.choose(1);
    EXPECT_EQ(list.sortOrder(), SortOrder::practiceRecency);
    EXPECT_EQ(list.sortOrderTimeRange(), TimeRange::allMonths) << "the range stays";
    menu.choose(0);
    EXPECT_EQ(list.sortOrder(), SortOrder::name);
    menu.choose(7);
    menu.chooseSuboption(0, 0);
    EXPECT_EQ(list.sortOrder(), SortOrder::name);
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
    singletons().metronome.setRhythmSelection(Rhythm::threeFour);
    list.onAppear();
    EXPECT_EQ(list.metronomeViewModel()->tempo(), 96);
    EXPECT_EQ(list.metronomeViewModel()->rhythmSelection(), Rhythm::threeFour) << "as another screen left it";
    list.metronomeViewModel()->setIsPlaying(true);
    world.output.render(100);
    world.output.settle();
    world.mainQueue.runDue();
    EXPECT_GE(list.metronomeViewModel()->beatIndicatorIndex(), 0) << "it hears the clicks";
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
