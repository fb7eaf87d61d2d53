#pragma once

#include "model/Exercise.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tamsel {

// The archived items.
class ArchiveSection {
public:
    struct Row {
        qsizetype index = 0; // position in the shown list
        Exercise exercise;

        bool operator==(const Row&) const = default;
    };

    const QList<Exercise>& items() const { return m_items; }
    void setItems(const QList<Exercise>& items);

    // The rows to show, in the order of the store; while something is searched for, those whose name contains it, both
    // in lower case.
    QList<Row> rows(const QString& searchBarText) const;

private:
    QList<Exercise> m_items;
    QStringList m_lowerCaseNames;
};

} // namespace tamsel
