#include "model/Recovery.h"

#include "model/BackupFile.h"
#include "model/DataCheck.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/DataWorld.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

namespace tamsel {
namespace {

constexpr qsizetype pageBytes = 32768;
const QDateTime moment(QDate(2024, 3, 14), QTime(15, 30), Qt::UTC);

// How a program ended that starts on the data of a folder and reads all of it, and what it said.
struct Start {
    int status = 0;
    QByteArray said;

    bool wentWell() const { return WIFEXITED(status) && WEXITSTATUS(status) == 0; }
    bool refused() const { return WIFEXITED(status) && WEXITSTATUS(status) == 1; }
    // The history cannot be decoded.
    bool stopped() const { return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT; }
};

[[noreturn]] void startAndReadAll(const QString& folder, int output) {
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    setLogStream(stdout);
    {
        const auto opened = SqliteSettingsStore::open(folder);
        if (!opened.store) {
            std::fprintf(stderr, "%s\n", opened.failure.toUtf8().constData());
            ::_exit(1);
        }
        test::DataWorld world(*opened.store);
        (void)world.document();
    }
    std::fflush(nullptr);
    ::_exit(0);
}

class RecoveryTest : public testing::Test {
protected:
    RecoveryTest() {
        auto opened = SqliteSettingsStore::open(folder.path());
        test::DataWorld world(*opened.store);
        auto dump = *checkDataDump(test::testData("everything.tamsel"));
        dump.allHistory.resize(2000);
        world.stores().replace(dump);
        document = world.document();
        EXPECT_EQ(backups::write(opened.store->dictionaryRepresentation(), backup, folder.path()), std::nullopt);
        opened.store.reset();
        bytes = contents(path);
        EXPECT_GT(bytes.size(), 12 * pageBytes);
    }

    static QByteArray contents(const QString& path) {
        const auto read = datafile::read(path);
        return read ? *read : QByteArray("(unreadable)");
    }

    void put(const QByteArray& damaged) {
        for (const QString& name : QDir(folder.path()).entryList({QStringLiteral("standard*")}, QDir::Files))
            QFile::remove(folder.filePath(name));
        ASSERT_EQ(datafile::write(path, damaged), std::nullopt);
    }

    Start start() const {
        QFile output(folder.filePath(QStringLiteral("said")));
        EXPECT_TRUE(output.open(QIODevice::ReadWrite | QIODevice::Truncate));
        const pid_t child = ::fork();
        if (child == 0)
            startAndReadAll(folder.path(), output.handle());
        Start result;
        EXPECT_EQ(::waitpid(child, &result.status, 0), child);
        output.seek(0);
        result.said = output.readAll();
        return result;
    }

    // Whatever is wrong with the file: no crash without a line, nothing is overwritten, and the backup brings all back.
    void expectAWayBack(const QByteArray& damaged) {
        put(damaged);
        const Start tried = start();
        ASSERT_TRUE(tried.wentWell() || tried.refused() || tried.stopped()) << tried.status;
        if (tried.wentWell())
            return;
        ++unusable;
        EXPECT_TRUE(tried.said.contains(path.toUtf8())) << tried.said.toStdString();
        EXPECT_EQ(tried.said.contains("Fatal error\n"), tried.stopped());
        ASSERT_EQ(contents(path), damaged) << "it is left as it is";

        const auto problem = recovery::problemIn(path);
        ASSERT_TRUE(problem.has_value()) << tried.said.toStdString();
        EXPECT_TRUE(problem->startsWith(QStringLiteral("Unable to use %1: ").arg(path)));
        EXPECT_FALSE(problem->contains(QLatin1Char('\n')));
        ASSERT_EQ(recovery::restore(backup, path, moment), std::nullopt);
        EXPECT_EQ(contents(folder.filePath(QStringLiteral("standard-damaged-20240314-153000.sqlite"))), damaged);
        EXPECT_EQ(recovery::problemIn(path), std::nullopt);
        const auto opened = SqliteSettingsStore::open(folder.path());
        ASSERT_TRUE(opened.store);
        EXPECT_TRUE(test::DataWorld(*opened.store).document() == document);
    }

    const test::LogCapture console;
    test::TemporaryFolder folder;
    const QString path = SqliteSettingsStore::filePath(folder.path());
    const QString backup = folder.filePath(QStringLiteral("backups/tamsel-000001-2024-03-14.sqlite"));
    QByteArray document;
    QByteArray bytes;
    int unusable = 0;
};

TEST_F(RecoveryTest, CutOffAtEveryPage) {
    int cuts = 0;
    for (qsizetype page = 1; page * pageBytes < bytes.size(); ++page, ++cuts) {
        SCOPED_TRACE(page);
        expectAWayBack(bytes.first(page * pageBytes));
        expectAWayBack(bytes.first(page * pageBytes + 100));
    }
    EXPECT_EQ(unusable, 2 * cuts) << "not one is taken for whole";
}

TEST_F(RecoveryTest, FlippedBits) {
    std::mt19937 random(6);
    for (int i = 0; i < 60; ++i) {
        // Half of them in the first bytes of a page, where its structure lies.
        const qsizetype page = static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size() / pageBytes));
        const qsizetype at = page * pageBytes + static_cast<qsizetype>(random() % (i % 2 == 0 ? 64 : pageBytes));
        QByteArray damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ (1 << random() % 8));
        SCOPED_TRACE(testing::Message() << "byte " << at);
        expectAWayBack(damaged);
    }
    EXPECT_GT(unusable, 5);
}

TEST_F(RecoveryTest, AHistoryThatDoesNotDecodeIsFoundWithTheNextStart) {
    {
        const auto opened = SqliteSettingsStore::open(folder.path());
        opened.store->setData(keys::historyEvents, "[{\"date\":1}]");
    }
    const Start tried = start();
    EXPECT_TRUE(tried.stopped());
    EXPECT_TRUE(tried.said.contains("history.events[0].exerciseName: missing")) << tried.said.toStdString();
    EXPECT_EQ(recovery::problemIn(path),
              QStringLiteral("Unable to use %1: history.events[0].exerciseName: missing").arg(path));
    ASSERT_EQ(recovery::restore(backup, path, moment), std::nullopt);
    EXPECT_TRUE(start().wentWell());
}

TEST_F(RecoveryTest, LookingThroughAFileMovesNothingFromItsLog) {
    {
        const auto opened = SqliteSettingsStore::open(folder.path());
        opened.store->setData(keys::historyEvents, "[{\"date\":1}]");
        // As a kill leaves it: with a log.
        ASSERT_TRUE(QFile::copy(path, folder.filePath(QStringLiteral("file"))));
        ASSERT_TRUE(QFile::copy(path + QStringLiteral("-wal"), folder.filePath(QStringLiteral("log"))));
    }
    const QByteArray log = contents(folder.filePath(QStringLiteral("log")));
    put(contents(folder.filePath(QStringLiteral("file"))));
    ASSERT_EQ(datafile::write(path + QStringLiteral("-wal"), log), std::nullopt);
    const QByteArray file = contents(path);
    EXPECT_EQ(recovery::problemIn(path),
              QStringLiteral("Unable to use %1: history.events[0].exerciseName: missing").arg(path));
    EXPECT_EQ(contents(path), file);
    EXPECT_EQ(contents(path + QStringLiteral("-wal")), log);
}

TEST_F(RecoveryTest, ABackupThatCannotBeUsedOrPlacedLeavesTheDamagedFileInItsPlace) {
    put("damaged");
    const QString log = path + QStringLiteral("-wal");
    ASSERT_EQ(datafile::write(log, "its log"), std::nullopt);
    ASSERT_EQ(datafile::write(backup, bytes.first(5 * pageBytes)), std::nullopt);
    EXPECT_NE(recovery::restore(backup, path, moment), std::nullopt);
    EXPECT_NE(recovery::restore(folder.filePath(QStringLiteral("none")), path, moment), std::nullopt);
    EXPECT_EQ(contents(path), QByteArray("damaged"));
    EXPECT_EQ(contents(log), QByteArray("its log"));
}

TEST_F(RecoveryTest, RestoringTwiceInASecondKeepsBothDamagedFilesWithTheirLogs) {
    for (const QByteArray damaged : {"first", "second"}) {
        ASSERT_EQ(datafile::write(path, damaged), std::nullopt);
        ASSERT_EQ(datafile::write(path + QStringLiteral("-wal"), damaged + " log"), std::nullopt);
        ASSERT_EQ(recovery::restore(backup, path, moment), std::nullopt);
    }
    const QString name = folder.filePath(QStringLiteral("standard-damaged-20240314-153000"));
    EXPECT_EQ(contents(name + QStringLiteral(".sqlite")), QByteArray("first"));
    EXPECT_EQ(contents(name + QStringLiteral(".sqlite-wal")), QByteArray("first log"));
    EXPECT_EQ(contents(name + QStringLiteral("-2.sqlite")), QByteArray("second"));
    EXPECT_EQ(contents(name + QStringLiteral("-2.sqlite-wal")), QByteArray("second log"));
}

TEST_F(RecoveryTest, TheMarkOfUseIsLeftByWhoeverDidNotEndProperly) {
    {
        const recovery::UseMark first(folder.path());
        EXPECT_FALSE(first.wasLeft());
        EXPECT_TRUE(recovery::UseMark(folder.path()).wasLeft()) << "as it is seen after a kill";
    }
    {
        recovery::UseMark second(folder.path());
        EXPECT_FALSE(second.wasLeft());
        second.keep();
    }
    EXPECT_TRUE(recovery::UseMark(folder.path()).wasLeft());
}

} // namespace
} // namespace tamsel
