#include "reports/PracticeDayBreakdownViewModel.h"

#include "reports/Formats.h"

#include <QStringList>

namespace tamsel {

PracticeDayBreakdownViewModel::PracticeDayBreakdownViewModel(const DayOfEvents& day, const Calendar& calendar)
    : m_title(fullDay(day.day, calendar)),
      m_totalText(day.events.isEmpty() ? QString() : totalPracticeTimeText(day.events)) {
    for (const HistoryEvent& event : day.events)
        m_rows += Row{event};
}

QString PracticeDayBreakdownViewModel::Row::title() const {
    return QStringLiteral("%1, %2").arg(event.exerciseName, totalPracticeTimeText({event}));
}

QString PracticeDayBreakdownViewModel::Row::detail() const {
    QStringList parts;
    if (event.thumbsUp.value_or(0) != 0)
        parts += QStringLiteral("👍 %1").arg(*event.thumbsUp);
    if (event.thumbsDown.value_or(0) != 0)
        parts += QStringLiteral("👎 %1").arg(*event.thumbsDown);
    return parts.join(QLatin1Char(' '));
}

QList<ReportRow> PracticeDayBreakdownViewModel::reportRows() const {
    QList<ReportRow> rows;
    for (const Row& row : m_rows)
        rows += {QStringLiteral("day_row_%1").arg(rows.size()), row.title(), row.detail(), false};
    return rows;
}

QString PracticeDayBreakdownViewModel::emptyText() const {
    return m_rows.isEmpty()
               ? QStringLiteral("Nothing was recorded on this day. Practice for a minute or more and save, "
                                "and the day keeps it.")
               : QString();
}

} // namespace tamsel
