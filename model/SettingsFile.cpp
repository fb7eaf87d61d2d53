#include "model/SettingsFile.h"

#include "model/ArrayText.h"
#include "model/DataTail.h"
#include "model/SettingsSchema.h"
#include "model/SqliteBlob.h"
#include "model/SqliteStatement.h"

#include <QScopeGuard>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace tamsel {

namespace {

constexpr QByteArrayView dataKind = "data";
constexpr QByteArrayView boolKind = "bool";
constexpr QByteArrayView integerKind = "integer";
constexpr QByteArrayView doubleKind = "double";
constexpr QByteArrayView arrayKind = "array";

// The columns of the statements that read entries.
namespace column {
constexpr int id = 0;
constexpr int kind = 1;
constexpr int chunks = 2;
constexpr int value = 3;
constexpr int key = 4;
} // namespace column

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

struct SettingsFile::Statements {
    explicit Statements(SqliteDatabase& database) : m_database(database) {}

    bool arePrepared() const {
        const std::initializer_list<const SqliteStatement*> all = {
            &begin,       &commit,      &rollback,    &findEntry,   &allEntries,  &insertEntry,
            &updateEntry, &removeEntry, &selectChunk, &insertChunk, &updateChunk, &removeChunks};
        return std::ranges::all_of(all, &SqliteStatement::isPrepared);
    }

    SqliteDatabase& m_database;
    // The write lock is taken at once: what is compared cannot change before it is written.
    SqliteStatement begin{m_database, "BEGIN IMMEDIATE"};
    SqliteStatement commit{m_database, "COMMIT"};
    SqliteStatement rollback{m_database, "ROLLBACK"};
    SqliteStatement findEntry{m_database, "SELECT id, kind, chunks, value FROM entry WHERE key = ?1"};
    SqliteStatement allEntries{m_database, "SELECT id, kind, chunks, value, key FROM entry"};
    SqliteStatement insertEntry{m_database, "INSERT INTO entry (key, kind, chunks, value) VALUES (?1, ?2, ?3, ?4)"};
    SqliteStatement updateEntry{m_database, "UPDATE entry SET kind = ?2, chunks = ?3, value = ?4 WHERE id = ?1"};
    SqliteStatement removeEntry{m_database, "DELETE FROM entry WHERE id = ?1"};
    SqliteStatement selectChunk{m_database, "SELECT bytes FROM chunk WHERE id = ?1"};
    SqliteStatement insertChunk{m_database, "INSERT INTO chunk (id, bytes) VALUES (?1, ?2)"};
    SqliteStatement updateChunk{m_database, "UPDATE chunk SET bytes = ?2 WHERE id = ?1"};
    SqliteStatement removeChunks{m_database, "DELETE FROM chunk WHERE id >= ?1 AND id < ?2"};
};

// What lies under a key before a change.
struct SettingsFile::Entry {
    QByteArray key; // UTF-8
    qint64 id = 0;  // 0 where there is none
    bool isData = false;
    qint64 chunks = 0;
    QByteArray value; // of data, its end
};

SettingsFile::SettingsFile() = default;
SettingsFile::~SettingsFile() = default;

bool SettingsFile::open(const QString& path, OnClose onClose) {
    if (!openSettingsDatabase(m_database, path))
        return false;
    if (onClose == OnClose::moveLog)
        m_database.checkpointOnClose();
    return prepare();
}

bool SettingsFile::openBeside(const QString& path) {
    return openSettingsDatabaseBeside(m_database, path) && prepare();
}

bool SettingsFile::openCopy(const QString& path) {
    return openSettingsCopy(m_database, path) && prepare();
}

bool SettingsFile::prepare() {
    m_statements = std::make_unique<Statements>(m_database);
    return m_statements->arePrepared();
}

bool SettingsFile::isSound() {
    return tamsel::isSound(m_database);
}

bool SettingsFile::read(const QString& key, std::optional<SettingsValue>& value) {
    const QByteArray utf8 = key.toUtf8();
    SqliteStatement& row = m_statements->findEntry;
    // Until then the statement holds one state of the file, so that the chunks belong to their entry.
    const auto guard = qScopeGuard([&row] { row.reset(); });
    const auto step = row.bindText(1, utf8).step();
    if (step != SqliteStatement::Step::row) {
        value.reset();
        return step == SqliteStatement::Step::done;
    }
    return valueOf(row, value.emplace());
}

bool SettingsFile::readAll(QMap<QString, SettingsValue>& values) {
    SqliteStatement& row = m_statements->allEntries;
    const auto guard = qScopeGuard([&row] { row.reset(); });
    auto step = row.step();
    for (; step == SqliteStatement::Step::row; step = row.step()) {
        if (!valueOf(row, values[QString::fromUtf8(row.bytes(column::key))]))
            return false;
    }
    return step == SqliteStatement::Step::done;
}

bool SettingsFile::valueOf(const SqliteStatement& row, SettingsValue& value) {
    const QByteArrayView kind = row.bytes(column::kind);
    if (kind == dataKind)
        return readData(row, value.value.emplace<QByteArray>());
    if (kind == boolKind) {
        value.value = row.integer(column::value) != 0;
    } else if (kind == integerKind) {
        value.value = row.integer(column::value);
    } else if (kind == doubleKind) {
        // SQLite keeps a double that is not a number as NULL.
        value.value = row.isNull(column::value) ? std::numeric_limits<double>::quiet_NaN() : row.real(column::value);
    } else if (kind == arrayKind) {
        auto array = arrayFromText(row.bytes(column::value));
        if (!array)
            return m_database.fail(QStringLiteral("the array's text is not one"));
        value.value = *std::move(array);
    } else {
        return m_database.fail(QStringLiteral("the kind of the value is unknown"));
    }
    return true;
}

bool SettingsFile::readData(const SqliteStatement& row, QByteArray& bytes) {
    const qint64 entry = row.integer(column::id);
    const qint64 chunks = row.integer(column::chunks);
    const QByteArrayView end = row.bytes(column::value);
    SqliteBlob chunk(m_database, "chunk", "bytes");
    // The last one first: a count that is wrong shows before memory is taken for it.
    if (chunks < 0 || (chunks > 0 && !chunk.moveTo(schema::chunkRow(entry, chunks - 1), schema::chunkBytes)))
        return m_database.fail(QStringLiteral("parts of the value are missing"));
    // Resizing would take twice the memory, in expectation of more.
    bytes = QByteArray(chunks * schema::chunkBytes + end.size(), Qt::Uninitialized);
    char* to = bytes.data();
    for (qint64 number = 0; number < chunks; ++number, to += schema::chunkBytes) {
        if (!chunk.moveTo(schema::chunkRow(entry, number), schema::chunkBytes) || !chunk.read(to))
            return false;
    }
    std::copy(end.begin(), end.end(), to);
    return true;
}

bool SettingsFile::find(const QString& key, Entry& entry) {
    entry.key = key.toUtf8();
    SqliteStatement& row = m_statements->findEntry;
    const auto guard = qScopeGuard([&row] { row.reset(); });
    const auto step = row.bindText(1, entry.key).step();
    if (step != SqliteStatement::Step::row)
        return step == SqliteStatement::Step::done;
    entry.id = row.integer(column::id);
    entry.isData = row.bytes(column::kind) == dataKind;
    entry.chunks = row.integer(column::chunks);
    entry.value = row.bytes(column::value).toByteArray();
    return true;
}

bool SettingsFile::write(const PendingChanges& changes) {
    if (!m_statements->begin.run())
        return false;
    if (writeEach(changes) && m_statements->commit.run())
        return true;
    const QString error = m_database.error();
    // Some failures have rolled back already. Whatever the rollback says, nothing of the transaction is left.
    if (m_database.isInTransaction())
        (void)m_statements->rollback.run();
    return m_database.fail(error);
}

bool SettingsFile::writeEach(const PendingChanges& changes) {
    for (auto each = changes.all().cbegin(); each != changes.all().cend(); ++each) {
        if (!std::visit([&](const auto& change) { return writeChange(each.key(), change); }, each.value()))
            return false;
    }
    return true;
}

bool SettingsFile::writeChange(const QString& key, const SettingsValue& value) {
    Entry entry;
    if (!find(key, entry))
        return false;
    if (const auto* data = std::get_if<QByteArray>(&value.value))
        return writeData(entry, 0, *data);
    const bool isNew = entry.id == 0;
    SqliteStatement& put = isNew ? m_statements->insertEntry : m_statements->updateEntry;
    if (isNew)
        put.bindText(1, entry.key);
    else
        put.bind(1, entry.id);
    QByteArray text;
    constexpr int kind = 2;
    constexpr int chunks = 3;
    constexpr int plain = 4;
    std::visit(Overloaded{[](const QByteArray&) {},
                          [&put](bool flag) { put.bindText(kind, boolKind).bind(plain, qint64{flag}); },
                          [&put](qint64 integer) { put.bindText(kind, integerKind).bind(plain, integer); },
                          [&put](double real) { put.bindText(kind, doubleKind).bind(plain, real); },
                          [&put, &text](const SettingsValue::Array& array) {
                              text = arrayText(array);
                              put.bindText(kind, arrayKind).bindText(plain, text);
                          }},
               value.value);
    return put.bind(chunks, qint64{0}).run() && removeChunks(entry, 0);
}

bool SettingsFile::writeChange(const QString& key, const PendingChanges::Tail& tail) {
    Entry entry;
    if (!find(key, entry))
        return false;
    requireKeptBytes(tail.keptBytes, entry.isData ? entry.chunks * schema::chunkBytes + entry.value.size() : 0);
    const qint64 firstChunk = tail.keptBytes / schema::chunkBytes;
    const qint64 keptOfChunk = tail.keptBytes % schema::chunkBytes;
    QByteArray bytes;
    if (firstChunk < entry.chunks) {
        SqliteBlob chunk(m_database, "chunk", "bytes");
        bytes.resize(schema::chunkBytes);
        if (!chunk.moveTo(schema::chunkRow(entry.id, firstChunk), schema::chunkBytes) || !chunk.read(bytes.data()))
            return false;
    } else if (entry.isData) {
        bytes = entry.value;
    }
    bytes.truncate(keptOfChunk);
    bytes.append(tail.bytes);
    return writeData(entry, firstChunk, bytes);
}

bool SettingsFile::writeChange(const QString& key, const PendingChanges::Removal&) {
    Entry entry;
    if (!find(key, entry))
        return false;
    return entry.id == 0 || (m_statements->removeEntry.bind(1, entry.id).run() && removeChunks(entry, 0));
}

// Writes `bytes` as the data from this chunk on.
bool SettingsFile::writeData(Entry& entry, qint64 firstChunk, QByteArrayView bytes) {
    const qint64 added = bytes.size() / schema::chunkBytes;
    const qint64 chunks = firstChunk + added;
    const QByteArrayView end = bytes.sliced(added * schema::chunkBytes);
    if (entry.id == 0) {
        SqliteStatement& put = m_statements->insertEntry;
        if (!put.bindText(1, entry.key).bindText(2, dataKind).bind(3, chunks).bindBlob(4, end).run())
            return false;
        entry.id = sqlite3_last_insert_rowid(m_database.connection());
    } else if (!entry.isData || entry.chunks != chunks || entry.value != end) {
        SqliteStatement& put = m_statements->updateEntry;
        if (!put.bind(1, entry.id).bindText(2, dataKind).bind(3, chunks).bindBlob(4, end).run())
            return false;
    }
    for (qint64 i = 0; i < added; ++i) {
        const QByteArrayView chunk = bytes.sliced(i * schema::chunkBytes, schema::chunkBytes);
        if (!writeChunk(schema::chunkRow(entry.id, firstChunk + i), chunk))
            return false;
    }
    return removeChunks(entry, chunks);
}

bool SettingsFile::writeChunk(qint64 row, QByteArrayView bytes) {
    SqliteStatement& select = m_statements->selectChunk;
    const auto step = select.bind(1, row).step();
    const bool isThere = step == SqliteStatement::Step::row;
    const bool isSame = isThere && select.bytes(0) == bytes;
    select.reset();
    if (step == SqliteStatement::Step::failed)
        return false;
    SqliteStatement& put = isThere ? m_statements->updateChunk : m_statements->insertChunk;
    return isSame || put.bind(1, row).bindBlob(2, bytes).run();
}

// Removes the chunks that the entry had, from this one on.
bool SettingsFile::removeChunks(const Entry& entry, qint64 firstChunk) {
    if (entry.chunks <= firstChunk)
        return true;
    SqliteStatement& remove = m_statements->removeChunks;
    return remove.bind(1, schema::chunkRow(entry.id, firstChunk)).bind(2, schema::chunkRow(entry.id + 1, 0)).run();
}

} // namespace tamsel
