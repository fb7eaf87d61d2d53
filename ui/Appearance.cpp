#include "ui/Appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include <algorithm>

namespace tamsel {

namespace {

// The font resolution at which desktops and phones show text in its usual size.
constexpr qreal usualDotsPerInch = 96;

qreal systemTextScale() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() / usualDotsPerInch : 1;
}

bool systemIsDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

Appearance::Appearance(QObject* parent) : QObject(parent), m_dark(systemIsDark()) {
    setTextScale(systemTextScale());
    setDevicePixelRatio(qGuiApp->devicePixelRatio());
    qGuiApp->installEventFilter(this);
}

void Appearance::setScheme(Scheme scheme) {
    if (m_scheme == scheme)
        return;
    m_scheme = scheme;
    Q_EMIT schemeChanged();
    updateDark();
}

void Appearance::setTextScale(qreal textScale) {
    const qreal clamped = std::clamp(textScale, smallestTextScale, largestTextScale);
    if (qFuzzyCompare(m_textScale, clamped))
        return;
    m_textScale = clamped;
    Q_EMIT textScaleChanged();
}

void Appearance::setReducedMotion(bool reduced) {
    if (m_reducedMotion == reduced)
        return;
    m_reducedMotion = reduced;
    Q_EMIT reducedMotionChanged();
}

void Appearance::setDevicePixelRatio(qreal ratio) {
    if (ratio <= 0 || qFuzzyCompare(m_devicePixelRatio, ratio))
        return;
    m_devicePixelRatio = ratio;
    Q_EMIT devicePixelRatioChanged();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp)
        updateDark();
    return QObject::eventFilter(watched, event);
}

void Appearance::updateDark() {
    const bool dark = m_scheme == Scheme::System ? systemIsDark() : m_scheme == Scheme::Dark;
    if (m_dark == dark)
        return;
    m_dark = dark;
    Q_EMIT darkChanged();
}

} // namespace tamsel
