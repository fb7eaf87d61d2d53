#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// What one tab of the tab bar shows.
struct TabItem {
    Q_GADGET
    QML_VALUE_TYPE(tabItem)
    Q_PROPERTY(QString accessibilityIdentifier MEMBER accessibilityIdentifier FINAL)
    Q_PROPERTY(QString systemImage MEMBER systemImage FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)

public:
    QString accessibilityIdentifier;
    QString systemImage;
    QString title;

    bool operator==(const TabItem&) const = default;
};

} // namespace tamsel
