#include "app/App.h"
#include "app/LaunchRequests.h"
#include "app/RecoveryViewModel.h"
#include "app/SettingsStoreChoice.h"
#include "app/SingleInstance.h"
#include "app/Tour.h"
#include "app/TourAudio.h"
#include "metronome/DeviceOutput.h"
#include "metronome/SystemAudioSession.h"
#include "model/JournalReading.h"
#include "model/Recovery.h"
#include "model/SqliteSettingsStore.h"
#include "platform/AccelerometerShakeSource.h"
#include "platform/DeviceLanguage.h"
#include "platform/FatalError.h"
#include "platform/FolderLock.h"
#include "platform/Log.h"
#include "platform/MainQueue.h"
#include "platform/SerialQueue.h"
#include "platform/TerminationSignals.h"
#include "ui/Appearance.h"
#include "ui/Ui.h"

#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

#include <malloc.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

Q_IMPORT_QML_PLUGIN(Tamsel_AppPlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_ListPlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_MetronomePlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_PracticePlugin)
Q_IMPORT_QML_PLUGIN(Tamsel_ReportsPlugin)
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
    QStringList requests;
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
    parser.addPositionalArgument(QStringLiteral("what"), QStringLiteral("A document or a URL to open."),
                                 QStringLiteral("[what…]"));
    parser.process(application);

    LaunchOptions options;
    options.acceleratedTime = parser.isSet(accelerated) || parser.isSet(tour);
    if (parser.isSet(tour))
        options.tourFolder = parser.value(tour);
    options.tourStage = parser.value(stage);
    options.firstFrameOnly = parser.isSet(firstFrame);
    QStringList arguments = parser.positionalArguments();
    arguments.removeAll(QStringLiteral("UI_TESTING"));
    options.requests = launchRequests(arguments, QDir::current());
    return options;
}

void raise(QQuickWindow& window) {
    window.show();
    window.raise();
    window.requestActivate();
}

void open(ContentViewModel& content, const QStringList& requests) {
    for (const QString& request : requests)
        content.open(request);
}

// Shakes of the device, where it has something to feel them; only then is there a thread.
class Shakes {
public:
    Shakes(QGuiApplication& application, const Clock& clock, Queue& mainQueue) {
        const std::optional<QString> folder = AccelerometerShakeSource::find();
        if (!folder)
            return;
        m_queue.emplace("Shake");
        m_source.emplace(*folder, clock, *m_queue, mainQueue);
        const auto follow = [this](Qt::ApplicationState state) { m_source->setActive(state == Qt::ApplicationActive); };
        m_connection = QObject::connect(&application, &QGuiApplication::applicationStateChanged, follow);
        follow(QGuiApplication::applicationState());
    }
    ~Shakes() { QObject::disconnect(m_connection); }

    Shakes(const Shakes&) = delete;
    Shakes& operator=(const Shakes&) = delete;

    ShakeSource* source() { return m_source ? &*m_source : nullptr; }

private:
    std::optional<AccelerometerShakeSource> m_source;
    // Ends first: what is being read still has the source.
    std::optional<SerialQueue> m_queue;
    QMetaObject::Connection m_connection;
};

// For measuring the start: tells the moment on the monotonic clock and ends.
void quitAfterFirstFrame(QQuickWindow& window, const Clock& clock) {
    const auto tellAndQuit = [&clock] {
        log(QStringLiteral("first frame at %1").arg(clock.hostTime().count()));
        QGuiApplication::quit();
    };
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, tellAndQuit, Qt::QueuedConnection);
}

enum class Answer { noBackups, declined, restored };

// Offers to put a backup in the place of data that cannot be used.
Answer offerBackups(const SettingsStoreChoice& choice, const QString& problem) {
    const QString folder = backups::chosenFolder(choice.folder).value_or(backups::standardFolder(choice.folder));
    const QList<BackupFile> usable = RecoveryViewModel::usableBackups(folder);
    if (usable.isEmpty())
        return Answer::noBackups;
    QEventLoop loop;
    bool isRestored = false;
    RecoveryViewModel recovery(SqliteSettingsStore::filePath(choice.folder, choice.suite), problem, usable, [&] {
        isRestored = true;
        loop.quit();
    });
    QQmlApplicationEngine engine;
    ui::registerWith(engine);
    engine.setInitialProperties({{QStringLiteral("recovery"), QVariant::fromValue(&recovery)}});
    engine.load(ui::screenUrl(QStringLiteral("RecoveryWindow.qml")));
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    if (window == nullptr)
        return Answer::noBackups;
    // The app's own window comes after this one has closed.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(window, &QQuickWindow::visibleChanged, &loop, &QEventLoop::quit);
    const TerminationSignals signals([&loop] { loop.quit(); });
    std::fprintf(stderr, "%s\n", problem.toUtf8().constData());
    loop.exec();
    QGuiApplication::setQuitOnLastWindowClosed(true);
    return isRestored ? Answer::restored : Answer::declined;
}

// Opens the data. After a program that did not end properly it is looked through first.
SqliteSettingsStore::Opened openData(const SettingsStoreChoice& choice, const recovery::UseMark& mark) {
    const QString path = SqliteSettingsStore::filePath(choice.folder, choice.suite);
    for (;;) {
        std::optional<QString> problem = mark.wasLeft() ? recovery::problemIn(path) : std::nullopt;
        if (!problem) {
            auto opened = SqliteSettingsStore::open(choice.folder, choice.suite);
            if (opened.store || choice.isTest)
                return opened;
            problem = opened.failure;
        }
        switch (offerBackups(choice, *problem)) {
        case Answer::restored:
            break;
        case Answer::declined:
            return {nullptr, *problem};
        case Answer::noBackups:
            // What can be opened nevertheless is: the stores know what they cannot go on without.
            return SqliteSettingsStore::open(choice.folder, choice.suite);
        }
    }
}

QString firstScreenFile(App& app) {
    const bool isPractice = app.content().tabViewModel()->practiceNavigationStack()->depth() > 0;
    return isPractice ? QStringLiteral("PracticeScreen.qml") : QStringLiteral("PracticeListScreen.qml");
}

int run(QGuiApplication& application) {
    const LaunchOptions options = parse(application);
    SystemClock clock;
    Calendar calendar = Calendar::device();
    RandomUuids uuids;
    MainQueue mainQueue;
    Shakes shakes(application, clock, mainQueue);
    const LaunchConditions launch = LaunchConditions::from(application.arguments());
    const Platform platform{clock, calendar, mainQueue, uuids, launch, shakes.source()};

    const SettingsStoreChoice choice =
        options.tourFolder
            ? SettingsStoreChoice{*options.tourFolder + QStringLiteral("/data"), QStringLiteral("tour"), true}
            : chooseSettingsStore(launch, clock);
    if (!QDir().mkpath(choice.folder))
        return refuse(QStringLiteral("Cannot make the folder %1").arg(choice.folder));
    FolderLock::Failure lockFailure{};
    const auto lock = FolderLock::take(choice.folder, &lockFailure);
    if (!lock && lockFailure == FolderLock::Failure::HeldByAnother) {
        if (SingleInstance::knock(choice.folder, options.requests))
            return 0;
        return refuse(QStringLiteral("Another program is using the data in %1").arg(choice.folder));
    }
    if (!lock)
        return refuse(QStringLiteral("Cannot write to the folder %1").arg(choice.folder));
    const auto typefaces = ui::findTypefaces();
    recovery::UseMark mark(choice.folder);
    const auto opened = openData(choice, mark);
    if (!opened.store && launch.isUnderInterfaceTest)
        trap();
    if (!opened.store) {
        mark.keep();
        return refuse(opened.failure);
    }

    std::unique_ptr<TourAudio> tourAudio;
    std::unique_ptr<DeviceOutput> device;
    if (options.tourFolder)
        tourAudio = std::make_unique<TourAudio>(clock);
    else
        device = std::make_unique<DeviceOutput>();
    AudioOutput& audioOutput = tourAudio ? tourAudio->output() : static_cast<AudioOutput&>(*device);
    SystemAudioSession audioSession;

    // What takes long is done side by side: decades of practice are read while the window's types are, and the types of
    // the first screen while the window is made. Typefaces are being looked up already.
    JournalReading journal(*opened.store);
    std::optional<App> app; // outlives the screens
    QQmlApplicationEngine engine;
    ui::registerWith(engine);
    const QQmlComponent windowTypes(&engine, ui::screenUrl(QStringLiteral("AppWindow.qml")));
    app.emplace(*opened.store, platform, audioOutput, audioSession,
                options.acceleratedTime ? PracticeViewModel::acceleratedTimeFactor : 1, std::move(journal));

    const auto firstScreen = ui::readAhead(engine, firstScreenFile(*app));
    engine.setInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&app->content())}});
    engine.load(windowTypes.url());
    auto* const window =
        engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    if (window == nullptr)
        return refuse(QStringLiteral("The window cannot be made"));

    const SingleInstance door(choice.folder, [&](const QStringList& requests) {
        raise(*window);
        open(app->content(), requests);
    });
    const TerminationSignals signals([] { QGuiApplication::quit(); });
    QObject::connect(&application, &QGuiApplication::aboutToQuit, &app->content(), &ContentViewModel::leave);
    open(app->content(), options.requests);

    if (options.firstFrameOnly)
        quitAfterFirstFrame(*window, clock);
    std::unique_ptr<Tour> tour;
    if (options.tourFolder) {
        auto* const appearance = engine.singletonInstance<Appearance*>(qmlTypeId("Tamsel.Ui", 1, 0, "Appearance"));
        tour = std::make_unique<Tour>(*window, *appearance, *app, *tourAudio, *options.tourFolder);
        mainQueue.async([&] { QGuiApplication::exit(tour->take(options.tourStage) ? 0 : exitRefused); });
    }
    return QGuiApplication::exec();
}

} // namespace

} // namespace tamsel

int main(int argc, char* argv[]) {
    // Documents as large as a long journal go back to the system when they are freed, on every thread. By itself the
    // allocator would learn their size and keep it: 40 megabytes after the first backup of thirty years.
    constexpr int megabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, megabyte);
    tamsel::adoptDeviceLanguage();
    QGuiApplication::setApplicationName(QStringLiteral("tamsel"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tamsel"));
    QGuiApplication::setApplicationVersion(QStringLiteral(TAMSEL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tamsel"));
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QGuiApplication application(argc, argv);
    return tamsel::run(application);
}
