#pragma once

#include "model/SqliteDatabase.h"

#include <QByteArrayView>

struct sqlite3_stmt;

namespace tamsel {

// A compiled statement, to be run any number of times. Parameters count from 1, columns from 0.
class SqliteStatement {
public:
    enum class Step { row, done, failed };

    // Where the SQL does not compile, `isPrepared` is false, every step fails, and the database tells why.
    SqliteStatement(SqliteDatabase& database, const char* sql);
    ~SqliteStatement();

    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    bool isPrepared() const { return m_statement != nullptr; }

    // What is bound must live until the next reset.
    SqliteStatement& bind(int parameter, qint64 value);
    SqliteStatement& bind(int parameter, double value);
    SqliteStatement& bindText(int parameter, QByteArrayView utf8);
    SqliteStatement& bindBlob(int parameter, QByteArrayView bytes);

    [[nodiscard]] Step step();
    // Steps to the end, passing over rows, and resets.
    [[nodiscard]] bool run();
    // Ends the run, which frees the snapshot that it reads, and unbinds everything.
    void reset();

    // The columns of the present row. Bytes stay valid until the next step or reset.
    qint64 integer(int column) const;
    double real(int column) const;
    bool isNull(int column) const;
    QByteArrayView bytes(int column) const;

private:
    void note(int result) { m_bindingFailed |= result != 0; }

    SqliteDatabase& m_database;
    sqlite3_stmt* m_statement = nullptr;
    bool m_bindingFailed = false;
};

} // namespace tamsel
