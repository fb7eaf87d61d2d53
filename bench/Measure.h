#pragma once

#include "model/SqliteDatabase.h"
#include "model/SqliteSettingsStore.h"
#include "model/SqliteStatement.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

// What the benchmarks share: measuring beside a baseline in the same loop, and stores on the disk.
namespace tamsel::bench {

inline double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Turn by turn. Reports `ratio`, the median of the work over the median of the baseline, beside both in microseconds.
// `tidy` runs in between and does not count.
inline void measureAgainst(benchmark::State& state, const std::function<void()>& baseline,
                           const std::function<void()>& work, const std::function<void()>& tidy = {}) {
    std::vector<double> baselines;
    std::vector<double> works;
    for (auto _ : state) {
        baselines.push_back(seconds(baseline));
        works.push_back(seconds(work));
        state.SetIterationTime(works.back());
        if (tidy)
            tidy();
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

inline std::unique_ptr<SqliteSettingsStore> openOrExit(const QTemporaryDir& folder) {
    auto opened = SqliteSettingsStore::open(folder.path());
    if (opened.store == nullptr)
        std::exit(1);
    return std::move(opened.store);
}

inline void require(bool done) {
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

} // namespace tamsel::bench
