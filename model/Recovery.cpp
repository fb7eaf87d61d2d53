#include "model/Recovery.h"

#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/DurableFolder.h"
#include "model/MemorySettingsStore.h"
#include "model/SettingsFile.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tamsel::recovery {

namespace {

QString line(const QString& settingsFile, const QString& reason) {
    return QStringLiteral("Unable to use %1: %2").arg(settingsFile, reason);
}

// Gives the file another name. True when there is none.
bool move(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0 || errno == ENOENT;
}

// Keeps what the file holds under another name as well.
std::optional<QString> keepAs(const QString& path, const QString& name, const datafile::Calls& calls) {
    if (!QFile::exists(path) || ::link(QFile::encodeName(path).constData(), QFile::encodeName(name).constData()) == 0)
        return std::nullopt;
    // Not every file system can do that.
    const auto bytes = datafile::read(path);
    return bytes ? datafile::write(name, *bytes, calls) : std::optional(bytes.error().message);
}

// A name beside the settings file that nothing has.
QString damagedName(const QString& settingsFile, const QDateTime& now) {
    const QFileInfo file(settingsFile);
    const QString base =
        QStringLiteral("%1/%2-damaged-%3")
            .arg(file.path(), file.completeBaseName(), now.toString(QStringLiteral("yyyyMMdd-HHmmss")));
    QString name = base + QStringLiteral(".sqlite");
    for (int number = 2; QFile::exists(name); ++number)
        name = QStringLiteral("%1-%2.sqlite").arg(base).arg(number);
    return name;
}

} // namespace

std::optional<QString> problemIn(const QString& settingsFile) {
    if (!QFile::exists(settingsFile) && !QFile::exists(settingsFile + QStringLiteral("-wal")))
        return std::nullopt;
    SettingsFile file;
    UserData::Values values;
    // Until all is known to be well, nothing moves from the log into the file.
    if (!file.open(settingsFile, SettingsFile::OnClose::leaveLog) || !file.isSound() || !file.readAll(values))
        return line(settingsFile, file.error());
    const MemorySettingsStore store(values);
    const auto history = readDocument<QList<HistoryEvent>>(store, keys::historyEvents);
    return history.isUnreadable() ? std::optional(line(settingsFile, history.problem)) : std::nullopt;
}

std::optional<QString> restore(const QString& backup, const QString& settingsFile, const QDateTime& now,
                               const datafile::Calls& calls) {
    if (const auto copy = backups::read(backup); !copy)
        return copy.error().message;
    const auto bytes = datafile::read(backup);
    if (!bytes)
        return bytes.error().message;
    const QString damaged = damagedName(settingsFile, now);
    const QString log = settingsFile + QStringLiteral("-wal");
    const QString damagedLog = damaged + QStringLiteral("-wal");
    // Its second name, so that at no moment there is no file under the first: a program that is started then would
    // begin with empty data.
    if (auto reason = keepAs(settingsFile, damaged, calls))
        return reason;
    bool isReplaced = false;
    datafile::Calls replacing = calls;
    replacing.rename = [&](const char* from, const char* to) {
        // The log must not be taken for that of the file that comes. It goes when that is whole on the disk and has
        // only to take its name: nothing that can still fail for lack of room lies in between.
        if (!move(log, damagedLog))
            return -1;
        QFile::remove(settingsFile + QStringLiteral("-shm"));
        if (calls.rename(from, to) == 0) {
            isReplaced = true;
            return 0;
        }
        const int error = errno;
        (void)move(damagedLog, log);
        errno = error;
        return -1;
    };
    auto reason = datafile::write(settingsFile, *bytes, replacing);
    if (!isReplaced)
        QFile::remove(damaged);
    return reason;
}

UseMark::UseMark(const QString& folder) : m_path(folder + QStringLiteral("/in-use")), m_wasLeft(QFile::exists(m_path)) {
    QFile file(m_path);
    // Without it the next start looks less closely, that is all.
    (void)file.open(QIODevice::WriteOnly);
}

UseMark::~UseMark() {
    if (!m_isKept)
        QFile::remove(m_path);
}

} // namespace tamsel::recovery
