#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace tamsel {

// One button of a screen's toolbar.
struct ToolbarButton {
    Q_GADGET
    QML_VALUE_TYPE(toolbarButton)
    Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel FINAL)
    Q_PROPERTY(QString image MEMBER image FINAL)

public:
    QString accessibilityLabel;
    QString image; // the icon's name
    std::function<void()> action;

    Q_INVOKABLE void trigger() const {
        if (action)
            action();
    }
};

} // namespace tamsel
