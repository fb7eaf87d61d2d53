#include "app/Singletons.h"
#include "bench/Journal.h"
#include "bench/Life.h"
#include "bench/Measure.h"
#include "metronome/OfflineOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/BackupFile.h"
#include "model/DataCheck.h"
#include "model/Snapshot.h"
#include "platform/InlineQueue.h"
#include "platform/Log.h"

#include <cstdio>

// All data of a long life as a whole: what keeps the main thread waiting, and what is done beside it.
namespace tamsel {

namespace {

using namespace bench;

// Thirty years on a disk, and the stores on it.
class Program {
public:
    Program() {
        setLogStream(std::fopen("/dev/null", "w"));
        store = openOrExit(folder);
        Life{30}.store(*store, m_clock.now(), m_calendar);
        singletons.emplace(*store, m_platform, m_output, m_session);
    }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    const Folder folder;
    std::unique_ptr<SqliteSettingsStore> store;

private:
    StandingClock m_clock;
    Calendar m_calendar{QStringLiteral("Europe/Berlin")};
    InlineQueue m_queue;
    RandomUuids m_uuids;
    OfflineOutput m_output;
    SystemAudioSession m_session;
    const Platform m_platform{m_clock, m_calendar, m_queue, m_uuids};

public:
    std::optional<Singletons> singletons;
};

// What a backup, an export and a preview cost the main thread. The baseline is to read all values there.
void order(benchmark::State& state) {
    const Program program;
    measureAgainst(
        state, [&] { benchmark::DoNotOptimize(program.store->dictionaryRepresentation()); },
        [&] { benchmark::DoNotOptimize(snapshotOf(*program.store)); });
}

// Beside it. The baseline writes the same bytes to a file.
void exportAll(benchmark::State& state) {
    const Program program;
    const auto document = [&program] { return json::encode(*makeDataDump(*snapshotOf(*program.store)())).value(); };
    const QByteArray bytes = document();
    measureAgainst(
        state, [&] { require(!datafile::write(program.path("plain"), bytes)); },
        [&] { require(!datafile::write(program.path("export"), document())); });
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

void backUp(benchmark::State& state) {
    const Program program;
    const QString path = program.path("tamsel-000001-2024-03-14.sqlite");
    const auto copy = [&] { require(!backups::write(*snapshotOf(*program.store)(), path, program.folder.path())); };
    copy();
    const QByteArray bytes = *datafile::read(path);
    measureAgainst(
        state, [&] { require(!datafile::write(program.path("plain"), bytes)); }, copy);
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

// On the main thread, while the person waits for it: everything replaced, or taken back.
void replace(benchmark::State& state, bool takenBack) {
    Program program;
    const DataStores stores = program.singletons->dataStores();
    const DataDump dump = stores.makeDataDump();
    const QByteArray bytes = *json::encode(dump);
    const UserData data = UserData::of(*program.store);
    // What is put in place differs from what is there.
    const auto empty = [&] {
        stores.replace(DataDump());
        require(!program.store->writeFailure());
    };
    empty();
    measureAgainst(
        state, [&] { require(!datafile::write(program.path("plain"), bytes)); },
        [&] { takenBack ? stores.replace(data) : stores.replace(dump); }, empty);
}

void undoImport(benchmark::State& state) {
    replace(state, true);
}

void import(benchmark::State& state) {
    replace(state, false);
}

// Beside it: reading and checking a document.
void check(benchmark::State& state) {
    Program program;
    const QByteArray bytes = *json::encode(program.singletons->dataStores().makeDataDump());
    measureAgainst(
        state, [&] { benchmark::DoNotOptimize(json::decode<DataDump>(bytes)); },
        [&] { require(bool(checkDataDump(bytes))); });
}

void atLength(benchmark::internal::Benchmark* each) {
    each->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
}

BENCHMARK(order)->Name("data/main_thread/order")->Apply(atLength);
BENCHMARK(import)->Name("data/main_thread/import")->Apply(atLength);
BENCHMARK(undoImport)->Name("data/main_thread/undo")->Apply(atLength);
BENCHMARK(exportAll)->Name("data/beside/export")->Apply(atLength);
BENCHMARK(backUp)->Name("data/beside/backup")->Apply(atLength);
BENCHMARK(check)->Name("data/beside/check")->Apply(atLength);

} // namespace

} // namespace tamsel
