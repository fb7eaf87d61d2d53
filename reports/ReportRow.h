#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// One line of a report's list.
struct ReportRow {
    Q_GADGET
    QML_VALUE_TYPE(reportRow)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail MEMBER detail FINAL)
    Q_PROPERTY(bool isHeading MEMBER isHeading FINAL)

public:
    QString identifier;
    QString title;
    QString detail;         // may be empty
    bool isHeading = false; // the title of the lines below it
};

// One item of a ranking, with its bar.
struct RankedItem {
    Q_GADGET
    QML_VALUE_TYPE(rankedItem)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString amount MEMBER amount FINAL)
    Q_PROPERTY(QString spokenText MEMBER spokenText FINAL)
    Q_PROPERTY(double share MEMBER share FINAL)
    Q_PROPERTY(int colorIndex MEMBER colorIndex FINAL)

public:
    QString identifier; // "ranked_item_0"
    QString name;
    QString amount;     // "1h 5m"
    QString spokenText; // "1. C Major Scales: 65 minutes"
    double share = 0;   // of the first one's minutes
    int colorIndex = 0; // ItemColors
};

// A number and what it counts.
struct ReportFigure {
    Q_GADGET
    QML_VALUE_TYPE(reportFigure)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString number MEMBER number FINAL)
    Q_PROPERTY(QString label MEMBER label FINAL)

public:
    QString identifier;
    QString number;
    QString label;
};

} // namespace tamsel
