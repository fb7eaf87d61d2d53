#include "app/RecoveryViewModel.h"
#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/RunningPractice.h"
#include "tests/ui/Album.h"
#include "tests/ui/UiWorld.h"
#include "ui/Ui.h"

#include <QGuiApplication>
#include <QTemporaryDir>

// The screens for all data as a whole.

namespace tamsel::test {
namespace {

using namespace std::chrono_literals;

void makeBackups(UiWorld& ui, const QString& folder) {
    ui.backups().setFolder(folder);
    for (int day = 0; day < 9; ++day) {
        ui.singletons().exercises.add(QStringLiteral("Study %1").arg(day));
        ui.backups().makeDaily();
        ui.settle();
        ui.world.clock.advance(24h * (day < 3 ? 30 : 1));
    }
}

void takeData(Album& album, const View& view) {
    const QString suffix = QString::fromLatin1(view.name);
    const QTemporaryDir folder;
    UiWorld ui;
    ui.addExercises({QStringLiteral("Arpeggios"), QStringLiteral("C Major Scales")});
    ui.practise(QStringLiteral("Arpeggios"), 4'800, SessionType::timer);
    ui.open(view.size);
    ui.appearance().setTextScale(view.textScale);
    DataViewModel& data = *ui.content().dataViewModel();
    ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex);
    album.take(ui, QStringLiteral("history-") + suffix);
    makeBackups(ui, folder.filePath(QStringLiteral("backups")));
    data.setSheetIsPresented(true);
    album.take(ui, QStringLiteral("data-") + suffix);
    data.openDocument(folder.filePath(QStringLiteral("My journal of last year.tamsel")));
    album.take(ui, QStringLiteral("data-unusable-") + suffix);
    data.openDocument(QStringLiteral(TAMSEL_TEST_DATA "/everything.tamsel"));
    album.take(ui, QStringLiteral("replace-") + suffix);
    data.replace();
    album.take(ui, QStringLiteral("data-replaced-") + suffix);
    (void)datafile::write(backups::list(ui.backups().folder()).at(2).path, "damaged");
    data.backups()->setIsPresented(true);
    album.take(ui, QStringLiteral("backups-") + suffix);
    ui.backups().setFolder(folder.filePath(QStringLiteral("empty")));
    album.take(ui, QStringLiteral("backups-empty-") + suffix);
}

void takeLeft(Album& album, const View& view) {
    UiWorld ui;
    const Exercise item{QStringLiteral("Rachmaninov: Piano Concerto No. 3"), ui.world.uuids.next()};
    ui.world.singletons->exercises.setItems({item, {QStringLiteral("Arpeggios"), ui.world.uuids.next()}});
    ui.world.singletons->runningPractice.update(item, SessionType::stopwatch, 3'754);
    ui.open(view.size);
    ui.appearance().setTextScale(view.textScale);
    album.take(ui, QStringLiteral("left-") + QString::fromLatin1(view.name));
}

void takeRecovery(Album& album, const View& view) {
    const QTemporaryDir folder;
    UiWorld ui;
    ui.open();
    ui.appearance().setTextScale(view.textScale);
    makeBackups(ui, folder.path());
    RecoveryViewModel recovery(
        QString(), QStringLiteral("Unable to use /home/clara/.local/share/tamsel/standard.sqlite: its end is cut off"),
        RecoveryViewModel::usableBackups(folder.path()), [] {});
    QQmlApplicationEngine engine;
    ui::registerWith(engine);
    engine.setInitialProperties({{QStringLiteral("recovery"), QVariant::fromValue(&recovery)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tamsel/Ui/screens/RecoveryWindow.qml")));
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    auto* const appearance = engine.singletonInstance<Appearance*>(qmlTypeId("Tamsel.Ui", 1, 0, "Appearance"));
    window->resize(view.size);
    appearance->setTextScale(view.textScale);
    album.take(*appearance, QStringLiteral("recovery-") + QString::fromLatin1(view.name), [&] {
        ui.settle();
        return window->grabWindow();
    });
}

} // namespace

void takeDataScreens(Album& album) {
    for (const View& view : {View{{390, 844}, "phone", 1}, View{{360, 640}, "small", 1}, View{{390, 844}, "large", 2},
                             View{{844, 390}, "flat", 1}, View{{1180, 820}, "wide", 1}}) {
        takeData(album, view);
        takeLeft(album, view);
        takeRecovery(album, view);
    }
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    takeData(album, {{390, 844}, "mirrored", 1});
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tamsel::test
