#include "app/PracticeYears.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>

#include <algorithm>

// The history and its reports.

namespace tamsel::test {
namespace {

void fill(UiWorld& ui, int years) {
    QList<HistoryEvent> events = PracticeYears{years}.events(ui.world.clock.now(), ui.world.calendar, ui.world.uuids);
    // Every kind of thumbs, on whichever day is looked at.
    for (qsizetype i = 0; i < events.size(); ++i) {
        events[i].thumbsUp = i % 3 == 2 ? 0 : 12;
        events[i].thumbsDown = i % 3 == 1 ? 3 : 0;
    }
    ui.world.singletons->history.setEvents(events);
}

void takeAll(Album& album, QSize size, const QString& suffix, qreal textScale) {
    UiWorld ui;
    ui.addExercises({QStringLiteral("C Major Scales"), QStringLiteral("Long Tones")});
    fill(ui, 3);
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    ui.click(QStringLiteral("history_tab"));
    const auto take = [&](const char* name) { album.take(ui, QLatin1String(name) + QLatin1Char('-') + suffix); };
    HistoryNavigationStackViewModel& stack = *ui.tabs().historyNavigationStack();
    HistoryViewModel& history = *stack.historyViewModel();
    take("history-week");
    for (const TimeRange range : {TimeRange::last30Days, TimeRange::last12Months, TimeRange::allMonths}) {
        history.setTimeRange(range);
        album.take(ui, QStringLiteral("history-%1-%2").arg(caseName(range), suffix));
    }
    QQuickItem* const page = ui.find(QStringLiteral("history_page"));
    page->setProperty("contentY", std::max(0.0, page->property("contentHeight").toDouble() - page->height()));
    take("history-end");
    history.openTopExercises();
    take("most-practiced");
    stack.pop();
    ui.settle();
    history.openPracticeTime();
    ui.click(QStringLiteral("options_menu"));
    take("options");
    ui.click(QStringLiteral("show_average"));
    take("practice-time-all");
    auto& detail = *qobject_cast<PracticeTimeDetailViewModel*>(stack.screenModel(0));
    detail.setTimeRange(TimeRange::last30Days);
    for (int i = 0; i < 4; ++i)
        ui.press(Qt::Key_Tab);
    take("practice-time-30");
    QQuickItem* const list = ui.find(QStringLiteral("report_list"));
    list->setProperty("contentY", list->property("lastY"));
    take("practice-time-end");
    detail.setTimeRange(TimeRange::last12Months);
    detail.openRow(1);
    take("month");
    qobject_cast<MonthReportViewModel*>(stack.screenModel(1))->openRow(1);
    take("day");
}

void takeEmpty(Album& album, QSize size, const QString& suffix) {
    UiWorld ui;
    ui.addExercises({QStringLiteral("C Major Scales"), QStringLiteral("Long Tones")});
    ui.open(size);
    ui.click(QStringLiteral("history_tab"));
    album.take(ui, QStringLiteral("history-empty-") + suffix);
}

} // namespace

void takeHistoryScreens(Album& album) {
    takeEmpty(album, {390, 844}, QStringLiteral("phone"));
    takeAll(album, {390, 844}, QStringLiteral("phone"), 1);
    takeAll(album, {360, 640}, QStringLiteral("small"), 1);
    takeAll(album, {390, 844}, QStringLiteral("large"), 2);
    takeAll(album, {1180, 820}, QStringLiteral("wide"), 1);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeAll(album, {390, 844}, QStringLiteral("mirrored"), 1);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tamsel::test
