#include "model/BackupFile.h"
#include "model/Backups.h"
#include "model/DataCheck.h"
#include "model/Recovery.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/DataWorld.h"
#include "tests/model/FaultyFileSystem.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <limits>
#include <optional>

// Import, undo, backup and restore on a disk that fails.
namespace tamsel {
namespace {

using Duration = test::FaultyFileSystem::Duration;
using Files = QMap<QString, QByteArray>;

const QDateTime restoreTime(QDate(2024, 3, 14), QTime(15, 30), Qt::UTC);

QByteArray contents(const QString& path) {
    const auto read = datafile::read(path);
    return read ? *read : QByteArray("(unreadable)");
}

Files filesIn(const QString& folder) {
    Files files;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        files.insert(name, contents(folder + QLatin1Char('/') + name));
    return files;
}

// What a program finds that starts on these files.
std::optional<UserData> dataIn(const Files& files) {
    const test::TemporaryFolder folder;
    for (auto each = files.cbegin(); each != files.cend(); ++each) {
        if (each.key().endsWith(QStringLiteral("-shm")))
            continue;
        EXPECT_EQ(datafile::write(folder.filePath(each.key()), each.value()), std::nullopt);
    }
    const auto opened = SqliteSettingsStore::open(folder.path());
    EXPECT_TRUE(opened.store) << opened.failure.toStdString();
    return opened.store ? std::optional(UserData::of(*opened.store)) : std::nullopt;
}

DataDump everything() {
    DataDump dump = *checkDataDump(test::testData("everything.tamsel"));
    dump.allHistory.resize(600);
    return dump;
}

// Its data replaced, one way or the other.
struct Replacement {
    const char* name;
    std::function<void(test::DataWorld&, const UserData& earlier)> make;
};

const Replacement replacements[] = {
    {"Import", [](test::DataWorld& world, const UserData&) { world.stores().replace(everything()); }},
    {"ImportOfNothing", [](test::DataWorld& world, const UserData&) { world.stores().replace(DataDump()); }},
    {"UndoOrRestore", [](test::DataWorld& world, const UserData& earlier) { world.stores().replace(earlier); }},
};

class ReplacementFaults : public testing::TestWithParam<Replacement> {};

INSTANTIATE_TEST_SUITE_P(Each, ReplacementFaults, testing::ValuesIn(replacements),
                         [](const auto& each) { return each.param.name; });

TEST_P(ReplacementFaults, EachFailingWriteOrSyncLeavesTheOldDataOrTheNew) {
    const test::LogCapture console;
    int faults = 0;
    for (const Duration duration : {Duration::once, Duration::lasting}) {
        bool failed = true;
        for (int count = 0; failed; ++count) {
            SCOPED_TRACE(testing::Message() << "after " << count << " operations");
            test::FaultyFileSystem files;
            const test::TemporaryFolder folder;
            const auto opened = SqliteSettingsStore::open(folder.path());
            SqliteSettingsStore& store = *opened.store;
            test::DataWorld world(store);
            world.stores().replace(everything());
            const UserData earlier = UserData::of(store);
            world.stores().replace(*checkDataDump(test::testData("export.tamsel")));
            const UserData old = UserData::of(store);

            files.failAfter(count, count % 2 == 0 ? SQLITE_FULL : SQLITE_IOERR_WRITE, duration);
            GetParam().make(world, earlier);
            failed = files.hasFailed();
            files.heal();
            faults += failed ? 1 : 0;
            const UserData replaced = UserData::of(store);
            ASSERT_NE(replaced, old);
            const auto left = dataIn(filesIn(folder.path()));
            const auto synced = dataIn(files.syncedFiles(folder.path()));
            if (store.writeFailure()) {
                EXPECT_TRUE(left == old || left == replaced);
                EXPECT_TRUE(synced == old || synced == replaced);
                EXPECT_TRUE(store.writeFailure()->startsWith(QStringLiteral("Unable to save \"")));
                EXPECT_TRUE(store.writeFailure()->contains(store.location()));
            } else {
                EXPECT_EQ(synced, replaced) << "it was said to be on the disk";
            }
            EXPECT_TRUE(store.retryFailedWrites());
            EXPECT_EQ(dataIn(files.syncedFiles(folder.path())), replaced);
        }
    }
    EXPECT_GT(faults, 5);
    RecordProperty("faults", faults);
}

class DataFaultTest : public testing::Test {
protected:
    DataFaultTest() {
        values.insert(keys::historyEvents, {QByteArray(200'000, ' ') + "[]"});
        // As a settings file keeps a number that is none.
        values.insert(QStringLiteral("lastTempo"), {std::numeric_limits<double>::quiet_NaN()});
    }

    const test::LogCapture console;
    const test::TemporaryFolder folder;
    UserData::Values values;
};

TEST_F(DataFaultTest, EachFaultWhileABackupIsMadeIsToldAndLeavesTheCopiesThatAreThere) {
    test::FaultyFileSystem files;
    const QString copies = folder.filePath(QStringLiteral("backups"));
    const QString first = copies + QStringLiteral("/tamsel-000001-2024-03-13.sqlite");
    const QString second = copies + QStringLiteral("/tamsel-000002-2024-03-14.sqlite");
    ASSERT_EQ(backups::write(values, first, folder.path()), std::nullopt);
    const QByteArray old = contents(first);
    values.insert(keys::exercises, {QByteArray("[]")});
    int faults = 0;
    const auto expectWholeOrNone = [&](const std::optional<QString>& failure, bool failed) {
        faults += failed ? 1 : 0;
        EXPECT_EQ(contents(first), old);
        EXPECT_TRUE(filesIn(folder.path()).isEmpty()) << "nothing is left beside";
        EXPECT_EQ(filesIn(copies).size(), failure ? 1 : 2);
        if (failure) {
            EXPECT_FALSE(failure->isEmpty() || failure->contains(QLatin1Char('\n')));
            return;
        }
        const auto made = backups::read(second);
        ASSERT_TRUE(made);
        EXPECT_EQ(made->keys(), values.keys());
        EXPECT_EQ(made->value(keys::historyEvents), values.value(keys::historyEvents));
        EXPECT_TRUE(QFile::remove(second));
    };

    for (const Duration duration : {Duration::once, Duration::lasting}) {
        bool failed = true;
        for (int count = 0; failed; ++count) {
            SCOPED_TRACE(testing::Message() << "SQLite, after " << count << " operations");
            files.failAfter(count, SQLITE_FULL, duration);
            const auto failure = backups::write(values, second, folder.path());
            failed = files.hasFailed();
            files.heal();
            EXPECT_TRUE(failed || !failure);
            expectWholeOrNone(failure, failed);
        }
    }
    bool failed = true;
    for (int failing = 0; failed; ++failing) {
        SCOPED_TRACE(testing::Message() << "the copy, call " << failing);
        int calls = 0;
        const auto fails = [&] {
            errno = ENOSPC;
            return calls++ == failing;
        };
        const datafile::Calls& real = datafile::Calls::system();
        const auto failure = backups::write(
            values, second, folder.path(),
            {[&](int descriptor, const char* bytes, std::size_t size) {
                 return fails() ? ssize_t{-1} : real.write(descriptor, bytes, std::min<std::size_t>(size, 50'000));
             },
             [&](int descriptor) { return fails() ? -1 : real.sync(descriptor); },
             [&](const char* from, const char* to) { return fails() ? -1 : real.rename(from, to); }});
        failed = calls > failing;
        EXPECT_EQ(failure, failed ? std::optional(qt_error_string(ENOSPC)) : std::nullopt);
        expectWholeOrNone(failure, failed);
    }
    EXPECT_GT(faults, 20);
    RecordProperty("faults", faults);
}

TEST_F(DataFaultTest, EachFaultWhileADamagedFileIsReplacedLeavesItAndItsLog) {
    const QString path = SqliteSettingsStore::filePath(folder.path());
    const QString backup = folder.filePath(QStringLiteral("backups/tamsel-000001-2024-03-14.sqlite"));
    ASSERT_EQ(backups::write(values, backup, folder.path()), std::nullopt);
    ASSERT_EQ(datafile::write(path, "damaged"), std::nullopt);
    ASSERT_EQ(datafile::write(path + QStringLiteral("-wal"), "its log"), std::nullopt);
    const Files damaged = filesIn(folder.path());
    int faults = 0;
    for (bool failed = true; failed;) {
        SCOPED_TRACE(faults);
        int calls = 0;
        const auto fails = [&] {
            // Whoever starts the program now finds the damaged file with its log.
            EXPECT_EQ(contents(path), QByteArray("damaged"));
            EXPECT_EQ(contents(path + QStringLiteral("-wal")), QByteArray("its log"));
            errno = EIO;
            return calls++ == faults;
        };
        const datafile::Calls& real = datafile::Calls::system();
        const auto failure = recovery::restore(
            backup, path, restoreTime,
            {[&](int descriptor, const char* bytes, std::size_t size) {
                 return fails() ? ssize_t{-1} : real.write(descriptor, bytes, std::min<std::size_t>(size, 50'000));
             },
             [&](int descriptor) { return fails() ? -1 : real.sync(descriptor); },
             // By then the log has moved away; it comes back when this fails.
             [&](const char* from, const char* to) {
                 errno = EIO;
                 return calls++ == faults ? -1 : real.rename(from, to);
             }});
        failed = calls > faults;
        EXPECT_EQ(failure, failed ? std::optional(qt_error_string(EIO)) : std::nullopt);
        if (failed) {
            ++faults;
            EXPECT_EQ(filesIn(folder.path()), damaged);
        }
    }
    EXPECT_GT(faults, 4);
    RecordProperty("faults", faults);
    EXPECT_EQ(contents(path), contents(backup));
    EXPECT_EQ(contents(folder.filePath(QStringLiteral("standard-damaged-20240314-153000.sqlite"))),
              QByteArray("damaged"));
    EXPECT_EQ(contents(folder.filePath(QStringLiteral("standard-damaged-20240314-153000.sqlite-wal"))),
              QByteArray("its log"));
}

TEST_F(DataFaultTest, ABackupHasWhatWaitsForAFullDiskToEmpty) {
    test::FaultyFileSystem files;
    test::FakeClock clock;
    Calendar calendar{QStringLiteral("UTC")};
    InlineQueue mainQueue;
    test::CountingUuids uuids;
    const auto opened = SqliteSettingsStore::open(folder.path());
    Backups copies(*opened.store, {clock, calendar, mainQueue, uuids}, folder.path(), std::make_unique<InlineQueue>());
    files.failAfter(0, SQLITE_FULL, Duration::once);
    opened.store->setInteger(keys::numberOfPromptsForReview, 3);
    ASSERT_TRUE(opened.store->writeFailure());
    files.heal();
    copies.makeDaily();
    EXPECT_EQ(copies.failure(), std::nullopt);
    const QList<BackupFile> made = backups::list(copies.folder());
    ASSERT_EQ(made.size(), 1);
    EXPECT_EQ(*backups::read(made.first().path), opened.store->dictionaryRepresentation());
}

// As somebody who may read the folder and write nothing in it.
class ReadingOnly {
public:
    explicit ReadingOnly(const QString& folder) : m_folder(QFile::encodeName(folder)) {
        for (const QString& name : QDir(folder).entryList(QDir::Files))
            QFile::setPermissions(folder + QLatin1Char('/') + name,
                                  QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        EXPECT_EQ(::chmod(m_folder.constData(), 0555), 0);
        // To the system's owner no permission means anything.
        EXPECT_EQ(::seteuid(::getuid() == 0 ? nobody : ::getuid()), 0);
    }
    ~ReadingOnly() {
        EXPECT_EQ(::seteuid(::getuid()), 0);
        ::chmod(m_folder.constData(), 0755);
    }
    ReadingOnly(const ReadingOnly&) = delete;
    ReadingOnly& operator=(const ReadingOnly&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    const QByteArray m_folder;
};

TEST_F(DataFaultTest, InAReadOnlyFolderEverythingIsRefusedWithALineAndStays) {
    const QString path = SqliteSettingsStore::filePath(folder.path());
    const QString backup = folder.filePath(QStringLiteral("tamsel-000001-2024-03-14.sqlite"));
    {
        const auto opened = SqliteSettingsStore::open(folder.path());
        opened.store->setInteger(keys::numberOfPromptsForReview, 1);
    }
    ASSERT_EQ(backups::write(values, backup, folder.path()), std::nullopt);
    const Files before = filesIn(folder.path());
    {
        const ReadingOnly reader(folder.path());
        const auto opened = SqliteSettingsStore::open(folder.path());
        EXPECT_FALSE(opened.store);
        EXPECT_TRUE(opened.failure.startsWith(QStringLiteral("Unable to open %1: ").arg(path)))
            << opened.failure.toStdString();
        const QString denied = qt_error_string(EACCES);
        EXPECT_EQ(datafile::write(folder.filePath(QStringLiteral("a.tamsel")), "x"), denied);
        const QString copy = folder.filePath(QStringLiteral("tamsel-000002-2024-03-14.sqlite"));
        EXPECT_EQ(backups::write(values, copy, folder.path()),
                  QStringLiteral("its folder cannot be written (%1)").arg(denied));
        const auto looked = backups::read(backup);
        EXPECT_TRUE(looked) << looked.error().message.toStdString();
        EXPECT_EQ(recovery::restore(backup, path, restoreTime), denied);
    }
    EXPECT_EQ(filesIn(folder.path()), before);
}

} // namespace
} // namespace tamsel
