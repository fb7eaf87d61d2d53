#include "model/SqliteDatabase.h"
#include "model/SqliteSettingsStore.h"
#include "model/SqliteStatement.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

// What saving and loading a journal of 100 000 events costs on the disk that the current folder lies on. Each benchmark
// measures its baseline in the same loop, turn by turn, and reports `ratio`, the median of the one over the median of
// the other, beside `baseline_us`.
namespace tamsel {

namespace {

constexpr qsizetype journalBytes = 17'000'000;
const QString history = QStringLiteral("history.events");

QByteArray journal() {
    const QByteArray event = R"({"date":732110400.25,"exerciseName":"C Major Scales","practiceTime":12,)"
                             R"("id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301"},)";
    QByteArray document = "[";
    while (document.size() < journalBytes)
        document += event;
    document.back() = ']';
    return document;
}

double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void measureAgainst(benchmark::State& state, const std::function<void()>& baseline, const std::function<void()>& work) {
    std::vector<double> baselines;
    std::vector<double> works;
    for (auto _ : state) {
        baselines.push_back(seconds(baseline));
        works.push_back(seconds(work));
        state.SetIterationTime(works.back());
    }
    constexpr double microseconds = 1e6;
    state.counters["baseline_us"] = median(baselines) * microseconds;
    state.counters["median_us"] = median(works) * microseconds;
    state.counters["ratio"] = median(works) / median(baselines);
}

// A folder on the disk, not in memory: syncs are what is measured.
class Folder : public QTemporaryDir {
public:
    Folder() : QTemporaryDir(QStringLiteral("bench-XXXXXX")) {}
};

std::unique_ptr<SqliteSettingsStore> openOrExit(const Folder& folder) {
    auto opened = SqliteSettingsStore::open(folder.path());
    if (opened.store == nullptr)
        std::exit(1);
    return std::move(opened.store);
}

void require(bool done) {
    if (!done)
        std::exit(1);
}

// The same kind of database with nothing to it but one table of small rows.
class SmallRows {
public:
    SmallRows() {
        require(m_database.open(m_folder.filePath(QStringLiteral("rows.sqlite"))));
        require(m_database.execute("PRAGMA page_size = 32768; PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
                                   "PRAGMA wal_autocheckpoint = 128;"
                                   "CREATE TABLE small (id INTEGER PRIMARY KEY, text TEXT)"));
        m_insert = std::make_unique<SqliteStatement>(m_database, "INSERT INTO small (text) VALUES (?1)");
    }

    void insert() { require(m_insert->bindText(1, "one small row").run()); }

private:
    const Folder m_folder;
    SqliteDatabase m_database;
    std::unique_ptr<SqliteStatement> m_insert;
};

// Target: at most 3 times the baseline, one small row made durable.
void extendJournal(benchmark::State& state) {
    const Folder folder;
    const auto store = openOrExit(folder);
    QByteArray document = journal();
    store->setData(history, document);
    qsizetype size = document.size();
    const QByteArray tail = ',' + document.mid(1, 168) + ']';
    SmallRows rows;
    measureAgainst(
        state, [&rows] { rows.insert(); },
        [&] {
            store->replaceTail(history, size - 1, tail);
            size += tail.size() - 1;
        });
    require(store->data(history)->size() == size);
}
BENCHMARK(extendJournal)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(3000);

// The baseline reads a plain file with the same bytes in one call.
void readJournal(benchmark::State& state) {
    const Folder folder;
    const auto store = openOrExit(folder);
    const QByteArray document = journal();
    store->setData(history, document);
    QFile file(folder.filePath(QStringLiteral("journal.json")));
    require(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && file.write(document) == document.size());
    measureAgainst(
        state,
        [&] {
            QByteArray bytes(document.size(), Qt::Uninitialized);
            require(file.seek(0) && file.read(bytes.data(), bytes.size()) == bytes.size());
            benchmark::DoNotOptimize(bytes);
        },
        [&] {
            auto bytes = store->data(history);
            benchmark::DoNotOptimize(bytes);
        });
}
BENCHMARK(readJournal)->UseManualTime()->Unit(benchmark::kMicrosecond)->MinTime(1);

// Bytes that this process has handed to write calls.
qint64 writtenBytes() {
    QFile counters(QStringLiteral("/proc/self/io"));
    require(counters.open(QIODevice::ReadOnly));
    const QByteArray text = counters.readAll();
    const QByteArray label = "wchar: ";
    const qsizetype start = text.indexOf(label) + label.size();
    return text.mid(start, text.indexOf('\n', start) - start).toLongLong();
}

// Target: only the chunks that differ are written, which `written_kB` tells. The baseline saves a journal of which
// everything differs.
void saveJournalWithAnotherEnd(benchmark::State& state) {
    const Folder folder;
    const Folder otherFolder;
    const auto store = openOrExit(folder);
    const auto otherStore = openOrExit(otherFolder);
    QByteArray document = journal();
    QByteArray otherDocument = document;
    store->setData(history, document);
    otherStore->setData(history, otherDocument);
    qint64 written = 0;
    measureAgainst(
        state,
        [&] {
            std::ranges::for_each(otherDocument, [](char& byte) { byte = static_cast<char>(byte ^ 1); });
            otherStore->setData(history, otherDocument);
        },
        [&] {
            char& digit = document[document.size() - 10];
            digit = digit == '1' ? '2' : '1';
            const qint64 before = writtenBytes();
            store->setData(history, document);
            written += writtenBytes() - before;
        });
    state.counters["written_kB"] = static_cast<double>(written) / 1024 / static_cast<double>(state.iterations());
}
BENCHMARK(saveJournalWithAnotherEnd)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(30);

// What a start finds: the file closed, its pages in the system's cache. The baseline opens an empty store.
void openAndRead(benchmark::State& state) {
    const Folder folder;
    const Folder empty;
    const QByteArray document = journal();
    openOrExit(folder)->setData(history, document);
    openOrExit(empty)->setData(history, "[]");
    const auto open = [](const Folder& from) {
        auto bytes = openOrExit(from)->data(history);
        benchmark::DoNotOptimize(bytes);
    };
    measureAgainst(
        state, [&] { open(empty); }, [&] { open(folder); });
}
BENCHMARK(openAndRead)->UseManualTime()->Unit(benchmark::kMicrosecond)->MinTime(1);

} // namespace

} // namespace tamsel
