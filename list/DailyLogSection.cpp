#include "list/DailyLogSection.h"

#include "platform/Checked.h"
#include "reports/Formats.h"

#include <utility>

namespace tamsel {

namespace {

QList<DailyLogSection::Row> folded(const QList<PracticeSession>& sessions, Date now, const Calendar& calendar) {
    QList<DailyLogSection::Row> rows;
    const Date today = calendar.startOfDay(now);
    for (const PracticeSession& session : sessions) {
        if (calendar.startOfDay(session.date) != today)
            continue;
        if (!rows.isEmpty() && rows.last().session.exercise == session.exercise)
            rows.last().session = rows.last().session.combined(session, now);
        else
            rows += {session};
    }
    return rows;
}

} // namespace

std::optional<DailyLogSection> DailyLogSection::make(const QList<PracticeSession>& sessions,
                                                     const QString& searchBarText, Date now, const Calendar& calendar) {
    DailyLogSection section{folded(sessions, now, calendar), QString()};
    section.rows.removeIf([&](const Row& row) { return !row.session.exercise.name.contains(searchBarText); });
    if (section.rows.isEmpty())
        return std::nullopt;
    qint64 seconds = 0;
    for (const Row& row : std::as_const(section.rows))
        seconds = checkedAdd(seconds, row.session.seconds);
    section.title = longDayTitle(now, calendar) + QLatin1Char(' ') + abbreviatedHoursAndMinutes(seconds);
    return section;
}

} // namespace tamsel
