#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "platform/FolderLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tamsel {
namespace {

constexpr int patienceMilliseconds = 30'000;

// Starts the real program, off-screen, on data of the test's own.
class ProcessTest : public testing::Test {
protected:
    using Process = std::unique_ptr<QProcess>;

    Process start(const QStringList& arguments = {}) {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(TAMSEL_PROGRAM), arguments);
        return process;
    }

    // Reads standard output until the line is there.
    bool waitForLine(QProcess& process, const QByteArray& line) {
        while (!m_output[&process].contains(line)) {
            if (!process.waitForReadyRead(patienceMilliseconds))
                return false;
            m_output[&process] += process.readAllStandardOutput();
        }
        return true;
    }

    // Waits for something on standard error.
    static bool waitForErrors(QProcess& process) {
        process.setReadChannel(QProcess::StandardError);
        return process.waitForReadyRead(patienceMilliseconds);
    }

    int exitCode(QProcess& process) {
        process.waitForFinished(patienceMilliseconds);
        return process.exitStatus() == QProcess::NormalExit && process.state() == QProcess::NotRunning
                   ? process.exitCode()
                   : -1;
    }

    QString dataFolder() const { return home.path() + QStringLiteral("/tamsel"); }
    QString dataFile() const { return dataFolder() + QStringLiteral("/standard.sqlite"); }

    const QTemporaryDir home;

private:
    QHash<QProcess*, QByteArray> m_output;
};

TEST_F(ProcessTest, ASecondStartRaisesTheFirstAndASignalEndsItCleanly) {
    const Process first = start({QStringLiteral("tamsel:first")});
    ASSERT_TRUE(waitForLine(*first, "launching app, unhandled url: tamsel:first\n"));
    const Process second = start({QStringLiteral("tamsel:second")});
    EXPECT_EQ(exitCode(*second), 0);
    EXPECT_TRUE(waitForLine(*first, "launching app, unhandled url: tamsel:second\n"));
    first->terminate();
    EXPECT_EQ(exitCode(*first), 0);
    EXPECT_TRUE(QFileInfo::exists(dataFile()));
}

TEST_F(ProcessTest, UnderTestTheStandardDataIsLeftAlone) {
    const Process process = start({QStringLiteral("UI_TESTING"), QStringLiteral("tamsel:ready")});
    ASSERT_TRUE(waitForLine(*process, "tamsel:ready\n"));
    process->terminate();
    EXPECT_EQ(exitCode(*process), 0);
    EXPECT_FALSE(QFileInfo::exists(dataFolder()));
}

TEST_F(ProcessTest, DataThatCannotBeOpenedIsNamedAndLeftAsItIs) {
    QDir().mkpath(dataFolder());
    const QByteArray garbage(5000, 'x');
    {
        QFile file(dataFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(garbage);
    }
    const Process process = start();
    EXPECT_EQ(exitCode(*process), 1);
    const QByteArray errors = process->readAllStandardError();
    EXPECT_TRUE(errors.contains(dataFile().toUtf8())) << errors.toStdString();
    QFile file(dataFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), garbage);
}

TEST_F(ProcessTest, WithABackupAWindowOffersItAndClosingThatChangesNothing) {
    const QByteArray garbage(5000, 'x');
    ASSERT_EQ(backups::write({{keys::exercises, {QByteArray("[]")}}},
                             dataFolder() + QStringLiteral("/backups/tamsel-000001-2024-03-14.sqlite"), dataFolder()),
              std::nullopt);
    ASSERT_EQ(datafile::write(dataFile(), garbage), std::nullopt);
    const Process process = start();
    // It goes on, with the window, after it has said why.
    QByteArray errors;
    while (!errors.contains('\n') && waitForErrors(*process))
        errors += process->readAllStandardError();
    EXPECT_TRUE(errors.contains(dataFile().toUtf8())) << errors.toStdString();
    EXPECT_EQ(process->state(), QProcess::Running);
    process->terminate();
    EXPECT_EQ(exitCode(*process), 1);
    EXPECT_EQ(*datafile::read(dataFile()), garbage);
}

TEST_F(ProcessTest, AfterAKillEverythingIsLookedThroughAndTheMarkGoesWithAProperEnd) {
    const QString mark = dataFolder() + QStringLiteral("/in-use");
    Process process = start({QStringLiteral("tamsel:ready")});
    ASSERT_TRUE(waitForLine(*process, "tamsel:ready\n"));
    process->kill();
    process->waitForFinished(patienceMilliseconds);
    ASSERT_TRUE(QFile::exists(mark));
    process = start({QStringLiteral("tamsel:again")});
    ASSERT_TRUE(waitForLine(*process, "tamsel:again\n"));
    process->terminate();
    EXPECT_EQ(exitCode(*process), 0);
    EXPECT_FALSE(QFile::exists(mark));
}

TEST_F(ProcessTest, ADocumentReachesTheRunningAppThroughASecondStart) {
    const QString document = QStringLiteral(TAMSEL_TEST_DATA "/export.tamsel");
    const Process first = start({document});
    ASSERT_TRUE(waitForLine(*first, "opening document: " + document.toUtf8()));
    const Process second = start({QStringLiteral(TAMSEL_TEST_DATA "/everything.tamsel")});
    EXPECT_EQ(exitCode(*second), 0);
    EXPECT_TRUE(waitForLine(*first, "everything.tamsel\n"));
    first->terminate();
    EXPECT_EQ(exitCode(*first), 0);
    EXPECT_EQ(SqliteSettingsStore::open(dataFolder()).store->data(keys::historyEvents), std::nullopt)
        << "nothing is imported before it is confirmed";
}

TEST_F(ProcessTest, AFolderThatCannotBeMadeIsNamed) {
    QFile inTheWay(dataFolder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const Process process = start();
    EXPECT_EQ(exitCode(*process), 1);
    EXPECT_TRUE(process->readAllStandardError().contains(dataFolder().toUtf8()));
}

TEST_F(ProcessTest, DataHeldByACommandIsNotTouched) {
    QDir().mkpath(dataFolder());
    const auto lock = FolderLock::take(dataFolder());
    const Process process = start();
    EXPECT_EQ(exitCode(*process), 1);
    EXPECT_TRUE(process->readAllStandardError().contains(dataFolder().toUtf8()));
    EXPECT_FALSE(QFileInfo::exists(dataFile()));
}

TEST_F(ProcessTest, UnreadableHistoryStopsTheProgramAndIsKept) {
    const QByteArray broken = "[{\"date\":1}]";
    {
        const auto opened = SqliteSettingsStore::open(dataFolder());
        ASSERT_TRUE(opened.store);
        opened.store->setData(QStringLiteral("history.events"), broken);
    }
    const Process process = start();
    process->waitForFinished(patienceMilliseconds);
    EXPECT_EQ(process->exitStatus(), QProcess::CrashExit);
    const QByteArray output = process->readAllStandardOutput();
    EXPECT_TRUE(output.contains(dataFile().toUtf8())) << output.toStdString();
    EXPECT_TRUE(process->readAllStandardError().contains("Fatal error"));
    // The next start knows, and has a way back to offer.
    ASSERT_EQ(backups::write({{keys::exercises, {QByteArray("[]")}}},
                             dataFolder() + QStringLiteral("/backups/tamsel-000001-2024-03-14.sqlite"), dataFolder()),
              std::nullopt);
    const Process next = start();
    QByteArray errors;
    while (!errors.contains('\n') && waitForErrors(*next))
        errors += next->readAllStandardError();
    EXPECT_TRUE(errors.contains("history.events[0].exerciseName: missing")) << errors.toStdString();
    next->terminate();
    EXPECT_EQ(exitCode(*next), 1);
    const auto opened = SqliteSettingsStore::open(dataFolder());
    EXPECT_EQ(opened.store->data(QStringLiteral("history.events")), broken);
}

} // namespace
} // namespace tamsel
