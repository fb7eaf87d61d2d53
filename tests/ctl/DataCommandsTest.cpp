#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "platform/FolderLock.h"
#include "tests/ctl/Tamselctl.h"
#include "tests/model/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using test::Ended;

QByteArray contents(const QString& path) {
    const auto bytes = datafile::read(path);
    return bytes ? *bytes : QByteArray("(unreadable)");
}

class DataCommandsTest : public testing::Test {
protected:
    Ended tamselctl(const QStringList& arguments) {
        return test::tamselctl(arguments, {{QStringLiteral("XDG_DATA_HOME"), home.path()},
                                           {QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")},
                                           {QStringLiteral("TZ"), QStringLiteral("UTC")}});
    }

    void expectRefused(const QStringList& arguments, int code, const QByteArray& because) {
        const Ended ended = tamselctl(arguments);
        EXPECT_EQ(ended.exitCode, code) << ended.errors.toStdString();
        EXPECT_EQ(ended.errors.count('\n'), 1) << ended.errors.toStdString();
        EXPECT_TRUE(ended.errors.startsWith("tamselctl: ") && ended.errors.contains(because))
            << ended.errors.toStdString();
    }
    void import(const QString& path) {
        const Ended ended = tamselctl({QStringLiteral("import"), path});
        EXPECT_EQ(ended.exitCode, 0) << ended.errors.toStdString();
    }
    QByteArray exported() { return tamselctl({QStringLiteral("export")}).output; }
    QString newestBackup() const {
        const auto found = backups::list(folder() + QStringLiteral("/backups"));
        return found.isEmpty() ? QString() : QFileInfo(found.first().path).fileName();
    }

    QString folder() const { return home.filePath(QStringLiteral("tamsel")); }
    QString file() const { return SqliteSettingsStore::filePath(folder()); }

    const test::TemporaryFolder home;
    const QString small = QStringLiteral(TAMSEL_TEST_DATA "/export.tamsel");
    const QString everything = QStringLiteral(TAMSEL_TEST_DATA "/everything.tamsel");
};

TEST_F(DataCommandsTest, WhatIsImportedIsExportedAgainToTheByte) {
    for (const QString& path : {everything, small}) {
        import(path);
        EXPECT_TRUE(exported() == contents(path));
        const QString copy = home.filePath(QStringLiteral("copy.tamsel"));
        EXPECT_EQ(tamselctl({QStringLiteral("export"), copy}).exitCode, 0);
        EXPECT_TRUE(contents(copy) == contents(path));
    }
    EXPECT_EQ(tamselctl({QStringLiteral("restore"), newestBackup()}).exitCode, 0);
    EXPECT_TRUE(exported() == contents(everything)) << "what was there before the second import";
}

TEST_F(DataCommandsTest, ThePreviewSaysWhatWouldChangeAndChangesNothing) {
    import(small);
    const QByteArray before = contents(file());
    const QByteArray preview = "                          here now              then\n"
                               "Items                            2                40\n"
                               "Archived items                   1                 7\n"
                               "Notes                            1                46\n"
                               "Practice events                  2            10,000\n"
                               "First practice       14 March 2024  5 September 2013\n"
                               "Last practice        15 March 2024    7 October 2024\n";
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("check"), everything},
          QStringList{QStringLiteral("import"), everything, QStringLiteral("--dry-run")}}) {
        const Ended ended = tamselctl(arguments);
        EXPECT_EQ(ended.exitCode, 0) << ended.errors.toStdString();
        EXPECT_EQ(ended.output.toStdString(), preview.toStdString());
        EXPECT_TRUE(contents(file()) == before);
    }
}

TEST_F(DataCommandsTest, WhatCannotBeReadIsRefusedWithItsPlaceAndNothingIsMade) {
    const QString path = home.filePath(QStringLiteral("bad.tamsel"));
    ASSERT_EQ(datafile::write(path, contents(small).replace("\"practiceTime\":8", "\"practiceTime\":-8")),
              std::nullopt);
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("check"), path}, QStringList{QStringLiteral("import"), path},
          QStringList{QStringLiteral("import"), QStringLiteral("--dry-run"), path}})
        expectRefused(arguments, 1, "bad.tamsel: allHistory[1].practiceTime: the time is negative");
    expectRefused({QStringLiteral("import"), home.filePath(QStringLiteral("none"))}, 1, "No such file");
    expectRefused({QStringLiteral("restore"), path}, 1, "bad.tamsel");
    expectRefused({QStringLiteral("export")}, 1, "there is no data in");
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(DataCommandsTest, ACallThatIsNoneEndsWithTwo) {
    const QString command[] = {QStringLiteral("export"), QStringLiteral("import"), QStringLiteral("check"),
                               QStringLiteral("backups"), QStringLiteral("restore")};
    for (const QString& name : command) {
        expectRefused({name, QStringLiteral("--loudly")}, 2, "loudly");
        expectRefused({name, QStringLiteral("a"), QStringLiteral("b")}, 2, "unexpected argument");
        EXPECT_EQ(tamselctl({name, QStringLiteral("--help")}).exitCode, 0);
    }
    for (const QString& name : {command[1], command[2], command[4]})
        expectRefused({name}, 2, "is missing");
}

TEST_F(DataCommandsTest, WhileTheAppRunsReadingGoesOnAndWritingRefuses) {
    import(small);
    const QByteArray before = contents(file());
    const auto lock = FolderLock::take(folder());
    expectRefused({QStringLiteral("import"), everything}, 1, "Tamsel is running");
    expectRefused({QStringLiteral("restore"), newestBackup()}, 1, "Tamsel is running");
    EXPECT_TRUE(contents(file()) == before);
    EXPECT_EQ(exported(), contents(small));
    EXPECT_EQ(tamselctl({QStringLiteral("check"), everything}).exitCode, 0);
    EXPECT_EQ(tamselctl({QStringLiteral("backups")}).exitCode, 0);
}

TEST_F(DataCommandsTest, AnExportThatCannotBeWrittenLeavesWhatWasThere) {
    import(small);
    expectRefused({QStringLiteral("export"), home.filePath(QStringLiteral("none/a.tamsel"))}, 1, "cannot write");
    expectRefused({QStringLiteral("export"), home.path()}, 1, "cannot write");
}

TEST_F(DataCommandsTest, WithoutABackupNothingIsReplaced) {
    import(small);
    QDir(folder() + QStringLiteral("/backups")).removeRecursively();
    QFile inTheWay(folder() + QStringLiteral("/backups"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const Ended ended = tamselctl({QStringLiteral("import"), everything});
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_TRUE(ended.errors.contains("nothing was changed")) << ended.errors.toStdString();
    EXPECT_EQ(exported(), contents(small));
}

TEST_F(DataCommandsTest, BackupsAreListedAndADamagedDatabaseComesBackFromOne) {
    EXPECT_TRUE(tamselctl({QStringLiteral("backups")}).output.startsWith("There are no backups in "));
    import(small);
    import(everything); // with a backup of the small one
    const QString backup = newestBackup();
    const QByteArray damaged = contents(file()).first(70'000);
    ASSERT_EQ(datafile::write(file(), damaged), std::nullopt);
    expectRefused({QStringLiteral("export")}, 1, "standard.sqlite");
    const Ended listed = tamselctl({QStringLiteral("backups")});
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_TRUE(listed.output.startsWith(backup.toUtf8())) << listed.output.toStdString();
    EXPECT_EQ(listed.output.count("verified"), listed.output.count('\n'));
    const Ended restored = tamselctl({QStringLiteral("restore"), backup});
    EXPECT_EQ(restored.exitCode, 0) << restored.errors.toStdString();
    EXPECT_EQ(exported(), contents(small));
    const QStringList kept = QDir(folder()).entryList({QStringLiteral("standard-damaged-*.sqlite")});
    ASSERT_EQ(kept.size(), 1);
    EXPECT_TRUE(contents(folder() + QLatin1Char('/') + kept.first()) == damaged);
}

} // namespace
} // namespace tamsel
