#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The switches of one section of a sheet. A flipped switch changes its row and nothing else, so that the keyboard's
// place stays. Main thread only.
class ToggleListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the screen model that owns it")

public:
    enum Role {
        IdentifierRole = Qt::UserRole,
        TitleRole,
        SpokenNameRole,
        SubtitleRole,
        IconNameRole,
        IsOnRole,
        ClearedIconRole,
        TriggerIconRole,
        TriggerTextRole
    };

    struct Row {
        QString identifier;
        QString title;
        QString spokenName; // where the title alone does not tell which switch it is
        QString subtitle;
        QString iconName;
        bool isOn = false;
        // A rule is shown as "Clear", a picture, "on", and a picture or words.
        QString clearedIcon;
        QString triggerIcon;
        QString triggerText;

        bool operator==(const Row&) const = default;
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QList<Row>& rows() const { return m_rows; }
    // Rows that stay in their place are changed there.
    void setRows(const QList<Row>& rows);

private:
    QList<Row> m_rows;
};

} // namespace tamsel
