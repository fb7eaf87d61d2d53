#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace tamsel {

// A tip that a store offers.
struct Tip {
    Q_GADGET
    QML_VALUE_TYPE(tip)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString price MEMBER price FINAL)

public:
    QString identifier; // the store's
    QString title;
    QString price; // with its currency, as the store writes it

    bool operator==(const Tip&) const = default;
};

// How a purchase ended. Pending: somebody else has to approve it first.
enum class TipResult { success, cancelled, failed, pending };

// The platform's store, as far as tips go. Main thread only; the answers come there too, and possibly at once.
class TipProvider {
public:
    virtual ~TipProvider() = default;

    // Answers with the tips on offer; none when the store cannot be reached.
    virtual void availableTips(std::function<void(const QList<Tip>&)> answer) = 0;
    // Lets the store take its owner through the purchase.
    virtual void purchase(const Tip& tip, std::function<void(TipResult)> answer) = 0;
};

} // namespace tamsel
