#include "app/RecoveryViewModel.h"

#include "app/DataTexts.h"
#include "model/DataSummary.h"
#include "model/Recovery.h"

#include <QDateTime>

#include <utility>

namespace tamsel {

RecoveryViewModel::RecoveryViewModel(const QString& settingsFile, const QString& problem,
                                     const QList<BackupFile>& backups, std::function<void()> done)
    : m_settingsFile(settingsFile), m_problem(problem), m_backups(backups), m_done(std::move(done)) {}

QList<BackupFile> RecoveryViewModel::usableBackups(const QString& folder) {
    QList<BackupFile> found = backups::list(folder);
    found.removeIf([](const BackupFile& each) {
        const auto values = backups::read(each.path);
        return !values || !DataSummary::of(UserData(*values));
    });
    return found;
}

QString RecoveryViewModel::text() const {
    return QStringLiteral("The file with your practice is damaged. Nothing was changed in it. Choose a backup to go on "
                          "with; the damaged file is kept beside it.");
}

QList<BackupRow> RecoveryViewModel::rows() const {
    QList<BackupRow> rows;
    for (const BackupFile& each : m_backups) {
        rows += {backupText(each), backupDetail(each, QStringLiteral("verified")),
                 QStringLiteral("backup_%1").arg(rows.size()), true, false};
    }
    return rows;
}

void RecoveryViewModel::restore(int row) {
    const auto failure = recovery::restore(m_backups.value(row).path, m_settingsFile, QDateTime::currentDateTime());
    if (!failure) {
        m_done();
        return;
    }
    m_failure = QStringLiteral("The backup cannot be used: %1.").arg(*failure);
    Q_EMIT failureChanged();
}

} // namespace tamsel
