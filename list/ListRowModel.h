#pragma once

#include "list/ListRow.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// Rows for a view. A new list changes only the rows between its first and its last difference to the old one.
class ListRowModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by its screen model")
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    enum Role { NameRole = Qt::UserRole + 1, DetailRole, DurationTextRole };

    explicit ListRowModel(QObject* parent) : QAbstractListModel(parent) {}

    int count() const { return static_cast<int>(m_rows.size()); }
    const QList<ListRow>& rows() const { return m_rows; }
    void setRows(const QList<ListRow>& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    QList<ListRow> m_rows;
};

} // namespace tamsel
