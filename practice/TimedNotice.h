#pragma once

#include "platform/Queue.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <functional>
#include <memory>

namespace tamsel {

// A sentence that a screen shows for some seconds, to confirm what was done, perhaps with a way to undo it. A new one
// takes the place of the one before. Main thread only.
class TimedNotice final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the screen model that owns it")

    // Empty while nothing is to be shown.
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    // What the button says; empty without one.
    Q_PROPERTY(QString actionText READ actionText NOTIFY changed FINAL)

public:
    static constexpr std::chrono::seconds confirmationTime{3};
    // Long enough to find the button with a screen reader.
    static constexpr std::chrono::seconds undoTime{10};

    explicit TimedNotice(Queue& mainQueue) : m_mainQueue(mainQueue) {}

    const QString& text() const { return m_text; }
    const QString& actionText() const { return m_actionText; }
    bool isShown() const { return !m_text.isEmpty(); }

    void confirm(const QString& text);
    void offerUndo(const QString& text, std::function<void()> undo);

    // Does what the button says, and ends the notice. Does nothing when its time is over.
    Q_INVOKABLE void act();
    void end();

Q_SIGNALS:
    void changed();

private:
    void show(const QString& text, const QString& actionText, std::function<void()> action,
              std::chrono::seconds duration);

    Queue& m_mainQueue;
    QString m_text;
    QString m_actionText;
    std::function<void()> m_action;
    // Counts the notices: the end of an earlier one's time does not end a later one.
    quint64 m_number = 0;
    std::shared_ptr<TimedNotice*> m_self = std::make_shared<TimedNotice*>(this);
};

} // namespace tamsel
