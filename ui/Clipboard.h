#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The desktop's clipboard, for the screens. Main thread only.
class Clipboard final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE void setText(const QString& text);
};

} // namespace tamsel
