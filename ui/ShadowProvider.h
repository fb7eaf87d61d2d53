#pragma once

#include <QQuickImageProvider>

namespace tamsel {

// Serves "image://tamsel-shadow/<id>", where the id is one that `ShadowTexture::fromId` reads. Each picture is made
// when it is first shown and then kept by the engine's own picture cache. An id that is none gives no picture and one
// warning. Any thread.
class ShadowProvider final : public QQuickImageProvider {
public:
    ShadowProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tamsel
