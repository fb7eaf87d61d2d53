#include "model/SettingsSchema.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/FaultyFileSystem.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/LogCapture.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <memory>
#include <ostream>

namespace tamsel {

namespace {

using Values = QMap<QString, SettingsValue>;
using Duration = test::FaultyFileSystem::Duration;
using Store = std::unique_ptr<SqliteSettingsStore>;

constexpr qsizetype chunk = schema::chunkBytes;

const QString history = QStringLiteral("history.events");
const QString sessions = QStringLiteral("DailyLog.practiceSessions");

Store openOrFail(const QString& folder) {
    auto opened = SqliteSettingsStore::open(folder);
    EXPECT_NE(opened.store, nullptr) << opened.failure.toStdString();
    return std::move(opened.store);
}

// What a program finds that starts on these files.
Values valuesIn(const QMap<QString, QByteArray>& files) {
    const test::TemporaryFolder folder;
    for (auto each = files.cbegin(); each != files.cend(); ++each) {
        QFile file(folder.filePath(each.key()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(each.value()) == each.value().size());
    }
    const Store store = openOrFail(folder.path());
    return store == nullptr ? Values() : store->dictionaryRepresentation();
}

// The folder's files as they are: what a killed program leaves.
QMap<QString, QByteArray> filesIn(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.sqlite"), QStringLiteral("*-wal")})) {
        QFile file(folder + QLatin1Char('/') + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files.insert(name, file.readAll());
    }
    return files;
}

struct Change {
    const char* name;
    std::function<void(SettingsStore&)> make;
};

void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.name;
}

const Change changes[] = {
    {"a long document of which the middle and the end change",
     [](SettingsStore& store) {
         QByteArray document = *store.data(history);
         document[chunk] = 'm';
         store.setData(history, document + QByteArray(chunk, 'e'));
     }},
    {"a longer end", [](SettingsStore& store) { store.replaceTail(history, 2 * chunk + 100, QByteArray(300, 't')); }},
    {"a long value removed", [](SettingsStore& store) { store.remove(history); }},
    {"a group of two",
     [](SettingsStore& store) {
         store.atomically([&store] {
             store.setData(sessions, QByteArray(chunk + 1, 's'));
             store.replaceTail(history, 1, "]");
         });
     }},
};

void fill(SettingsStore& store) {
    store.setData(history, QByteArray(2 * chunk + 500, 'h'));
    store.setInteger(QStringLiteral("numberOfPromptsForReview"), 1);
}

class SettingsStoreFaults : public testing::TestWithParam<Change> {};

INSTANTIATE_TEST_SUITE_P(Each, SettingsStoreFaults, testing::ValuesIn(changes), [](const auto& each) {
    return QString::fromLatin1(each.param.name).replace(QLatin1Char(' '), QLatin1Char('_')).toStdString();
});

// Every write, truncation and sync that the change makes fails in its turn, and all after it: whoever looks at the
// files then finds the old state or the new one, this program sees the new one, and a retry makes it durable.
TEST_P(SettingsStoreFaults, AFailingDiskLeavesOldOrNewAndARetryMakesItNew) {
    const test::LogCapture console;
    bool failed = true;
    int count = 0;
    for (; failed; ++count) {
        SCOPED_TRACE(testing::Message() << "after " << count << " operations");
        test::FaultyFileSystem files;
        const test::TemporaryFolder folder;
        const Store store = openOrFail(folder.path());
        fill(*store);
        const Values before = store->dictionaryRepresentation();
        int notices = 0;
        const auto subscription = store->writeFailureChanged().subscribe([&notices] { ++notices; });
        const auto linesBefore = console.lines().size();

        files.failAfter(count, count % 2 == 0 ? SQLITE_FULL : SQLITE_IOERR_WRITE, Duration::lasting);
        GetParam().make(*store);
        failed = files.hasFailed();
        files.heal();
        const Values after = store->dictionaryRepresentation();
        ASSERT_NE(after, before);
        const Values left = valuesIn(filesIn(folder.path()));
        EXPECT_TRUE(left == before || left == after);
        EXPECT_EQ(store->writeFailure().has_value(), failed);
        EXPECT_EQ(console.lines().sliced(linesBefore), failed ? QStringList(*store->writeFailure()) : QStringList());
        EXPECT_EQ(notices, failed ? 1 : 0);

        EXPECT_TRUE(store->retryFailedWrites());
        EXPECT_EQ(store->writeFailure(), std::nullopt);
        EXPECT_EQ(notices, failed ? 2 : 0);
        EXPECT_EQ(store->dictionaryRepresentation(), after);
        EXPECT_EQ(valuesIn(files.syncedFiles(folder.path())), after);
    }
    EXPECT_GT(count, 3) << "at least a frame, its page and the sync";
}

TEST(SettingsStoreFaultTest, LaterChangesWaitBehindAFailedOne) {
    const test::LogCapture console;
    test::FaultyFileSystem files;
    const test::TemporaryFolder folder;
    const Store store = openOrFail(folder.path());
    fill(*store);
    const Values before = store->dictionaryRepresentation();
    const QString path = store->location();
    QStringList heard;
    const auto subscription = store->writeFailureChanged().subscribe(
        [&] { heard += store->writeFailure().value_or(QStringLiteral("all is saved")); });

    files.failAfter(0, SQLITE_FULL, Duration::lasting);
    store->replaceTail(history, chunk, "a");
    store->replaceTail(history, chunk + 1, "bc");
    store->replaceTail(history, chunk - 1, "]");
    store->setBoolean(QStringLiteral("a"), true);
    store->atomically([&] {
        store->setBoolean(QStringLiteral("b"), true);
        EXPECT_FALSE(store->retryFailedWrites()) << "half a group is not written";
        store->setBoolean(QStringLiteral("c"), true);
    });
    store->remove(QStringLiteral("numberOfPromptsForReview"));
    EXPECT_FALSE(store->retryFailedWrites());
    EXPECT_EQ(valuesIn(filesIn(folder.path())), before);

    Values after = {{history, {QByteArray(chunk - 1, 'h') + ']'}}};
    for (const char* key : {"a", "b", "c"})
        after.insert(QLatin1String(key), {true});
    EXPECT_EQ(store->dictionaryRepresentation(), after);
    EXPECT_EQ(store->data(history), std::get<QByteArray>(after.value(history).value));
    EXPECT_EQ(store->value(QStringLiteral("numberOfPromptsForReview")), std::nullopt);

    files.heal();
    store->setInteger(QStringLiteral("d"), 4);
    after.insert(QStringLiteral("d"), {qint64{4}});
    EXPECT_EQ(valuesIn(files.syncedFiles(folder.path())), after) << "a later change takes the waiting ones with it";
    const auto line = [&path](const char* keys) {
        return QStringLiteral("Unable to save %1 to %2: database or disk is full").arg(QLatin1String(keys), path);
    };
    EXPECT_THAT(heard, testing::ElementsAre(line("\"history.events\""), line("\"a\", \"history.events\""),
                                            line("\"a\", \"b\", \"c\" and 1 more"),
                                            line("\"a\", \"b\", \"c\" and 2 more"), QStringLiteral("all is saved")));
    EXPECT_THAT(console.lines(), testing::ElementsAre(line("\"history.events\""))) << "once for the whole time";
}

TEST(SettingsStoreFaultTest, ClosingTriesOnceMoreAndSaysWhatIsLost) {
    for (const bool healed : {true, false}) {
        const test::LogCapture console;
        test::FaultyFileSystem files;
        const test::TemporaryFolder folder;
        Store store = openOrFail(folder.path());
        const QString path = store->location();
        files.failAfter(0, SQLITE_FULL, Duration::lasting);
        store->setData(history, "[]");
        if (healed)
            files.heal();
        store.reset();
        files.heal();
        EXPECT_EQ(openOrFail(folder.path())->value(history).has_value(), healed);
        const QString failure =
            QStringLiteral("Unable to save \"history.events\" to %1: database or disk is full").arg(path);
        QStringList expected = {failure};
        if (!healed)
            expected += QStringLiteral("Lost on closing. ") + failure;
        EXPECT_EQ(console.lines(), expected);
    }
}

TEST(SettingsStoreFaultTest, ADiskThatFailsWhileClosingLosesNothing) {
    bool failed = true;
    for (int count = 0; failed; ++count) {
        SCOPED_TRACE(testing::Message() << "after " << count << " operations");
        test::FaultyFileSystem files;
        const test::TemporaryFolder folder;
        Store store = openOrFail(folder.path());
        fill(*store);
        const Values expected = store->dictionaryRepresentation();
        files.failAfter(count, SQLITE_FULL, Duration::lasting);
        store.reset();
        failed = files.hasFailed();
        files.heal();
        ASSERT_EQ(valuesIn(filesIn(folder.path())), expected);
        ASSERT_EQ(valuesIn(files.syncedFiles(folder.path())), expected);
    }
}

TEST(SettingsStoreFaultTest, ADiskThatFailsWhileTheFileIsMadeIsNamedAndHindersNoLaterStart) {
    int failures = 0;
    for (int count = 0; failures == count; ++count) {
        SCOPED_TRACE(testing::Message() << "after " << count << " operations");
        test::FaultyFileSystem files;
        const test::TemporaryFolder folder;
        files.failAfter(count, SQLITE_FULL, Duration::lasting);
        const auto opened = SqliteSettingsStore::open(folder.path());
        const QString path = SqliteSettingsStore::filePath(folder.path());
        failures += files.hasFailed() ? 1 : 0;
        ASSERT_EQ(opened.store == nullptr, files.hasFailed());
        EXPECT_EQ(opened.failure.startsWith(QStringLiteral("Unable to open %1: ").arg(path)), files.hasFailed());
        files.heal();
        const Store store = openOrFail(folder.path());
        ASSERT_NE(store, nullptr);
        EXPECT_EQ(store->dictionaryRepresentation(), Values());
    }
    EXPECT_GT(failures, 3);
}

TEST(SettingsStoreFaultTest, ALossOfPowerLosesNoChangeThatReturned) {
    test::FaultyFileSystem files;
    const test::TemporaryFolder folder;
    const Store store = openOrFail(folder.path());
    const auto expectDurable = [&](const char* change) {
        EXPECT_EQ(valuesIn(files.syncedFiles(folder.path())), store->dictionaryRepresentation()) << change;
    };
    expectDurable("made");
    fill(*store);
    expectDurable("filled");
    for (const Change& change : changes) {
        change.make(*store);
        expectDurable(change.name);
        fill(*store);
    }
    // Enough for the log to be moved into the file and begun again, more than once.
    for (int i = 0; i < 12; ++i) {
        store->setData(history, QByteArray(60 * chunk + i, static_cast<char>('a' + i)));
        expectDurable("a long document");
    }
}

// Numbers each document within itself: 8 digits, over and over, as many as make a length that differs for each.
QByteArray numbered(int number) {
    const QByteArray digits = QByteArray::number(number).rightJustified(8, '0');
    return digits.repeated(1 + number * 997 % 9000);
}

// Saves documents one after another, in turn as a whole, by their tail and in a group with a counter, and tells
// `acknowledgements` about each when its call has returned.
[[noreturn]] void writeUntilKilled(const QString& folder, int acknowledgements) {
    const Store store = SqliteSettingsStore::open(folder).store;
    if (store == nullptr)
        ::_exit(1);
    for (int number = static_cast<int>(store->integer(sessions)) + 1;; ++number) {
        store->atomically([&store = *store, number] {
            if (number % 3 == 0)
                store.replaceTail(history, 0, numbered(number));
            else
                store.setData(history, numbered(number));
            store.setInteger(sessions, number);
        });
        if (::write(acknowledgements, &number, sizeof number) != sizeof number)
            ::_exit(1);
    }
}

TEST(SettingsStoreFaultTest, AKilledProgramKeepsEveryAcknowledgedChangeWhole) {
    const test::TemporaryFolder folder;
    for (int kill = 0; kill < 25; ++kill) {
        SCOPED_TRACE(kill);
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        if (child == 0)
            writeUntilKilled(folder.path(), pipe[1]);
        ::close(pipe[1]);
        // Killed after a number of changes that differs each time, at whatever point of the next ones it has come to.
        int acknowledged = 0;
        for (int i = 0; i < 1 + kill * 7 % 13; ++i)
            ASSERT_EQ(::read(pipe[0], &acknowledged, sizeof acknowledged), ssize_t{sizeof acknowledged});
        ::kill(child, SIGKILL);
        for (int last = 0; ::read(pipe[0], &last, sizeof last) == ssize_t{sizeof last};)
            acknowledged = last;
        ::close(pipe[0]);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);

        const Store store = openOrFail(folder.path());
        ASSERT_NE(store, nullptr);
        const auto number = static_cast<int>(store->integer(sessions));
        EXPECT_TRUE(number == acknowledged || number == acknowledged + 1) << number << " after " << acknowledged;
        EXPECT_EQ(store->data(history), numbered(number));
    }
}

} // namespace

} // namespace tamsel
