#include "ui/Ui.h"

#include "ui/IconProvider.h"
#include "ui/ShadowProvider.h"

#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QStyleHints>

// Made by the build; naming it keeps the linker from leaving the module's types out.
void qml_register_types_Tamsel_Ui(); // NOLINT(readability-identifier-naming)

namespace tamsel::ui {

namespace {

const QString typeface = QStringLiteral("Inter");

} // namespace

std::future<void> findTypefaces() {
    return std::async(std::launch::async, [] { QFontDatabase::hasFamily(typeface); });
}

void registerWith(QQmlEngine& engine) {
    [[maybe_unused]] void (*const volatile types)() = &qml_register_types_Tamsel_Ui;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    // The engine owns and deletes them.
    engine.addImageProvider(QStringLiteral("tamsel-shadow"), new ShadowProvider);
    engine.addImageProvider(QStringLiteral("tamsel-icon"), new IconProvider);

    // A musician's other hand is on the instrument: a long press should not take long.
    QGuiApplication::styleHints()->setMousePressAndHoldInterval(500);

    QFont font = QGuiApplication::font();
    font.setFamily(typeface);
    QGuiApplication::setFont(font);
}

QUrl screenUrl(const QString& file) {
    return QUrl(QStringLiteral("qrc:/qt/qml/Tamsel/Ui/screens/") + file);
}

std::unique_ptr<QQmlComponent> readAhead(QQmlEngine& engine, const QString& file) {
    return std::make_unique<QQmlComponent>(&engine, screenUrl(file), QQmlComponent::Asynchronous);
}

} // namespace tamsel::ui
