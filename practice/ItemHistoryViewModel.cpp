#include "practice/ItemHistoryViewModel.h"

#include "platform/Checked.h"
#include "reports/Formats.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

constexpr qint64 secondsPerMinute = 60;

QString durationText(qint64 minutes) {
    return abbreviatedHoursAndMinutes(checkedMultiply(minutes, secondsPerMinute));
}

} // namespace

ItemHistoryViewModel::ItemHistoryViewModel(History& history, const Calendar& calendar, QString exerciseName)
    : m_history(history), m_calendar(calendar), m_exerciseName(std::move(exerciseName)),
      m_historySubscription(history.eventsChanged().subscribe([this] { reload(); })) {
    reload();
}

void ItemHistoryViewModel::reload() {
    struct Moment {
        Date date;
        qint64 minutes;
    };
    QList<Moment> moments;
    for (const HistoryEvent& event : m_history.events()) {
        if (event.exerciseName == m_exerciseName)
            moments += {event.date, event.practiceTime};
    }
    std::ranges::stable_sort(moments, [](const Moment& a, const Moment& b) { return b.date < a.date; });

    m_days.clear();
    qint64 total = 0;
    for (qsizetype first = 0; first < moments.size();) {
        const Date start = m_calendar.startOfDay(moments.at(first).date);
        qint64 minutes = 0;
        qsizetype next = first;
        do
            minutes = checkedAdd(minutes, moments.at(next++).minutes);
        while (next < moments.size() && !(moments.at(next).date < start));
        m_days += {dayTitle(moments.at(first).date, m_calendar), durationText(minutes),
                   QStringLiteral("history_day_%1").arg(m_days.size())};
        total = checkedAdd(total, minutes);
        first = next;
    }
    m_summary = m_days.isEmpty() ? QString()
                                 : QStringLiteral("%1 %2, %3")
                                       .arg(m_days.size())
                                       .arg(m_days.size() == 1 ? QStringLiteral("day") : QStringLiteral("days"),
                                            durationText(total));
    Q_EMIT daysChanged();
}

} // namespace tamsel
