#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <memory>

namespace tamsel::test {

// SQLite's file system for as long as it lives: the system's own, whose writes and syncs are counted and fail on
// demand. Make it before the first connection and destroy it after the last; one at a time.
class FaultyFileSystem {
public:
    FaultyFileSystem();
    ~FaultyFileSystem();
    FaultyFileSystem(const FaultyFileSystem&) = delete;
    FaultyFileSystem& operator=(const FaultyFileSystem&) = delete;

    enum class Duration { once, lasting };
    // Of the writes, truncations and syncs to come, lets `count` pass and fails the next, or that and all after it.
    // Writes and truncations fail with `result`, a code of SQLite; syncs always with SQLITE_IOERR_FSYNC.
    void failAfter(int count, int result, Duration duration);
    // Fails every read.
    void failReads() { m_readsFail = true; }
    void heal();

    // Whether anything failed since failAfter.
    bool hasFailed() const { return m_hasFailed; }
    qint64 writtenBytes() const { return m_writtenBytes; }

    // What a loss of power leaves of the folder at the least: each file, by its name, as it was when last synced.
    QMap<QString, QByteArray> syncedFiles(const QString& folder) const;

private:
    struct Calls;

    // The code to fail a write, truncation or sync with; 0 to let it pass.
    int nextResult(int failure);

    const std::unique_ptr<Calls> m_calls;
    int m_passing = 0;
    int m_failure = 0;
    Duration m_duration = Duration::once;
    bool m_hasFailed = false;
    bool m_readsFail = false;
    qint64 m_writtenBytes = 0;
    QMap<QString, QByteArray> m_syncedFiles; // by path
};

} // namespace tamsel::test
