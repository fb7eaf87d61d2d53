#include "app/PracticeYears.h"
#include "app/Tour.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/UuidSource.h"
#include "ui/Appearance.h"

namespace tamsel {

void Tour::showHistory() {
    const Calendar calendar = Calendar::device();
    RandomUuids uuids;
    History& history = m_app.singletons().history;
    const QList<HistoryEvent> before = history.events();
    history.setEvents(PracticeYears{2}.events(SystemClock().now(), calendar, uuids) + before);
    HistoryNavigationStackViewModel& stack = *m_app.content().tabViewModel()->historyNavigationStack();
    const auto waitForDepth = [&](int depth) {
        waitUntil(QStringLiteral("%1 reports lie over the history").arg(depth), [&] { return stack.depth() == depth; });
    };

    tap(QStringLiteral("history_tab"));
    find(QStringLiteral("practice_time_card"));
    picture(QStringLiteral("history-week"));
    tap(QStringLiteral("time_range_30_days"));
    picture(QStringLiteral("history-month"));
    tap(QStringLiteral("time_range_all_months"));
    picture(QStringLiteral("history-all"));
    QQuickItem& page = find(QStringLiteral("history_page"));
    page.setProperty("contentY", page.property("contentHeight").toDouble() - page.height());
    tap(QStringLiteral("full_ranking_button"));
    waitForDepth(1);
    picture(QStringLiteral("history-most-practiced"));
    press(Qt::Key_Escape);
    waitForDepth(0);
    tap(QStringLiteral("time_range_12_months"));
    tap(QStringLiteral("practice_time_card"));
    waitForDepth(1);
    tap(QStringLiteral("options_menu"));
    tap(QStringLiteral("show_average"));
    picture(QStringLiteral("history-practice-time"));
    tap(QStringLiteral("chart_bar_10"));
    waitForDepth(2);
    picture(QStringLiteral("history-last-month"));
    tap(QStringLiteral("month_row_1"));
    waitForDepth(3);
    picture(QStringLiteral("history-day"));
    resize(1180, 820);
    for (int depth = 2; depth >= 0; --depth) {
        press(Qt::Key_Escape);
        waitForDepth(depth);
    }
    picture(QStringLiteral("history-wide"));
    resize(390, 844);
    tap(QStringLiteral("time_range_7_days"));
    tell(QStringLiteral("looked at %1 events of two years, from the overview down to a day")
             .arg(history.events().size()));
    history.setEvents(before);
}

} // namespace tamsel
