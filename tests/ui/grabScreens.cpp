#include "model/SettingsKeys.h"
#include "model/StoredSettings.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

// Grabs every screen to PNG files, to be looked at: grab_screens <folder> [<chapter> [<part of a picture's name>]].
// QT_SCALE_FACTOR sets the resolution.

namespace tamsel::test {

using namespace std::chrono_literals;

void fill(UiWorld& ui) {
    ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("Étude 9"), QStringLiteral("Étude 10"),
                     QStringLiteral("Long tones"), QStringLiteral("C Major Scales"),
                     QStringLiteral("Bach: Invention No. 1")});
    ui.world.clock.advance(-24h);
    ui.practise(QStringLiteral("Arpeggios"), 4'800, SessionType::timer);
    ui.practise(QStringLiteral("Étude 9"), 2'100, SessionType::timer);
    ui.world.clock.advance(24h);
    ui.practise(QStringLiteral("C Major Scales"), 1'500, SessionType::timer);
    ui.practise(QStringLiteral("Bach: Invention No. 1"), 2'400, SessionType::stopwatch);
}

namespace {

void openPractice(UiWorld& ui) {
    ui.list().openDailyLogRow(0);
    ui.settle();
}

void play(UiWorld& ui) {
    MetronomeViewModel& metronome = *ui.practice()->metronomeViewModel();
    metronome.setTempo(126);
    metronome.setRhythmSelection(Rhythm::fourFour);
    metronome.playPauseTapped();
    for (int blocks = 0; blocks < 20 && !metronome.isVisualBellOn(); ++blocks) {
        ui.world.output.render(21'000);
        ui.world.output.settle();
        ui.settle();
    }
    ui.practice()->startTimer(10);
    ui.world.mainQueue.advance(328s);
}

void takePractice(Album& album, QSize size, const QString& suffix, qreal textScale) {
    UiWorld ui;
    fill(ui);
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    openPractice(ui);
    album.take(ui, QStringLiteral("practice-idle-") + suffix);
    play(ui);
    album.take(ui, QStringLiteral("practice-") + suffix);
    ui.practice()->saveTimer();
    ui.click(QStringLiteral("timer_button"));
    album.take(ui, QStringLiteral("timer-") + suffix);
}

void takeList(Album& album, QSize size, const QString& suffix, qreal textScale) {
    UiWorld ui;
    fill(ui);
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    album.take(ui, QStringLiteral("list-") + suffix);
    ui.list().addTapped();
    album.take(ui, QStringLiteral("add-") + suffix);
    ui.list().setAddExerciseAlertIsPresented(false);
    ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex);
    album.take(ui, QStringLiteral("history-") + suffix);
    ui.tabs().setSelectedTabIndex(TabViewModel::thanksTabIndex);
    album.take(ui, QStringLiteral("thanks-") + suffix);
}

void takeOdd(Album& album) {
    UiWorld empty;
    empty.open();
    album.take(empty, QStringLiteral("empty"));

    UiWorld ui;
    ui.addExercises({QStringLiteral("Rachmaninov: Piano Concerto No. 3 in D minor, third movement, bars 120 to 188"),
                     QStringLiteral("סולמות בדו מז'ור"),
                     QStringLiteral("سلم موسيقي طويل جدا للتدريب اليومي على البيانو"),
                     QStringLiteral("<b>Markup</b> & more"), QStringLiteral("音階")});
    for (int i = 0; i < 40; ++i)
        ui.addExercises({QStringLiteral("Study %1").arg(i)});
    ui.practise(QStringLiteral("Study 3"), 5'000, SessionType::timer);
    ui.practise(QStringLiteral("Rachmaninov: Piano Concerto No. 3 in D minor, third movement, bars 120 to 188"), 36'000,
                SessionType::timer);
    ui.open();
    album.take(ui, QStringLiteral("long"));
    ui.list().openDailyLogRow(1);
    ui.settle();
    ui.practice()->metronomeViewModel()->setTempo(500);
    ui.practice()->startStopwatch();
    ui.world.mainQueue.advance(4'000s);
    album.take(ui, QStringLiteral("long-practice"));
    ui.press(Qt::Key_Tab);
    ui.press(Qt::Key_Tab);
    album.take(ui, QStringLiteral("focus"));
}

void takeScreens(Album& album) {
    for (const View& view :
         {View{{390, 844}, "phone", 1}, View{{360, 640}, "small", 1}, View{{390, 844}, "large", 2},
          View{{844, 390}, "flat", 1}, View{{1180, 820}, "wide", 1}, View{{768, 1024}, "tablet", 1}}) {
        takeList(album, view.size, QString::fromLatin1(view.name), view.textScale);
        takePractice(album, view.size, QString::fromLatin1(view.name), view.textScale);
    }
    takeOdd(album);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeList(album, {390, 844}, QStringLiteral("mirrored"), 1);
    takePractice(album, {844, 390}, QStringLiteral("mirrored"), 1);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

struct Chapter {
    const char* name;
    void (*take)(Album& album);
};

constexpr Chapter chapters[] = {
    {"screens", takeScreens},        {"practice", takePracticeTools},       {"list", takeListScreens},
    {"history", takeHistoryScreens}, {"navigation", takeNavigationScreens}, {"data", takeDataScreens},
};

int grab(const QString& folder, const QString& wanted, const QString& part) {
    for (const Chapter& chapter : chapters) {
        const QString name = QString::fromLatin1(chapter.name);
        if (!wanted.isEmpty() && wanted != name)
            continue;
        const QString place = folder + QLatin1Char('/') + name;
        if (!QDir().mkpath(place))
            return 1;
        Album album(place, part);
        chapter.take(album);
    }
    return 0;
}

} // namespace
} // namespace tamsel::test

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QML_NO_TOUCH_COMPRESSION", "1");
    const QGuiApplication application(argc, argv);
    const auto argument = [&](int i) { return i < argc ? QString::fromLocal8Bit(argv[i]) : QString(); };
    if (argc < 2 || argc > 4) {
        std::fprintf(stderr, "usage: grab_screens <folder> [<chapter> [<part of a picture's name>]]\nchapters:");
        for (const tamsel::test::Chapter& chapter : tamsel::test::chapters)
            std::fprintf(stderr, " %s", chapter.name);
        std::fprintf(stderr, "\n");
        return 2;
    }
    return tamsel::test::grab(argument(1), argument(2), argument(3));
}
