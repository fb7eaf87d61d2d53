#pragma once

#include "app/BackupsViewModel.h"
#include "model/BackupFile.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace tamsel {

// The window that comes instead of the app when its data cannot be used: says why, and offers to put a backup in its
// place. Nothing is changed before one is chosen. Main thread only.
class RecoveryViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the entry point")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString text READ text CONSTANT FINAL)
    Q_PROPERTY(QString problem READ problem CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::BackupRow> rows READ rows CONSTANT FINAL)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged FINAL)

public:
    // `done` is called when a backup lies in the place of the settings file.
    RecoveryViewModel(const QString& settingsFile, const QString& problem, const QList<BackupFile>& backups,
                      std::function<void()> done);

    // Looks through the backups in the folder, and leaves out what cannot be read.
    static QList<BackupFile> usableBackups(const QString& folder);

    QString title() const { return QStringLiteral("Tamsel cannot read its data"); }
    QString text() const;
    // The line for somebody who wants to know more.
    QString problem() const { return m_problem; }
    QList<BackupRow> rows() const;
    // Why a backup could not be put in place; empty before one is chosen.
    QString failure() const { return m_failure; }

    Q_INVOKABLE void restore(int row);

Q_SIGNALS:
    void failureChanged();

private:
    const QString m_settingsFile;
    const QString m_problem;
    const QList<BackupFile> m_backups;
    const std::function<void()> m_done;
    QString m_failure;
};

} // namespace tamsel
