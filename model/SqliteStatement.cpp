#include "model/SqliteStatement.h"

#include <sqlite3.h>

namespace tamsel {

SqliteStatement::SqliteStatement(SqliteDatabase& database, const char* sql) : m_database(database) {
    if (sqlite3_prepare_v3(database.connection(), sql, -1, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr) !=
        SQLITE_OK)
        database.fail();
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(m_statement);
}

SqliteStatement& SqliteStatement::bind(int parameter, qint64 value) {
    note(sqlite3_bind_int64(m_statement, parameter, value));
    return *this;
}

SqliteStatement& SqliteStatement::bind(int parameter, double value) {
    note(sqlite3_bind_double(m_statement, parameter, value));
    return *this;
}

SqliteStatement& SqliteStatement::bindText(int parameter, QByteArrayView utf8) {
    note(sqlite3_bind_text64(m_statement, parameter, utf8.isNull() ? "" : utf8.data(),
                             static_cast<sqlite3_uint64>(utf8.size()), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

SqliteStatement& SqliteStatement::bindBlob(int parameter, QByteArrayView bytes) {
    // A null pointer would bind NULL instead of no bytes.
    note(sqlite3_bind_blob64(m_statement, parameter, bytes.isNull() ? "" : bytes.data(),
                             static_cast<sqlite3_uint64>(bytes.size()), SQLITE_STATIC));
    return *this;
}

SqliteStatement::Step SqliteStatement::step() {
    if (!isPrepared())
        return Step::failed;
    const int result = m_bindingFailed ? SQLITE_ERROR : sqlite3_step(m_statement);
    if (result == SQLITE_ROW)
        return Step::row;
    if (result == SQLITE_DONE)
        return Step::done;
    m_database.fail();
    return Step::failed;
}

bool SqliteStatement::run() {
    Step result = step();
    while (result == Step::row)
        result = step();
    reset();
    return result == Step::done;
}

void SqliteStatement::reset() {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
    m_bindingFailed = false;
}

qint64 SqliteStatement::integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

double SqliteStatement::real(int column) const {
    return sqlite3_column_double(m_statement, column);
}

bool SqliteStatement::isNull(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

QByteArrayView SqliteStatement::bytes(int column) const {
    const void* data = sqlite3_column_blob(m_statement, column);
    return {static_cast<const char*>(data), sqlite3_column_bytes(m_statement, column)};
}

} // namespace tamsel
