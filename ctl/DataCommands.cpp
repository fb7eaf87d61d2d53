#include "ctl/DataCommands.h"

#include "app/DataTexts.h"
#include "app/SettingsStoreChoice.h"
#include "app/Singletons.h"
#include "ctl/Journal.h"
#include "metronome/OfflineOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/BackupFile.h"
#include "model/Backups.h"
#include "model/DataCheck.h"
#include "model/DataFile.h"
#include "model/DataSummary.h"
#include "model/DurableFolder.h"
#include "model/Json.h"
#include "model/MemorySettingsStore.h"
#include "model/Recovery.h"
#include "model/SettingsFile.h"
#include "model/SqliteSettingsStore.h"
#include "platform/FolderLock.h"
#include "platform/InlineQueue.h"
#include "platform/Log.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

namespace tamsel::ctl {

namespace {

// What is wrong with the call, or with the world: the line and the code to end with.
struct Refusal {
    ExitCode code;
    QString line;
};

// The device as a command sees it.
struct Surroundings {
    SystemClock clock;
    Calendar calendar = Calendar::device();
    InlineQueue mainQueue;
    RandomUuids uuids;
    Platform platform{clock, calendar, mainQueue, uuids};
    OfflineOutput output;
    SystemAudioSession session;
};

QString settingsFile() {
    return SqliteSettingsStore::filePath(standardDataFolder());
}

// The stored values as they are on the disk, also while the app runs; none where there is no data yet.
UserData::Values presentValues() {
    if (QFileInfo(settingsFile()).size() == 0)
        return {};
    SettingsFile file;
    UserData::Values values;
    if (!file.open(settingsFile(), SettingsFile::OnClose::leaveLog) || !file.readAll(values))
        throw Refusal{exitRefused, QStringLiteral("cannot read %1: %2").arg(settingsFile(), file.error())};
    return values;
}

DataSummary summaryOf(const UserData& data, const QString& path) {
    const auto summary = DataSummary::of(data);
    if (!summary)
        throw Refusal{exitRefused, QStringLiteral("%1: %2").arg(path, summary.error().message)};
    return *summary;
}

QByteArray bytesOf(const QString& path) {
    auto bytes = datafile::read(path);
    if (!bytes)
        throw Refusal{exitRefused, QStringLiteral("cannot read %1: %2").arg(path, bytes.error().message)};
    return *std::move(bytes);
}

DataDump documentIn(const QString& path, QByteArray bytes) {
    auto dump = checkDataDump(std::move(bytes));
    if (!dump)
        throw Refusal{exitRefused, QStringLiteral("%1: %2").arg(path, dump.error().message)};
    return *std::move(dump);
}

UserData backupIn(const QString& path) {
    const auto values = backups::read(path);
    if (!values)
        throw Refusal{exitRefused, QStringLiteral("cannot use %1: %2").arg(path, values.error().message)};
    return UserData(*values);
}

void print(const QString& text) {
    std::fputs(text.toUtf8().constData(), stdout);
}

void printPreview(const DataSummary& now, const DataSummary& then) {
    constexpr int titleWidth = 16;
    constexpr int width = 18;
    const QString line = QStringLiteral("%1%2%3\n");
    print(line.arg(QString(), -titleWidth).arg(QStringLiteral("here now"), width).arg(QStringLiteral("then"), width));
    for (const DataComparison& row : compare(now, then, Calendar::device().zoneName()))
        print(line.arg(row.title, -titleWidth).arg(row.now, width).arg(row.then, width));
}

// Holds the data folder for a command that changes it.
FolderLock takeLock() {
    const QString folder = standardDataFolder();
    if (const auto reason = makeWritableFolder(folder))
        throw Refusal{exitRefused, QStringLiteral("%1: %2").arg(folder, *reason)};
    FolderLock::Failure failure{};
    auto lock = FolderLock::take(folder, &failure);
    if (!lock && failure == FolderLock::Failure::HeldByAnother)
        throw Refusal{exitRefused, QStringLiteral("Tamsel is running; close it first")};
    if (!lock)
        throw Refusal{exitRefused, QStringLiteral("cannot write to the folder %1").arg(folder)};
    return *std::move(lock);
}

// Makes a copy of everything, then lets `replace` change the stores.
void replaceData(const std::function<void(const DataStores&)>& replace) {
    const auto opened = SqliteSettingsStore::open(standardDataFolder());
    if (!opened.store)
        throw Refusal{exitRefused, opened.failure};
    // The history would stop the program.
    (void)summaryOf(UserData::of(*opened.store), opened.store->location());
    Surroundings device;
    Singletons singletons(*opened.store, device.platform, device.output, device.session);
    Backups backups(*opened.store, device.platform, standardDataFolder(), std::make_unique<InlineQueue>());
    backups.makeBeforeReplacing([](const std::optional<QString>& failure) {
        if (failure)
            throw Refusal{exitRefused, QStringLiteral("nothing was changed: no backup can be made: %1").arg(*failure)};
    });
    replace(singletons.dataStores());
    if (const auto failure = opened.store->writeFailure())
        throw Refusal{exitRefused, *failure};
    const QList<BackupFile> made = backups::list(backups.folder());
    const auto before = std::ranges::find(made, BackupFile::Kind::beforeReplacing, &BackupFile::kind);
    print(QStringLiteral("Done. `tamselctl restore %1` brings back what was there before.\n")
              .arg(before == made.end() ? QString() : QFileInfo(before->path).fileName()));
}

// A command's arguments: its options, and files of which there are at least and at most so many.
class Arguments {
public:
    Arguments(const char* command, const char* description, const QStringList& arguments, const char* file,
              qsizetype fewest, qsizetype most, const QList<QCommandLineOption>& options = {}) {
        m_parser.setApplicationDescription(QString::fromUtf8(description));
        const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
        m_parser.addOption(help);
        m_parser.addOptions(options);
        if (most > 0)
            m_parser.addPositionalArgument(QLatin1String(file), QString(), QLatin1String(file));
        if (!m_parser.parse(QStringList(QStringLiteral("tamselctl ") + QLatin1String(command)) + arguments))
            throw Refusal{exitUsage, m_parser.errorText()};
        if (m_parser.isSet(help)) {
            print(m_parser.helpText());
            throw Refusal{exitDone, {}};
        }
        const qsizetype count = files().size();
        if (count < fewest)
            throw Refusal{exitUsage, QStringLiteral("%1 is missing").arg(QLatin1String(file))};
        if (count > most)
            throw Refusal{exitUsage, QStringLiteral("unexpected argument: %1").arg(files().at(most))};
    }

    QStringList files() const { return m_parser.positionalArguments(); }
    bool isSet(const QCommandLineOption& option) const { return m_parser.isSet(option); }

private:
    QCommandLineParser m_parser;
};

template <class Work>
ExitCode run(const Work& work) {
    // What the stores and the metronome tell is not for scripts; what matters of it comes as a refusal.
    if (std::FILE* const nowhere = std::fopen("/dev/null", "w"))
        setLogStream(nowhere);
    try {
        work();
        return exitDone;
    } catch (const Refusal& refusal) {
        return refusal.code == exitDone ? exitDone : fail(refusal.code, refusal.line);
    }
}

QString backupFolder() {
    const QString folder = standardDataFolder();
    return backups::chosenFolder(folder).value_or(backups::standardFolder(folder));
}

// As `backups` lists it, or a path.
QString backupPath(const QString& name) {
    const QString listed = backupFolder() + QLatin1Char('/') + name;
    return !name.contains(QLatin1Char('/')) && QFile::exists(listed) ? listed : name;
}

bool isSettingsFile(const QByteArray& bytes) {
    return bytes.startsWith("SQLite format 3");
}

} // namespace

ExitCode exportData(const QStringList& arguments) {
    return run([&] {
        const Arguments call("export", "Writes all data as one document, also while the app runs.", arguments,
                             "[FILE|-]", 0, 1);
        if (!QFile::exists(settingsFile()))
            throw Refusal{exitRefused, QStringLiteral("there is no data in %1").arg(standardDataFolder())};
        const auto opened = Journal::open(settingsFile());
        if (!opened.journal)
            throw Refusal{exitRefused, opened.failure};
        const auto document = json::encode(opened.journal->singletons().dataStores().makeDataDump());
        if (!document)
            throw Refusal{exitRefused, QStringLiteral("the data holds a date that is no number")};
        const QString path = call.files().value(0, QStringLiteral("-"));
        if (path != QStringLiteral("-")) {
            if (const auto failure = datafile::write(path, *document))
                throw Refusal{exitRefused, QStringLiteral("cannot write %1: %2").arg(path, *failure)};
            return;
        }
        const std::size_t size = static_cast<std::size_t>(document->size());
        if (std::fwrite(document->constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
            throw Refusal{exitRefused, QStringLiteral("cannot write to standard output: %1").arg(qt_error_string())};
    });
}

ExitCode importData(const QStringList& arguments) {
    return run([&] {
        const QCommandLineOption dryRun(QStringLiteral("dry-run"), QStringLiteral("Only show what would change."));
        const Arguments call("import", "Replaces all data by that of a document, after a backup of what is there.",
                             arguments, "FILE", 1, 1, {dryRun});
        const QString path = call.files().first();
        const DataDump dump = documentIn(path, bytesOf(path));
        const auto preview = [&dump] {
            printPreview(summaryOf(UserData(presentValues()), settingsFile()), DataSummary::of(dump));
        };
        if (call.isSet(dryRun)) {
            preview();
            return;
        }
        const FolderLock lock = takeLock();
        preview();
        replaceData([&dump](const DataStores& stores) { stores.replace(dump); });
    });
}

ExitCode check(const QStringList& arguments) {
    return run([&] {
        const Arguments call("check", "Looks through a document or a backup and shows what is in it. Changes nothing.",
                             arguments, "FILE", 1, 1);
        const QString path = call.files().first();
        QByteArray bytes = bytesOf(path);
        const DataSummary then = isSettingsFile(bytes) ? summaryOf(backupIn(path), path)
                                                       : DataSummary::of(documentIn(path, std::move(bytes)));
        printPreview(summaryOf(UserData(presentValues()), settingsFile()), then);
    });
}

ExitCode listBackups(const QStringList& arguments) {
    return run([&] {
        const Arguments call("backups", "Lists the backups, the newest first, and looks through each.", arguments, "",
                             0, 0);
        const QString folder = backupFolder();
        const QList<BackupFile> found = backups::list(folder);
        for (const BackupFile& backup : found) {
            const auto values = backups::read(backup.path);
            const auto summary = values ? DataSummary::of(UserData(*values))
                                        : json::Result<DataSummary>(json::Error{values.error().message});
            print(QStringLiteral("%1  %2  %3\n")
                      .arg(QFileInfo(backup.path).fileName(), backupText(backup),
                           backupDetail(backup, summary ? QStringLiteral("verified") : summary.error().message)));
        }
        if (found.isEmpty())
            print(QStringLiteral("There are no backups in %1.\n").arg(folder));
    });
}

ExitCode restore(const QStringList& arguments) {
    return run([&] {
        const Arguments call("restore",
                             "Replaces all data by that of a backup, after a backup of what is there. Data that cannot "
                             "be read is set aside.",
                             arguments, "BACKUP", 1, 1);
        const QString name = call.files().first();
        const FolderLock lock = takeLock();
        if (const auto problem = recovery::problemIn(settingsFile())) {
            const QString path = backupPath(name);
            (void)summaryOf(backupIn(path), path);
            if (const auto failure = recovery::restore(path, settingsFile(), QDateTime::currentDateTime()))
                throw Refusal{exitRefused, QStringLiteral("cannot restore %1: %2").arg(path, *failure)};
            print(QStringLiteral("%1\nIt was set aside, and the backup is in its place.\n").arg(*problem));
            return;
        }
        const auto present = presentValues();
        const QString path = backupPath(name);
        const UserData data = backupIn(path);
        printPreview(summaryOf(UserData(present), settingsFile()), summaryOf(data, path));
        replaceData([&data](const DataStores& stores) { stores.replace(data); });
    });
}

} // namespace tamsel::ctl
