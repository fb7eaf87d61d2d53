#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace tamsel {

// Rows for a view, whose texts are told row by row: a view asks for those of the rows that are seen.
class ListRowModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by its screen model")
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    enum Role { NameRole = Qt::UserRole + 1, DetailRole, DurationTextRole };

    explicit ListRowModel(QObject* parent) : QAbstractListModel(parent) {}

    int count() const { return rowCount(); }
    // A text of a row that is there; only that of the name is never empty.
    virtual QString text(int row, Role role) const = 0;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();
};

// Rows of a kind. Two that are equal have the same texts, made by a function of the row alone. A new list changes only
// the rows between its first and its last difference to the old one.
template <class Row>
class ListRowsOf final : public ListRowModel {
public:
    using Text = std::function<QString(const Row&, Role)>;

    ListRowsOf(Text text, QObject* parent) : ListRowModel(parent), m_text(std::move(text)) {}

    const QList<Row>& rows() const { return m_rows; }
    void setRows(const QList<Row>& rows) {
        const qsizetype oldCount = m_rows.size();
        const qsizetype shorter = std::min(oldCount, rows.size());
        qsizetype first = 0;
        while (first < shorter && m_rows.at(first) == rows.at(first))
            ++first;
        qsizetype sameAtEnd = 0;
        while (sameAtEnd < shorter - first &&
               m_rows.at(oldCount - 1 - sameAtEnd) == rows.at(rows.size() - 1 - sameAtEnd))
            ++sameAtEnd;

        // The stretch that differs: the rows that both have change in place, the rest comes or goes behind them.
        const qsizetype oldStretch = oldCount - first - sameAtEnd;
        const qsizetype newStretch = rows.size() - first - sameAtEnd;
        const qsizetype inPlace = std::min(oldStretch, newStretch);
        for (qsizetype i = 0; i < inPlace; ++i)
            m_rows[first + i] = rows.at(first + i);
        if (inPlace > 0)
            Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(first + inPlace - 1)));
        const auto behind = static_cast<int>(first + inPlace);
        if (oldStretch > inPlace) {
            beginRemoveRows({}, behind, behind + static_cast<int>(oldStretch - inPlace) - 1);
            m_rows.remove(behind, oldStretch - inPlace);
            endRemoveRows();
        } else if (newStretch > inPlace) {
            beginInsertRows({}, behind, behind + static_cast<int>(newStretch - inPlace) - 1);
            m_rows = rows;
            endInsertRows();
        }
        if (oldCount != m_rows.size())
            Q_EMIT countChanged();
    }

    QString text(int row, Role role) const override { return m_text(m_rows.at(row), role); }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

private:
    const Text m_text;
    QList<Row> m_rows;
};

} // namespace tamsel
