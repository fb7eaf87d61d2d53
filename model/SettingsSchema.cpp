#include "model/SettingsSchema.h"

#include "model/DurableFolder.h"

#include <QFileInfo>

namespace tamsel {

namespace {

constexpr auto connectionPragmas = R"(
    PRAGMA page_size = 32768;        -- counts for a file that is yet to be made
    PRAGMA cell_size_check = ON;     -- damage is found where it is, not where it leads
    PRAGMA secure_delete = ON;       -- a note that was deleted does not linger in the file
    PRAGMA synchronous = FULL;       -- a commit is on disk when it returns
    PRAGMA wal_autocheckpoint = 128; -- pages, 4 MiB
    PRAGMA journal_size_limit = 4194304;
)";

constexpr auto createFormat = R"(
    BEGIN IMMEDIATE;
    CREATE TABLE entry (
        id INTEGER PRIMARY KEY,
        key TEXT NOT NULL UNIQUE,
        kind TEXT NOT NULL CHECK (kind IN ('data', 'bool', 'integer', 'double', 'array')),
        chunks INTEGER NOT NULL, -- how many full chunks of data lie in front of the value
        value                    -- the plain value; the end of data; an array's JSON text
    );
    CREATE TABLE chunk (
        id INTEGER PRIMARY KEY, -- the entry's id * 4294967296 + the chunk's number, from 0
        bytes BLOB NOT NULL     -- 32768 bytes
    );
    CREATE VIEW documents (key, kind, text) AS
        SELECT key, kind,
            CASE kind
                WHEN 'data' THEN coalesce((
                    SELECT group_concat(part, '') FROM (
                        SELECT CAST(bytes AS TEXT) AS part FROM chunk
                        WHERE chunk.id BETWEEN entry.id * 4294967296 AND entry.id * 4294967296 + 4294967295
                        ORDER BY chunk.id)), '') || CAST(value AS TEXT)
                WHEN 'bool' THEN CASE value WHEN 0 THEN 'false' ELSE 'true' END
                ELSE value
            END
        FROM entry;
    PRAGMA application_id = %1;
    PRAGMA user_version = %2;
    COMMIT;
)";

// Entries whose chunks are not all there. Walks both tables but not what lies in their rows.
constexpr auto countDamagedEntries = R"(
    SELECT count(*) FROM entry WHERE chunks <> (
        SELECT count(*) FROM chunk
        WHERE chunk.id BETWEEN entry.id * 4294967296 AND entry.id * 4294967296 + 4294967295)
)";

// Whether changes may lie in the write-ahead log that have not moved over to the file.
bool hasLog(const QString& path) {
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0;
}

bool recognise(SqliteDatabase& database, bool& fresh) {
    const auto tables = database.integer("SELECT count(*) FROM sqlite_schema");
    const auto application = database.integer("PRAGMA application_id");
    const auto version = database.integer("PRAGMA user_version");
    if (!tables || !application || !version)
        return false;
    fresh = *tables == 0 && *application == 0 && *version == 0;
    if (fresh)
        return true;
    if (*application != schema::applicationId)
        return database.fail(QStringLiteral("it is not a settings file of Tamsel"));
    if (*version != schema::formatVersion) {
        return database.fail(QStringLiteral("its format is %1, and this version of Tamsel knows %2 only")
                                 .arg(*version)
                                 .arg(schema::formatVersion));
    }
    return true;
}

bool useLog(SqliteDatabase& database) {
    const auto mode = database.text("PRAGMA journal_mode = WAL");
    if (!mode)
        return false;
    return *mode == QLatin1String("wal") ||
           database.fail(QStringLiteral("its file system does not allow a write-ahead log"));
}

bool create(SqliteDatabase& database, const QString& path) {
    const QString sql = QString::fromLatin1(createFormat).arg(schema::applicationId).arg(schema::formatVersion);
    if (!database.execute(sql.toLatin1().constData()))
        return false;
    const auto reason = syncFolder(QFileInfo(path).path());
    return !reason || database.fail(*reason);
}

bool isWhole(SqliteDatabase& database, const QString& path) {
    const auto pages = database.integer("PRAGMA page_count");
    const auto pageSize = database.integer("PRAGMA page_size");
    const auto damaged = database.integer(countDamagedEntries);
    if (!pages || !pageSize || !damaged)
        return false;
    // SQLite itself finds whole pages missing, but reads zeros where the last one is cut off.
    if (QFileInfo(path).size() < *pages * *pageSize && !hasLog(path))
        return database.fail(QStringLiteral("its end is cut off"));
    return *damaged == 0 || database.fail(QStringLiteral("parts of %1 values are missing").arg(*damaged));
}

} // namespace

bool openSettingsDatabase(SqliteDatabase& database, const QString& path) {
    // SQLite would delete the log, and with it whatever had not moved over yet.
    if (QFileInfo(path).size() == 0 && hasLog(path))
        return database.fail(QStringLiteral("it is missing or empty, but its write-ahead log is there"));
    bool fresh = false;
    if (!database.open(path) || !database.execute(connectionPragmas) || !recognise(database, fresh))
        return false;
    if (database.isReadOnly())
        return database.fail(QStringLiteral("it is read-only"));
    return useLog(database) && (!fresh || create(database, path)) && isWhole(database, path);
}

bool openSettingsDatabaseBeside(SqliteDatabase& database, const QString& path) {
    return database.open(path) && database.execute(connectionPragmas);
}

bool isSound(SqliteDatabase& database) {
    const auto finding = database.text("PRAGMA quick_check(1)");
    return finding && (*finding == QLatin1String("ok") || database.fail(finding->simplified()));
}

bool openSettingsCopy(SqliteDatabase& database, const QString& path) {
    bool fresh = false;
    if (!database.openForReading(path) || !database.execute("PRAGMA cell_size_check = ON") ||
        !recognise(database, fresh))
        return false;
    if (fresh)
        return database.fail(QStringLiteral("it is empty"));
    return isWhole(database, path) && isSound(database);
}

} // namespace tamsel
