#include "list/ListRowModel.h"

#include <algorithm>

namespace tamsel {

void ListRowModel::setRows(const QList<ListRow>& rows) {
    const qsizetype oldCount = m_rows.size();
    const qsizetype shorter = std::min(oldCount, rows.size());
    qsizetype first = 0;
    while (first < shorter && m_rows.at(first) == rows.at(first))
        ++first;
    qsizetype sameAtEnd = 0;
    while (sameAtEnd < shorter - first && m_rows.at(oldCount - 1 - sameAtEnd) == rows.at(rows.size() - 1 - sameAtEnd))
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

int ListRowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ListRowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count())
        return {};
    const ListRow& row = m_rows.at(index.row());
    switch (role) {
    case NameRole:
        return row.name;
    case DetailRole:
        return row.detail;
    case DurationTextRole:
        return row.durationText;
    default:
        return {};
    }
}

QHash<int, QByteArray> ListRowModel::roleNames() const {
    return {{NameRole, "name"}, {DetailRole, "detail"}, {DurationTextRole, "durationText"}};
}

} // namespace tamsel
