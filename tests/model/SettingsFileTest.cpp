#include "model/SettingsSchema.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/FaultyFileSystem.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <memory>

namespace tamsel {

namespace {

constexpr qsizetype chunk = schema::chunkBytes;

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void setContents(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

// A stock tool's connection to the same file.
class StockTool {
public:
    explicit StockTool(const QString& path) {
        EXPECT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &m_connection), SQLITE_OK);
    }
    ~StockTool() { sqlite3_close(m_connection); }
    StockTool(const StockTool&) = delete;
    StockTool& operator=(const StockTool&) = delete;

    // The rows of a query, their columns joined by "|".
    QList<QByteArray> run(const char* sql) {
        QList<QByteArray> rows;
        const auto add = [](void* to, int columns, char** values, char**) {
            QByteArray row;
            for (int i = 0; i < columns; ++i)
                row += (i > 0 ? "|" : "") + QByteArray(values[i] != nullptr ? values[i] : "NULL");
            *static_cast<QList<QByteArray>*>(to) += row;
            return 0;
        };
        EXPECT_EQ(sqlite3_exec(m_connection, sql, add, &rows, nullptr), SQLITE_OK) << sqlite3_errmsg(m_connection);
        return rows;
    }

private:
    sqlite3* m_connection = nullptr;
};

class SettingsFileTest : public testing::Test {
protected:
    std::unique_ptr<SqliteSettingsStore> open(const QString& suite = SqliteSettingsStore::standardSuite) {
        auto opened = SqliteSettingsStore::open(m_folder.path(), suite);
        EXPECT_NE(opened.store, nullptr) << opened.failure.toStdString();
        return std::move(opened.store);
    }

    QString path() const { return SqliteSettingsStore::filePath(m_folder.path()); }
    QString folder() const { return m_folder.path(); }

private:
    test::TemporaryFolder m_folder;
};

const QString history = QStringLiteral("history.events");

TEST_F(SettingsFileTest, SuitesHaveAFileEachInTheFolderWhateverTheirName) {
    const QStringList suites = {SqliteSettingsStore::standardSuite, QStringLiteral("UITests_1731700000.123456"),
                                QStringLiteral("../a/b"), QStringLiteral("ü ?#%")};
    for (const QString& suite : suites)
        open(suite)->setData(history, suite.toUtf8());
    for (const QString& suite : suites)
        EXPECT_EQ(open(suite)->data(history), suite.toUtf8());
    EXPECT_THAT(QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name),
                testing::ElementsAre(QStringLiteral("%C3%BC%20%3F%23%25.sqlite"), QStringLiteral("..%2Fa%2Fb.sqlite"),
                                     QStringLiteral("UITests_1731700000.123456.sqlite"),
                                     QStringLiteral("standard.sqlite")));
}

TEST_F(SettingsFileTest, MissingFoldersAreMadeForTheirOwnerAlone) {
    const QString inner = folder() + QStringLiteral("/a/b");
    EXPECT_NE(SqliteSettingsStore::open(inner).store, nullptr);
    for (const char* made : {"/a", "/a/b"}) {
        struct stat status {};
        ASSERT_EQ(::stat(QFile::encodeName(folder() + QLatin1String(made)).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700U) << made;
    }
}

TEST_F(SettingsFileTest, StockToolsSeeWholeDocumentsWhileTheAppHasThemOpen) {
    const auto store = open();
    QByteArray document = "[";
    // Three bytes each, so that characters lie across the edges of chunks.
    while (document.size() < 3 * chunk)
        document += "\xE2\x99\xAA";
    document += "]";
    store->setData(history, document);
    store->setData(QStringLiteral("sortOrder"), "{\"name\":{}}");
    store->setBoolean(QStringLiteral("hasReadThanksMessage"), true);
    store->setInteger(QStringLiteral("numberOfPromptsForReview"), 2);
    store->setReal(QStringLiteral("dateOfLastReviewRequest"), 732110400.5);
    store->setArray(QStringLiteral("X.Bookmarks"), {{qint64{60}}, {72.0}, {true}, {QByteArray("\"a\"")}});

    StockTool tool(path());
    EXPECT_THAT(tool.run("SELECT kind, text FROM documents WHERE key = 'history.events'"),
                testing::ElementsAre("data|" + document));
    EXPECT_THAT(tool.run("SELECT key, kind, text FROM documents WHERE key <> 'history.events' ORDER BY key"),
                testing::ElementsAre("X.Bookmarks|array|[60,72.0,true,\"\\\"a\\\"\"]",
                                     "dateOfLastReviewRequest|double|732110400.5", "hasReadThanksMessage|bool|true",
                                     "numberOfPromptsForReview|integer|2", "sortOrder|data|{\"name\":{}}"));
    EXPECT_THAT(tool.run("SELECT json_array_length(text) FROM documents WHERE key = 'X.Bookmarks'"),
                testing::ElementsAre("4"));
    EXPECT_THAT(tool.run("PRAGMA integrity_check"), testing::ElementsAre("ok"));
}

TEST_F(SettingsFileTest, AChangeWritesOnlyWhatDiffers) {
    test::FaultyFileSystem files;
    const auto store = open();
    QByteArray document(200 * chunk + 100, 'x');
    store->setData(history, document);
    constexpr qint64 fewPages = 6 * 32768;
    const auto writtenBy = [&](const std::function<void()>& change) {
        const qint64 before = files.writtenBytes();
        change();
        return files.writtenBytes() - before;
    };
    document += "more";
    EXPECT_LE(writtenBy([&] { store->setData(history, document); }), fewPages) << "another end";
    document[100 * chunk] = 'y';
    EXPECT_LE(writtenBy([&] { store->setData(history, document); }), fewPages) << "another byte in the middle";
    EXPECT_EQ(writtenBy([&] { store->setData(history, document); }), 0) << "the same";
    const QByteArray tail(170, 'z');
    EXPECT_LE(writtenBy([&] { store->replaceTail(history, document.size() - 1, tail); }), fewPages) << "a tail";
    EXPECT_EQ(store->data(history), document.chopped(1) + tail);
}

TEST_F(SettingsFileTest, WhatWasDeletedIsNotLeftInTheFile) {
    const QByteArray secret = "only my diary knows this";
    {
        const auto store = open();
        store->setData(history, QByteArray(3 * chunk, 'x') + secret);
        store->setData(QStringLiteral("notes"), secret);
        store->remove(history);
        store->setData(QStringLiteral("notes"), "[]");
    }
    EXPECT_FALSE(contents(path()).contains(secret));
}

// A settings file of four values, one of them in many chunks, and a way to spoil it.
struct Damage {
    const char* name;
    std::function<void(const QString& path)> spoil;
    const char* reason;
};

void execute(const QString& path, const char* sql) {
    StockTool(path).run(sql);
}

// The statement's effect lies in a write-ahead log, as a program that was killed leaves it.
void executeIntoLog(const QString& path, const char* sql) {
    const QByteArray file = contents(path);
    QByteArray log;
    {
        StockTool tool(path);
        tool.run(sql);
        log = contents(path + QStringLiteral("-wal"));
    }
    setContents(path, file);
    setContents(path + QStringLiteral("-wal"), log);
}

void setByte(const QString& path, qsizetype offset, char byte) {
    QByteArray bytes = contents(path);
    bytes[offset] = byte;
    setContents(path, bytes);
}

// The first byte of the table's root page, which tells the kind of the page.
qsizetype rootPage(const QString& path, const char* table) {
    const QByteArray sql = "SELECT rootpage FROM sqlite_schema WHERE name = '" + QByteArray(table) + "'";
    return (StockTool(path).run(sql.constData()).value(0).toLongLong() - 1) * 32768;
}

const Damage damages[] = {
    {"garbage", [](const QString& path) { setContents(path, QByteArray(20000, 'g')); }, "file is not a database"},
    {"tiny garbage", [](const QString& path) { setContents(path, "hello"); }, "file is not a database"},
    {"header", [](const QString& path) { setByte(path, 3, 'x'); }, "file is not a database"},
    {"cut in half", [](const QString& path) { QFile::resize(path, QFileInfo(path).size() / 2 / 32768 * 32768); },
     "database disk image is malformed"},
    {"cut within a page", [](const QString& path) { QFile::resize(path, QFileInfo(path).size() - 5000); },
     "its end is cut off"},
    {"entries", [](const QString& path) { setByte(path, rootPage(path, "entry"), 'x'); },
     "database disk image is malformed"},
    {"chunks", [](const QString& path) { setByte(path, rootPage(path, "chunk"), 'x'); },
     "database disk image is malformed"},
    {"a lost chunk", [](const QString& path) { execute(path, "DELETE FROM chunk WHERE (id & 4294967295) = 3"); },
     "parts of 1 values are missing"},
    {"a lost table", [](const QString& path) { execute(path, "DROP TABLE chunk"); }, "no such table"},
    {"another program's", [](const QString& path) { execute(path, "PRAGMA application_id = 7"); },
     "it is not a settings file of Tamsel"},
    {"a newer format", [](const QString& path) { execute(path, "PRAGMA user_version = 2"); },
     "its format is 2, and this version of Tamsel knows 1 only"},
    {"a newer format in a log", [](const QString& path) { executeIntoLog(path, "PRAGMA user_version = 3"); },
     "its format is 3, and this version of Tamsel knows 1 only"},
    {"a log without its file",
     [](const QString& path) {
         setContents(path + QStringLiteral("-wal"), QByteArray(9000, 'w'));
         QFile::resize(path, 0);
     },
     "it is missing or empty, but its write-ahead log is there"},
};

TEST_F(SettingsFileTest, WhatCannotBeReadIsNamedAndLeftAsItIs) {
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.name);
        QDir(folder()).removeRecursively();
        {
            const auto store = open();
            store->setData(history, QByteArray(100 * chunk, 'h'));
            for (const char* key : {"a", "b", "c"})
                store->setInteger(QLatin1String(key), 1);
        }
        damage.spoil(path());
        const QByteArray file = contents(path());
        const QByteArray log = contents(path() + QStringLiteral("-wal"));
        const auto opened = SqliteSettingsStore::open(folder());
        EXPECT_EQ(opened.store, nullptr);
        EXPECT_THAT(opened.failure.toStdString(), testing::StartsWith("Unable to open " + path().toStdString() + ": "));
        EXPECT_THAT(opened.failure.toStdString(), testing::HasSubstr(damage.reason));
        EXPECT_FALSE(opened.failure.contains(QLatin1Char('\n')));
        EXPECT_TRUE(contents(path()) == file && contents(path() + QStringLiteral("-wal")) == log) << "left as it is";
    }
}

TEST_F(SettingsFileTest, AnotherProgramsDatabaseStaysAsItIs) {
    execute(path(), "CREATE TABLE mine (a)");
    const QByteArray file = contents(path());
    EXPECT_EQ(SqliteSettingsStore::open(folder()).failure,
              QStringLiteral("Unable to open %1: it is not a settings file of Tamsel").arg(path()));
    EXPECT_EQ(contents(path()), file);
}

TEST_F(SettingsFileTest, DamageThatShowsOnlyWhenItIsReadStopsTheProgram) {
    open()->setData(history, QByteArray(100 * chunk, 'h'));
    execute(path(), "UPDATE chunk SET bytes = substr(bytes, 2) WHERE (id & 4294967295) = 50;"
                    "INSERT INTO entry (key, kind, chunks, value) VALUES ('a', 'array', 0, '[1')");
    const auto store = open();
    const std::string start = "^Unable to read ";
    const auto refused = testing::ExitedWithCode(1);
    EXPECT_EXIT(store->data(history), refused,
                start + "\"history.events\" from .*standard.sqlite: a part has the wrong length");
    EXPECT_EXIT(store->dictionaryRepresentation(), refused, start + ".*standard.sqlite: a part has the wrong length");
    EXPECT_EXIT(store->array(QStringLiteral("a")), refused,
                start + "\"a\" from .*standard.sqlite: the array's text is not one");
    execute(path(), "UPDATE entry SET chunks = 1000000000000 WHERE key = 'history.events'");
    EXPECT_EXIT(store->data(history), refused, start + ".*: parts of the value are missing");
}

TEST_F(SettingsFileTest, DamageInTheWayOfAChangeIsNamedAndEndsWithTheNextWholeDocument) {
    const test::LogCapture console;
    open()->setData(history, QByteArray(100 * chunk, 'h'));
    execute(path(), "UPDATE chunk SET bytes = substr(bytes, 2) WHERE (id & 4294967295) = 50");
    const auto store = open();
    store->replaceTail(history, 50 * chunk + 1, "]");
    const auto failure =
        QStringLiteral("Unable to save \"history.events\" to %1: a part has the wrong length").arg(path());
    EXPECT_EQ(store->writeFailure(), failure);
    EXPECT_EQ(console.lines(), QStringList(failure));
    store->setData(history, QByteArray(90 * chunk, 'h'));
    EXPECT_EQ(store->writeFailure(), std::nullopt);
    EXPECT_EQ(open()->data(history), QByteArray(90 * chunk, 'h'));
}

TEST_F(SettingsFileTest, AFailingReadStopsTheProgramInsteadOfPassingForAnAbsentValue) {
    test::FaultyFileSystem files;
    open()->setData(history, QByteArray(300 * chunk, 'h'));
    const auto store = open();
    files.failReads();
    EXPECT_EXIT(store->data(history), testing::ExitedWithCode(1),
                "^Unable to read \"history.events\" from .*: disk I/O error");
    files.heal();
    EXPECT_EQ(store->data(history)->size(), 300 * chunk);
}

// Runs the statement as someone whom file permissions hold for, root or not, and tells what opening said.
void openUnprivileged(const QString& folder) {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && ::seteuid(nobody) != 0)
        ::_exit(2);
    const auto opened = SqliteSettingsStore::open(folder);
    std::fputs(opened.failure.toUtf8().constData(), stderr);
    std::fflush(stderr);
    ::_exit(opened.store == nullptr ? 0 : 1);
}

TEST_F(SettingsFileTest, AFolderOrFileThatCannotBeWrittenIsNamed) {
    const QByteArray folderName = QFile::encodeName(folder());
    const auto opensTo = [](const char* pattern) { return testing::ContainsRegex(pattern); };
    const testing::ExitedWithCode said(0);

    setContents(folder() + QStringLiteral("/file"), "in the way");
    EXPECT_THAT(SqliteSettingsStore::open(folder() + QStringLiteral("/file")).failure.toStdString(),
                opensTo("Unable to open .*/file/standard.sqlite: its folder cannot be made \\(Not a directory\\)"));
    EXPECT_THAT(SqliteSettingsStore::open(folder() + QStringLiteral("/file/inner")).failure.toStdString(),
                opensTo("Unable to open .*/inner/standard.sqlite: its folder cannot be made \\(Not a directory\\)"));
    QDir(folder()).mkdir(QStringLiteral("taken.sqlite"));
    EXPECT_THAT(SqliteSettingsStore::open(folder(), QStringLiteral("taken")).failure.toStdString(),
                opensTo("Unable to open .*/taken.sqlite: unable to open database file"));

    ::chmod(folderName.constData(), 0555);
    EXPECT_EXIT(openUnprivileged(folder()), said,
                "Unable to open .*/standard.sqlite: its folder cannot be written \\(Permission denied\\)");
    EXPECT_EXIT(openUnprivileged(folder() + QStringLiteral("/inner")), said,
                "Unable to open .*/inner/standard.sqlite: its folder cannot be made \\(Permission denied\\)");
    ::chmod(folderName.constData(), 0755);
    open()->setData(history, "[]");
    ::chmod(QFile::encodeName(path()).constData(), 0444);
    EXPECT_EXIT(openUnprivileged(folder()), said, "Unable to open .*/standard.sqlite: ");
}

TEST_F(SettingsFileTest, ALogThatAKilledProgramLeftIsReadUnlessTheFileIsReadOnlyAndThenStays) {
    const QString copy = folder() + QStringLiteral("/copy");
    QDir().mkdir(copy);
    {
        const auto store = open();
        store->setData(history, "[1]");
        for (const char* name : {"/standard.sqlite", "/standard.sqlite-wal"})
            ASSERT_TRUE(QFile::copy(folder() + QLatin1String(name), copy + QLatin1String(name)));
    }
    const QString copiedPath = SqliteSettingsStore::filePath(copy);
    const QByteArray log = contents(copiedPath + QStringLiteral("-wal"));
    ASSERT_FALSE(log.isEmpty());
    for (const QString& readable : {folder(), copy})
        ::chmod(QFile::encodeName(readable).constData(), 0555);
    for (const QString& file : {copiedPath, copiedPath + QStringLiteral("-wal")})
        ::chmod(QFile::encodeName(file).constData(), 0444);
    EXPECT_EXIT(openUnprivileged(copy), testing::ExitedWithCode(0), "Unable to open .*/copy/standard.sqlite: ");
    EXPECT_EQ(contents(copiedPath + QStringLiteral("-wal")), log);

    for (const QString& folderAgain : {folder(), copy})
        ::chmod(QFile::encodeName(folderAgain).constData(), 0755);
    for (const QString& file : {copiedPath, copiedPath + QStringLiteral("-wal")})
        ::chmod(QFile::encodeName(file).constData(), 0644);
    const auto opened = SqliteSettingsStore::open(copy);
    ASSERT_NE(opened.store, nullptr) << opened.failure.toStdString();
    EXPECT_EQ(opened.store->data(history), QByteArray("[1]"));
}

TEST_F(SettingsFileTest, AStockToolThatWritesDelaysAChangeAndLosesNone) {
    const test::LogCapture console;
    const auto store = open();
    store->setData(history, "[1]");
    StockTool tool(path());
    tool.run("BEGIN IMMEDIATE");
    store->setData(history, "[1,2]");
    EXPECT_EQ(store->writeFailure(),
              QStringLiteral("Unable to save \"history.events\" to %1: database is locked").arg(path()));
    EXPECT_EQ(store->data(history), QByteArray("[1,2]"));
    EXPECT_THAT(tool.run("SELECT text FROM documents"), testing::ElementsAre("[1]"));
    tool.run("COMMIT");
    EXPECT_TRUE(store->retryFailedWrites());
    EXPECT_THAT(tool.run("SELECT text FROM documents"), testing::ElementsAre("[1,2]"));
    tool.run("BEGIN; SELECT * FROM entry");
    store->setData(history, "[1,2,3]");
    EXPECT_EQ(store->writeFailure(), std::nullopt) << "one that only reads is no hindrance";
    EXPECT_THAT(tool.run("SELECT text FROM documents"), testing::ElementsAre("[1,2]"));
}

} // namespace

} // namespace tamsel
