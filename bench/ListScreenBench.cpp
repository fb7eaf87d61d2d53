#include "platform/Log.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

// The practice list in a window of 390 × 844, off screen and drawn without a GPU, with 2,000 items and 100,000 events:
// the main thread's work until the frame that shows the change, and the frames while the list scrolls. A frame of 60 in
// a second has 16.7 milliseconds.
namespace tamsel {

namespace {

constexpr int itemCount = 2'000;
constexpr int eventCount = 100'000;
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
    FullScreen() {
        setLogStream(std::fopen("/dev/null", "w"));
        QList<Exercise> items;
        for (int i = 0; i < itemCount; ++i)
            items += {QStringLiteral("Étude op. %1 no. %2").arg(i * 7'919 % 640).arg(i),
                      QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1)};
        QList<HistoryEvent> events;
        for (int i = 0; i < eventCount; ++i)
            events += {ui.world.clock.now() - (eventCount - i) * 1'800.0,
                       items.at(i * 6'007 % itemCount).name,
                       i % 50 + 1,
                       {},
                       {},
                       QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, 2)};
        ui.world.singletons->exercises.setItems(items);
        ui.world.singletons->history.setEvents(events);
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
    FullScreen screen;
    const QStringList typed = {QStringLiteral("é"),  QStringLiteral("ét"),        QStringLiteral("no. 1"),
                               QStringLiteral("99"), QStringLiteral("none such"), QString()};
    measure(state, screen, [&](int turn) { screen.ui.list().setSearchBarText(typed.at(turn % typed.size())); });
}

void changeOfOrder(benchmark::State& state) {
    FullScreen screen;
    measure(state, screen, [&](int turn) {
        if (turn % 3 < 2)
            screen.ui.list().sortMenu()->choose(turn % 3);
        else
            screen.ui.list().sortMenu()->chooseSuboption(2, turn % 4);
    });
}

void recordedSession(benchmark::State& state) {
    FullScreen screen;
    const QList<Exercise> items = screen.ui.singletons().exercises.items();
    measure(state, screen, [&](int turn) {
        const auto session =
            PracticeSession::make(screen.ui.world.clock.now(), items.at(turn), 600, SessionType::timer);
        screen.ui.singletons().history.record(*session);
    });
}

// A flick: as fast as a finger makes it, through half the list and back.
void scrolling(benchmark::State& state) {
    FullScreen screen;
    constexpr int pixelsPerFrame = 90;
    constexpr int framesOneWay = 600;
    const double start = screen.view->property("contentY").toDouble();
    measure(state, screen, [&](int turn) {
        const int place = turn % (2 * framesOneWay);
        const int steps = place < framesOneWay ? place + 1 : 2 * framesOneWay - place - 1;
        screen.view->setProperty("contentY", start + steps * pixelsPerFrame);
    });
}

BENCHMARK(keystroke)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(changeOfOrder)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(recordedSession)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(scrolling)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1'200);

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
