#include "bench/Journal.h"
#include "platform/Log.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

// The practice list in a window of 390 × 844, off screen and drawn without a GPU, with as many items and events as
// the arguments say: the main thread's work until the frame that shows the change, and the frames while the list
// scrolls. A frame of 60 in a second has 16.7 milliseconds.
namespace tamsel {

namespace {

constexpr double frameMilliseconds = 1'000.0 / 60;

// Processor time of this thread, which excludes waiting for the display.
double workSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    constexpr double nanosecond = 1e-9;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * nanosecond;
}

class FullScreen {
public:
    explicit FullScreen(const benchmark::State& state) {
        setLogStream(std::fopen("/dev/null", "w"));
        const auto journal = bench::Journal::make(state.range(0), state.range(1), ui.world.clock.now());
        ui.world.singletons->exercises.setItems(journal.items);
        ui.world.singletons->history.setEvents(journal.events);
        ui.open();
        QObject::connect(&ui.window(), &QQuickWindow::frameSwapped, [this] { ++m_frames; });
        view = ui.find(QStringLiteral("exercise_list"));
    }

    // Work from the change until its frame is shown. A change that shows nothing new counts until the loop is idle.
    double frame(const std::function<void()>& change) {
        m_frames = 0;
        const double start = workSeconds();
        change();
        ui.world.mainQueue.runDue();
        constexpr int patienceMilliseconds = 200;
        const bool shown = QTest::qWaitFor([this] { return m_frames > 0; }, patienceMilliseconds);
        missed += shown ? 0 : 1;
        return workSeconds() - start;
    }

    test::UiWorld ui;
    QQuickItem* view = nullptr;
    int missed = 0; // changes without a frame

private:
    int m_frames = 0;
};

void report(benchmark::State& state, std::vector<double> seconds, int missed) {
    std::ranges::sort(seconds);
    constexpr double milliseconds = 1e3;
    const auto dropped =
        std::ranges::count_if(seconds, [](double each) { return each * milliseconds > frameMilliseconds; });
    state.counters["median_ms"] = seconds[seconds.size() / 2] * milliseconds;
    state.counters["longest_ms"] = seconds.back() * milliseconds;
    state.counters["dropped"] = static_cast<double>(dropped);
    state.counters["without_frame"] = missed;
}

void measure(benchmark::State& state, FullScreen& screen, const std::function<void(int)>& change) {
    std::vector<double> seconds;
    int turn = 0;
    for (auto _ : state) {
        seconds.push_back(screen.frame([&] { change(turn++); }));
        state.SetIterationTime(seconds.back());
    }
    report(state, std::move(seconds), screen.missed);
}

void keystroke(benchmark::State& state) {
    FullScreen screen(state);
    const QStringList typed = {QStringLiteral("é"),  QStringLiteral("ét"),        QStringLiteral("no. 1"),
                               QStringLiteral("99"), QStringLiteral("none such"), QString()};
    measure(state, screen, [&](int turn) { screen.ui.list().setSearchBarText(typed.at(turn % typed.size())); });
}

void changeOfOrder(benchmark::State& state) {
    FullScreen screen(state);
    measure(state, screen, [&](int turn) {
        if (turn % 3 < 2)
            screen.ui.list().sortMenu()->choose(turn % 3);
        else
            screen.ui.list().sortMenu()->chooseSuboption(2, turn % 4);
    });
}

void recordedSession(benchmark::State& state) {
    FullScreen screen(state);
    const QList<Exercise> items = screen.ui.singletons().exercises.items();
    measure(state, screen, [&](int turn) {
        const auto session =
            PracticeSession::make(screen.ui.world.clock.now(), items.at(turn), 600, SessionType::timer);
        screen.ui.singletons().history.record(*session);
    });
}

// A flick: as fast as a finger makes it, through half the list and back.
void scrolling(benchmark::State& state) {
    FullScreen screen(state);
    constexpr int pixelsPerFrame = 90;
    constexpr int framesOneWay = 600;
    const double start = screen.view->property("contentY").toDouble();
    measure(state, screen, [&](int turn) {
        const int place = turn % (2 * framesOneWay);
        const int steps = place < framesOneWay ? place + 1 : 2 * framesOneWay - place - 1;
        screen.view->setProperty("contentY", start + steps * pixelsPerFrame);
    });
}

using Act = std::function<void(test::UiWorld&)>;

// From a tap until the frame that shows the screen: the first time, and once more after going back.
void opening(benchmark::State& state, const Act& tap, const Act& back, const Act& before = {}) {
    std::vector<double> first;
    std::vector<double> again;
    int missed = 0;
    for (auto _ : state) {
        FullScreen screen(state);
        if (before)
            screen.frame([&] { before(screen.ui); });
        const auto open = [&] {
            const auto start = std::chrono::steady_clock::now();
            screen.frame([&] { tap(screen.ui); });
            return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        };
        first.push_back(open());
        screen.frame([&] { back(screen.ui); });
        again.push_back(open());
        missed += screen.missed;
        state.SetIterationTime(first.back());
    }
    const auto median = [](std::vector<double>& seconds) {
        std::ranges::sort(seconds);
        return seconds[seconds.size() / 2] * 1e3;
    };
    state.counters["first_ms"] = median(first);
    state.counters["again_ms"] = median(again);
    state.counters["without_frame"] = missed;
}

void openItem(benchmark::State& state) {
    opening(
        state, [](test::UiWorld& ui) { ui.list().openExercise(3); },
        [](test::UiWorld& ui) { ui.tabs().practiceNavigationStack()->pop(); });
}

void openHistory(benchmark::State& state) {
    opening(
        state, [](test::UiWorld& ui) { ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex); },
        [](test::UiWorld& ui) { ui.tabs().setSelectedTabIndex(TabViewModel::practiceTabIndex); });
}

// From the history's first screen.
void openPracticeTime(benchmark::State& state) {
    opening(
        state, [](test::UiWorld& ui) { ui.tabs().historyViewModel()->openPracticeTime(); },
        [](test::UiWorld& ui) { ui.tabs().historyNavigationStack()->pop(); },
        [](test::UiWorld& ui) { ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex); });
}

// Thirty years and two hundred.
void journals(benchmark::internal::Benchmark* each) {
    each->ArgNames({"items", "events"})->UseManualTime()->Unit(benchmark::kMillisecond);
    each->Args({2'000, 150'000})->Args({13'000, 1'000'000});
}

// And two years.
void allJournals(benchmark::internal::Benchmark* each) {
    journals(each);
    each->Args({150, 10'000});
}

BENCHMARK(keystroke)->Name("list_screen/keystroke")->Apply(journals)->Iterations(60);
BENCHMARK(changeOfOrder)->Name("list_screen/change_of_order")->Apply(journals)->Iterations(60);
BENCHMARK(recordedSession)->Name("list_screen/recorded_session")->Apply(journals)->Iterations(40);
BENCHMARK(scrolling)->Name("list_screen/scrolling")->Apply(journals)->Iterations(1'200);
BENCHMARK(openItem)->Name("list_screen/open_item")->Apply(allJournals)->Iterations(5);
BENCHMARK(openHistory)->Name("list_screen/open_history")->Apply(allJournals)->Iterations(5);
BENCHMARK(openPracticeTime)->Name("list_screen/open_practice_time")->Apply(allJournals)->Iterations(5);

} // namespace

} // namespace tamsel

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
