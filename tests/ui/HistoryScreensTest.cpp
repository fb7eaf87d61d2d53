#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/TopExercisesDetailViewModel.h"
#include "tests/support/UsEnglish.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

constexpr double day = 86400;

class HistoryScreensTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::speakUsEnglish(); }
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    void add(double daysAgo, const char* exercise, qint64 minutes) {
        QList<HistoryEvent> events = ui.world.singletons->history.events();
        events += HistoryEvent::make(ui.world.clock.now() - daysAgo * day, QString::fromUtf8(exercise), minutes,
                                     ui.world.uuids);
        ui.world.singletons->history.setEvents(events);
    }
    void open(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("Scales"), QStringLiteral("Étude")});
        ui.open(size);
        ASSERT_TRUE(ui.click(QStringLiteral("history_tab")));
    }
    HistoryNavigationStackViewModel& stack() { return *ui.tabs().historyNavigationStack(); }
    template <class T>
    T* top() {
        return stack().depth() == 0 ? nullptr : qobject_cast<T*>(stack().screenModel(stack().depth() - 1));
    }
    static QString spoken(QQuickItem* item) {
        QAccessibleInterface* const interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        return interface ? interface->text(QAccessible::Name) : QString();
    }
    static QAccessible::Role role(QQuickItem* item) {
        QAccessibleInterface* const interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
        return interface ? interface->role() : QAccessible::NoRole;
    }

    const test::WarningCollector warnings;
    test::UiWorld ui;
};

TEST_F(HistoryScreensTest, AnEmptyHistoryLeadsToPractice) {
    open();
    EXPECT_EQ(ui.find(QStringLiteral("history_page")), nullptr);
    EXPECT_TRUE(ui.click(QStringLiteral("history_practice_button")));
    EXPECT_EQ(ui.tabs().selectedTabIndex(), TabViewModel::practiceTabIndex);
}

TEST_F(HistoryScreensTest, EveryBarIsNamedAndOpensItsDay) {
    add(0, "Scales", 65);
    add(2, "Étude", 5);
    open();
    for (int bar = 0; bar < 7; ++bar) {
        QQuickItem* const item = ui.find(QStringLiteral("chart_bar_%1").arg(bar));
        ASSERT_NE(item, nullptr) << bar;
        EXPECT_EQ(role(item), QAccessible::Button);
        EXPECT_TRUE(spoken(item).startsWith(QStringLiteral("March %1: ").arg(8 + bar))) << spoken(item).toStdString();
    }
    EXPECT_EQ(spoken(ui.find(QStringLiteral("chart_bar_6"))), QStringLiteral("March 14: 65 minutes"));
    EXPECT_TRUE(ui.click(QStringLiteral("chart_bar_4")));
    ASSERT_NE(top<PracticeDayBreakdownViewModel>(), nullptr);
    EXPECT_EQ(spoken(ui.find(QStringLiteral("day_row_0"))), QStringLiteral("Étude, 5m"));
    EXPECT_TRUE(ui.click(QStringLiteral("back button")));
    EXPECT_EQ(stack().depth(), 0);
    EXPECT_NE(ui.find(QStringLiteral("practice_time_card")), nullptr);
}

TEST_F(HistoryScreensTest, TheKeyboardReachesEveryBarAndOpensIt) {
    add(0, "Scales", 65);
    add(6, "Étude", 5);
    open();
    const auto focused = [this] {
        QQuickItem* const item = ui.window().activeFocusItem();
        return item ? item->objectName() : QString();
    };
    QStringList stops;
    for (int i = 0; i < 30 && !stops.contains(QStringLiteral("chart_bar_6")); ++i) {
        ui.press(Qt::Key_Tab);
        stops += focused();
    }
    ASSERT_TRUE(stops.contains(QStringLiteral("chart_bar_6"))) << stops.join(QLatin1Char(' ')).toStdString();
    for (int bar = 5; bar >= 0; --bar) {
        ui.press(Qt::Key_Left);
        EXPECT_EQ(focused(), QStringLiteral("chart_bar_%1").arg(bar));
    }
    ui.press(Qt::Key_Left);
    EXPECT_EQ(focused(), QStringLiteral("chart_bar_0")) << "it is the first one";
    ui.press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("top_exercises_card")) << "the chart is one stop";
    ui.press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), QStringLiteral("chart_bar_0"));
    ui.press(Qt::Key_Return);
    EXPECT_NE(top<PracticeDayBreakdownViewModel>(), nullptr);
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(stack().depth(), 0);
}

TEST_F(HistoryScreensTest, ThePickerOffersWhatTheJournalHasAndSwitchesBothCards) {
    add(0, "Scales", 65);
    add(20, "Étude", 600);
    add(800, "Long ago", 5);
    open();
    EXPECT_EQ(role(ui.find(QStringLiteral("time_range_7_days"))), QAccessible::RadioButton);
    ui.find(QStringLiteral("time_range_7_days"))->forceActiveFocus(Qt::TabFocusReason);
    ui.press(Qt::Key_End);
    EXPECT_EQ(stack().historyViewModel()->timeRange(), TimeRange::allMonths);
    ui.press(Qt::Key_Home);
    EXPECT_EQ(stack().historyViewModel()->timeRange(), TimeRange::last7Days);
    ui.press(Qt::Key_Right);
    EXPECT_EQ(stack().historyViewModel()->timeRange(), TimeRange::last30Days);
    ui.press(Qt::Key_Left);
    EXPECT_TRUE(ui.click(QStringLiteral("time_range_30_days")));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("practice_time_card"))),
              QStringLiteral("Over the last month you've practiced 11 hours, 5 minutes"));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("top_exercises_card"))), QStringLiteral("You most practiced Étude"));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("ranked_item_1"))), QStringLiteral("2. Scales: 65 minutes"));
    EXPECT_EQ(ui.find(QStringLiteral("full_ranking_button")), nullptr);

    EXPECT_TRUE(ui.click(QStringLiteral("time_range_all_months")));
    EXPECT_EQ(ui.find(QStringLiteral("ranked_item_0")), nullptr);
    EXPECT_TRUE(ui.click(QStringLiteral("full_ranking_button")));
    ASSERT_NE(top<TopExercisesDetailViewModel>(), nullptr);
    EXPECT_NE(ui.find(QStringLiteral("ranked_item_2")), nullptr);
    EXPECT_TRUE(ui.click(QStringLiteral("ranked_item_1")));
    ASSERT_NE(top<PracticeTimeDetailViewModel>(), nullptr);
    EXPECT_EQ(top<PracticeTimeDetailViewModel>()->exerciseName(), QStringLiteral("Scales"));
}

TEST_F(HistoryScreensTest, TheDetailShowsTheAverageOnRequestAndItsRowsLeadOn) {
    add(0, "Scales", 65);
    add(1, "Étude", 5);
    open();
    EXPECT_TRUE(ui.click(QStringLiteral("practice_time_card")));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("practice_days_7"))), QStringLiteral("2 in 7 days"));
    EXPECT_EQ(ui.find(QStringLiteral("average_line")), nullptr);
    EXPECT_TRUE(ui.click(QStringLiteral("options_menu")));
    EXPECT_EQ(role(ui.find(QStringLiteral("show_average"))), QAccessible::CheckBox);
    EXPECT_TRUE(ui.click(QStringLiteral("show_average")));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("average_line"))), QStringLiteral("Average: 35 minutes"));
    EXPECT_TRUE(ui.click(QStringLiteral("time_range_12_months")));
    auto* const list = ui.find(QStringLiteral("report_list"));
    ASSERT_NE(list, nullptr);
    list->setProperty("contentY", list->property("lastY"));
    EXPECT_NE(ui.find(QStringLiteral("practice_time_row_11")), nullptr);
    list->setProperty("contentY", list->property("originY").toDouble() - 100);
    EXPECT_TRUE(ui.click(QStringLiteral("practice_time_row_0")));
    EXPECT_EQ(spoken(ui.find(QStringLiteral("month_section_0"))), QStringLiteral("3/14/24: 1h 5m"));
    EXPECT_TRUE(ui.click(QStringLiteral("month_row_1")));
    EXPECT_NE(top<PracticeDayBreakdownViewModel>(), nullptr);
    EXPECT_EQ(stack().depth(), 3);
}

TEST_F(HistoryScreensTest, WhatIsRecordedElsewhereIsThereWhenTheTabIsShownAgain) {
    add(1, "Scales", 10);
    open();
    ui.tabs().setSelectedTabIndex(TabViewModel::practiceTabIndex);
    const auto session = PracticeSession::make(ui.world.clock.now(), ui.singletons().exercises.items().first(), 3000,
                                               SessionType::timer);
    ui.singletons().history.record(*session);
    ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex);
    EXPECT_EQ(spoken(ui.find(QStringLiteral("chart_bar_6"))), QStringLiteral("March 14: 50 minutes"));
}

TEST_F(HistoryScreensTest, EverythingIsLargeEnoughAndInsideAtEverySize) {
    for (int i = 0; i < 8; ++i)
        add(i, i % 2 == 0 ? "Scales" : "A piece with quite a long name, in several movements", 600 * i + 3);
    add(800, "Long ago", 5);
    open({360, 640});
    for (const qreal scale : {1.0, 2.0}) {
        ui.appearance().setTextScale(scale);
        for (const char* const identifier :
             {"practice_time_card", "time_range_7_days", "time_range_all_months", "top_exercises_card"}) {
            const QRectF area = ui.area(QLatin1String(identifier));
            EXPECT_GE(area.height(), 44) << identifier << " at " << scale;
            EXPECT_GE(area.width(), 44) << identifier << " at " << scale;
            EXPECT_GE(area.left(), 0) << identifier << " at " << scale;
            EXPECT_LE(area.right(), 360) << identifier << " at " << scale;
        }
    }
}

TEST_F(HistoryScreensTest, TimeRunsFromLeftToRightInEveryLanguage) {
    add(0, "Scales", 65);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    open();
    EXPECT_LT(ui.area(QStringLiteral("chart_bar_0")).left(), ui.area(QStringLiteral("chart_bar_6")).left());
    EXPECT_GT(ui.area(QStringLiteral("time_range_7_days")).left(),
              ui.area(QStringLiteral("time_range_30_days")).left());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace
} // namespace tamsel
