#pragma once

#include "tests/ui/UiWorld.h"

#include <QSize>
#include <QString>

#include <utility>

namespace tamsel::test {

// A size of window and of text that screens are looked at in.
struct View {
    QSize size;
    const char* name;
    qreal textScale;
};

// A folder of pictures of screens, to be looked at.
class Album {
public:
    // Only those with `part` in their names, to be done sooner.
    explicit Album(QString folder, QString part = {}) : m_folder(std::move(folder)), m_part(std::move(part)) {}

    // In light and in dark.
    void take(UiWorld& ui, const QString& name) {
        take(ui.appearance(), name, [&ui] { return ui.grab(); });
    }
    // Of a window that is not the app's.
    template <typename Grab>
    void take(Appearance& appearance, const QString& name, Grab grab) {
        if (!name.contains(m_part))
            return;
        for (const bool dark : {false, true}) {
            appearance.setScheme(dark ? Appearance::Scheme::Dark : Appearance::Scheme::Light);
            const QString path = QStringLiteral("%1/%2-%3.png")
                                     .arg(m_folder, name, dark ? QStringLiteral("dark") : QStringLiteral("light"));
            grab().save(path);
        }
    }

private:
    const QString m_folder;
    const QString m_part;
};

// Some items, with practice of yesterday and today.
void fill(UiWorld& ui);

// All states of some screens, in a file each.
void takeDataScreens(Album& album);
void takeHistoryScreens(Album& album);
void takeListScreens(Album& album);
void takeNavigationScreens(Album& album);
void takePracticeTools(Album& album);

} // namespace tamsel::test
