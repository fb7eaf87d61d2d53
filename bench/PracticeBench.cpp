#include "app/Singletons.h"
#include "metronome/OfflineOutput.h"
#include "model/Json.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredSettings.h"
#include "platform/Log.h"
#include "practice/PracticeViewModel.h"
#include "tests/metronome/FakeAudioSession.h"
#include "tests/support/FakeClock.h"
#include "tests/support/ManualQueue.h"
#include "tests/support/SequentialUuids.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

// What a tap on the practice screen costs, with as many events of history stored as the argument says. Target: well
// under a frame, 16 ms, and the same with 100,000 events as with none. The store lies on the disk that the current
// folder lies on, so that what is saved is saved for good.
namespace tamsel {

namespace {

using namespace std::chrono_literals;

class Practice {
public:
    explicit Practice(qint64 eventCount) {
        setLogStream(std::fopen("/dev/null", "w"));
        auto opened = SqliteSettingsStore::open(m_folder.path());
        if (opened.store == nullptr)
            std::exit(1);
        m_store = std::move(opened.store);
        QList<HistoryEvent> events;
        for (qint64 i = 0; i < eventCount; ++i)
            events += HistoryEvent{m_clock.now() - static_cast<double>(i), m_exercise.name, 12, {}, {}, m_exercise.id};
        m_store->setData(keys::historyEvents, *json::encode(events));
        ExerciseSettings settings;
        settings.thumbsUpCounterEnabled = settings.bookmarksEnabled = true;
        storeSettings(*m_store, m_exercise.id, settings);
        m_singletons = std::make_unique<Singletons>(*m_store, m_platform, m_output, m_session);
        model = std::make_unique<PracticeViewModel>(*m_singletons, m_platform, m_exercise, 1);
    }

    test::ManualQueue& queue() { return m_queue; }

private:
    const QTemporaryDir m_folder{QStringLiteral("bench-XXXXXX")};
    test::FakeClock m_clock;
    Calendar m_calendar{QStringLiteral("UTC")};
    test::ManualQueue m_queue{m_clock};
    test::SequentialUuids m_uuids;
    Platform m_platform{m_clock, m_calendar, m_queue, m_uuids};
    const Exercise m_exercise{QStringLiteral("C Major Scales"), test::SequentialUuids::numbered(1)};
    std::unique_ptr<SqliteSettingsStore> m_store;
    OfflineOutput m_output;
    test::FakeAudioSession m_session;
    std::unique_ptr<Singletons> m_singletons;

public:
    std::unique_ptr<PracticeViewModel> model;
};

void tapACounter(benchmark::State& state) {
    const Practice practice(state.range(0));
    for (auto _ : state)
        practice.model->thumbsUpTapped();
}

void startTickAndCancelATimer(benchmark::State& state) {
    Practice practice(state.range(0));
    for (auto _ : state) {
        practice.model->startTimer(5);
        practice.queue().advance(1s);
        practice.model->cancelTimer();
    }
}

void changeTheTempo(benchmark::State& state) {
    const Practice practice(state.range(0));
    qint64 tempo = 60;
    for (auto _ : state) {
        tempo = tempo == 60 ? 61 : 60;
        practice.model->metronomeViewModel()->setTempo(tempo);
    }
}

void toggleABookmark(benchmark::State& state) {
    const Practice practice(state.range(0));
    for (auto _ : state)
        practice.model->bookmarkTapped();
}

void journals(benchmark::internal::Benchmark* each) {
    each->ArgName("events")->Unit(benchmark::kMicrosecond);
    for (const int events : {0, 10'000, 100'000, 1'000'000})
        each->Arg(events);
}

BENCHMARK(tapACounter)->Name("practice/tap_a_counter")->Apply(journals);
BENCHMARK(startTickAndCancelATimer)->Name("practice/start_tick_and_cancel_a_timer")->Apply(journals);
BENCHMARK(changeTheTempo)->Name("practice/change_the_tempo")->Apply(journals)->Iterations(300)->UseRealTime();
BENCHMARK(toggleABookmark)->Name("practice/toggle_a_bookmark")->Apply(journals)->Iterations(300)->UseRealTime();

} // namespace

} // namespace tamsel
