#pragma once

#include <QColor>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// Lays out the picture of a surface: which one of ShadowProvider's it is, and where it lies. That is done once before a
// frame is drawn, when all sizes have settled: every picture asked for on the way would be painted for nothing. Main
// thread only.
class SurfaceBase : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    // Of what is neither raised nor pressed nothing is drawn.
    Q_PROPERTY(bool raised MEMBER m_raised NOTIFY lookChanged FINAL)
    Q_PROPERTY(bool pressed MEMBER m_pressed NOTIFY lookChanged FINAL)
    // How far the shadows are moved away from the body, how far they fade, and how round its corners are.
    Q_PROPERTY(int offset MEMBER m_offset NOTIFY lookChanged FINAL)
    Q_PROPERTY(int blur MEMBER m_blur NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged FINAL)
    // The dark and the light shadow and the pixels of a unit, as the provider reads them.
    Q_PROPERTY(QString shadowColors MEMBER m_shadowColors NOTIFY lookChanged FINAL)
    Q_PROPERTY(qreal pixelRatio MEMBER m_pixelRatio NOTIFY lookChanged FINAL)
    // The BorderImage that shows it.
    Q_PROPERTY(QQuickItem* picture MEMBER m_picture NOTIFY lookChanged FINAL)

public:
    explicit SurfaceBase(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void lookChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void updatePolish() override;

private:
    bool m_raised = false;
    bool m_pressed = false;
    int m_offset = 0;
    int m_blur = 0;
    qreal m_radius = 0;
    QColor m_color;
    QString m_shadowColors;
    qreal m_pixelRatio = 1;
    QQuickItem* m_picture = nullptr;
    QString m_source;
};

} // namespace tamsel
