#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>
#include <QTest>

#include <algorithm>

// The practice list in all its states.

namespace tamsel::test {
namespace {

using namespace std::chrono_literals;

const QString longName =
    QStringLiteral("Rachmaninov: Piano Concerto No. 3 in D minor, third movement, bars 120 to 188");

void fillWithArchive(UiWorld& ui) {
    fill(ui);
    ui.world.singletons->exercises.setArchivedItems(
        {{QStringLiteral("Kreutzer 2"), ui.world.uuids.next()}, {QStringLiteral("Old scales"), ui.world.uuids.next()}});
}

// Moves the list so far that the element is in sight.
void uncover(UiWorld& ui, const QString& identifier) {
    QQuickItem* const list = ui.find(QStringLiteral("exercise_list"));
    const QRectF view = ui.area(QStringLiteral("exercise_list"));
    const QRectF element = ui.area(identifier);
    const double moved = std::max(0.0, element.bottom() - view.bottom()) + std::min(0.0, element.top() - view.top());
    list->setProperty("contentY", list->property("contentY").toDouble() + moved);
    ui.settle();
}

void click(UiWorld& ui, const QString& identifier) {
    uncover(ui, identifier);
    ui.click(identifier);
}

void swipe(UiWorld& ui, const QString& row) {
    uncover(ui, row);
    QPointingDevice* const finger = QTest::createTouchDevice();
    const QPoint start = ui.area(row).center().toPoint();
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    const auto at = [&](int distance) { return start + QPoint(mirrored ? distance : -distance, 0); };
    QTest::touchEvent(&ui.window(), finger).press(0, start);
    for (int distance = 0; distance <= 180; distance += 10)
        QTest::touchEvent(&ui.window(), finger).move(0, at(distance));
    QTest::touchEvent(&ui.window(), finger).release(0, at(180));
}

void takeStates(Album& album, QSize size, const QString& suffix, qreal textScale) {
    const auto name = [&suffix](const char* state) {
        return QStringLiteral("%1-%2").arg(QString::fromLatin1(state), suffix);
    };
    UiWorld ui;
    fillWithArchive(ui);
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    album.take(ui, name("list"));
    click(ui, QStringLiteral("archive_header"));
    album.take(ui, name("archive-open"));
    swipe(ui, QStringLiteral("exercise_row_1"));
    album.take(ui, name("swiped"));
    ui.click(QStringLiteral("sort_order_menu"));
    album.take(ui, name("sort"));
    ui.click(QStringLiteral("sort_by_practice_time"));
    album.take(ui, name("sort-ranges"));
    ui.press(Qt::Key_Escape);
    ui.list().openRowMenu(PracticeListViewModel::Section::Archive, 0);
    album.take(ui, name("row-menu"));
    ui.press(Qt::Key_Escape);
    ui.list().archive(ui.singletons().exercises.items().at(3));
    album.take(ui, name("undo"));
    ui.list().undo();
    click(ui, QStringLiteral("archive_header"));
    click(ui, QStringLiteral("exercises_header"));
    click(ui, QStringLiteral("daily_log_header"));
    album.take(ui, name("collapsed"));
    ui.click(QStringLiteral("search_field"));
    ui.type(QStringLiteral("scale"));
    album.take(ui, name("found"));
    ui.type(QStringLiteral(" in thirds"));
    album.take(ui, name("nothing-found"));
}

void takeReview(Album& album, QSize size, const QString& suffix, qreal textScale) {
    UiWorld ui;
    fillWithArchive(ui);
    for (int i = 0; i < 4; ++i)
        ui.practise(QStringLiteral("Long tones"), 3'600, SessionType::timer);
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    ui.click(QStringLiteral("thanks_tab"));
    ui.click(QStringLiteral("practice_tab"));
    album.take(ui, QStringLiteral("review-") + suffix);
    ui.list().reviewPageOpened(false);
    album.take(ui, QStringLiteral("review-no-centre-") + suffix);
}

void takeSizes(Album& album) {
    UiWorld empty;
    empty.open();
    album.take(empty, QStringLiteral("empty"));

    UiWorld one;
    one.addExercises({QStringLiteral("C Major Scales")});
    one.open();
    one.press(Qt::Key_Escape);
    album.take(one, QStringLiteral("one"));

    for (const qreal textScale : {1.0, 2.0}) {
        UiWorld many;
        QList<Exercise> archive;
        for (int i = 0; i < 400; ++i) {
            many.addExercises({QStringLiteral("Study %1").arg(i)});
            archive += {QStringLiteral("Old study %1").arg(i), many.world.uuids.next()};
        }
        archive[150].name = longName;
        many.addExercises({longName});
        many.world.singletons->exercises.setArchivedItems(archive);
        many.practise(longName, 5'000, SessionType::timer);
        many.open();
        many.appearance().setTextScale(textScale);
        const QString suffix = textScale > 1 ? QStringLiteral("-large") : QString();
        album.take(many, QStringLiteral("hundreds") + suffix);
        many.click(QStringLiteral("exercises_header"));
        many.click(QStringLiteral("archive_header"));
        QQuickItem* const list = many.find(QStringLiteral("exercise_list"));
        list->setProperty("contentY", 150 * 54 * textScale);
        album.take(many, QStringLiteral("hundreds-archive") + suffix);
        list->setProperty("contentY", 1e6);
        QMetaObject::invokeMethod(list, "returnToBounds");
        album.take(many, QStringLiteral("hundreds-end") + suffix);
        many.list().archive(many.singletons().dailyLog.practiceSessions().first());
        album.take(many, QStringLiteral("long-undo") + suffix);
        many.list().openRowMenu(PracticeListViewModel::Section::Archive, 150);
        album.take(many, QStringLiteral("long-menu") + suffix);
    }
}

} // namespace

void takeListScreens(Album& album) {
    for (const View& view :
         {View{{390, 844}, "phone", 1}, View{{360, 640}, "small", 1}, View{{390, 844}, "large", 2},
          View{{360, 640}, "small-large", 2}, View{{844, 390}, "flat", 1}, View{{1180, 820}, "wide", 1}}) {
        takeStates(album, view.size, QString::fromLatin1(view.name), view.textScale);
        takeReview(album, view.size, QString::fromLatin1(view.name), view.textScale);
    }
    takeSizes(album);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeStates(album, {390, 844}, QStringLiteral("mirrored"), 1);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tamsel::test
