#pragma once

#include "model/SqliteDatabase.h"

struct sqlite3_blob;

namespace tamsel {

// Reads values of one column straight into the caller's memory, one row after another.
class SqliteBlob {
public:
    // The names must outlive it.
    SqliteBlob(SqliteDatabase& database, const char* table, const char* column);
    // Frees the snapshot that is read.
    ~SqliteBlob();

    SqliteBlob(const SqliteBlob&) = delete;
    SqliteBlob& operator=(const SqliteBlob&) = delete;

    // Goes to the row, whose value must have exactly this many bytes.
    [[nodiscard]] bool moveTo(qint64 row, qsizetype size);
    // The value of the row that it is at.
    [[nodiscard]] bool read(char* bytes) const;

private:
    SqliteDatabase& m_database;
    const char* const m_table;
    const char* const m_column;
    sqlite3_blob* m_blob = nullptr;
};

} // namespace tamsel
