// The least that a Qt Quick Controls program is: what the app's start and memory are measured against. Ends after its
// first frame, unless told to --stay.

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>

#include <chrono>
#include <cstdio>

int main(int argc, char* argv[]) {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Bare/BareWindow.qml")));
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window,
        [stays = QGuiApplication::arguments().contains(QStringLiteral("--stay"))] {
            if (stays)
                return;
            const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
            std::printf("first frame at %lld\n", static_cast<long long>(now.count()));
            std::fflush(stdout);
            QGuiApplication::quit();
        },
        Qt::QueuedConnection);
    return QGuiApplication::exec();
}
