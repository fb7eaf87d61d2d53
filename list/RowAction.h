#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// What can be done with a row of the practice list beside opening it.
struct RowAction {
    Q_GADGET
    QML_VALUE_TYPE(rowAction)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString image MEMBER image FINAL)
    Q_PROPERTY(bool destructive MEMBER destructive FINAL)

public:
    QString title;
    QString identifier;
    QString image; // the icon's name
    bool destructive = false;
};

} // namespace tamsel
