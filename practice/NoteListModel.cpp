#include "practice/NoteListModel.h"

#include <algorithm>

namespace tamsel {

int NoteListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant NoteListModel::data(const QModelIndex& index, int role) const {
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case NoteIdRole:
        return row.noteId.toString(QUuid::WithoutBraces);
    case TextRole:
        return row.text;
    case DayTitleRole:
        return row.dayTitle;
    default:
        return {};
    }
}

QHash<int, QByteArray> NoteListModel::roleNames() const {
    return {{NoteIdRole, "noteId"}, {TextRole, "noteText"}, {DayTitleRole, "dayTitle"}};
}

void NoteListModel::setRows(const QList<Row>& rows) {
    const auto sameNote = [](const Row& a, const Row& b) { return a.noteId == b.noteId; };
    const qsizetype shorter = std::min(rows.size(), m_rows.size());
    const qsizetype head =
        std::mismatch(rows.begin(), rows.begin() + shorter, m_rows.begin(), sameNote).first - rows.begin();
    qsizetype tail = 0;
    while (tail < shorter - head && sameNote(rows.at(rows.size() - 1 - tail), m_rows.at(m_rows.size() - 1 - tail)))
        ++tail;
    if (const qsizetype gone = m_rows.size() - head - tail; gone > 0) {
        beginRemoveRows({}, static_cast<int>(head), static_cast<int>(head + gone - 1));
        m_rows.remove(head, gone);
        endRemoveRows();
    }
    if (const qsizetype come = rows.size() - head - tail; come > 0) {
        beginInsertRows({}, static_cast<int>(head), static_cast<int>(head + come - 1));
        m_rows = m_rows.first(head) + rows.sliced(head, come) + m_rows.sliced(head);
        endInsertRows();
    }
    // The days' titles may have moved to other rows.
    for (qsizetype i = 0; i < rows.size(); ++i) {
        if (m_rows.at(i) == rows.at(i))
            continue;
        m_rows[i] = rows.at(i);
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed);
    }
}

} // namespace tamsel
