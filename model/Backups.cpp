#include "model/Backups.h"

#include "model/DurableFolder.h"
#include "model/SettingsKeys.h"
#include "platform/Log.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTimeZone>

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

UserData::Values Backups::snapshot() const {
    UserData::Values values = m_userDefaults.dictionaryRepresentation();
    // What runs at the moment is no part of a past day.
    values.remove(keys::runningPractice);
    return values;
}

BackupFile Backups::now(BackupFile::Kind kind) const {
    const auto milliseconds = static_cast<qint64>(m_platform.clock.now().unixSeconds() * 1000.0);
    const QDateTime local =
        QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone(m_platform.calendar.zoneName().toUtf8()));
    return {{}, 0, kind, local.date(), kind == BackupFile::Kind::daily ? QTime(0, 0) : local.time(), 0};
}

void Backups::makeDaily() {
    if (folder().isEmpty())
        return;
    const BackupFile today = now(BackupFile::Kind::daily);
    const QList<BackupFile> present = backups::list(folder());
    const auto last = std::ranges::find(present, BackupFile::Kind::daily, &BackupFile::kind);
    if (last == present.end() || last->day != today.day)
        make(today, present, {});
}

void Backups::makeBeforeReplacing(Completion completion) {
    if (folder().isEmpty())
        completion(std::nullopt);
    else
        make(now(BackupFile::Kind::beforeReplacing), backups::list(folder()), std::move(completion));
}

void Backups::make(BackupFile backup, const QList<BackupFile>& present, Completion completion) {
    backup.number = present.isEmpty() ? 1 : present.first().number + 1;
    backup.path = folder() + QLatin1Char('/') + backups::fileName(backup);
    const auto failure = std::make_shared<std::optional<QString>>();
    // Beside the settings file SQLite has what it needs; a chosen folder may lie on any kind of disk.
    const QString scratch = m_dataFolder.isEmpty() ? folder() : m_dataFolder;
    const auto work = [backup, present, failure, scratch, folder = folder(), values = snapshot()] {
        const bool onlyIfChanged = backup.kind == BackupFile::Kind::daily;
        if (onlyIfChanged && !present.isEmpty() && holds(present.first(), values))
            return;
        *failure = backups::write(values, backup.path, scratch);
        if (*failure)
            return;
        for (const BackupFile& old : backups::surplus(backups::list(folder)))
            QFile::remove(old.path);
    };
    onQueue(work, [this, path = backup.path, failure, completion = std::move(completion)] {
        if (*failure)
            log(QStringLiteral("Unable to make the backup %1: %2").arg(path, **failure));
        m_failure = *failure;
        m_changed.notify();
        if (completion)
            completion(*failure);
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
            mainQueue.async(std::move(finishOnMain));
        });
}

} // namespace tamsel
