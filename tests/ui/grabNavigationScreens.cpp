#include "model/SettingsKeys.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"

#include <QGuiApplication>
#include <QTest>

// The tabs, their badge, the tip jar and the way back.

namespace tamsel::test {
namespace {

class ThreeTips final : public TipProvider {
public:
    void availableTips(std::function<void(const QList<Tip>&)> answer) override {
        answer({{QStringLiteral("s"), QStringLiteral("A reed"), QStringLiteral("2,00 €")},
                {QStringLiteral("m"), QStringLiteral("A set of strings"), QStringLiteral("10,00 €")},
                {QStringLiteral("l"), QStringLiteral("An hour with a good teacher"), QStringLiteral("50,00 €")}});
    }
    void purchase(const Tip&, std::function<void(TipResult)> answer) override { answer(TipResult::success); }
};

void takeThanks(Album& album, QSize size, const QString& suffix, qreal textScale) {
    {
        UiWorld ui;
        ui.world.store.setBoolean(keys::hasReadThanksMessage, true);
        ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
        ui.open(size);
        ui.appearance().setTextScale(textScale);
        album.take(ui, QStringLiteral("badge-on-") + suffix);
        ui.click(QStringLiteral("thanks_tab"));
        album.take(ui, QStringLiteral("thanks-badge-off-") + suffix);
    }
    ThreeTips store;
    UiWorld ui;
    ui.tipProvider = &store;
    ui.open(size);
    ui.appearance().setTextScale(textScale);
    ui.click(QStringLiteral("thanks_tab"));
    ui.tabs().thanksViewModel()->tip(0);
    auto* const page = ui.find(QStringLiteral("thanks_page"));
    page->setProperty("contentY", std::max(0.0, page->property("contentHeight").toDouble() - page->height()));
    album.take(ui, QStringLiteral("tips-") + suffix);
}

void takeSwipe(Album& album, int pulled, const QString& name) {
    UiWorld ui;
    ui.addExercises({QStringLiteral("C Major Scales")});
    ui.open();
    QPointingDevice* const finger = QTest::createTouchDevice();
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    const auto at = [mirrored](int x) { return QPoint(mirrored ? 389 - x : x, 420); };
    QTest::touchEvent(&ui.window(), finger).press(0, at(4));
    for (int x = 4; x <= pulled; x += 8)
        QTest::touchEvent(&ui.window(), finger).move(0, at(x));
    album.take(ui, name);
    QTest::touchEvent(&ui.window(), finger).release(0, at(pulled));
}

} // namespace

void takeNavigationScreens(Album& album) {
    takeThanks(album, {390, 844}, QStringLiteral("phone"), 1);
    takeThanks(album, {360, 640}, QStringLiteral("small"), 1);
    takeThanks(album, {390, 844}, QStringLiteral("large"), 2);
    takeThanks(album, {844, 390}, QStringLiteral("flat"), 1);
    takeThanks(album, {1180, 820}, QStringLiteral("wide"), 1);
    takeSwipe(album, 44, QStringLiteral("swipe-begun"));
    takeSwipe(album, 120, QStringLiteral("swipe-armed"));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeSwipe(album, 120, QStringLiteral("swipe-mirrored"));
    takeThanks(album, {390, 844}, QStringLiteral("mirrored"), 1);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tamsel::test
