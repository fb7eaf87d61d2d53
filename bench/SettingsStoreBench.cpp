#include "bench/Measure.h"

#include <QFile>

#include <cstring>

// What saving and loading a journal of 100 000 events costs on the disk that the current folder lies on. Each benchmark
// measures its baseline in the same loop, turn by turn, and reports `ratio`, the median of the one over the median of
// the other, beside `baseline_us`.
namespace tamsel {

namespace {

using namespace bench;

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
