#include "practice/ToggleListModel.h"

#include <algorithm>

namespace tamsel {

int ToggleListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ToggleListModel::data(const QModelIndex& index, int role) const {
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case IdentifierRole:
        return row.identifier;
    case TitleRole:
        return row.title;
    case SpokenNameRole:
        return row.spokenName.isEmpty() ? row.title : row.spokenName;
    case SubtitleRole:
        return row.subtitle;
    case IconNameRole:
        return row.iconName;
    case IsOnRole:
        return row.isOn;
    case ClearedIconRole:
        return row.clearedIcon;
    case TriggerIconRole:
        return row.triggerIcon;
    case TriggerTextRole:
        return row.triggerText;
    default:
        return {};
    }
}

QHash<int, QByteArray> ToggleListModel::roleNames() const {
    return {{IdentifierRole, "identifier"},
            {TitleRole, "title"},
            {SubtitleRole, "subtitle"},
            {IconNameRole, "iconName"},
            {IsOnRole, "isOn"},
            {ClearedIconRole, "clearedIcon"},
            {TriggerIconRole, "triggerIcon"},
            {TriggerTextRole, "triggerText"},
            {SpokenNameRole, "spokenName"}};
}

void ToggleListModel::setRows(const QList<Row>& rows) {
    if (!std::ranges::equal(rows, m_rows, {}, &Row::identifier, &Row::identifier)) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    for (qsizetype i = 0; i < rows.size(); ++i) {
        if (m_rows.at(i) == rows.at(i))
            continue;
        m_rows[i] = rows.at(i);
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed);
    }
}

} // namespace tamsel
