#include "app/BackupsViewModel.h"

#include "app/DataTexts.h"
#include "model/DataSummary.h"

#include <memory>
#include <utility>

namespace tamsel {

BackupsViewModel::BackupsViewModel(Backups& backups)
    : m_backups(backups), m_backupsSubscription(backups.changed().subscribe([this] {
          const auto& failure = m_backups.failure();
          setWarning(failure ? QStringLiteral("The last backup could not be made: %1.").arg(*failure) : QString());
          if (m_isPresented)
              reload();
      })) {}

void BackupsViewModel::setIsPresented(bool presented) {
    if (std::exchange(m_isPresented, presented) == presented)
        return;
    if (presented)
        reload();
    Q_EMIT isPresentedChanged();
}

QString BackupsViewModel::explanation() const {
    return QStringLiteral(
               "Tamsel keeps a copy for each of the last %1 days on which you practised, one for each of the "
               "last %2 months, and one before each import.")
        .arg(backups::keptDays)
        .arg(backups::keptMonths);
}

QString BackupsViewModel::emptyText() const {
    return m_rows.isEmpty() ? QStringLiteral("There are no backups yet. The first one is made shortly after Tamsel has "
                                             "started.")
                            : QString();
}

QString BackupsViewModel::folderText() const {
    return m_backups.folderIsChosen() ? m_backups.folder() : QStringLiteral("Beside Tamsel's data");
}

void BackupsViewModel::reload() {
    m_files = backups::list(m_backups.folder());
    QList<BackupRow> rows;
    for (const BackupFile& file : std::as_const(m_files)) {
        rows += {backupText(file), backupDetail(file, QStringLiteral("being checked …")),
                 QStringLiteral("backup_%1").arg(rows.size()), false, false};
    }
    m_rows = rows;
    Q_EMIT rowsChanged();

    const auto checked = std::make_shared<QList<BackupRow>>(rows);
    const auto check = [files = m_files, checked] {
        for (qsizetype i = 0; i < files.size(); ++i) {
            const auto values = backups::read(files.at(i).path);
            BackupRow& row = (*checked)[i];
            row.isUsable = values && DataSummary::of(UserData(*values));
            row.isDamaged = !row.isUsable;
            row.detail =
                backupDetail(files.at(i), row.isUsable ? QStringLiteral("verified") : QStringLiteral("damaged"));
        }
    };
    m_backups.onQueue(check, [this, checked, generation = ++m_generation] {
        if (generation != m_generation || m_rows == *checked)
            return;
        m_rows = *checked;
        Q_EMIT rowsChanged();
    });
}

void BackupsViewModel::setWarning(const QString& warning) {
    if (std::exchange(m_warning, warning) != warning)
        Q_EMIT warningChanged();
}

void BackupsViewModel::chooseFolder(const QUrl& folder) {
    const auto reason = folder.isLocalFile() ? m_backups.setFolder(folder.toLocalFile())
                                             : QStringLiteral("it does not lie on this device");
    if (reason) {
        const QString name = folder.toDisplayString(QUrl::PreferLocalFile);
        setWarning(QStringLiteral("Backups cannot be kept in “%1”: %2.").arg(name, *reason));
        return;
    }
    Q_EMIT folderChanged();
    // What is chosen for safety is made use of at once.
    m_backups.makeDaily();
}

void BackupsViewModel::useStandardFolder() {
    if (const auto reason = m_backups.setFolder(std::nullopt))
        setWarning(QStringLiteral("The folder could not be changed: %1.").arg(*reason));
    Q_EMIT folderChanged();
}

} // namespace tamsel
