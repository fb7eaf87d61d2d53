#pragma once

#include "list/TipProvider.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The thanks tab: a word of thanks and the tip jar. Main thread only.
class ThanksViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")

    Q_PROPERTY(QString navigationTitle READ navigationTitle CONSTANT FINAL)
    Q_PROPERTY(QString heading READ heading CONSTANT FINAL)
    Q_PROPERTY(QString message READ message CONSTANT FINAL)
    Q_PROPERTY(QString promise READ promise CONSTANT FINAL)
    Q_PROPERTY(QString tipJarTitle READ tipJarTitle CONSTANT FINAL)
    Q_PROPERTY(QString tipJarText READ tipJarText NOTIFY tipJarChanged FINAL)
    Q_PROPERTY(QList<tamsel::Tip> tips READ tips NOTIFY tipJarChanged FINAL)
    Q_PROPERTY(bool canTip READ canTip NOTIFY tipJarChanged FINAL)
    Q_PROPERTY(bool canAskAgain READ canAskAgain NOTIFY tipJarChanged FINAL)
    Q_PROPERTY(QString askAgainText READ askAgainText CONSTANT FINAL)

public:
    // Without a provider no tips can be taken on this device.
    explicit ThanksViewModel(TipProvider* tipProvider) : m_tipProvider(tipProvider) {}

    QString navigationTitle() const { return QStringLiteral("Thanks!"); }
    QString heading() const { return QStringLiteral("Thank you for practising with Tamsel"); }
    QString message() const;
    QString promise() const;

    QString tipJarTitle() const { return QStringLiteral("Tip jar"); }
    // What the jar is about, how the last purchase went, or why there is nothing to press.
    QString tipJarText() const;
    const QList<Tip>& tips() const { return m_tips; }
    // False while a purchase is under way.
    bool canTip() const { return m_state != State::purchasing; }
    // The store had nothing to offer.
    bool canAskAgain() const { return m_state == State::nothingOnOffer; }
    QString askAgainText() const { return QStringLiteral("Ask again"); }

    // Each time the tab appears: asks the store what is on offer, unless that is known.
    Q_INVOKABLE void onAppear();
    Q_INVOKABLE void askAgain() { onAppear(); }
    // One purchase at a time.
    Q_INVOKABLE void tip(int index);

Q_SIGNALS:
    void tipJarChanged();

private:
    enum class State { notAsked, asking, nothingOnOffer, onOffer, purchasing, thanked, cancelled, failed, pending };

    void setState(State state);

    TipProvider* const m_tipProvider;
    State m_state = State::notAsked;
    QList<Tip> m_tips;
};

} // namespace tamsel
