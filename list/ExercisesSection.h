#pragma once

#include "list/DailyLogSection.h"
#include "list/SortOrder.h"
#include "model/Exercise.h"
#include "platform/Calendar.h"
#include "platform/Date.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tamsel {

// The active items that are not in today's log. It keeps the order and, once something was searched for, what the
// search compares, so that a keystroke costs one pass over the items.
class ExercisesSection {
public:
    struct Row {
        Exercise exercise;
        std::optional<Date> lastPracticedDate; // none if never practised
        qint64 recentTotalPracticeTime = 0;    // whole minutes in the chosen range

        // The two as texts, which take longer to write than all else about a row; nothing where there is none.
        std::optional<QString> formattedLastPracticedDate(const Calendar& calendar) const;
        std::optional<QString> formattedPracticeTime() const;

        bool operator==(const Row&) const = default;
    };

    // One row for each active item, in the order of the store.
    const QList<Row>& unfilteredRows() const { return m_unfilteredRows; }
    void setUnfilteredRows(QList<Row> rows);
    void setSortOrder(SortOrder order);

    // The rows to show, in order: without the items of the log's rows, and while something is searched for, those whose
    // name contains it, both in lower case.
    QList<Row> rows(const QList<DailyLogSection::Row>& dailyLogRows, const QString& searchBarText) const;

    static bool comesBefore(const Row& a, const Row& b, SortOrder order);

private:
    void sort() const;
    const QStringList& lowerCaseNames() const;

    QList<Row> m_unfilteredRows;
    mutable QStringList m_lowerCaseNames; // of the rows, in their order; empty until they are needed
    SortOrder m_sortOrder = SortOrder::name;
    mutable std::vector<qsizetype> m_sorted; // positions of the rows, in order once that is needed
    mutable bool m_isSorted = false;
};

// Names in lower case that contain the text in lower case; an empty text is contained in all.
class LowerCaseSearch {
public:
    explicit LowerCaseSearch(const QString& text) : m_text(text.toLower()) {}
    bool finds(const QString& lowerCaseName) const { return lowerCaseName.contains(m_text); }

private:
    const QString m_text;
};

} // namespace tamsel

Q_DECLARE_TYPEINFO(tamsel::ExercisesSection::Row, Q_RELOCATABLE_TYPE);
