#include "model/BackupFile.h"

#include "model/DurableFolder.h"
#include "model/PendingChanges.h"
#include "model/SettingsFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <cmath>
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

bool isSame(const SettingsValue& a, const SettingsValue& b) {
    const auto* const x = std::get_if<double>(&a.value);
    const auto* const y = std::get_if<double>(&b.value);
    if (x != nullptr && y != nullptr && std::isnan(*x))
        return std::isnan(*y);
    const auto* const one = std::get_if<SettingsValue::Array>(&a.value);
    const auto* const other = std::get_if<SettingsValue::Array>(&b.value);
    if (one != nullptr && other != nullptr)
        return std::ranges::equal(*one, *other, isSame);
    return a == b;
}

// Equal, where a double that is no number equals its like.
bool areSame(const UserData::Values& a, const UserData::Values& b) {
    return a.size() == b.size() &&
           std::equal(a.keyValueBegin(), a.keyValueEnd(), b.keyValueBegin(),
                      [](const auto& x, const auto& y) { return x.first == y.first && isSame(x.second, y.second); });
}

// The bytes of a settings file that holds these values.
json::Result<QByteArray> fileOf(const UserData::Values& values, const QString& scratch) {
    removeDatabase(scratch);
    const auto guard = qScopeGuard([&scratch] { removeDatabase(scratch); });
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
    return datafile::read(scratch);
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
    QFile file(choiceFile(dataFolder));
    return !file.exists() || file.remove() ? std::nullopt : std::optional(file.errorString());
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
    const auto held = read(path);
    // The values are looked at as well: SQLite says nothing when it cannot move its log over while closing.
    if (written && *written == *bytes && held && areSame(*held, values))
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
