pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// The practice time of one item or of all: a chart, on how many days there was practice, and a line for each day or month.
FocusScope {
    id: screen

    required property PracticeTimeDetailViewModel report

    property bool showAverageLine: false
    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    signal leaveRequested()

    Keys.onDownPressed: list.scroll(Theme.touchTarget)
    Keys.onUpPressed: list.scroll(-Theme.touchTarget)

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    NavigationHeader {
        id: header

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: screen.report.title
        onBack: screen.leaveRequested()

        RoundButton {
            objectName: "options_menu"
            text: "Options"
            iconName: "options"
            size: RoundButton.Small
            flat: true
            onClicked: options.shown = true
        }
    }

    ReportList {
        id: list

        anchors.top: header.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        margin: screen.margin
        columnWidth: screen.width - 2 * screen.margin
        lines: screen.report.rows
        emptyText: screen.report.emptyText
        onLineTapped: index => screen.report.openRow(index)

        TextLabel {
            objectName: "report_exercise_name"
            width: parent.width
            visible: text !== ""
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            kind: TextLabel.Strong
            text: screen.report.exerciseName
        }

        TimeRangePicker {
            width: parent.width
            value: screen.report.timeRange
            options: screen.report.timeRangeOptions
            onValueSelected: value => screen.report.timeRange = value
        }

        Card {
            width: parent.width
            visible: screen.report.chart.bars.length > 0

            Column {
                width: parent.width
                spacing: Theme.mediumSpacing

                BarChart {
                    objectName: "practice_time_chart"
                    width: parent.width
                    chart: screen.report.chart
                    showAverageLine: screen.showAverageLine
                    onBarTapped: index => screen.report.openBar(index)
                }

                TextLabel {
                    objectName: "nothing_recorded_text"
                    width: parent.width
                    visible: text !== ""
                    wrapMode: Text.Wrap
                    kind: TextLabel.Secondary
                    lineHeight: 1.25
                    text: screen.report.emptyText
                }

                ChartLegend {
                    width: parent.width
                    visible: entries.length > 0 && screen.report.exerciseName === ""
                    entries: screen.report.chart.legend
                }
            }
        }

        Card {
            width: parent.width

            Column {
                width: parent.width
                spacing: Theme.smallSpacing

                TextLabel {
                    width: parent.width
                    kind: TextLabel.SecondaryStrong
                    text: screen.report.practiceDaysTitle
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                Grid {
                    id: figures

                    width: parent.width
                    columns: Theme.textScale > 1.3 ? 2 : 4
                    rowSpacing: Theme.smallSpacing

                    Repeater {
                        model: screen.report.practiceDayFigures

                        Column {
                            id: figure

                            required property var modelData

                            objectName: modelData.identifier
                            width: Math.floor(figures.width / figures.columns)
                            Accessible.role: Accessible.StaticText
                            Accessible.name: modelData.number + " " + modelData.label

                            TextLabel {
                                width: parent.width
                                kind: TextLabel.Heading
                                text: figure.modelData.number
                                Accessible.ignored: true
                            }

                            TextLabel {
                                width: parent.width
                                kind: TextLabel.Caption
                                text: figure.modelData.label
                                Accessible.ignored: true
                            }
                        }
                    }
                }
            }
        }
    }

    EdgeFade {
        anchors.top: list.top
        width: parent.width
        visible: !list.atYBeginning
        atTop: true
    }

    OnDemand {
        id: options

        file: Qt.resolvedUrl("ReportOptionsSheet.qml")
        given: ({"opener": options, "averageShown": Qt.binding(() => screen.showAverageLine)})
    }

    Connections {
        target: options.item
        ignoreUnknownSignals: true

        function onAverageToggled() {
            screen.showAverageLine = !screen.showAverageLine;
        }
    }
}
