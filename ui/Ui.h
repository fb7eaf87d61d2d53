#pragma once

class QQmlEngine;

namespace tamsel::ui {

// Makes the QML module Tamsel.Ui usable in this engine: its types, pictures, icons and typeface. Call once for each
// engine, after the QGuiApplication is made and before any QML is loaded. Main thread only.
void registerWith(QQmlEngine& engine);

} // namespace tamsel::ui
