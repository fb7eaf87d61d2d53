#include "reports/MonthReportViewModel.h"

#include "platform/Log.h"
#include "reports/Formats.h"
#include "reports/ReportData.h"

#include <algorithm>
#include <map>

namespace tamsel {

MonthReportViewModel::MonthReportViewModel(const MonthOfEvents& month, const History& history, const Platform& platform)
    : m_history(history), m_platform(platform), m_events(month.events), m_startOfMonth(month.month) {
    log(QStringLiteral("MonthReportViewModel.init"));
    const bool isOneExercise = std::ranges::all_of(
        m_events, [this](const HistoryEvent& event) { return event.exerciseName == m_events.first().exerciseName; });
    if (isOneExercise)
        showDaysOfOneExercise(days());
    else
        showDaysByExercise(days());
}

QList<DayOfEvents> MonthReportViewModel::days() const {
    std::map<int, QList<HistoryEvent>, std::greater<>> eventsOfDays;
    for (const HistoryEvent& event : m_events)
        eventsOfDays[m_platform.calendar.dayNumber(event.date)] += event;
    QList<DayOfEvents> list;
    for (const auto& [day, events] : eventsOfDays)
        list += DayOfEvents{m_platform.calendar.startOfDay(day), events};
    return list;
}

void MonthReportViewModel::showDaysOfOneExercise(const QList<DayOfEvents>& days) {
    SingleExercise single;
    for (const DayOfEvents& day : days) {
        const QString text =
            QStringLiteral("%1: %2").arg(dayTitle(day.day, m_platform.calendar), totalPracticeTimeText(day.events));
        m_rows += {QStringLiteral("month_row_%1").arg(m_rows.size()), text, QString(), false};
        m_rowDays += day;
        single.rows += {text, text};
    }
    m_mode = single;
}

void MonthReportViewModel::showDaysByExercise(const QList<DayOfEvents>& days) {
    MultipleExercises multiple;
    for (const DayOfEvents& day : days) {
        Section section{
            QStringLiteral("%1: %2").arg(shortDate(day.day, m_platform.calendar), totalPracticeTimeText(day.events)),
            {}};
        m_rows +=
            {QStringLiteral("month_section_%1").arg(multiple.sections.size()), section.sectionTitle, QString(), true};
        m_rowDays += day;
        for (const auto& record : ranking(day.events, m_platform.uuids)) {
            MultipleExercisesRow row{day, record.exercise, {}};
            std::ranges::copy_if(day.events, std::back_inserter(row.events),
                                 [&](const HistoryEvent& event) { return event.exerciseName == record.exercise; });
            m_rows += {QStringLiteral("month_row_%1").arg(m_rows.size()), record.exercise,
                       totalPracticeTimeText(row.events), false};
            m_rowDays += day;
            section.rows += row;
        }
        multiple.sections += section;
    }
    m_mode = multiple;
}

QString MonthReportViewModel::title() const {
    return spokenMonth(m_startOfMonth, m_platform.calendar);
}

QString MonthReportViewModel::emptyText() const {
    return m_rows.isEmpty() ? QStringLiteral("Nothing was recorded in this month. Go back and choose another one.")
                            : QString();
}

void MonthReportViewModel::openRow(int row) {
    if (row >= 0 && row < m_rowDays.size())
        Q_EMIT destinationRequested({m_rowDays.at(row)});
}

} // namespace tamsel
