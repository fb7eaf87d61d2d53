#pragma once

#include "app/Singletons.h"
#include "platform/Platform.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// Asks what is to become of a practice that a crash has cut off. Nothing is recorded before it is answered; put off, it
// is asked again with the next start. Main thread only.
class LeftPracticeViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the content model")

    Q_PROPERTY(bool isPresented READ isPresented NOTIFY isPresentedChanged FINAL)
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString text READ text CONSTANT FINAL)

public:
    LeftPracticeViewModel(Singletons& singletons, const Platform& platform);

    bool isPresented() const { return m_isPresented; }
    QString title() const { return QStringLiteral("Keep your practice?"); }
    QString text() const { return m_text; }

    // Records what was left, each with the time that it had, on the day on which it was practised.
    Q_INVOKABLE void keep();
    Q_INVOKABLE void discard();
    Q_INVOKABLE void decideLater();

Q_SIGNALS:
    void isPresentedChanged();

private:
    void close();

    Singletons& m_singletons;
    const Platform m_platform;
    const QString m_text; // stays while the dialog goes
    bool m_isPresented;
};

} // namespace tamsel
