#include "model/BackupFile.h"

#include "model/DurableFolder.h"
#include "model/PendingChanges.h"
#include "model/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace tamsel::backups {

namespace {

const QString dayFormat = QStringLiteral("yyyy-MM-dd");
const QString timeFormat = QStringLiteral("HHmmss");

QString choiceFile(const QString& dataFolder) {
    return dataFolder + QStringLiteral("/backup-folder");
}

std::optional<BackupFile> fromName(const QFileInfo& file) {
    static const QRegularExpression pattern(
        QStringLiteral("^tamsel-(\\d{6,18})-(\\d{4}-\\d\\d-\\d\\d)(?:-(\\d{6})-before-import)?\\.sqlite$"));
    const auto match = pattern.match(file.fileName());
    if (!match.hasMatch())
        return std::nullopt;
    const bool isDaily = match.captured(3).isEmpty();
    const QDate day = QDate::fromString(match.captured(2), dayFormat);
    const QTime time = isDaily ? QTime(0, 0) : QTime::fromString(match.captured(3), timeFormat);
    if (!day.isValid() || !time.isValid())
        return std::nullopt;
    return BackupFile{file.absoluteFilePath(),
                      match.captured(1).toLongLong(),
                      isDaily ? BackupFile::Kind::daily : BackupFile::Kind::beforeReplacing,
                      day,
                      time,
                      file.size()};
}

void removeDatabase(const QString& path) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(path + QLatin1String(suffix));
}

// The bytes of a settings file that holds these values.
json::Result<QByteArray> fileOf(const UserData::Values& values, const QString& scratch) {
    removeDatabase(scratch);
    {
        SettingsFile file;
        PendingChanges changes;
        for (auto each = values.cbegin(); each != values.cend(); ++each)
            changes.set(each.key(), each.value());
        if (!file.open(scratch) || !file.write(changes)) {
            const QString error = file.error();
            return json::Error{error};
        }
    }
    auto bytes = datafile::read(scratch);
    removeDatabase(scratch);
    return bytes;
}

} // namespace

QString standardFolder(const QString& dataFolder) {
    return dataFolder + QStringLiteral("/backups");
}

std::optional<QString> chosenFolder(const QString& dataFolder) {
    const auto path = datafile::read(choiceFile(dataFolder));
    return path && !path->isEmpty() ? std::optional(QString::fromUtf8(*path)) : std::nullopt;
}

std::optional<QString> chooseFolder(const QString& dataFolder, const std::optional<QString>& folder) {
    if (folder)
        return datafile::write(choiceFile(dataFolder), folder->toUtf8());
    QFile::remove(choiceFile(dataFolder));
    return std::nullopt;
}

QString fileName(const BackupFile& backup) {
    const QString name = QStringLiteral("tamsel-%1-%2%3.sqlite")
                             .arg(backup.number, 6, 10, QLatin1Char('0'))
                             .arg(backup.day.toString(dayFormat));
    if (backup.kind == BackupFile::Kind::daily)
        return name.arg(QString());
    return name.arg(QStringLiteral("-%1-before-import").arg(backup.time.toString(timeFormat)));
}

QList<BackupFile> list(const QString& folder) {
    QList<BackupFile> found;
    for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("tamsel-*.sqlite")}, QDir::Files)) {
        if (const auto backup = fromName(file))
            found += *backup;
    }
    std::ranges::sort(found, std::ranges::greater(),
                      [](const BackupFile& backup) { return std::tie(backup.number, backup.path); });
    return found;
}

QList<BackupFile> surplus(const QList<BackupFile>& newestFirst) {
    QList<BackupFile> result;
    qsizetype days = 0;
    qsizetype before = 0;
    QSet<std::pair<int, int>> months;
    for (const BackupFile& backup : newestFirst) {
        bool isKept = false;
        if (backup.kind == BackupFile::Kind::beforeReplacing) {
            isKept = ++before <= keptBeforeReplacing;
        } else {
            isKept = ++days <= keptDays;
            const std::pair month(backup.day.year(), backup.day.month());
            if (months.size() < keptMonths && !months.contains(month)) {
                months.insert(month);
                isKept = true;
            }
        }
        if (!isKept)
            result += backup;
    }
    return result;
}

std::optional<QString> write(const UserData::Values& values, const QString& path, const QString& scratchFolder,
                             const datafile::Calls& calls) {
    for (const QString& folder : {scratchFolder, QFileInfo(path).path()}) {
        if (const auto reason = makeWritableFolder(folder))
            return reason;
    }
    const auto bytes = fileOf(values, scratchFolder + QStringLiteral("/making-backup.sqlite"));
    if (!bytes)
        return bytes.error().message;
    if (const auto reason = datafile::write(path, *bytes, calls))
        return reason;
    const auto written = datafile::read(path);
    if (written && *written == *bytes && read(path))
        return std::nullopt;
    QFile::remove(path);
    return QStringLiteral("it reads back differently from what was written");
}

json::Result<UserData::Values> read(const QString& path) {
    if (!QFileInfo(path).isFile())
        return json::Error{QStringLiteral("there is no such file")};
    SettingsFile file;
    UserData::Values values;
    if (!file.openCopy(path) || !file.readAll(values)) {
        const QString error = file.error();
        return json::Error{error};
    }
    return values;
}

} // namespace tamsel::backups
