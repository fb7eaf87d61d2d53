#include "list/ExercisesSection.h"

#include "list/NameOrder.h"
#include "reports/Formats.h"

#include <QSet>

#include <algorithm>
#include <numeric>
#include <utility>

namespace tamsel {

std::optional<QString> ExercisesSection::Row::formattedLastPracticedDate(const Calendar& calendar) const {
    return lastPracticedDate ? std::optional(longDayTitle(*lastPracticedDate, calendar)) : std::nullopt;
}

std::optional<QString> ExercisesSection::Row::formattedPracticeTime() const {
    return recentTotalPracticeTime > 0 ? std::optional(practiceTimeText(recentTotalPracticeTime)) : std::nullopt;
}

void ExercisesSection::setUnfilteredRows(QList<Row> rows) {
    if (rows == m_unfilteredRows)
        return;
    m_unfilteredRows = std::move(rows);
    m_isSorted = false;
    m_lowerCaseNames.clear();
}

const QStringList& ExercisesSection::lowerCaseNames() const {
    if (m_lowerCaseNames.isEmpty()) {
        m_lowerCaseNames.reserve(m_unfilteredRows.size());
        for (const Row& row : m_unfilteredRows)
            m_lowerCaseNames += row.exercise.name.toLower();
    }
    return m_lowerCaseNames;
}

void ExercisesSection::setSortOrder(SortOrder order) {
    if (std::exchange(m_sortOrder, order) != order)
        m_isSorted = false;
}

QList<ExercisesSection::Row> ExercisesSection::rows(const QList<DailyLogSection::Row>& dailyLogRows,
                                                    const QString& searchBarText) const {
    QSet<Exercise> practisedToday;
    for (const DailyLogSection::Row& row : dailyLogRows)
        practisedToday += row.session.exercise;
    if (!std::exchange(m_isSorted, true))
        sort();
    const auto search = searchBarText.isEmpty() ? std::nullopt : std::optional<LowerCaseSearch>(searchBarText);
    QList<Row> shown;
    shown.reserve(m_unfilteredRows.size());
    for (const qsizetype position : m_sorted) {
        const Row& row = m_unfilteredRows.at(position);
        if ((!search || search->finds(lowerCaseNames().at(position))) &&
            (practisedToday.isEmpty() || !practisedToday.contains(row.exercise)))
            shown += row;
    }
    return shown;
}

void ExercisesSection::sort() const {
    const auto before = [this](qsizetype a, qsizetype b) {
        return comesBefore(m_unfilteredRows.at(a), m_unfilteredRows.at(b), m_sortOrder);
    };
    // Most changes, such as a recorded session, leave the order as it was.
    const auto count = static_cast<std::size_t>(m_unfilteredRows.size());
    if (m_sorted.size() == count && std::ranges::is_sorted(m_sorted, before))
        return;
    m_sorted.resize(count);
    std::iota(m_sorted.begin(), m_sorted.end(), 0);
    // Stable, so that items of one name keep the user's order.
    std::ranges::stable_sort(m_sorted, before);
}

bool ExercisesSection::comesBefore(const Row& a, const Row& b, SortOrder order) {
    if (order == SortOrder::practiceRecency && a.lastPracticedDate != b.lastPracticedDate)
        // None is less than any date.
        return a.lastPracticedDate > b.lastPracticedDate;
    if (order == SortOrder::practiceTime && a.recentTotalPracticeTime != b.recentTotalPracticeTime)
        return a.recentTotalPracticeTime > b.recentTotalPracticeTime;
    return nameComesBefore(a.exercise.name, b.exercise.name);
}

} // namespace tamsel
