pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// All items by how long they were practised in a range.
FocusScope {
    id: screen

    required property TopExercisesDetailViewModel report

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    signal leaveRequested()

    Keys.onDownPressed: scroller.scroll(Theme.touchTarget)
    Keys.onUpPressed: scroller.scroll(-Theme.touchTarget)

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
    }

    Flickable {
        id: scroller

        function scroll(way: int) {
            contentY = Math.max(0, Math.min(Math.max(0, contentHeight - height), contentY + way));
        }

        anchors.top: header.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: page.height + 2 * Theme.spacing + Theme.hugeSpacing
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        FocusFollower {
            scroller: scroller
        }

        Column {
            id: page

            x: screen.margin
            y: 2 * Theme.spacing
            width: screen.width - 2 * screen.margin
            spacing: Theme.largeSpacing

            TimeRangePicker {
                width: parent.width
                value: screen.report.timeRange
                options: screen.report.timeRangeOptions
                onValueSelected: value => screen.report.timeRange = value
            }

            Card {
                width: parent.width
                visible: bars.count > 0
                padding: Theme.spacing

                Column {
                    width: parent.width
                    Accessible.role: Accessible.List
                    Accessible.name: screen.report.valueTitle + ", " + screen.report.nameTitle

                    Repeater {
                        id: bars

                        model: screen.report.items

                        RankedBar {
                            required property var modelData
                            required property int index

                            width: parent.width
                            item: modelData
                            onClicked: screen.report.openItem(index)
                        }
                    }
                }
            }

            TextLabel {
                objectName: "empty_report_text"
                width: parent.width
                visible: text !== ""
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                kind: TextLabel.Secondary
                lineHeight: 1.25
                text: screen.report.emptyText
            }
        }
    }

    EdgeFade {
        anchors.top: scroller.top
        width: parent.width
        visible: !scroller.atYBeginning
        atTop: true
    }
}
