#include "model/Backups.h"

#include "model/MemorySettingsStore.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "tests/model/TemporaryFolder.h"
#include "tests/support/FakeClock.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManualQueue.h"
#include "tests/support/SequentialUuids.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <set>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using Kind = BackupFile::Kind;

const QString prompts = QStringLiteral("numberOfPromptsForReview");

class BackupsTest : public testing::Test {
protected:
    BackupsTest() : backups(store, platform, folder.path(), makeQueue()) {}

    Backups::WorkQueue makeQueue() {
        auto made = std::make_unique<test::ManualQueue>(clock);
        queue = made.get();
        return made;
    }

    void finishWork() {
        queue->runDue();
        mainQueue.runDue();
    }
    void setDate(int year, int month, int day) {
        clock.wall = Date::fromUnixSeconds(
            static_cast<double>(QDateTime(QDate(year, month, day), QTime(12, 0), Qt::UTC).toSecsSinceEpoch()));
    }
    // Something changes on a day, and the copy is made.
    void practiseOn(int year, int month, int day) {
        setDate(year, month, day);
        store.setInteger(prompts, ++changes);
        backups.makeDaily();
        finishWork();
    }
    QStringList names() const {
        QStringList result;
        for (const BackupFile& each : backups::list(backups.folder()))
            result += QFileInfo(each.path).fileName();
        return result;
    }

    const test::LogCapture console;
    test::TemporaryFolder folder;
    test::FakeClock clock; // 2024-03-14
    Calendar calendar{QStringLiteral("UTC")};
    test::ManualQueue mainQueue{clock};
    test::SequentialUuids uuids;
    Platform platform{clock, calendar, mainQueue, uuids};
    MemorySettingsStore store;
    test::ManualQueue* queue = nullptr;
    Backups backups;
    int changes = 0;
};

TEST_F(BackupsTest, OneADayWhenSomethingChangedMadeAwayFromTheScreen) {
    store.setData(keys::historyEvents, QByteArray(100'000, ' ') + "[]");
    store.setData(keys::runningPractice, "[]");
    backups.begin();
    mainQueue.advance(19s);
    EXPECT_TRUE(queue->empty()) << "the start belongs to the screens";
    mainQueue.advance(1s);
    EXPECT_FALSE(queue->empty());
    EXPECT_EQ(names(), QStringList()) << "the work waits for its own queue";
    finishWork();
    ASSERT_EQ(names(), QStringList{QStringLiteral("tamsel-000001-2024-03-14.sqlite")});
    auto expected = store.dictionaryRepresentation();
    expected.remove(keys::runningPractice);
    const auto copied = backups::read(backups::list(backups.folder()).first().path);
    ASSERT_TRUE(copied) << copied.error().message.toStdString();
    EXPECT_EQ(*copied, expected);

    store.setInteger(prompts, 1);
    mainQueue.advance(2h);
    finishWork();
    EXPECT_EQ(names().size(), 1) << "once a day";
    for (int day = 0; day < 2; ++day) {
        mainQueue.advance(24h);
        finishWork();
        EXPECT_EQ(names().size(), 2) << "the second day brings the change, the third none";
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList()) << "nothing is left beside";
}

TEST_F(BackupsTest, WhatLiesInAFileIsReadThereAndNotByTheMainThread) {
    const auto opened = SqliteSettingsStore::open(folder.path());
    Backups filed(*opened.store, platform, folder.path(), makeQueue());
    opened.store->setInteger(prompts, 1);
    filed.makeDaily();
    // Had it been read already, this would not be in the copy.
    opened.store->setInteger(prompts, 2);
    finishWork();
    const auto copied = backups::read(backups::list(filed.folder()).value(0).path);
    ASSERT_TRUE(copied);
    EXPECT_EQ(*copied, opened.store->dictionaryRepresentation());

    // Deleted under the program: a copy of nothing would take the place of a good one.
    ASSERT_TRUE(QFile::remove(opened.store->location()));
    clock.advance(24h);
    filed.makeDaily();
    finishWork();
    EXPECT_EQ(filed.failure(), QStringLiteral("there is no such file"));
    EXPECT_EQ(backups::list(filed.folder()).size(), 1);
    EXPECT_FALSE(QFile::exists(opened.store->location()));
}

TEST_F(BackupsTest, CopiesThatAreOrderedTogetherAreCountedOn) {
    store.setInteger(prompts, 1);
    backups.makeDaily();
    backups.makeDaily();
    backups.makeBeforeReplacing([](const std::optional<QString>&) {});
    finishWork();
    EXPECT_EQ(names(), (QStringList{QStringLiteral("tamsel-000002-2024-03-14-120000-before-import.sqlite"),
                                    QStringLiteral("tamsel-000001-2024-03-14.sqlite")}));
}

TEST_F(BackupsTest, TheLastSevenDaysAndTheLastOfEachOfTwelveMonthsAreKept) {
    QList<BackupFile> kept;
    qint64 number = 0;
    for (QDate day(2022, 1, 1); day <= QDate(2024, 3, 14); day = day.addDays(1)) {
        ++number;
        kept.prepend({QString::number(number), number, Kind::daily, day, QTime(0, 0), 0});
        for (const BackupFile& old : backups::surplus(kept))
            kept.removeOne(old);
        ASSERT_LE(kept.size(), 7 + 12);
    }
    QStringList days;
    for (const BackupFile& each : kept)
        days += each.day.toString(Qt::ISODate);
    EXPECT_EQ(days.join(QLatin1Char(' ')).toStdString(),
              "2024-03-14 2024-03-13 2024-03-12 2024-03-11 2024-03-10 2024-03-09 2024-03-08 2024-02-29 2024-01-31 "
              "2023-12-31 2023-11-30 2023-10-31 2023-09-30 2023-08-31 2023-07-31 2023-06-30 2023-05-31 2023-04-30");
}

TEST_F(BackupsTest, AClockThatJumpsByYearsCostsNoRecentCopyAndNoUnboundedRoom) {
    QStringList made;
    for (int jump = 0; jump < 20; ++jump) {
        // Far ahead, far back to one and the same day, and to where it belongs.
        for (const QDate day : {QDate(2034 + jump, 5, 1), QDate(2014, 5, 1), QDate(2024, 3, 1 + jump)}) {
            practiseOn(day.year(), day.month(), day.day());
            EXPECT_EQ(backups.failure(), std::nullopt);
            made += day.toString(Qt::ISODate);
            EXPECT_LE(names().size(), 7 + 12);
            ASSERT_TRUE(names().first().contains(made.last()));
        }
    }
    for (qsizetype i = 0; i < 7; ++i)
        EXPECT_TRUE(names().at(i).contains(made.at(made.size() - 1 - i))) << i;
}

TEST_F(BackupsTest, BeforeDataIsReplacedACopyIsMadeInAnyCase) {
    practiseOn(2024, 3, 14);
    for (int i = 0; i < 9; ++i) {
        clock.advance(61s);
        int completed = 0;
        backups.makeBeforeReplacing([&](const std::optional<QString>& failure) {
            EXPECT_EQ(failure, std::nullopt);
            ++completed;
        });
        EXPECT_EQ(completed, 0);
        finishWork();
        EXPECT_EQ(completed, 1);
    }
    EXPECT_EQ(names().size(), 7 + 1) << "seven of them, and the day's own";
    EXPECT_EQ(names().first(), QStringLiteral("tamsel-000010-2024-03-14-120909-before-import.sqlite"));
}

TEST_F(BackupsTest, ACopyThatCannotBeMadeIsToldAndTriedAgain) {
    QFile inTheWay(folder.filePath(QStringLiteral("backups")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    int notices = 0;
    const auto subscription = backups.changed().subscribe([&notices] { ++notices; });
    store.setInteger(prompts, 1);
    backups.makeDaily();
    finishWork();
    ASSERT_NE(backups.failure(), std::nullopt);
    EXPECT_EQ(notices, 1);
    EXPECT_TRUE(console.lines().last().startsWith(
        QStringLiteral("Unable to make the backup %1/backups/tamsel-000001-2024-03-14.sqlite: ").arg(folder.path())));
    std::optional<QString> told;
    backups.makeBeforeReplacing([&](const std::optional<QString>& failure) { told = failure; });
    finishWork();
    EXPECT_EQ(told, backups.failure());
    ASSERT_TRUE(inTheWay.remove());
    backups.makeDaily();
    finishWork();
    EXPECT_EQ(backups.failure(), std::nullopt);
    EXPECT_EQ(names().size(), 1);
}

TEST_F(BackupsTest, AFullDiskLeavesTheCopiesThatAreThere) {
    practiseOn(2024, 3, 13);
    const datafile::Calls full{[](int, const char*, std::size_t) {
                                   errno = ENOSPC;
                                   return ssize_t{-1};
                               },
                               datafile::Calls::system().sync, datafile::Calls::system().rename};
    const QString path = backups.folder() + QStringLiteral("/tamsel-000001-2024-03-14.sqlite");
    EXPECT_EQ(backups::write(store.dictionaryRepresentation(), path, folder.path(), full), qt_error_string(ENOSPC));
    EXPECT_EQ(names(), QStringList{QStringLiteral("tamsel-000001-2024-03-13.sqlite")});
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(BackupsTest, AFolderOfOnesOwnIsUsedFromThenOn) {
    const test::TemporaryFolder other;
    const QString chosen = other.filePath(QStringLiteral("copies ü?#%"));
    EXPECT_EQ(backups.setFolder(chosen), std::nullopt);
    practiseOn(2024, 3, 14);
    EXPECT_TRUE(QFile::exists(chosen + QStringLiteral("/tamsel-000001-2024-03-14.sqlite")));
    EXPECT_EQ(backups::list(backups.folder()).size(), 1);
    EXPECT_NE(backups.setFolder(QStringLiteral("/proc/copies")), std::nullopt);
    EXPECT_EQ(backups.folder(), chosen) << "it stays what it was";
    EXPECT_TRUE(backups.folderIsChosen());
    EXPECT_EQ(Backups(store, platform, folder.path(), makeQueue()).folder(), chosen) << "with the next start as well";
    EXPECT_EQ(backups.setFolder(std::nullopt), std::nullopt);
    EXPECT_EQ(backups.folder(), folder.filePath(QStringLiteral("backups")));
}

TEST_F(BackupsTest, ADamagedCopyIsToldApartAndNeverTouched) {
    store.setData(keys::historyEvents, QByteArray(300'000, ' ') + "[]");
    practiseOn(2024, 3, 14);
    const QString path = backups::list(backups.folder()).first().path;
    const QByteArray sound = *datafile::read(path);
    const auto problem = [&](const QByteArray& bytes) {
        EXPECT_EQ(datafile::write(path, bytes), std::nullopt);
        const auto values = backups::read(path);
        EXPECT_EQ(*datafile::read(path), bytes);
        EXPECT_EQ(QDir(backups.folder()).entryList(QDir::Files).size(), 1) << "nothing appears beside it";
        return values ? QString() : values.error().message;
    };
    EXPECT_EQ(problem(sound), QString());
    EXPECT_NE(problem(sound.first(sound.size() - 1)), QString());
    EXPECT_NE(problem(sound.first(40'000)), QString());
    EXPECT_NE(problem({}), QString());
    EXPECT_NE(problem("nothing of the kind"), QString());
    QByteArray flipped = sound;
    flipped[32768 + 1] = static_cast<char>(~flipped[32768 + 1]);
    EXPECT_NE(problem(flipped), QString());
}

} // namespace
} // namespace tamsel
