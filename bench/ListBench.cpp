#include "list/PracticeListViewModel.h"
#include "platform/Log.h"
#include "tests/support/World.h"

#include <benchmark/benchmark.h>

#include <cstdio>

// What the practice list's model does for a keystroke in the search, a change of order and a recorded session, with
// 2,000 items and 100,000 events. The screen on top of it is measured by bench_list_screen.
namespace tamsel {

namespace {

constexpr int itemCount = 2'000;
constexpr int eventCount = 100'000;

class FullList {
public:
    FullList() {
        setLogStream(std::fopen("/dev/null", "w"));
        QList<Exercise> items;
        for (int i = 0; i < itemCount; ++i)
            items += {QStringLiteral("Étude op. %1 no. %2").arg(i * 7'919 % 640).arg(i),
                      QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1)};
        world.singletons->exercises.setItems(items);
        QList<HistoryEvent> events;
        for (int i = 0; i < eventCount; ++i)
            events += {world.clock.now() - (eventCount - i) * 1'800.0,
                       items.at(i * 6'007 % itemCount).name,
                       i % 50 + 1,
                       {},
                       {},
                       QUuid(static_cast<uint>(i), 0, 0, 0, 0, 0, 0, 0, 0, 0, 2)};
        world.singletons->history.setEvents(events);
        list.emplace(*world.singletons, world.platform);
    }

    test::World world;
    std::optional<PracticeListViewModel> list;
};

void making(benchmark::State& state) {
    FullList full;
    for (auto _ : state)
        full.list.emplace(*full.world.singletons, full.world.platform);
}

void keystroke(benchmark::State& state) {
    FullList full;
    const QStringList typed = {QStringLiteral("é"), QStringLiteral("ét"), QStringLiteral("ét 1"), QStringLiteral("1"),
                               QString()};
    qsizetype next = 0;
    for (auto _ : state)
        full.list->setSearchBarText(typed.at(next++ % typed.size()));
}

void changeOfOrder(benchmark::State& state) {
    FullList full;
    int next = 0;
    for (auto _ : state) {
        full.list->sortMenu()->choose(next++ % 2);
        full.list->sortMenu()->chooseSuboption(2, next % 4);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

void recordedSession(benchmark::State& state) {
    FullList full;
    const QList<Exercise> items = full.world.singletons->exercises.items();
    qsizetype next = 0;
    for (auto _ : state) {
        const auto session =
            PracticeSession::make(full.world.clock.now(), items.at(next++ % 20), 600, SessionType::timer);
        full.world.singletons->history.record(*session);
        full.world.mainQueue.runDue();
        if (next % 20 == 0) {
            state.PauseTiming();
            full.world.singletons->dailyLog.setPracticeSessions({});
            full.world.mainQueue.runDue();
            state.ResumeTiming();
        }
    }
}

BENCHMARK(making)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->Unit(benchmark::kMillisecond);
BENCHMARK(changeOfOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(recordedSession)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tamsel
