#include "model/StoredSettings.h"
#include "tests/support/LogCapture.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using test::UiWorld;

class ScreensTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    // Opens with two items and today's practice of the second.
    void openFilled(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
        ui.practise(QStringLiteral("C Major Scales"), 1'500, SessionType::timer);
        ui.open(size);
    }

    void openPractice(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("C Major Scales")});
        ui.open(size);
        ASSERT_NE(ui.practice(), nullptr);
    }

    MetronomeViewModel& metronome() { return *ui.practice()->metronomeViewModel(); }

    const test::WarningCollector warnings;
    const test::LogCapture console;
    UiWorld ui;
};

TEST_F(ScreensTest, TheEmptyListSaysWhatToDoNext) {
    ui.open();
    ASSERT_TRUE(ui.click(QStringLiteral("add_first_item_button")));
    EXPECT_TRUE(ui.list().addExerciseAlertIsPresented());
    ui.type(QStringLiteral("long tones"));
    ui.press(Qt::Key_Return);
    ASSERT_NE(ui.practice(), nullptr) << "a new item opens at once";
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("long tones"));
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(ui.practice(), nullptr);
    EXPECT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr);
    EXPECT_EQ(ui.find(QStringLiteral("add_first_item_button")), nullptr);
}

TEST_F(ScreensTest, CancellingTheAlertAddsNothing) {
    openFilled();
    struct Way {
        const char* name;
        std::function<void()> act;
    };
    for (const Way& way : {Way{"Cancel", [this] { ui.click(QStringLiteral("alert_cancel_button")); }},
                           Way{"Escape", [this] { ui.press(Qt::Key_Escape); }},
                           Way{"outside", [this] {
                                   QTest::mouseClick(&ui.window(), Qt::LeftButton, {}, {20, 800});
                               }}}) {
        ASSERT_TRUE(ui.click(QStringLiteral("add_item_button")));
        ui.type(QStringLiteral("abc"));
        EXPECT_EQ(ui.list().addExerciseAlertTextFieldText(), QStringLiteral("abc"));
        way.act();
        ui.settle();
        EXPECT_FALSE(ui.list().addExerciseAlertIsPresented()) << way.name;
        EXPECT_EQ(ui.singletons().exercises.items().size(), 2) << way.name;
    }
    EXPECT_EQ(ui.practice(), nullptr);
}

TEST_F(ScreensTest, RowsOpenTheirItem) {
    openFilled();
    ASSERT_TRUE(ui.click(QStringLiteral("daily_log_row_0")));
    ASSERT_NE(ui.practice(), nullptr);
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("C Major Scales"));
    ASSERT_TRUE(ui.click(QStringLiteral("back button")));
    EXPECT_EQ(ui.practice(), nullptr);
    ASSERT_TRUE(ui.click(QStringLiteral("exercise_row_0")));
    ASSERT_NE(ui.practice(), nullptr);
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("Arpeggios"));
}

TEST_F(ScreensTest, TheListIsWorkedByKeyboard) {
    openFilled();
    ui.press(Qt::Key_Space);
    EXPECT_TRUE(ui.list().metronomeViewModel()->isPlaying()) << "Space plays while no control has the keyboard";
    ui.press(Qt::Key_Space);
    EXPECT_FALSE(ui.list().metronomeViewModel()->isPlaying());

    QStringList visited;
    for (int i = 0; i < 7; ++i) {
        ui.press(Qt::Key_Down);
        visited.append(ui.window().activeFocusItem()->objectName());
    }
    EXPECT_EQ(visited.join(QLatin1Char(' ')),
              QStringLiteral("sort_order_menu add_item_button search_field daily_log_header daily_log_row_0 "
                             "exercises_header exercise_row_0"));
    ui.press(Qt::Key_Return);
    ASSERT_NE(ui.practice(), nullptr);
    EXPECT_EQ(ui.practice()->exerciseName(), QStringLiteral("Arpeggios"));
    ui.press(Qt::Key_Escape);
    ui.press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(ui.list().addExerciseAlertIsPresented());
}

TEST_F(ScreensTest, ArrowsRunThroughALongListAndBack) {
    QStringList names;
    for (int i = 0; i < 300; ++i)
        names.append(QStringLiteral("Study %1").arg(i));
    ui.addExercises(names);
    ui.open({360, 640});
    for (int i = 0; i < 4; ++i)
        ui.press(Qt::Key_Down); // the sort and add buttons, the search, the section's title
    for (int i = 0; i < 60; ++i)
        ui.press(Qt::Key_Down);
    EXPECT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "exercise_row_59");
    const QRectF area = ui.area(QStringLiteral("exercise_row_59"));
    EXPECT_GE(area.top(), ui.area(QStringLiteral("exercise_list")).top()) << "the row is in sight";
    EXPECT_LE(area.bottom(), ui.area(QStringLiteral("exercise_list")).bottom());
    ui.press(Qt::Key_Tab);
    EXPECT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "minus button") << "the list is one stop";
    ui.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "exercise_row_59");
    for (int i = 0; i < 60; ++i)
        ui.press(Qt::Key_Up);
    EXPECT_EQ(ui.window().activeFocusItem()->objectName().toStdString(), "exercises_header");
}

// The model counts appearances: the first of the program does not reload.
TEST_F(ScreensTest, TheListAppearsOnceForEachVisit) {
    openFilled();
    const auto reloads = [this] {
        return console.lines().count(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData"));
    };
    EXPECT_EQ(reloads(), 0);
    ui.list().openExercise(0);
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(reloads(), 1);
    ui.click(QStringLiteral("thanks_tab"));
    ui.click(QStringLiteral("practice_tab"));
    EXPECT_EQ(reloads(), 2);
}

TEST_F(ScreensTest, SectionsFold) {
    openFilled();
    ASSERT_TRUE(ui.click(QStringLiteral("exercises_header")));
    EXPECT_EQ(ui.find(QStringLiteral("exercise_row_0")), nullptr);
    ASSERT_TRUE(ui.click(QStringLiteral("daily_log_header")));
    EXPECT_EQ(ui.find(QStringLiteral("daily_log_row_0")), nullptr);
    ASSERT_TRUE(ui.click(QStringLiteral("exercises_header")));
    EXPECT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr);
}

TEST_F(ScreensTest, ARowThatComesMovesTheOthersAndNotTheView) {
    openFilled();
    QQuickItem* const list = ui.find(QStringLiteral("exercise_list"));
    ui.singletons().exercises.add(QStringLiteral("New piece"));
    ui.settle();
    EXPECT_NE(ui.find(QStringLiteral("exercise_row_1")), nullptr);
    const QRectF header = ui.area(QStringLiteral("exercises_header"));
    const QRectF first = ui.area(QStringLiteral("exercise_row_0"));
    EXPECT_GE(first.top(), header.bottom());
    EXPECT_LT(first.top() - header.bottom(), 20);
    EXPECT_TRUE(list->property("atYBeginning").toBool());
}

TEST_F(ScreensTest, EveryControlOfTheMetronomeIsWired) {
    openPractice();
    metronome().setTempo(100);
    struct Case {
        const char* identifier;
        Qt::MouseButton button;
        qint64 tempo;
    };
    for (const Case& one : {Case{"plus button", Qt::LeftButton, 101}, Case{"minus button", Qt::LeftButton, 100},
                            Case{"plus button", Qt::RightButton, 110}, Case{"minus button", Qt::RightButton, 100},
                            Case{"up button", Qt::LeftButton, 100}, Case{"down button", Qt::LeftButton, 100}}) {
        ASSERT_TRUE(ui.click(QString::fromLatin1(one.identifier), one.button)) << one.identifier;
        EXPECT_EQ(metronome().tempo(), one.tempo) << one.identifier;
    }
    ASSERT_TRUE(ui.click(QStringLiteral("play pause button")));
    EXPECT_TRUE(metronome().isPlaying());
    ASSERT_TRUE(ui.click(QStringLiteral("play pause button")));
    EXPECT_FALSE(metronome().isPlaying());
}

TEST_F(ScreensTest, TheUpAndDownButtonsLeadToTheBookmarks) {
    ui.addExercises({QStringLiteral("C Major Scales")});
    ExerciseSettings settings;
    settings.bookmarks = {60, 90};
    storeSettings(ui.world.store, ui.world.singletons->exercises.items().first().id, settings);
    ui.open();
    metronome().setTempo(70);
    ui.click(QStringLiteral("up button"));
    EXPECT_EQ(metronome().tempo(), 90);
    ui.click(QStringLiteral("down button"));
    EXPECT_EQ(metronome().tempo(), 60);
}

TEST_F(ScreensTest, KeysStepTheTempoAndPlay) {
    openPractice();
    metronome().setTempo(100);
    struct Case {
        Qt::Key key;
        qint64 tempo;
    };
    for (const Case& one :
         {Case{Qt::Key_Up, 101}, Case{Qt::Key_Down, 100}, Case{Qt::Key_PageUp, 110}, Case{Qt::Key_PageDown, 100}}) {
        ui.press(one.key);
        EXPECT_EQ(metronome().tempo(), one.tempo) << one.key;
    }
    ui.press(Qt::Key_Space);
    EXPECT_TRUE(metronome().isPlaying());
}

TEST_F(ScreensTest, AKeyThatIsHeldDownTogglesOnce) {
    openPractice();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(&ui.window(), &press);
    for (int i = 0; i < 3; ++i)
        QCoreApplication::sendEvent(&ui.window(), &repeat);
    EXPECT_TRUE(metronome().isPlaying());
}

TEST_F(ScreensTest, ATypedTempoIsTakenOver) {
    openPractice();
    metronome().setTempo(100);
    struct Case {
        const char* typed;
        Qt::Key end;
        qint64 tempo;
    };
    for (const Case& one :
         {Case{"84", Qt::Key_Return, 84}, Case{"999", Qt::Key_Enter, 500}, Case{"0", Qt::Key_Return, 1},
          Case{"abc", Qt::Key_Return, 1}, Case{"60", Qt::Key_Escape, 1}, Case{"", Qt::Key_Return, 1}}) {
        ASSERT_TRUE(ui.click(QStringLiteral("current_tempo_field")));
        EXPECT_TRUE(metronome().tempoTextFieldFocused());
        EXPECT_EQ(metronome().tempoTextFieldText(), QString()) << "the field is ready for a fresh number";
        ui.type(QString::fromLatin1(one.typed));
        ui.press(one.end);
        EXPECT_FALSE(metronome().tempoTextFieldFocused()) << one.typed;
        EXPECT_EQ(metronome().tempo(), one.tempo) << one.typed;
        EXPECT_NE(ui.practice(), nullptr) << "Escape in the field leaves the field, not the screen";
        ui.press(Qt::Key_Space);
        EXPECT_TRUE(metronome().isPlaying()) << "the screen has the keyboard again";
        ui.press(Qt::Key_Space);
    }
}

TEST_F(ScreensTest, WhileATempoIsTypedSpaceDoesNotPlay) {
    openPractice();
    ASSERT_TRUE(ui.click(QStringLiteral("current_tempo_field")));
    ui.press(Qt::Key_Space);
    EXPECT_FALSE(metronome().isPlaying());
    // A tap elsewhere ends the typing.
    ui.type(QStringLiteral("77"));
    QTest::mouseClick(&ui.window(), Qt::LeftButton, {}, {195, 820});
    ui.settle();
    EXPECT_EQ(metronome().tempo(), 77);
}

TEST_F(ScreensTest, TheBellAndTheBeatFollowTheClicks) {
    openPractice();
    metronome().setRhythmSelection(Rhythm::fourFour);
    EXPECT_EQ(ui.find(QStringLiteral("visual_bell")), nullptr);
    ui.click(QStringLiteral("play pause button"));
    bool seen = false;
    for (int block = 0; block < 40 && !seen; ++block) {
        ui.world.output.render(11'025);
        ui.world.output.settle();
        ui.settle();
        EXPECT_EQ(ui.find(QStringLiteral("visual_bell")) != nullptr, metronome().isVisualBellOn());
        seen = metronome().isVisualBellOn();
    }
    EXPECT_TRUE(seen);
    ui.click(QStringLiteral("play pause button"));
    EXPECT_EQ(ui.find(QStringLiteral("visual_bell")), nullptr) << "the screen does not stay lit";
}

TEST_F(ScreensTest, ATimerRunsFromItsMenu) {
    openPractice();
    ASSERT_TRUE(ui.click(QStringLiteral("timer_button")));
    ASSERT_TRUE(ui.click(QStringLiteral("5 minute timer")));
    EXPECT_EQ(ui.practice()->timerText(), QStringLiteral("05:00"));
    EXPECT_EQ(ui.find(QStringLiteral("5 minute timer")), nullptr) << "the menu is gone";
    ui.world.mainQueue.advance(60s);
    ASSERT_TRUE(ui.click(QStringLiteral("timer_pause_button")));
    EXPECT_FALSE(ui.practice()->timerIsRunning());
    ASSERT_TRUE(ui.click(QStringLiteral("timer_pause_button")));
    EXPECT_TRUE(ui.practice()->timerIsRunning());
    ASSERT_TRUE(ui.click(QStringLiteral("timer_button")));
    EXPECT_EQ(ui.find(QStringLiteral("5 minute timer")), nullptr) << "now it offers the run's actions";
    ASSERT_TRUE(ui.click(QStringLiteral("timer_save")));
    EXPECT_FALSE(ui.practice()->timerExists());
    EXPECT_NE(ui.find(QStringLiteral("recent_session_0")), nullptr);

    ui.click(QStringLiteral("timer_button"));
    ui.click(QStringLiteral("1 minute timer"));
    ui.world.mainQueue.advance(30s);
    ui.click(QStringLiteral("timer_button"));
    ASSERT_TRUE(ui.click(QStringLiteral("timer_cancel")));
    EXPECT_FALSE(ui.practice()->timerExists());
    EXPECT_EQ(ui.practice()->recentPracticeSessions().size(), 1) << "a cancelled run is dropped";
}

TEST_F(ScreensTest, AStopwatchRunsFromItsCard) {
    openPractice();
    ASSERT_TRUE(ui.click(QStringLiteral("stopwatch_button")));
    EXPECT_TRUE(ui.practice()->stopwatchIsRunning());
    ui.click(QStringLiteral("timer_button"));
    EXPECT_EQ(ui.find(QStringLiteral("5 minute timer")), nullptr) << "one run at a time";
    ui.world.mainQueue.advance(70s);
    ASSERT_TRUE(ui.click(QStringLiteral("stopwatch_pause_button")));
    EXPECT_FALSE(ui.practice()->stopwatchIsRunning());
    ASSERT_TRUE(ui.click(QStringLiteral("stopwatch_button")));
    ASSERT_TRUE(ui.click(QStringLiteral("stopwatch_save")));
    EXPECT_EQ(ui.practice()->recentPracticeSessions().size(), 1);
}

TEST_F(ScreensTest, LeavingAndClosingSaveWhatRuns) {
    openPractice();
    ui.practice()->startTimer(5);
    ui.world.mainQueue.advance(90s);
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(ui.singletons().dailyLog.practiceSessions().size(), 1);
    ASSERT_TRUE(ui.click(QStringLiteral("daily_log_row_0")));
    ui.practice()->startStopwatch();
    ui.world.mainQueue.advance(10s);
    ui.window().close();
    EXPECT_EQ(ui.singletons().dailyLog.practiceSessions().size(), 2);
}

TEST_F(ScreensTest, TabsShowTheirScreens) {
    openFilled();
    ASSERT_TRUE(ui.click(QStringLiteral("history_tab")));
    EXPECT_EQ(ui.tabs().selectedTabIndex(), TabViewModel::historyTabIndex);
    EXPECT_NE(ui.find(QStringLiteral("practice_time_card")), nullptr);
    ASSERT_TRUE(ui.click(QStringLiteral("thanks_tab")));
    EXPECT_EQ(ui.tabs().selectedTabIndex(), TabViewModel::thanksTabIndex);
    EXPECT_EQ(ui.find(QStringLiteral("exercise_row_0")), nullptr);
    ui.press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_NE(ui.find(QStringLiteral("exercise_row_0")), nullptr);
}

// What can be reached on every size of window lies inside it and is large enough for a finger.
TEST_F(ScreensTest, EveryControlIsInsideTheWindowAndLargeEnough) {
    openFilled();
    for (const QSize size : {QSize(360, 640), QSize(390, 844), QSize(844, 390), QSize(768, 1024), QSize(1180, 820)}) {
        for (const qreal textScale : {1.0, 2.0}) {
            ui.appearance().setTextScale(textScale);
            ui.resize(size);
            const QRectF window(QPointF(), size);
            const auto check = [&](const char* identifier) {
                const QRectF area = ui.area(QString::fromLatin1(identifier));
                EXPECT_TRUE(window.contains(area)) << identifier << " at " << size.width() << " × " << textScale;
                EXPECT_GE(std::min(area.width(), area.height()), 44) << identifier;
            };
            for (const char* identifier :
                 {"add_item_button", "minus button", "current_tempo_field", "plus button", "tap_tempo_button",
                  "play pause button", "practice_tab", "history_tab", "thanks_tab"})
                check(identifier);
            ui.list().openExercise(0);
            for (const char* identifier : {"back button", "minus button", "current_tempo_field", "plus button"})
                check(identifier);
            const QRectF minus = ui.area(QStringLiteral("minus button"));
            const QRectF plus = ui.area(QStringLiteral("plus button"));
            const QRectF tempo = ui.area(QStringLiteral("current_tempo_field"));
            EXPECT_TRUE(minus.right() <= tempo.left() && tempo.right() <= plus.left()) << size.width();
            ui.press(Qt::Key_Escape);
        }
    }
}

// Reads the window as a screen reader does: every control has a name, a fitting role and what it needs to be worked.
TEST_F(ScreensTest, AScreenReaderFindsEveryControl) {
    QAccessible::setActive(true);
    openFilled();
    const auto check = [this](const char* identifier, const char* name, QAccessible::Role role, const char* action) {
        QQuickItem* const item = ui.find(QString::fromLatin1(identifier));
        ASSERT_NE(item, nullptr) << identifier;
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(item);
        ASSERT_NE(spoken, nullptr) << identifier;
        EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), name) << identifier;
        EXPECT_EQ(spoken->role(), role) << identifier;
        EXPECT_TRUE(spoken->state().focusable) << identifier;
        if (action != nullptr) {
            ASSERT_NE(spoken->actionInterface(), nullptr) << identifier;
            spoken->actionInterface()->doAction(QString::fromLatin1(action));
            ui.settle();
        }
    };
    check("practice_tab", "Practice", QAccessible::PageTab, "Press");
    check("thanks_tab", "Thanks", QAccessible::PageTab, nullptr);
    check("plus button", "plus button", QAccessible::Button, nullptr);
    check("tap_tempo_button", "Tap Tempo", QAccessible::Button, nullptr);
    check("exercises_header", "Items", QAccessible::Button, nullptr);
    check("daily_log_row_0", "C Major Scales", QAccessible::ListItem, nullptr);
    check("add_item_button", "add item", QAccessible::Button, "Press");
    EXPECT_TRUE(ui.list().addExerciseAlertIsPresented());
    check("alert_confirm_button", "Add", QAccessible::Button, nullptr);
    check("alert_text_field", "Add practice item", QAccessible::EditableText, nullptr);
    ui.press(Qt::Key_Escape);

    check("exercise_row_0", "Arpeggios", QAccessible::ListItem, "Press");
    ASSERT_NE(ui.practice(), nullptr);
    metronome().setTempo(100);
    check("current_tempo_field", "Current tempo field", QAccessible::EditableText, "Increase");
    EXPECT_EQ(metronome().tempo(), 101);
    check("minus button", "minus button", QAccessible::Button, "Press");
    EXPECT_EQ(metronome().tempo(), 100);
    check("up button", "up button", QAccessible::Button, nullptr);
    check("down button", "down button", QAccessible::Button, nullptr);
    check("play pause button", "play pause button", QAccessible::Button, "Press");
    EXPECT_TRUE(metronome().isPlaying());
    check("stopwatch_button", "Stopwatch", QAccessible::Button, "Press");
    check("stopwatch_pause_button", "Pause stopwatch", QAccessible::Button, "Press");
    check("stopwatch_pause_button", "Resume stopwatch", QAccessible::Button, nullptr);
    QAccessible::setActive(false);
}

TEST_F(ScreensTest, NothingHappensWhileNothingChanges) {
    openFilled();
    ui.settle();
    int frames = 0;
    QObject::connect(&ui.window(), &QQuickWindow::frameSwapped, &ui.window(), [&frames] { ++frames; });
    ui.settle();
    EXPECT_EQ(frames, 0);
    ui.list().metronomeViewModel()->plusTapped();
    for (int round = 0; round < 100 && frames == 0; ++round)
        QTest::qWait(5);
    EXPECT_EQ(frames, 1) << "one change, one frame";
}

TEST_F(ScreensTest, SchemesAndSizesChangeAtRunTime) {
    openFilled();
    for (const auto scheme : {Appearance::Scheme::Light, Appearance::Scheme::Dark}) {
        ui.appearance().setScheme(scheme);
        const QRgb ground = scheme == Appearance::Scheme::Dark ? 0xFF22262F : 0xFFE9EDF3;
        EXPECT_EQ(ui.grab().pixel(2, 2), ground);
    }
    ui.appearance().setTextScale(2);
    ui.appearance().setReducedMotion(true);
    ui.settle();
}

} // namespace
} // namespace tamsel
