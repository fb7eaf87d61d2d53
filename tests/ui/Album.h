#pragma once

#include "tests/ui/UiWorld.h"

#include <QString>

#include <utility>

namespace tamsel::test {

// A folder of pictures of screens, to be looked at.
class Album {
public:
    explicit Album(QString folder) : m_folder(std::move(folder)) {}

    // In light and in dark.
    void take(UiWorld& ui, const QString& name) {
        for (const bool dark : {false, true}) {
            ui.appearance().setScheme(dark ? Appearance::Scheme::Dark : Appearance::Scheme::Light);
            const QString path = QStringLiteral("%1/%2-%3.png")
                                     .arg(m_folder, name, dark ? QStringLiteral("dark") : QStringLiteral("light"));
            ui.grab().save(path);
        }
    }

private:
    const QString m_folder;
};

} // namespace tamsel::test
