#pragma once

#include "model/History.h"
#include "platform/Calendar.h"
#include "platform/Observable.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// A day on which the item was practised.
struct ItemHistoryDay {
    Q_GADGET
    QML_VALUE_TYPE(itemHistoryDay)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail MEMBER detail FINAL)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)

public:
    QString title;      // "03/14/24"
    QString detail;     // how long: "1h 5m"
    QString identifier; // "history_day_0"
};

// The days on which one item was practised, newest first. Reads the whole history when it is made and when the history
// changes. Main thread only.
class ItemHistoryViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the coordinator")

    Q_PROPERTY(QString exerciseName READ exerciseName CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ItemHistoryDay> days READ days NOTIFY daysChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY daysChanged FINAL)
    // "12 days, 5h 3m"
    Q_PROPERTY(QString summary READ summary NOTIFY daysChanged FINAL)

public:
    // Events belong to an item by its name.
    ItemHistoryViewModel(History& history, const Calendar& calendar, QString exerciseName);

    const QString& exerciseName() const { return m_exerciseName; }
    const QList<ItemHistoryDay>& days() const { return m_days; }
    bool isEmpty() const { return m_days.isEmpty(); }
    const QString& summary() const { return m_summary; }

Q_SIGNALS:
    void daysChanged();

private:
    void reload();

    History& m_history;
    const Calendar& m_calendar;
    const QString m_exerciseName;
    QList<ItemHistoryDay> m_days;
    QString m_summary;
    Observable::Subscription m_historySubscription;
};

} // namespace tamsel
