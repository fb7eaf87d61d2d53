#include "app/App.h"
#include "app/SettingsStoreChoice.h"
#include "app/SingleInstance.h"
#include "app/Tour.h"
#include "app/TourAudio.h"
#include "metronome/DeviceOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/SqliteSettingsStore.h"
#include "platform/FatalError.h"
#include "platform/FolderLock.h"
#include "platform/Log.h"
#include "platform/MainQueue.h"
#include "platform/TerminationSignals.h"
#include "ui/Appearance.h"
#include "ui/Ui.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>
#include <memory>
#include <optional>

Q_IMPORT_QML_PLUGIN(Tamsel_AppPlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_ListPlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_MetronomePlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_PracticePlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_UiPlugin)

namespace tamsel {

namespace {

constexpr int exitRefused = 1;

int refuse(const QString& line) {
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    return exitRefused;
}

struct LaunchOptions {
    bool acceleratedTime = false;
    std::optional<QString> tourFolder;
    QString tourStage;
    bool firstFrameOnly = false;
    QStringList urls;
};

LaunchOptions parse(const QGuiApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A practice journal for musicians."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption accelerated(QStringLiteral("accelerated-time"),
                                         QStringLiteral("Timer and stopwatch run %1 times as fast, to try things out.")
                                             .arg(PracticeViewModel::acceleratedTimeFactor));
    QCommandLineOption tour(QStringLiteral("tour"),
                            QStringLiteral("Do a practice by itself and leave its traces there."),
                            QStringLiteral("folder"));
    QCommandLineOption stage(QStringLiteral("tour-stage"), {}, QStringLiteral("stage"), QStringLiteral("practice"));
    stage.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption firstFrame(QStringLiteral("first-frame-only"));
    firstFrame.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({accelerated, tour, stage, firstFrame});
    parser.addPositionalArgument(QStringLiteral("url"), QStringLiteral("What to open."), QStringLiteral("[url…]"));
    parser.process(application);

    LaunchOptions options;
    options.acceleratedTime = parser.isSet(accelerated) || parser.isSet(tour);
    if (parser.isSet(tour))
        options.tourFolder = parser.value(tour);
    options.tourStage = parser.value(stage);
    options.firstFrameOnly = parser.isSet(firstFrame);
    options.urls = parser.positionalArguments();
    options.urls.removeAll(QStringLiteral("UI_TESTING"));
    return options;
}

void raise(QQuickWindow& window) {
    window.show();
    window.raise();
    window.requestActivate();
}

void open(ContentViewModel& content, const QStringList& urls) {
    for (const QString& url : urls)
        content.handleLaunchURL(QUrl(url));
}

// For measuring the start: tells the moment on the monotonic clock and ends.
void quitAfterFirstFrame(QQuickWindow& window, const Clock& clock) {
    const auto tellAndQuit = [&clock] {
        log(QStringLiteral("first frame at %1").arg(clock.hostTime().count()));
        QGuiApplication::quit();
    };
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, tellAndQuit, Qt::QueuedConnection);
}

int run(QGuiApplication& application) {
    const LaunchOptions options = parse(application);
    SystemClock clock;
    Calendar calendar = Calendar::device();
    RandomUuids uuids;
    MainQueue mainQueue;
    const Platform platform{clock, calendar, mainQueue, uuids};

    const SettingsStoreChoice choice =
        options.tourFolder
            ? SettingsStoreChoice{*options.tourFolder + QStringLiteral("/data"), QStringLiteral("tour"), true}
            : chooseSettingsStore(application.arguments(), clock);
    if (!QDir().mkpath(choice.folder))
        return refuse(QStringLiteral("Cannot make the folder %1").arg(choice.folder));
    FolderLock::Failure lockFailure{};
    const auto lock = FolderLock::take(choice.folder, &lockFailure);
    if (!lock && lockFailure == FolderLock::Failure::HeldByAnother) {
        if (SingleInstance::knock(choice.folder, options.urls))
            return 0;
        return refuse(QStringLiteral("Another program is using the data in %1").arg(choice.folder));
    }
    if (!lock)
        return refuse(QStringLiteral("Cannot write to the folder %1").arg(choice.folder));
    const auto opened = SqliteSettingsStore::open(choice.folder, choice.suite);
    if (!opened.store && isUnderInterfaceTest(application.arguments()))
        trap();
    if (!opened.store)
        return refuse(opened.failure);

    std::unique_ptr<TourAudio> tourAudio;
    std::unique_ptr<DeviceOutput> device;
    if (options.tourFolder)
        tourAudio = std::make_unique<TourAudio>(clock);
    else
        device = std::make_unique<DeviceOutput>();
    AudioOutput& audioOutput = tourAudio ? tourAudio->output() : static_cast<AudioOutput&>(*device);
    SystemAudioSession audioSession;
    App app(*opened.store, platform, audioOutput, audioSession,
            options.acceleratedTime ? PracticeViewModel::acceleratedTimeFactor : 1);

    QQmlApplicationEngine engine;
    ui::registerWith(engine);
    engine.setInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&app.content())}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tamsel/Ui/screens/AppWindow.qml")));
    auto* const window =
        engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    if (window == nullptr)
        return refuse(QStringLiteral("The window cannot be made"));

    const SingleInstance door(choice.folder, [&](const QStringList& urls) {
        raise(*window);
        open(app.content(), urls);
    });
    const TerminationSignals signals([] { QGuiApplication::quit(); });
    QObject::connect(&application, &QGuiApplication::aboutToQuit, &app.content(), &ContentViewModel::leave);
    open(app.content(), options.urls);

    if (options.firstFrameOnly)
        quitAfterFirstFrame(*window, clock);
    std::unique_ptr<Tour> tour;
    if (options.tourFolder) {
        auto* const appearance = engine.singletonInstance<Appearance*>(qmlTypeId("Tamsel.Ui", 1, 0, "Appearance"));
        tour = std::make_unique<Tour>(*window, *appearance, app, *tourAudio, *options.tourFolder);
        mainQueue.async([&] { QGuiApplication::exit(tour->take(options.tourStage) ? 0 : exitRefused); });
    }
    return QGuiApplication::exec();
}

} // namespace

} // namespace tamsel

int main(int argc, char* argv[]) {
    QGuiApplication::setApplicationName(QStringLiteral("tamsel"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tamsel"));
    QGuiApplication::setApplicationVersion(QStringLiteral(TAMSEL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tamsel"));
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QGuiApplication application(argc, argv);
    return tamsel::run(application);
}
