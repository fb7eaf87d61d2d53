#pragma once

#include "model/DataFile.h"
#include "model/Json.h"
#include "model/UserData.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>

#include <optional>

// Copies of the settings file in a folder: their names, how one is made and read, and which are kept. Any thread.
namespace tamsel {

struct BackupFile {
    enum class Kind { daily, beforeReplacing };

    QString path;
    qint64 number = 0; // counts up in the order of making, whatever the clock says
    Kind kind = Kind::daily;
    QDate day;  // in its owner's calendar
    QTime time; // when it was made before data was replaced; midnight for a daily one
    qint64 bytes = 0;

    bool operator==(const BackupFile&) const = default;
};

namespace backups {

// Where backups lie: the folder that the user chose, whose path is kept in a file of its own, so that it is known when
// the settings file cannot be read; by default "backups" in the data folder.
QString standardFolder(const QString& dataFolder);
std::optional<QString> chosenFolder(const QString& dataFolder);
// Nothing goes back to the default. On failure one line that says why.
std::optional<QString> chooseFolder(const QString& dataFolder, const std::optional<QString>& folder);

// How many are kept: the last days, the last one of each of the last months, and those made before data was replaced.
inline constexpr qsizetype keptDays = 7;
inline constexpr qsizetype keptMonths = 12;
inline constexpr qsizetype keptBeforeReplacing = 7;

// "tamsel-000042-2024-03-14.sqlite", "tamsel-000043-2024-03-14-153000-before-import.sqlite"
QString fileName(const BackupFile& backup);

// The backups in the folder, the newest first. Other files are none.
QList<BackupFile> list(const QString& folder);

// Which of them are no longer kept; the newest always is. Goes by the order of making: a clock that was wrong for a
// while costs none of the others.
QList<BackupFile> surplus(const QList<BackupFile>& newestFirst);

// Writes the values as a settings file of their own, reads it again, and returns when it is on the disk and holds them.
// `scratchFolder` must allow what SQLite needs; the target can be any folder, and is made where it is missing. On
// failure one line that says why, and no half of it is left.
std::optional<QString> write(const UserData::Values& values, const QString& path, const QString& scratchFolder,
                             const datafile::Calls& calls = datafile::Calls::system());

// All values of a settings file that nobody is changing. The error is one line that says why it cannot be read.
json::Result<UserData::Values> read(const QString& path);

} // namespace backups

} // namespace tamsel
