#include "ui/SurfaceBase.h"

#include <QUrl>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamsel {

namespace {

// As the provider reads it.
QString nameOf(const QColor& color) {
    return color.name(color.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb).mid(1);
}

// The same on the left and on the right, or above and below.
void setBorder(QObject& border, const char* first, const char* second, int width) {
    border.setProperty(first, width);
    border.setProperty(second, width);
}

} // namespace

SurfaceBase::SurfaceBase(QQuickItem* parent) : QQuickItem(parent) {
    connect(this, &SurfaceBase::lookChanged, this, &QQuickItem::polish);
}

void SurfaceBase::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void SurfaceBase::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged && data.boolValue)
        polish();
}

void SurfaceBase::updatePolish() {
    // Nothing is painted for what cannot be seen yet.
    if (m_picture == nullptr || !isVisible())
        return;
    m_picture->setVisible(m_raised || m_pressed);
    if (!m_raised && !m_pressed)
        return;

    const int margin = m_raised ? m_offset + m_blur : 0;
    const int wholeWidth = std::max(1, qRound(width()));
    const int wholeHeight = std::max(1, qRound(height()));
    const int corner = std::min({qRound(m_radius), wholeWidth / 2, wholeHeight / 2});
    // Beyond this the middle of a side looks the same everywhere, so a longer side is stretched, not painted anew.
    const int longestSide = 2 * (corner + m_offset + m_blur) + 1;
    const int bodyWidth = std::min(wholeWidth, longestSide);
    const int bodyHeight = std::min(wholeHeight, longestSide);

    // The picture is laid out in device pixels and scaled back, so that its borders are exact on every screen.
    m_picture->setTransformOrigin(TopLeft);
    m_picture->setScale(1 / m_pixelRatio);
    m_picture->setPosition(QPointF(-margin, -margin));
    m_picture->setSize(
        QSizeF(std::round((width() + 2 * margin) * m_pixelRatio), std::round((height() + 2 * margin) * m_pixelRatio)));
    const QString source = QStringLiteral("image://tamsel-shadow/%1/%2x%3/%4/%5/%6/%7/%8")
                               .arg(m_raised ? QStringLiteral("raised") : QStringLiteral("pressed"))
                               .arg(bodyWidth)
                               .arg(bodyHeight)
                               .arg(corner)
                               .arg(m_offset)
                               .arg(m_blur)
                               .arg(nameOf(m_color), m_shadowColors);
    if (std::exchange(m_source, source) == source)
        return;
    const auto border = [&](int side) { return int(std::floor(((side + 2 * margin) * m_pixelRatio - 1) / 2)); };
    QObject* const borders = m_picture->property("border").value<QObject*>();
    setBorder(*borders, "left", "right", border(bodyWidth));
    setBorder(*borders, "top", "bottom", border(bodyHeight));
    m_picture->setProperty("source", QUrl(source));
}

} // namespace tamsel
