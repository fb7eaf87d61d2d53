#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace tamsel {

// One bar: a day or a month. Positions and lengths are shares of the chart, 0 to 1, from its start edge and its foot.
struct ChartBar {
    Q_GADGET
    QML_VALUE_TYPE(chartBar)
    Q_PROPERTY(QString identifier MEMBER identifier FINAL)
    Q_PROPERTY(QString spokenText MEMBER spokenText FINAL)
    Q_PROPERTY(double position MEMBER position FINAL)
    Q_PROPERTY(double width MEMBER width FINAL)
    Q_PROPERTY(double height MEMBER height FINAL)

public:
    QString identifier; // "chart_bar_0", from the oldest on
    QString spokenText; // "March 14: 65 minutes"
    double position = 0;
    double width = 0;
    double height = 0;
};

// One item's part of a bar.
struct ChartSegment {
    Q_GADGET
    QML_VALUE_TYPE(chartSegment)
    Q_PROPERTY(double position MEMBER position FINAL)
    Q_PROPERTY(double width MEMBER width FINAL)
    Q_PROPERTY(double foot MEMBER foot FINAL)
    Q_PROPERTY(double height MEMBER height FINAL)
    Q_PROPERTY(int colorIndex MEMBER colorIndex FINAL)
    Q_PROPERTY(bool isTop MEMBER isTop FINAL)

public:
    double position = 0;
    double width = 0;
    double foot = 0;
    double height = 0;
    int colorIndex = 0; // ItemColors, with its tone
    bool isTop = false; // the last of its bar
};

// A mark on one of the axes.
struct ChartMark {
    Q_GADGET
    QML_VALUE_TYPE(chartMark)
    Q_PROPERTY(double position MEMBER position FINAL)
    Q_PROPERTY(QString text MEMBER text FINAL)

public:
    double position = 0;
    QString text;
};

// What a colour stands for.
struct ChartLegendEntry {
    Q_GADGET
    QML_VALUE_TYPE(chartLegendEntry)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(int colorIndex MEMBER colorIndex FINAL)

public:
    QString name;
    int colorIndex = 0; // ItemColors, with its tone
};

struct ChartContent {
    QList<ChartBar> bars;         // the oldest first
    QList<ChartSegment> segments; // from the foot of each bar up
    QList<ChartMark> valueMarks;  // from the foot up
    QList<ChartMark> timeMarks;   // the oldest first
    QList<ChartLegendEntry> legend;
    QString valueTitle; // "Minutes"
    QString timeTitle;  // "Days" or "Months"
    bool isEmpty = true;
    double averagePosition = 0;
    QString averageTitle;      // "Average"
    QString averageSpokenText; // "Average: 23 minutes"
};

// A chart as a screen draws it. Main thread only.
class Chart final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by its screen model")

    Q_PROPERTY(QList<tamsel::ChartBar> bars READ bars NOTIFY changed FINAL)
    Q_PROPERTY(QList<tamsel::ChartSegment> segments READ segments NOTIFY changed FINAL)
    Q_PROPERTY(QList<tamsel::ChartMark> valueMarks READ valueMarks NOTIFY changed FINAL)
    Q_PROPERTY(QList<tamsel::ChartMark> timeMarks READ timeMarks NOTIFY changed FINAL)
    Q_PROPERTY(QList<tamsel::ChartLegendEntry> legend READ legend NOTIFY changed FINAL)
    Q_PROPERTY(QString valueTitle READ valueTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString timeTitle READ timeTitle NOTIFY changed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(double averagePosition READ averagePosition NOTIFY changed FINAL)
    Q_PROPERTY(QString averageTitle READ averageTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString averageSpokenText READ averageSpokenText NOTIFY changed FINAL)

public:
    explicit Chart(QObject* parent) : QObject(parent) {}

    const ChartContent& content() const { return m_content; }
    void setContent(ChartContent content) {
        m_content = std::move(content);
        Q_EMIT changed();
    }

    QList<ChartBar> bars() const { return m_content.bars; }
    QList<ChartSegment> segments() const { return m_content.segments; }
    QList<ChartMark> valueMarks() const { return m_content.valueMarks; }
    QList<ChartMark> timeMarks() const { return m_content.timeMarks; }
    QList<ChartLegendEntry> legend() const { return m_content.legend; }
    QString valueTitle() const { return m_content.valueTitle; }
    QString timeTitle() const { return m_content.timeTitle; }
    bool isEmpty() const { return m_content.isEmpty; }
    double averagePosition() const { return m_content.averagePosition; }
    QString averageTitle() const { return m_content.averageTitle; }
    QString averageSpokenText() const { return m_content.averageSpokenText; }

Q_SIGNALS:
    void changed();

private:
    ChartContent m_content;
};

} // namespace tamsel
