#include "model/SqliteDatabase.h"

#include "model/SqliteStatement.h"
#include "platform/FatalError.h"

#include <QFile>

#include <sqlite3.h>

namespace tamsel {

namespace {

// How long a stock tool that writes to or checkpoints the file is waited for. The main thread waits.
constexpr int busyTimeoutMilliseconds = 250;

} // namespace

SqliteDatabase::~SqliteDatabase() {
    // It refuses, and would leak the connection, only while a statement is left.
    if (sqlite3_close(m_connection) != SQLITE_OK)
        trap();
}

bool SqliteDatabase::open(const QString& path) {
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &m_connection, flags, nullptr) != SQLITE_OK)
        return fail();
    sqlite3_busy_timeout(m_connection, busyTimeoutMilliseconds);
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    return true;
}

bool SqliteDatabase::openForReading(const QString& path) {
    constexpr int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const QByteArray name = "file:" + QFile::encodeName(path).toPercentEncoding("/") + "?immutable=1";
    return sqlite3_open_v2(name.constData(), &m_connection, flags, nullptr) == SQLITE_OK || fail();
}

void SqliteDatabase::checkpointOnClose() {
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

bool SqliteDatabase::execute(const char* sql) {
    return sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK || fail();
}

std::optional<qint64> SqliteDatabase::integer(const char* sql) {
    SqliteStatement statement(*this, sql);
    return statement.step() == SqliteStatement::Step::row ? std::optional(statement.integer(0)) : std::nullopt;
}

std::optional<QString> SqliteDatabase::text(const char* sql) {
    SqliteStatement statement(*this, sql);
    return statement.step() == SqliteStatement::Step::row ? std::optional(QString::fromUtf8(statement.bytes(0)))
                                                          : std::nullopt;
}

bool SqliteDatabase::isReadOnly() const {
    return sqlite3_db_readonly(m_connection, "main") != 0;
}

bool SqliteDatabase::isInTransaction() const {
    return sqlite3_get_autocommit(m_connection) == 0;
}

bool SqliteDatabase::fail() {
    QString error = QString::fromUtf8(sqlite3_errmsg(m_connection));
    const int code = sqlite3_errcode(m_connection) & 0xFF;
    const int systemError = sqlite3_system_errno(m_connection);
    if ((code == SQLITE_IOERR || code == SQLITE_CANTOPEN) && systemError != 0)
        error += QStringLiteral(" (%1)").arg(qt_error_string(systemError));
    return fail(error);
}

bool SqliteDatabase::fail(const QString& error) {
    m_error = error;
    return false;
}

} // namespace tamsel
