#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QEvent;

namespace tamsel {

// What the system asks of every screen: light or dark, how large the text is, whether things may move, and how many
// pixels one unit of length has. Each follows the system until it is set. One object for each QML engine; main thread
// only, and a QGuiApplication must exist.
class Appearance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(Scheme scheme READ scheme WRITE setScheme NOTIFY schemeChanged FINAL)
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged FINAL)
    Q_PROPERTY(qreal textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion WRITE setReducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(
        qreal devicePixelRatio READ devicePixelRatio WRITE setDevicePixelRatio NOTIFY devicePixelRatioChanged FINAL)

public:
    enum class Scheme { System, Light, Dark };
    Q_ENUM(Scheme)

    // The range of `textScale`; what lies outside is moved to its nearer end.
    static constexpr qreal smallestTextScale = 0.85;
    static constexpr qreal largestTextScale = 2.0;

    explicit Appearance(QObject* parent = nullptr);

    Scheme scheme() const { return m_scheme; }
    void setScheme(Scheme scheme);
    // The chosen scheme's or, with `Scheme::System`, whether the system's window colour is a dark one.
    bool isDark() const { return m_dark; }

    // 1 is the system's usual size, 2 is 200 %. At the start the system's font resolution against the usual 96 dpi.
    qreal textScale() const { return m_textScale; }
    void setTextScale(qreal textScale);

    // Nothing slides, fades or flashes over an area while true.
    bool reducedMotion() const { return m_reducedMotion; }
    void setReducedMotion(bool reduced);

    // Device pixels for one unit of length on the window's screen; the window keeps it up to date.
    qreal devicePixelRatio() const { return m_devicePixelRatio; }
    void setDevicePixelRatio(qreal ratio);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void schemeChanged();
    void darkChanged();
    void textScaleChanged();
    void reducedMotionChanged();
    void devicePixelRatioChanged();

private:
    void updateDark();

    Scheme m_scheme = Scheme::System;
    bool m_dark = false;
    qreal m_textScale = 1;
    bool m_reducedMotion = false;
    qreal m_devicePixelRatio = 1;
};

} // namespace tamsel
