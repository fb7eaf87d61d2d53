#pragma once

#include <QString>

#include <optional>

struct sqlite3;

namespace tamsel {

// One connection to an SQLite file; knows nothing of what is in it. Calls that can fail say so by their result, and
// `error` then tells why. One thread only.
class SqliteDatabase {
public:
    SqliteDatabase() = default;
    // Statements and blobs on it must be gone by then.
    ~SqliteDatabase();

    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    // Opens the file for reading and writing; makes an empty one where there is none. Closing leaves a write-ahead log
    // as it is until `checkpointOnClose`: a file that turns out not to be ours must not be touched.
    [[nodiscard]] bool open(const QString& path);
    // Opens a file that nobody is changing, such as a copy, and leaves it and its folder untouched whatever is done.
    [[nodiscard]] bool openForReading(const QString& path);
    void checkpointOnClose();

    // Runs statements, dropping any rows.
    [[nodiscard]] bool execute(const char* sql);
    // The first column of the one row that the statement yields, as a number or as text.
    [[nodiscard]] std::optional<qint64> integer(const char* sql);
    [[nodiscard]] std::optional<QString> text(const char* sql);

    bool isReadOnly() const;
    bool isInTransaction() const;

    // Why the last call that failed did, such as "database or disk is full".
    QString error() const { return m_error; }
    // Takes the connection's present error over; false, so that a failing call can return it.
    bool fail();
    bool fail(const QString& error);

    sqlite3* connection() const { return m_connection; }

private:
    sqlite3* m_connection = nullptr;
    QString m_error;
};

} // namespace tamsel
