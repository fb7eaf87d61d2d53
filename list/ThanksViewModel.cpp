#include "list/ThanksViewModel.h"

#include <QPointer>

namespace tamsel {

QString ThanksViewModel::message() const {
    return QStringLiteral(
        "Slow scales, the same four bars for the fifth time, the étude that will not sit still: that is "
        "where music is made. It is good to be on the stand beside you.");
}

QString ThanksViewModel::promise() const {
    return QStringLiteral("What you practise stays on this device. Nobody counts along but you.");
}

QString ThanksViewModel::tipJarText() const {
    if (m_tipProvider == nullptr)
        return QStringLiteral(
            "Tips cannot be taken here: there is no store behind Tamsel on this device. Telling another "
            "musician about it is worth as much.");
    switch (m_state) {
    case State::notAsked:
    case State::asking:
        return QStringLiteral("Asking the store…");
    case State::nothingOnOffer:
        return QStringLiteral("The store has no tips to offer at the moment.");
    case State::onOffer:
        return QStringLiteral("Tamsel is free, all of it. If it helps you, you can leave a tip.");
    case State::purchasing:
        return QStringLiteral("Waiting for the store…");
    case State::thanked:
        return QStringLiteral("Your tip has arrived. Thank you!");
    case State::cancelled:
        return QStringLiteral("No tip was taken.");
    case State::failed:
        return QStringLiteral("The store could not take the tip. You can try again.");
    case State::pending:
        return QStringLiteral("Your tip waits for approval. Thank you!");
    }
    return {};
}

void ThanksViewModel::onAppear() {
    if (m_tipProvider == nullptr || !(m_state == State::notAsked || m_state == State::nothingOnOffer))
        return;
    setState(State::asking);
    m_tipProvider->availableTips([self = QPointer(this)](const QList<Tip>& tips) {
        if (!self || self->m_state != State::asking)
            return;
        self->m_tips = tips;
        self->setState(tips.isEmpty() ? State::nothingOnOffer : State::onOffer);
    });
}

void ThanksViewModel::tip(int index) {
    if (!canTip() || index < 0 || index >= m_tips.size())
        return;
    setState(State::purchasing);
    m_tipProvider->purchase(m_tips.at(index), [self = QPointer(this)](TipResult result) {
        if (!self || self->m_state != State::purchasing)
            return;
        switch (result) {
        case TipResult::success:
            self->setState(State::thanked);
            break;
        case TipResult::cancelled:
            self->setState(State::cancelled);
            break;
        case TipResult::failed:
            self->setState(State::failed);
            break;
        case TipResult::pending:
            self->setState(State::pending);
            break;
        }
    });
}

void ThanksViewModel::setState(State state) {
    m_state = state;
    Q_EMIT tipJarChanged();
}

} // namespace tamsel
