#include "app/Singletons.h"
#include "bench/Journal.h"
#include "bench/Life.h"
#include "bench/Measure.h"
#include "metronome/OfflineOutput.h"
#include "metronome/SystemAudioSession.h"
#include "platform/Log.h"

#include <simdjson.h>

#include <cstdio>

// The whole store of a long life: loading it at the start, and recording a session into it.
namespace tamsel {

namespace {

using namespace bench;

// Everything below the screens, on a folder.
class Program {
public:
    explicit Program(const QTemporaryDir& folder) : m_store(openOrExit(folder)) {}

private:
    StandingClock m_clock;
    Calendar m_calendar{QStringLiteral("Europe/Berlin")};
    NoQueue m_queue;
    RandomUuids m_uuids;
    std::unique_ptr<SqliteSettingsStore> m_store;
    OfflineOutput m_output;
    SystemAudioSession m_session;
    const Platform m_platform{m_clock, m_calendar, m_queue, m_uuids};

public:
    Singletons singletons{*m_store, m_platform, m_output, m_session};
};

void storeLife(const QTemporaryDir& folder, int years) {
    setLogStream(std::fopen("/dev/null", "w"));
    const auto store = openOrExit(folder);
    Life{years}.store(*store, StandingClock().now(), Calendar(QStringLiteral("Europe/Berlin")));
}

// One pass over the bytes that looks at every field and keeps nothing.
qint64 scan(const QByteArray& bytes) {
    simdjson::ondemand::parser parser;
    const simdjson::padded_string padded(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    auto document = parser.iterate(padded);
    qint64 total = 0;
    for (auto row : document.get_array()) {
        for (auto field : row.get_object()) {
            std::string_view key = field.unescaped_key();
            total += static_cast<qint64>(key.size());
            std::string_view text = simdjson::to_json_string(field.value());
            total += static_cast<qint64>(text.size());
        }
    }
    return total;
}

// The floor reads the same documents out of the same file and makes one pass over them. Target: at most 1.5 times that.
void load(benchmark::State& state) {
    const Folder folder;
    storeLife(folder, static_cast<int>(state.range(0)));
    qsizetype events = 0;
    measureAgainst(
        state,
        [&folder] {
            const auto store = openOrExit(folder);
            for (const char* key : {"history.events", "exercises", "archive.items"})
                benchmark::DoNotOptimize(scan(*store->data(QString::fromLatin1(key))));
        },
        [&] {
            const Program program(folder);
            events = program.singletons.history.events().size();
        });
    state.counters["events"] = static_cast<double>(events);
}

// Recording a session, durably, log and journal and everybody who listens. The floor makes one small row durable.
// Target: at most 3 times that, and the same at every length of the journal.
void record(benchmark::State& state) {
    const Folder folder;
    storeLife(folder, static_cast<int>(state.range(0)));
    Program program(folder);
    SmallRows rows;
    const Exercise item = program.singletons.exercises.items().constFirst();
    const auto session = PracticeSession::make(StandingClock().now(), item, 600, SessionType::timer);
    measureAgainst(
        state, [&rows] { rows.insert(); }, [&] { program.singletons.history.record(*session); },
        [&] {
            // The log of a day stays as long as one.
            if (program.singletons.dailyLog.practiceSessions().size() > 12)
                program.singletons.dailyLog.removeSessions([](const PracticeSession&) { return true; });
        });
    state.counters["events"] = static_cast<double>(program.singletons.history.events().size());
}

void lives(benchmark::internal::Benchmark* each) {
    for (const int years : {1, 10, 30, 200})
        each->Arg(years);
}

BENCHMARK(load)
    ->Name("life/load")
    ->ArgName("years")
    ->Apply(lives)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK(record)
    ->Name("life/record")
    ->ArgName("years")
    ->Apply(lives)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(400);

} // namespace

} // namespace tamsel
