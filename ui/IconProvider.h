#pragma once

#include <QQuickImageProvider>

namespace tamsel {

// Serves "image://tamsel-icon/<name>/<RRGGBB>": the icon of that name in that colour, in exactly the pixels asked for,
// so that it is crisp at any scale. An unknown name or colour gives no picture and one warning. Any thread.
class IconProvider final : public QQuickImageProvider {
public:
    IconProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tamsel
