#include "app/PracticeYears.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

// Grabs the history and its reports to PNG files: grab_history_screens <folder>.

namespace tamsel::test {
namespace {

void fill(UiWorld& ui, int years) {
    const QList<HistoryEvent> events =
        PracticeYears{years}.events(ui.world.clock.now(), ui.world.calendar, ui.world.uuids);
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
    take("history-week");
    for (const char* const range : {"30_days", "12_months", "all_months"}) {
        ui.click(QStringLiteral("time_range_") + QLatin1String(range));
        album.take(ui, QStringLiteral("history-%1-%2").arg(QLatin1String(range), suffix));
    }
    ui.click(QStringLiteral("full_ranking_button"));
    take("most-practiced");
    ui.press(Qt::Key_Escape);
    ui.click(QStringLiteral("practice_time_card"));
    ui.click(QStringLiteral("options_menu"));
    take("options");
    ui.click(QStringLiteral("show_average"));
    take("practice-time-all");
    ui.click(QStringLiteral("time_range_30_days"));
    ui.press(Qt::Key_Tab);
    ui.press(Qt::Key_Tab);
    ui.press(Qt::Key_Tab);
    take("practice-time-30");
    ui.click(QStringLiteral("time_range_12_months"));
    ui.click(QStringLiteral("chart_bar_10"));
    take("month");
    ui.click(QStringLiteral("month_row_1"));
    take("day");
}

void takeEmpty(Album& album, QSize size, const QString& suffix) {
    UiWorld ui;
    ui.addExercises({QStringLiteral("C Major Scales"), QStringLiteral("Long Tones")});
    ui.open(size);
    ui.click(QStringLiteral("history_tab"));
    album.take(ui, QStringLiteral("history-empty-") + suffix);
}

int grabAll(const QString& folder) {
    if (!QDir().mkpath(folder))
        return 1;
    Album album(folder);
    takeEmpty(album, {390, 844}, QStringLiteral("phone"));
    takeAll(album, {390, 844}, QStringLiteral("phone"), 1);
    takeAll(album, {360, 640}, QStringLiteral("small"), 1);
    takeAll(album, {390, 844}, QStringLiteral("large"), 2);
    takeAll(album, {1180, 820}, QStringLiteral("wide"), 1);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeAll(album, {390, 844}, QStringLiteral("mirrored"), 1);
    return 0;
}

} // namespace
} // namespace tamsel::test

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: grab_history_screens <folder>\n");
        return 2;
    }
    return tamsel::test::grabAll(QString::fromLocal8Bit(argv[1]));
}
