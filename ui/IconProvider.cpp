#include "ui/IconProvider.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtDebug>

namespace tamsel {

namespace {

// The side of an icon that is asked for without a size: that of the drawings themselves.
constexpr QSize drawnSize(16, 16);

} // namespace

IconProvider::IconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const QString name = id.section(QLatin1Char('/'), 0, 0);
    const QColor color(QLatin1Char('#') + id.section(QLatin1Char('/'), 1));
    QSvgRenderer drawing;
    if (!color.isValid() || !drawing.load(QStringLiteral(":/tamsel/icons/%1.svg").arg(name))) {
        qWarning("No such icon: %s", qUtf8Printable(id));
        return {};
    }
    QImage image(requestedSize.isEmpty() ? drawnSize : requestedSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    *size = image.size();
    return image;
}

} // namespace tamsel
