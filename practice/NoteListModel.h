#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The notes of an item as rows, with the title of a day over the first of each day. A note that comes or goes leaves
// the other rows where they are. Main thread only.
class NoteListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the screen model that owns it")

public:
    enum Role { NoteIdRole = Qt::UserRole, TextRole, DayTitleRole };

    struct Row {
        QUuid noteId;
        QString text;
        QString dayTitle; // empty below the first of a day

        bool operator==(const Row&) const = default;
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setRows(const QList<Row>& rows);

private:
    QList<Row> m_rows;
};

} // namespace tamsel
