#include "model/SettingsKeys.h"
#include "tests/support/LogCapture.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using test::UiWorld;

class NavigationScreensTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    // Opens with one item, whose practice screen is then on top.
    void openPractice(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("C Major Scales")});
        ui.open(size);
        ASSERT_NE(ui.practice(), nullptr);
    }

    void openItem() {
        ui.list().openExercise(0);
        ui.settle();
        ASSERT_NE(ui.practice(), nullptr);
    }

    void swipe(QPoint from, QPoint to) {
        QTest::touchEvent(&ui.window(), m_finger).press(0, from);
        for (int step = 1; step <= 8; ++step)
            QTest::touchEvent(&ui.window(), m_finger).move(0, from + (to - from) * step / 8);
        m_arrowWasSeen = ui.find(QStringLiteral("back_swipe_arrow")) != nullptr;
        QTest::touchEvent(&ui.window(), m_finger).release(0, to);
        ui.settle();
    }

    bool arrowWasSeen() const { return m_arrowWasSeen; }

    QString tabText(const char* identifier) {
        return ui.find(QString::fromLatin1(identifier))->property("text").toString();
    }

    const test::WarningCollector warnings;
    const test::LogCapture console;
    UiWorld ui;

private:
    QPointingDevice* const m_finger = QTest::createTouchDevice();
    bool m_arrowWasSeen = false;
};

TEST_F(NavigationScreensTest, EveryWayBackLeadsBackOnce) {
    openPractice();
    struct Way {
        const char* name;
        std::function<void()> go;
    };
    for (const Way& way : {
             Way{"Escape", [this] { ui.press(Qt::Key_Escape); }},
             Way{"back key", [this] { ui.press(Qt::Key_Back); }},
             Way{"Alt+Left", [this] { ui.press(Qt::Key_Left, Qt::AltModifier); }},
             Way{"button", [this] { ui.click(QStringLiteral("back button")); }},
             Way{"mouse's back button",
                 [this] {
                     QTest::mouseClick(&ui.window(), Qt::BackButton, {}, {195, 300});
                 }},
             Way{"swipe",
                 [this] {
                     swipe({4, 400}, {150, 410});
                 }},
             Way{"swipe beside the metronome's button",
                 [this] {
                     swipe({10, 150}, {120, 150});
                 }},
         }) {
        ASSERT_NE(ui.practice(), nullptr);
        way.go();
        ui.settle();
        EXPECT_EQ(ui.practice(), nullptr) << way.name;
        EXPECT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr) << way.name;
        // On the list the same way leads nowhere.
        way.go();
        EXPECT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr) << way.name;
        openItem();
    }
}

TEST_F(NavigationScreensTest, OnlyALongSwipeFromTheEdgeLeadsBack) {
    openPractice();
    struct Case {
        const char* what;
        QPoint from;
        QPoint to;
        bool arrow;
    };
    for (const Case& one :
         {Case{"too short", {4, 400}, {50, 400}, true}, Case{"from the middle", {100, 700}, {300, 700}, false},
          Case{"downwards", {4, 400}, {8, 700}, false}, Case{"away", {300, 700}, {100, 700}, false}}) {
        swipe(one.from, one.to);
        EXPECT_NE(ui.practice(), nullptr) << one.what;
        EXPECT_EQ(arrowWasSeen(), one.arrow) << one.what;
        EXPECT_EQ(ui.find(QStringLiteral("back_swipe_arrow")), nullptr) << one.what;
    }
}

TEST_F(NavigationScreensTest, RightToLeftTheSwipeComesFromTheRight) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openPractice();
    swipe({4, 400}, {150, 400});
    EXPECT_NE(ui.practice(), nullptr);
    swipe({386, 400}, {240, 400});
    EXPECT_EQ(ui.practice(), nullptr);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(NavigationScreensTest, WhatLiesOverAScreenIsClosedFirst) {
    openPractice();
    struct Way {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    for (const Way& way : {Way{Qt::Key_Escape, {}}, Way{Qt::Key_Back, {}}, Way{Qt::Key_Left, Qt::AltModifier}}) {
        ASSERT_TRUE(ui.click(QStringLiteral("timer_button")));
        ASSERT_NE(ui.find(QStringLiteral("5 minute timer")), nullptr);
        ui.press(way.key, way.modifiers);
        EXPECT_EQ(ui.find(QStringLiteral("5 minute timer")), nullptr) << way.key;
        EXPECT_NE(ui.practice(), nullptr) << way.key;
    }
    ASSERT_TRUE(ui.click(QStringLiteral("timer_button")));
    swipe({4, 100}, {200, 100});
    EXPECT_NE(ui.practice(), nullptr) << "the swipe does not reach through the sheet";
    // The sheet takes either for a press outside, which closes it.
    ASSERT_TRUE(ui.click(QStringLiteral("timer_button")));
    QTest::mouseClick(&ui.window(), Qt::BackButton, {}, {195, 100});
    ui.settle();
    EXPECT_NE(ui.practice(), nullptr) << "nor does the mouse";
}

TEST_F(NavigationScreensTest, TheOneItemOpensAtLaunchOverTheList) {
    openPractice();
    EXPECT_EQ(ui.find(QStringLiteral("exercise_list")), nullptr);
    ui.press(Qt::Key_Space);
    EXPECT_TRUE(ui.practice()->metronomeViewModel()->isPlaying()) << "it has the keyboard";
    ui.press(Qt::Key_Escape);
    ASSERT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr);
    ui.press(Qt::Key_Space);
    EXPECT_FALSE(ui.list().metronomeViewModel()->isPlaying()) << "now the list has it";

    const auto reloads = [this] {
        return console.lines().count(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData"));
    };
    EXPECT_EQ(reloads(), 0) << "the list appeared for the first time";
    openItem();
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(reloads(), 1);
}

TEST_F(NavigationScreensTest, ARunningPracticeIsFoundAsItWasLeft) {
    openPractice();
    ui.practice()->startTimer(5);
    ui.press(Qt::Key_Space);
    PracticeViewModel* const before = ui.practice();
    const auto screen = ui.find(QStringLiteral("timer_button"));
    for (const Qt::Key tab : {Qt::Key_2, Qt::Key_3}) {
        ui.press(tab, Qt::ControlModifier);
        EXPECT_EQ(ui.find(QStringLiteral("timer_button")), nullptr);
        ui.press(Qt::Key_Space);
        ui.press(Qt::Key_Escape);
        ui.world.mainQueue.advance(30s);
        ASSERT_TRUE(ui.click(QStringLiteral("practice_tab"))) << "the tabs are back";
        EXPECT_EQ(ui.find(QStringLiteral("timer_button")), screen) << "the very same";
    }
    EXPECT_EQ(ui.practice(), before);
    EXPECT_EQ(ui.practice()->timerText(), QStringLiteral("04:00"));
    EXPECT_TRUE(ui.practice()->metronomeViewModel()->isPlaying()) << "keys of other tabs do not reach it";
    EXPECT_TRUE(ui.singletons().dailyLog.practiceSessions().isEmpty());
    ui.press(Qt::Key_Space);
    EXPECT_FALSE(ui.practice()->metronomeViewModel()->isPlaying()) << "it has the keyboard again";
}

TEST_F(NavigationScreensTest, TheTabsStayWithThePracticeWhereThereIsRoom) {
    openPractice();
    for (const QSize size : {QSize(1180, 820), QSize(390, 844)}) {
        ui.resize(size);
        ASSERT_TRUE(ui.click(QStringLiteral("history_tab"))) << size.width();
        ASSERT_TRUE(ui.click(QStringLiteral("practice_tab")));
        EXPECT_NE(ui.find(QStringLiteral("timer_button")), nullptr);
    }
    ui.appearance().setTextScale(2);
    EXPECT_EQ(ui.find(QStringLiteral("history_tab")), nullptr);
    ui.appearance().setTextScale(1);
    for (const QSize size : {QSize(844, 390), QSize(360, 640)}) {
        ui.resize(size);
        EXPECT_EQ(ui.find(QStringLiteral("history_tab")), nullptr) << size.width();
    }
}

TEST_F(NavigationScreensTest, TheListHandsItsMetronomeOverAndTakesItBack) {
    ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
    ui.open();
    ui.list().metronomeViewModel()->setTempo(90);
    ui.click(QStringLiteral("play pause button"));
    openItem();
    MetronomeViewModel& metronome = *ui.practice()->metronomeViewModel();
    EXPECT_TRUE(metronome.isPlaying());
    EXPECT_EQ(ui.singletons().metronome.tempoBPM(), static_cast<double>(metronome.tempo())) << "the item's";
    metronome.setTempo(140);
    ui.press(Qt::Key_Escape);
    EXPECT_TRUE(ui.list().metronomeViewModel()->isPlaying());
    EXPECT_EQ(ui.list().metronomeViewModel()->tempo(), 140);
    ui.click(QStringLiteral("play pause button"));
    EXPECT_FALSE(ui.singletons().metronome.isPlaying());
    ui.click(QStringLiteral("plus button"));
    EXPECT_EQ(ui.singletons().metronome.tempoBPM(), 141);
}

TEST_F(NavigationScreensTest, AStackOfTheHistoryTabIsItsOwn) {
    openPractice();
    NavigationStackViewModel& history = *ui.tabs().historyNavigationStack();
    ui.press(Qt::Key_2, Qt::ControlModifier);
    for (int level = 0; level < 2; ++level) {
        history.push(
            {QStringLiteral("ThanksScreen.qml"), QStringLiteral("thanks"), std::make_unique<ThanksViewModel>(nullptr)});
        ASSERT_NE(ui.find(QStringLiteral("tip_jar_text")), nullptr);
    }
    EXPECT_EQ(ui.find(QStringLiteral("history_practice_button")), nullptr);
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(history.depth(), 1);
    EXPECT_NE(ui.find(QStringLiteral("tip_jar_text")), nullptr);
    swipe({4, 400}, {150, 400});
    EXPECT_EQ(history.depth(), 0);
    EXPECT_NE(ui.find(QStringLiteral("history_practice_button")), nullptr);
    EXPECT_NE(ui.practice(), nullptr) << "the practice tab kept its own";
}

TEST_F(NavigationScreensTest, TheBadgeIsShownUntilTheTabIsOpened) {
    ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
    ui.world.store.setBoolean(keys::hasReadJul15Message, true);
    ui.open();
    EXPECT_EQ(tabText("thanks_tab").toStdString(), "New!");
    EXPECT_EQ(ui.find(QStringLiteral("thanks_tab"))->property("iconName"), QStringLiteral("sparkles"));
    ui.click(QStringLiteral("history_tab"));
    EXPECT_EQ(tabText("thanks_tab").toStdString(), "New!");
    ui.click(QStringLiteral("thanks_tab"));
    EXPECT_EQ(tabText("thanks_tab").toStdString(), "Thanks");
    EXPECT_EQ(ui.find(QStringLiteral("thanks_tab"))->property("iconName"), QStringLiteral("heart"));
    UiWorld fresh;
    fresh.open();
    EXPECT_EQ(fresh.find(QStringLiteral("thanks_tab"))->property("text"), QStringLiteral("Thanks"));
}

TEST_F(NavigationScreensTest, TheThanksTabHasNothingDeadToPress) {
    QAccessible::setActive(true);
    ui.open();
    ui.click(QStringLiteral("thanks_tab"));
    QQuickItem* const words = ui.find(QStringLiteral("tip_jar_text"));
    ASSERT_NE(words, nullptr);
    EXPECT_TRUE(words->property("text").toString().startsWith(QStringLiteral("Tips cannot be taken here")));
    EXPECT_EQ(ui.find(QStringLiteral("tip_button_0")), nullptr);
    EXPECT_EQ(ui.find(QStringLiteral("ask_again_button")), nullptr);
    struct Tab {
        const char* identifier;
        const char* name;
        bool selected;
    };
    for (const Tab& tab : {Tab{"practice_tab", "Practice", false}, Tab{"history_tab", "History", false},
                           Tab{"thanks_tab", "Thanks", true}}) {
        QAccessibleInterface* const spoken =
            QAccessible::queryAccessibleInterface(ui.find(QString::fromLatin1(tab.identifier)));
        EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), tab.name);
        EXPECT_EQ(spoken->role(), QAccessible::PageTab);
        EXPECT_EQ(spoken->state().selected, tab.selected) << tab.name;
    }
    QAccessible::setActive(false);
}

// A store with one tip, which is taken at once.
class OneTip final : public TipProvider {
public:
    void availableTips(std::function<void(const QList<Tip>&)> answer) override {
        answer(available ? QList<Tip>{{QStringLiteral("t"), QStringLiteral("Reed"), QStringLiteral("2 €")}}
                         : QList<Tip>());
    }
    void purchase(const Tip&, std::function<void(TipResult)> answer) override { pending = std::move(answer); }

    bool available = false;
    std::function<void(TipResult)> pending;
};

TEST_F(NavigationScreensTest, ATipIsTakenWhereThereIsAStore) {
    OneTip store;
    ui.tipProvider = &store;
    ui.open({360, 640});
    ui.click(QStringLiteral("thanks_tab"));
    QQuickItem* const page = ui.find(QStringLiteral("thanks_page"));
    EXPECT_EQ(page->property("contentY").toDouble(), 0);
    ui.press(Qt::Key_Down);
    EXPECT_GT(page->property("contentY").toDouble(), 0);
    store.available = true;
    ui.press(Qt::Key_Tab);
    ASSERT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "ask_again_button");
    ui.press(Qt::Key_Return);
    EXPECT_EQ(ui.find(QStringLiteral("ask_again_button")), nullptr);
    ui.press(Qt::Key_Tab);
    ASSERT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "tip_button_0");
    EXPECT_TRUE(QRectF(0, 0, 360, 640).contains(ui.area(QStringLiteral("tip_button_0"))))
        << "it is scrolled into sight";
    ASSERT_TRUE(ui.click(QStringLiteral("tip_button_0")));
    ASSERT_TRUE(store.pending);
    EXPECT_FALSE(ui.find(QStringLiteral("tip_button_0"))->isEnabled());
    store.pending(TipResult::success);
    EXPECT_EQ(ui.find(QStringLiteral("tip_jar_text"))->property("text"),
              QStringLiteral("Your tip has arrived. Thank you!"));
    EXPECT_TRUE(ui.find(QStringLiteral("tip_button_0"))->isEnabled());
}

} // namespace
} // namespace tamsel
