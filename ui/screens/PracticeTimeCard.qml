import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// How much was practised in a range: a sentence and a chart. Leads to the days or months.
Card {
    id: card

    required property PracticeTimeOverviewViewModel overview

    signal detailRequested()
    signal barTapped(index: int)

    Column {
        width: parent.width
        spacing: Theme.mediumSpacing

        CardHeading {
            objectName: "practice_time_card"
            width: parent.width
            line: card.overview.subtitle
            title: card.overview.total
            onClicked: card.detailRequested()
        }

        BarChart {
            objectName: "practice_time_chart"
            width: parent.width
            visible: card.overview.chart.bars.length > 0
            chart: card.overview.chart
            onBarTapped: index => card.barTapped(index)
        }

        ChartLegend {
            width: parent.width
            visible: entries.length > 0
            entries: card.overview.chart.legend
        }
    }
}
