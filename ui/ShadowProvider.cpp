#include "ui/ShadowProvider.h"

#include "ui/ShadowTexture.h"

#include <QtDebug>

namespace tamsel {

ShadowProvider::ShadowProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage ShadowProvider::requestImage(const QString& id, QSize* size, const QSize&) {
    const auto texture = ShadowTexture::fromId(id);
    if (!texture) {
        qWarning("No such shadow: %s", qUtf8Printable(id));
        return {};
    }
    QImage image = texture->paint();
    *size = image.size();
    return image;
}

} // namespace tamsel
