#include "model/SqliteBlob.h"

#include <sqlite3.h>

namespace tamsel {

SqliteBlob::SqliteBlob(SqliteDatabase& database, const char* table, const char* column)
    : m_database(database), m_table(table), m_column(column) {}

SqliteBlob::~SqliteBlob() {
    sqlite3_blob_close(m_blob);
}

bool SqliteBlob::moveTo(qint64 row, qsizetype size) {
    constexpr int readOnly = 0;
    const int result = m_blob != nullptr ? sqlite3_blob_reopen(m_blob, row)
                                         : sqlite3_blob_open(m_database.connection(), "main", m_table, m_column, row,
                                                             readOnly, &m_blob);
    if (result != SQLITE_OK)
        return m_database.fail();
    return sqlite3_blob_bytes(m_blob) == size || m_database.fail(QStringLiteral("a part has the wrong length"));
}

bool SqliteBlob::read(char* bytes) const {
    return sqlite3_blob_read(m_blob, bytes, sqlite3_blob_bytes(m_blob), 0) == SQLITE_OK || m_database.fail();
}

} // namespace tamsel
