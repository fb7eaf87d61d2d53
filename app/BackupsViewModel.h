#pragma once

#include "model/Backups.h"
#include "platform/Observable.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// One backup, as the screen shows it.
struct BackupRow {
    Q_GADGET
    QML_VALUE_TYPE(backupRow)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail MEMBER detail FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(bool isUsable MEMBER isUsable FINAL)
    Q_PROPERTY(bool isDamaged MEMBER isDamaged FINAL)

public:
    QString title;      // "14 March 2024"
    QString detail;     // "1.2 MB, verified"
    QString identifier; // "backup_0"
    bool isUsable = false;
    bool isDamaged = false;

    bool operator==(const BackupRow&) const = default;
};

// The page of backups: what there is, whether each can be read, and where they lie. Main thread only.
class BackupsViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the data model")

    Q_PROPERTY(bool isPresented READ isPresented WRITE setIsPresented NOTIFY isPresentedChanged FINAL)
    Q_PROPERTY(QList<tamsel::BackupRow> rows READ rows NOTIFY rowsChanged FINAL)
    Q_PROPERTY(QString explanation READ explanation CONSTANT FINAL)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY rowsChanged FINAL)
    Q_PROPERTY(QString folderText READ folderText NOTIFY folderChanged FINAL)
    Q_PROPERTY(bool folderIsChosen READ folderIsChosen NOTIFY folderChanged FINAL)
    Q_PROPERTY(QString warning READ warning NOTIFY warningChanged FINAL)

public:
    explicit BackupsViewModel(Backups& backups);

    bool isPresented() const { return m_isPresented; }
    // Presenting lists what there is and looks through each, away from the screen.
    void setIsPresented(bool presented);

    // The newest first.
    const QList<BackupRow>& rows() const { return m_rows; }
    QString explanation() const;
    // Instead of rows while there are none.
    QString emptyText() const;
    QString folderText() const;
    bool folderIsChosen() const { return m_backups.folderIsChosen(); }
    // Why the last backup could not be made, or a folder cannot be used; empty otherwise.
    QString warning() const { return m_warning; }

    // The file of a row.
    QString path(int index) const { return m_files.value(index).path; }
    QString title(int index) const { return m_rows.value(index).title; }

    Q_INVOKABLE void chooseFolder(const QUrl& folder);
    Q_INVOKABLE void useStandardFolder();

Q_SIGNALS:
    void isPresentedChanged();
    void rowsChanged();
    void folderChanged();
    void warningChanged();

private:
    void reload();
    void setWarning(const QString& warning);

    Backups& m_backups;
    bool m_isPresented = false;
    QList<BackupFile> m_files;
    QList<BackupRow> m_rows;
    QString m_warning;
    quint64 m_generation = 0; // of the list that is being looked through
    Observable::Subscription m_backupsSubscription;
};

} // namespace tamsel
