#include "bench/Journal.h"
#include "list/PracticeListViewModel.h"
#include "platform/Log.h"
#include "tests/support/World.h"

#include <benchmark/benchmark.h>

#include <cstdio>

// What the practice list's model does for a keystroke in the search, a change of order and a recorded session, with as
// many items and events as the arguments say. The screen on top of it is measured by bench_list_screen.
namespace tamsel {

namespace {

class FullList {
public:
    explicit FullList(const benchmark::State& state) {
        setLogStream(std::fopen("/dev/null", "w"));
        const auto journal = bench::Journal::make(state.range(0), state.range(1), world.clock.now());
        world.singletons->exercises.setItems(journal.items);
        world.singletons->history.setEvents(journal.events);
        list.emplace(*world.singletons, world.platform);
    }

    test::World world;
    std::optional<PracticeListViewModel> list;
};

void making(benchmark::State& state) {
    FullList full(state);
    for (auto _ : state)
        full.list.emplace(*full.world.singletons, full.world.platform);
}

void keystroke(benchmark::State& state) {
    FullList full(state);
    const QStringList typed = {QStringLiteral("é"), QStringLiteral("ét"), QStringLiteral("ét 1"), QStringLiteral("1"),
                               QString()};
    qsizetype next = 0;
    for (auto _ : state)
        full.list->setSearchBarText(typed.at(next++ % typed.size()));
}

void changeOfOrder(benchmark::State& state) {
    FullList full(state);
    int next = 0;
    for (auto _ : state) {
        full.list->sortMenu()->choose(next++ % 2);
        full.list->sortMenu()->chooseSuboption(2, next % 4);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

void recordedSession(benchmark::State& state) {
    FullList full(state);
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

// Journals of ever more events, and at last what a life of two hundred years would hold.
void journals(benchmark::internal::Benchmark* each) {
    each->ArgNames({"items", "events"})->Unit(benchmark::kMillisecond);
    for (const int events : {10'000, 100'000, 1'000'000})
        each->Args({2'000, events});
    each->Args({13'000, 1'000'000});
}

BENCHMARK(making)->Name("list/making")->Apply(journals);
BENCHMARK(keystroke)->Name("list/keystroke")->Apply(journals);
BENCHMARK(changeOfOrder)->Name("list/change_of_order")->Apply(journals);
BENCHMARK(recordedSession)->Name("list/recorded_session")->Apply(journals);

} // namespace

} // namespace tamsel
