#pragma once

#include <QString>
#include <QUrl>

#include <future>
#include <memory>

class QQmlComponent;
class QQmlEngine;

namespace tamsel::ui {

// Looks up which typefaces there are, on a thread of its own: the first text would have to wait for that. The
// QGuiApplication must be there until what it returns is gone. Main thread only.
[[nodiscard]] std::future<void> findTypefaces();

// Makes the QML module Tamsel.Ui usable in this engine: its types, pictures, icons and typeface. Call once for each
// engine, after the QGuiApplication is made and before any QML is loaded. Main thread only.
void registerWith(QQmlEngine& engine);

// Where a screen lies, by the name of its file.
QUrl screenUrl(const QString& file);

// Lets the engine's own thread read a screen and all that it is made of, while the main thread does other things;
// whoever then makes the screen waits for what is still missing. For as long as what it returns is kept. The window's
// types should be known before: the first module is always waited for. Main thread only.
std::unique_ptr<QQmlComponent> readAhead(QQmlEngine& engine, const QString& file);

} // namespace tamsel::ui
