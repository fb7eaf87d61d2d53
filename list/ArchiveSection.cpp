#include "list/ArchiveSection.h"

#include "list/ExercisesSection.h"

#include <utility>

namespace tamsel {

void ArchiveSection::setItems(const QList<Exercise>& items) {
    if (items == m_items)
        return;
    m_items = items;
    m_lowerCaseNames.clear();
    for (const Exercise& item : std::as_const(m_items))
        m_lowerCaseNames += item.name.toLower();
}

QList<ArchiveSection::Row> ArchiveSection::rows(const QString& searchBarText) const {
    const LowerCaseSearch search(searchBarText);
    QList<Row> shown;
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        if (search.finds(m_lowerCaseNames.at(i)))
            shown += {shown.size(), m_items.at(i)};
    }
    return shown;
}

} // namespace tamsel
