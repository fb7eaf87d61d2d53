#include "tests/support/LogCapture.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"

#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using test::UiWorld;

class ListScreensTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    void open(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales"), QStringLiteral("Long tones")});
        ui.world.singletons->exercises.setArchivedItems({{QStringLiteral("Old scales"), ui.world.uuids.next()}});
        ui.practise(QStringLiteral("Long tones"), 1'500, SessionType::timer);
        ui.open(size);
    }
    void openLong(int archived) {
        QList<Exercise> archive;
        for (int i = 0; i < archived; ++i)
            archive += {QStringLiteral("Old study %1").arg(i), ui.world.uuids.next()};
        ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
        ui.world.singletons->exercises.setArchivedItems(archive);
        ui.open();
    }
    std::string focused() { return ui.window().activeFocusItem()->objectName().toStdString(); }
    std::string rowText(const char* row) {
        const QQuickItem* const item = ui.find(QString::fromLatin1(row));
        return item ? item->property("text").toString().toStdString() : "";
    }
    // A finger moves from the middle of the row to the side.
    void swipe(const char* row, int distance) {
        const QPoint start = ui.area(QString::fromLatin1(row)).center().toPoint();
        QTest::touchEvent(&ui.window(), finger).press(0, start);
        for (int moved = 0; std::abs(moved) <= std::abs(distance); moved += distance / 20)
            QTest::touchEvent(&ui.window(), finger).move(0, start + QPoint(moved, 0));
        QTest::touchEvent(&ui.window(), finger).release(0, start + QPoint(distance, 0));
        ui.settle();
    }
    // Not where a swipe began: that would be a double tap.
    void touch(const char* item) {
        const QRectF area = ui.area(QString::fromLatin1(item));
        const QPoint point(qRound(area.left() + area.width() / 4), qRound(area.center().y()));
        QTest::touchEvent(&ui.window(), finger).press(0, point);
        QTest::touchEvent(&ui.window(), finger).release(0, point);
        ui.settle();
    }
    const QList<Exercise>& items() { return ui.singletons().exercises.items(); }
    const QList<Exercise>& archived() { return ui.singletons().exercises.archivedItems(); }

    const test::LogCapture console;
    const test::WarningCollector warnings;
    UiWorld ui;
    QPointingDevice* const finger = QTest::createTouchDevice();
};

TEST_F(ListScreensTest, SearchingFiltersAndCanBeGivenUp) {
    open();
    ui.press(Qt::Key_F, Qt::ControlModifier);
    ui.type(QStringLiteral("scale"));
    EXPECT_EQ(rowText("exercise_row_0"), "C Major Scales");
    EXPECT_EQ(ui.find(QStringLiteral("exercise_row_1")), nullptr);
    EXPECT_EQ(ui.find(QStringLiteral("daily_log_row_0")), nullptr);
    EXPECT_EQ(rowText("archive_row_0"), "Old scales") << "the archive opens for what is found in it";
    ASSERT_TRUE(ui.click(QStringLiteral("search_clear_button")));
    EXPECT_EQ(ui.list().searchBarText(), QString());
    EXPECT_EQ(ui.find(QStringLiteral("archive_row_0")), nullptr) << "and is as it was before";
    EXPECT_NE(ui.find(QStringLiteral("daily_log_row_0")), nullptr);
    ui.click(QStringLiteral("search_field"));
    ui.type(QStringLiteral("a b"));
    EXPECT_EQ(ui.list().searchBarText(), QStringLiteral("a b")) << "Space is a character here";
    EXPECT_FALSE(ui.list().metronomeViewModel()->isPlaying());
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(ui.list().searchBarText(), QString());
    EXPECT_EQ(focused(), "search_field");
    ui.press(Qt::Key_Escape);
    EXPECT_NE(focused(), "search_field");
}

TEST_F(ListScreensTest, WhatIsNotFoundCanBeAdded) {
    open();
    ui.click(QStringLiteral("search_field"));
    ui.type(QStringLiteral("thirds"));
    EXPECT_EQ(ui.find(QStringLiteral("archive_header")), nullptr);
    ASSERT_TRUE(ui.click(QStringLiteral("add_searched_item_button")));
    ASSERT_NE(ui.practice(), nullptr) << "a new item opens at once";
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("thirds"));
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(ui.find(QStringLiteral("add_searched_item_button")), nullptr);
    EXPECT_NE(ui.find(QStringLiteral("exercise_row_2")), nullptr);
}

TEST_F(ListScreensTest, TheSortMenuHasTwoLevels) {
    open();
    ASSERT_TRUE(ui.click(QStringLiteral("sort_order_menu")));
    ASSERT_TRUE(ui.click(QStringLiteral("sort_by_practice_time")));
    EXPECT_EQ(ui.list().sortOrder(), SortOrder::name);
    ASSERT_TRUE(ui.click(QStringLiteral("sort_practiceTime_last30Days")));
    EXPECT_EQ(ui.list().sortOrder(), SortOrder::practiceTime);
    EXPECT_EQ(ui.list().sortOrderTimeRange(), TimeRange::last30Days);
    EXPECT_EQ(ui.find(QStringLiteral("sort_practiceTime_last30Days")), nullptr) << "the menu is gone";

    ui.click(QStringLiteral("sort_order_menu"));
    ui.click(QStringLiteral("sort_by_practice_time"));
    ui.press(Qt::Key_Escape);
    ui.click(QStringLiteral("sort_order_menu"));
    ASSERT_TRUE(ui.click(QStringLiteral("sort_by_recency"))) << "it begins at the first level again";
    EXPECT_EQ(ui.list().sortOrder(), SortOrder::practiceRecency);
}

TEST_F(ListScreensTest, ASwipeUncoversTheActions) {
    open();
    swipe("exercise_row_0", -200);
    EXPECT_EQ(ui.practice(), nullptr) << "a swipe is no tap";
    ASSERT_NE(ui.find(QStringLiteral("archive_action")), nullptr);
    swipe("exercise_row_1", -200);
    EXPECT_EQ(ui.find(QStringLiteral("exercise_row_0"))->property("swiped").toBool(), false) << "one at a time";
    touch("archive_action");
    EXPECT_EQ(archived().last().name, QStringLiteral("C Major Scales"));
    EXPECT_EQ(ui.find(QStringLiteral("archive_action")), nullptr);

    ui.click(QStringLiteral("archive_header"));
    swipe("archive_row_0", -250);
    touch("delete_action");
    ASSERT_EQ(archived().size(), 1);
    EXPECT_EQ(archived().first().name, QStringLiteral("C Major Scales"));
    swipe("archive_row_0", -250);
    touch("unarchive_action");
    EXPECT_EQ(items().first().name, QStringLiteral("C Major Scales"));
    EXPECT_EQ(ui.find(QStringLiteral("archive_header")), nullptr) << "an empty archive is no section";

    swipe("daily_log_row_0", -200);
    touch("daily_log_row_0");
    EXPECT_EQ(ui.practice(), nullptr) << "a tap on a row that is swiped aside brings it back";
    EXPECT_EQ(ui.find(QStringLiteral("archive_action")), nullptr);
    touch("daily_log_row_0");
    EXPECT_NE(ui.practice(), nullptr);
}

TEST_F(ListScreensTest, ARowThatWasClosedByAnotherOpensAgain) {
    open();
    for (const char* row : {"exercise_row_1", "exercise_row_0", "exercise_row_1"})
        swipe(row, -200);
    EXPECT_FALSE(ui.find(QStringLiteral("exercise_row_0"))->property("swiped").toBool());
    touch("archive_action");
    EXPECT_EQ(archived().last().name, QStringLiteral("C Major Scales"));
}

TEST_F(ListScreensTest, ARowHasAMenu) {
    open();
    struct Way {
        const char* name;
        std::function<void()> act;
    };
    const auto focusRow = [this] { ui.find(QStringLiteral("exercise_row_0"))->forceActiveFocus(Qt::TabFocusReason); };
    for (const Way& way : {Way{"right click", [&] { ui.click(QStringLiteral("exercise_row_0"), Qt::RightButton); }},
                           Way{"menu key",
                               [&] {
                                   focusRow();
                                   ui.press(Qt::Key_Menu);
                               }},
                           Way{"Shift+Enter", [&] {
                                   focusRow();
                                   ui.press(Qt::Key_Return, Qt::ShiftModifier);
                               }}}) {
        way.act();
        ASSERT_TRUE(ui.list().rowMenuIsPresented()) << way.name;
        EXPECT_EQ(ui.list().rowMenuTitle(), QStringLiteral("Arpeggios"));
        ui.press(Qt::Key_Escape);
        EXPECT_FALSE(ui.list().rowMenuIsPresented()) << way.name;
        EXPECT_EQ(ui.practice(), nullptr) << way.name;
    }
    ui.click(QStringLiteral("archive_header"));
    ui.click(QStringLiteral("archive_row_0"));
    ASSERT_TRUE(ui.click(QStringLiteral("unarchive_action")))
        << "an archived item does not open; it offers what it can";
    EXPECT_EQ(items().first().name, QStringLiteral("Old scales"));
    ui.click(QStringLiteral("daily_log_row_0"), Qt::RightButton);
    ASSERT_TRUE(ui.click(QStringLiteral("archive_action")));
    EXPECT_TRUE(ui.singletons().dailyLog.practiceSessions().isEmpty());
}

TEST_F(ListScreensTest, DeleteAndUndoByKeyAndByBar) {
    open();
    ui.find(QStringLiteral("exercise_row_0"))->forceActiveFocus(Qt::TabFocusReason);
    ui.press(Qt::Key_Delete);
    EXPECT_EQ(archived().last().name, QStringLiteral("Arpeggios"));
    ASSERT_TRUE(ui.click(QStringLiteral("undo_button")));
    EXPECT_EQ(items().first().name, QStringLiteral("Arpeggios"));
    EXPECT_EQ(ui.find(QStringLiteral("undo_button")), nullptr);
    ui.find(QStringLiteral("daily_log_row_0"))->forceActiveFocus(Qt::TabFocusReason);
    ui.press(Qt::Key_Delete);
    EXPECT_EQ(archived().size(), 2);
    ui.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(archived().size(), 1);
    EXPECT_EQ(ui.singletons().dailyLog.practiceSessions().size(), 1);
    ui.list().archive(items().first());
    ui.settle();
    ui.world.mainQueue.advance(10s);
    EXPECT_EQ(ui.find(QStringLiteral("undo_button")), nullptr);
}

TEST_F(ListScreensTest, ANewDayIsShownWhenTheWindowComesToTheFront) {
    open();
    ASSERT_NE(ui.find(QStringLiteral("daily_log_row_0")), nullptr);
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ui.world.clock.advance(24h);
    ui.window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ui.window()));
    ui.settle();
    EXPECT_EQ(ui.find(QStringLiteral("daily_log_row_0")), nullptr) << "what was practised yesterday";
}

TEST_F(ListScreensTest, ArrowsAndTabGoThroughTheArchive) {
    open();
    ui.click(QStringLiteral("archive_header"));
    ui.find(QStringLiteral("exercises_header"))->forceActiveFocus(Qt::TabFocusReason);
    const QStringList down = {QStringLiteral("exercise_row_0"), QStringLiteral("exercise_row_1"),
                              QStringLiteral("archive_header"), QStringLiteral("archive_row_0"),
                              QStringLiteral("minus button")};
    for (const QString& stop : down) {
        ui.press(Qt::Key_Down);
        EXPECT_EQ(focused(), stop.toStdString());
    }
    for (qsizetype i = down.size() - 2; i >= 0; --i) {
        ui.press(Qt::Key_Up);
        EXPECT_EQ(focused(), down.at(i).toStdString());
    }
    for (const char* stop : {"archive_header", "archive_row_0", "minus button"}) {
        ui.press(Qt::Key_Tab);
        EXPECT_EQ(focused(), stop);
    }
    for (const char* stop : {"archive_row_0", "archive_header", "exercise_row_0", "exercises_header"}) {
        ui.press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(focused(), stop);
    }
}

// Only the rows in sight exist, wherever the list is.
TEST_F(ListScreensTest, ALongArchiveScrollsWithTheRest) {
    openLong(1'000);
    ui.click(QStringLiteral("archive_header"));
    QQuickItem* const list = ui.find(QStringLiteral("exercise_list"));
    const QRectF view = ui.area(QStringLiteral("exercise_list"));
    const double start = list->property("contentY").toDouble();
    const double rowHeight = ui.area(QStringLiteral("archive_row_0")).height();
    const double top = ui.area(QStringLiteral("archive_row_0")).top();
    for (const int row : {0, 5, 250, 640, 980}) {
        list->setProperty("contentY", start + row * rowHeight);
        ui.settle();
        const QString identifier = QStringLiteral("archive_row_%1").arg(row);
        ASSERT_NE(ui.find(identifier), nullptr) << row;
        EXPECT_NEAR(ui.area(identifier).top(), top, 1) << row;
        EXPECT_EQ(rowText(identifier.toLatin1().constData()), "Old study " + std::to_string(row));
        const qsizetype made = ui.find(QStringLiteral("archive_list"))->childItems().first()->childItems().size();
        EXPECT_LT(made, 60) << "rows that nobody sees are not made";
    }
    ui.find(QStringLiteral("archive_header"))->forceActiveFocus(Qt::TabFocusReason);
    for (int i = 0; i < 30; ++i)
        ui.press(Qt::Key_Down);
    EXPECT_EQ(focused(), "archive_row_29");
    EXPECT_TRUE(view.contains(ui.area(QStringLiteral("archive_row_29")))) << "the row is in sight";
}

TEST_F(ListScreensTest, TheReviewCardShowsOnceItIsAskedFor) {
    for (int i = 0; i < 30; ++i)
        ui.addExercises({QStringLiteral("Study %1").arg(i)});
    ui.practise(QStringLiteral("Study 0"), 181 * 60, SessionType::timer);
    ui.open();
    EXPECT_EQ(ui.find(QStringLiteral("review_close_button")), nullptr);
    const QList<Exercise> studies = items();
    ui.singletons().exercises.setItems({});
    ui.singletons().dailyLog.setPracticeSessions({});
    ui.click(QStringLiteral("thanks_tab"));
    ui.click(QStringLiteral("practice_tab"));
    EXPECT_TRUE(ui.list().requestToPresentAppStoreReview()) << "it waits for a list to stand in";
    ui.singletons().exercises.setItems(studies);
    ui.find(QStringLiteral("exercise_list"))->setProperty("contentY", 600);
    ui.click(QStringLiteral("thanks_tab"));
    ui.click(QStringLiteral("practice_tab"));
    ASSERT_NE(ui.find(QStringLiteral("review_open_button")), nullptr);
    EXPECT_TRUE(
        ui.area(QStringLiteral("exercise_list")).contains(ui.area(QStringLiteral("review_open_button")).center()))
        << "however far the list was scrolled";
    EXPECT_FALSE(ui.list().requestToPresentAppStoreReview()) << "showing it counts as having asked";
    ASSERT_TRUE(ui.click(QStringLiteral("review_close_button")));
    EXPECT_EQ(ui.find(QStringLiteral("review_open_button")), nullptr);
    ui.click(QStringLiteral("thanks_tab"));
    ui.click(QStringLiteral("practice_tab"));
    EXPECT_EQ(ui.find(QStringLiteral("review_open_button")), nullptr);
}

TEST_F(ListScreensTest, ARecordedSessionMovesItsRowAndNothingElse) {
    open();
    QQuickItem* const kept = ui.find(QStringLiteral("exercise_row_1"));
    ui.singletons().history.record(
        *PracticeSession::make(ui.world.clock.now(), items().first(), 60, SessionType::timer));
    ui.settle();
    EXPECT_EQ(rowText("daily_log_row_1"), "Arpeggios");
    EXPECT_EQ(ui.find(QStringLiteral("exercise_row_0")), kept) << "the row of the other item stays the same";
    EXPECT_EQ(rowText("exercise_row_0"), "C Major Scales");
}

TEST_F(ListScreensTest, ControlsAreInsideTheWindowAndLargeEnough) {
    open();
    for (const QSize size : {QSize(360, 640), QSize(390, 844), QSize(844, 390), QSize(1180, 820)}) {
        for (const qreal textScale : {1.0, 2.0}) {
            ui.appearance().setTextScale(textScale);
            ui.resize(size);
            ui.list().setSearchBarText(QStringLiteral("e"));
            for (const char* identifier :
                 {"sort_order_menu", "search_field", "search_clear_button", "add_item_button"}) {
                const QRectF area = ui.area(QString::fromLatin1(identifier));
                EXPECT_TRUE(QRectF(QPointF(), size).contains(area)) << identifier << " at " << size.width();
                EXPECT_GE(std::min(area.width(), area.height()), 44) << identifier;
            }
            const QRectF search = ui.area(QStringLiteral("search_field"));
            EXPECT_FALSE(search.intersects(ui.area(QStringLiteral("sort_order_menu")))) << size.width();
            EXPECT_FALSE(search.intersects(ui.area(QStringLiteral("exercise_list")))) << size.width();
        }
    }
}

} // namespace
} // namespace tamsel
