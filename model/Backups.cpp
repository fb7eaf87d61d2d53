#include "model/Backups.h"

#include "model/DurableFolder.h"
#include "model/SettingsKeys.h"
#include "model/Snapshot.h"
#include "platform/Log.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTimeZone>

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tamsel {

namespace {

// The start belongs to the screens.
constexpr std::chrono::seconds firstLook{20};
constexpr std::chrono::minutes lookInterval{30};

// Whether a copy holds these values already. One that cannot be read holds nothing.
bool holds(const BackupFile& backup, const UserData::Values& values) {
    const auto copied = backups::read(backup.path);
    return copied && *copied == values;
}

struct Made {
    bool wasDue = true; // not when the day has its copy already
    QString path;
    std::optional<QString> failure;
};

// Makes the copy behind those that are in the folder.
Made makeIn(const QString& folder, BackupFile backup, const QString& scratchFolder, const Snapshot& snapshot) {
    const QList<BackupFile> present = backups::list(folder);
    const bool isDaily = backup.kind == BackupFile::Kind::daily;
    const auto last = std::ranges::find(present, BackupFile::Kind::daily, &BackupFile::kind);
    if (isDaily && last != present.end() && last->day == backup.day)
        return {false, {}, std::nullopt};
    backup.number = present.isEmpty() ? 1 : present.first().number + 1;
    backup.path = folder + QLatin1Char('/') + backups::fileName(backup);
    const auto read = snapshot();
    if (!read)
        return {true, backup.path, read.error().message};
    UserData::Values values = *read;
    // What runs at the moment is no part of a past day.
    values.remove(keys::runningPractice);
    if (isDaily && !present.isEmpty() && holds(present.first(), values))
        return {true, backup.path, std::nullopt};
    if (auto failure = backups::write(values, backup.path, scratchFolder))
        return {true, backup.path, std::move(failure)};
    for (const BackupFile& old : backups::surplus(backups::list(folder)))
        QFile::remove(old.path);
    return {true, backup.path, std::nullopt};
}

} // namespace

Backups::Backups(SettingsStore& userDefaults, const Platform& platform, const QString& dataFolder, WorkQueue queue)
    : m_userDefaults(userDefaults), m_platform(platform), m_dataFolder(dataFolder),
      m_chosenFolder(backups::chosenFolder(dataFolder)), m_queue(std::move(queue)) {}

void Backups::begin() {
    if (m_dataFolder.isEmpty())
        return;
    m_platform.mainQueue.asyncAfter(firstLook, [self = std::weak_ptr(m_self)] {
        if (const auto backups = self.lock())
            (*backups)->look();
    });
}

void Backups::look() {
    makeDaily();
    m_platform.mainQueue.asyncAfter(lookInterval, [self = std::weak_ptr(m_self)] {
        if (const auto backups = self.lock())
            (*backups)->look();
    });
}

QString Backups::folder() const {
    if (m_chosenFolder)
        return *m_chosenFolder;
    return m_dataFolder.isEmpty() ? QString() : backups::standardFolder(m_dataFolder);
}

std::optional<QString> Backups::setFolder(const std::optional<QString>& folder) {
    std::optional<QString> chosen;
    if (folder) {
        chosen = QDir(*folder).absolutePath();
        if (auto reason = makeWritableFolder(*chosen))
            return reason;
    }
    if (!m_dataFolder.isEmpty()) {
        if (auto reason = backups::chooseFolder(m_dataFolder, chosen))
            return reason;
    }
    m_chosenFolder = chosen;
    m_failure.reset();
    m_changed.notify();
    return std::nullopt;
}

BackupFile Backups::now(BackupFile::Kind kind) const {
    const auto milliseconds = static_cast<qint64>(m_platform.clock.now().unixSeconds() * 1000.0);
    const QDateTime local =
        QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone(m_platform.calendar.zoneName().toUtf8()));
    return {{}, 0, kind, local.date(), kind == BackupFile::Kind::daily ? QTime(0, 0) : local.time(), 0};
}

void Backups::makeDaily() {
    if (!folder().isEmpty())
        make(now(BackupFile::Kind::daily), {});
}

void Backups::makeBeforeReplacing(Completion completion) {
    if (folder().isEmpty())
        completion(std::nullopt);
    else
        make(now(BackupFile::Kind::beforeReplacing), std::move(completion));
}

void Backups::make(const BackupFile& backup, Completion completion) {
    const auto made = std::make_shared<Made>();
    // Beside the settings file SQLite has what it needs; a chosen folder may lie on any kind of disk, even a slow one:
    // all that is done with it is done on the queue.
    const QString scratch = m_dataFolder.isEmpty() ? folder() : m_dataFolder;
    const auto work = [backup, made, scratch, folder = folder(), snapshot = snapshotOf(m_userDefaults)] {
        *made = makeIn(folder, backup, scratch, snapshot);
    };
    onQueue(work, [this, made, completion = std::move(completion)] {
        if (!made->wasDue)
            return;
        if (made->failure)
            log(QStringLiteral("Unable to make the backup %1: %2").arg(made->path, *made->failure));
        m_failure = made->failure;
        m_changed.notify();
        if (completion)
            completion(made->failure);
    });
}

void Backups::onQueue(std::function<void()> work, std::function<void()> finish) {
    // What `finish` holds is used and released on the main thread.
    auto finishOnMain = [self = std::weak_ptr(m_self), finish = std::move(finish)] {
        if (self.lock())
            finish();
    };
    m_queue->async(
        [&mainQueue = m_platform.mainQueue, work = std::move(work), finishOnMain = std::move(finishOnMain)]() mutable {
            work();
            // It held all values several times over, and the allocator would keep the small ones' places.
            malloc_trim(0);
            mainQueue.async(std::move(finishOnMain));
        });
}

} // namespace tamsel
