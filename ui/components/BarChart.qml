pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// Stacked bars, one for each day or month, time running from left to right in every language. A bar is opened by a tap
// anywhere in its column; the keyboard has the chart as one stop and moves between the bars by the arrows.
FocusScope {
    id: view

    required property Chart chart
    property bool showAverageLine: false
    property int plotHeight: Theme.chartHeight

    signal barTapped(index: int)

    // The bar that has the keyboard, or would get it.
    property int current: -1
    readonly property int currentBar: current >= 0 && current < bars.count ? current : bars.count - 1

    implicitHeight: timeTitle.y + timeTitle.height

    // Of the labels below, mirrored texts and all; the order of time stays.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    function moveTo(bar: int) {
        // It becomes the current one by getting the keyboard: the one before cannot cease to be a stop while it has it.
        bars.itemAt(Math.max(0, Math.min(bars.count - 1, bar))).forceActiveFocus(Qt.TabFocusReason);
    }

    Keys.onPressed: event => {
        event.accepted = true;
        if (event.key === Qt.Key_Right)
            view.moveTo(view.currentBar + 1);
        else if (event.key === Qt.Key_Left)
            view.moveTo(view.currentBar - 1);
        else if (event.key === Qt.Key_Home)
            view.moveTo(0);
        else if (event.key === Qt.Key_End)
            view.moveTo(bars.count - 1);
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter || event.key === Qt.Key_Space)
            event.isAutoRepeat || view.barTapped(view.currentBar);
        else
            event.accepted = false;
    }

    TextLabel {
        id: valueTitle

        width: parent.width
        kind: TextLabel.Caption
        // With the keyboard on a bar, what that one says.
        text: view.activeFocus && bars.count > 0 ? view.chart.bars[view.currentBar].spokenText : view.chart.valueTitle
        Accessible.ignored: true
    }

    Item {
        id: axis

        anchors.top: valueTitle.bottom
        // The highest mark reaches above the plot by half its height.
        anchors.topMargin: Theme.tightSpacing + Math.ceil(valueTitle.implicitHeight / 2)
        width: Math.ceil(childrenRect.width) + Theme.smallSpacing
        height: view.plotHeight

        Repeater {
            model: view.chart.valueMarks

            TextLabel {
                required property var modelData

                y: Math.round((1 - modelData.position) * view.plotHeight - height / 2)
                kind: TextLabel.Caption
                text: modelData.text
                Accessible.ignored: true
            }
        }
    }

    Item {
        id: plot

        anchors.left: axis.right
        anchors.right: parent.right
        anchors.top: axis.top
        height: view.plotHeight

        Repeater {
            model: view.chart.valueMarks

            Rectangle {
                required property var modelData

                y: Math.round((1 - modelData.position) * plot.height)
                width: plot.width
                height: Theme.hairline
                color: Theme.separator
            }
        }

        Rectangle {
            visible: touch.pressedBar >= 0
            x: Math.round(touch.pressedBar * plot.width / Math.max(1, bars.count))
            width: Math.ceil(plot.width / Math.max(1, bars.count))
            height: plot.height
            color: Theme.pressedRow
        }

        Item {
            anchors.fill: parent
            clip: true

            Repeater {
                model: view.chart.segments

                Rectangle {
                    required property var modelData
                    required property int index

                    readonly property real upper: Math.round((1 - modelData.foot - modelData.height) * plot.height)
                    readonly property real lower: Math.round((1 - modelData.foot) * plot.height)
                    readonly property real corner: modelData.isTop ? Math.min(Theme.chartCorner, width / 2) : 0

                    // Round at the top only: the foot reaches under the part below, which is drawn over it.
                    z: -index
                    x: Math.round(modelData.position * plot.width)
                    y: Math.min(upper, plot.height - Theme.hairline)
                    width: Math.max(Theme.hairline, Math.round(modelData.width * plot.width))
                    height: Math.max(Theme.hairline, lower - upper) + corner
                    radius: corner
                    color: Theme.chartColor(modelData.colorIndex)
                }
            }
        }

        Item {
            objectName: "average_line"
            visible: view.showAverageLine && !view.chart.isEmpty
            y: Math.round((1 - view.chart.averagePosition) * plot.height)
            width: plot.width
            Accessible.role: Accessible.StaticText
            Accessible.name: view.chart.averageSpokenText

            Rectangle {
                y: -1
                width: parent.width
                height: Theme.focusRingWidth
                color: Theme.text
            }

            Rectangle {
                anchors.right: parent.right
                y: parent.y > height + Theme.tightSpacing ? -height - Theme.tightSpacing : Theme.tightSpacing
                width: averageText.implicitWidth + 2 * Theme.smallSpacing
                height: averageText.implicitHeight + Theme.tightSpacing
                radius: height / 2
                color: Theme.text

                TextLabel {
                    id: averageText

                    anchors.centerIn: parent
                    kind: TextLabel.Caption
                    color: Theme.ground
                    text: view.chart.averageTitle
                    Accessible.ignored: true
                }
            }
        }

        Repeater {
            id: bars

            model: view.chart.bars

            Item {
                id: bar

                required property var modelData
                required property int index

                objectName: modelData.identifier
                x: index * width
                width: plot.width / Math.max(1, bars.count)
                height: plot.height
                activeFocusOnTab: index === view.currentBar
                Accessible.role: Accessible.Button
                Accessible.name: modelData.spokenText
                Accessible.focusable: true
                Accessible.onPressAction: view.barTapped(index)
                onActiveFocusChanged: {
                    if (activeFocus)
                        view.current = index;
                }
            }
        }

        FocusRing {
            readonly property Item bar: bars.count > 0 ? bars.itemAt(view.currentBar) : null

            anchors.fill: undefined
            visible: bar !== null && bar.activeFocus
            x: bar === null ? 0 : bar.x
            width: bar === null ? 0 : bar.width
            height: plot.height
            radius: Theme.chartCorner
        }

        MouseArea {
            id: touch

            readonly property int pressedBar: pressed && containsMouse ? barAt(mouseX) : -1

            function barAt(position: real): int {
                return Math.max(0, Math.min(bars.count - 1, Math.floor(position * bars.count / Math.max(1, width))));
            }

            anchors.fill: parent
            onClicked: mouse => {
                if (bars.count > 0)
                    view.barTapped(barAt(mouse.x));
            }
        }
    }

    Item {
        id: times

        // As many marks as fit beside each other, the last one always.
        readonly property var all: view.chart.timeMarks
        readonly property int count: all.length
        readonly property real distance: count > 1 ? (all[count - 1].position - all[0].position) * width / (count - 1)
                                                   : width
        // The outer ones are moved inwards where they would reach beyond the chart.
        readonly property real moved: count === 0 ? 0 : Math.max(0, widest / 2 - all[0].position * width,
                                                                 widest / 2 - (1 - all[count - 1].position) * width)
        readonly property int every: Math.max(1, Math.ceil((widest + Math.max(Theme.tightSpacing, moved + Theme.hairline))
                                                           / Math.max(1, distance)))
        property int widest: 0

        function measure() {
            let widest = 0;
            for (let i = 0; i < marks.count; ++i) {
                const mark = marks.itemAt(i);
                widest = mark === null ? widest : Math.max(widest, mark.implicitWidth);
            }
            times.widest = widest;
        }

        anchors.left: plot.left
        anchors.right: plot.right
        anchors.top: plot.bottom
        anchors.topMargin: Theme.tightSpacing
        height: Math.ceil(timeTitle.implicitHeight)

        Repeater {
            id: marks

            model: view.chart.timeMarks
            onItemAdded: times.measure()

            TextLabel {
                required property var modelData
                required property int index

                visible: (times.count - 1 - index) % times.every === 0
                onImplicitWidthChanged: times.measure()
                x: Math.round(Math.max(0, Math.min(times.width - implicitWidth,
                                                   modelData.position * times.width - implicitWidth / 2)))
                kind: TextLabel.Caption
                text: modelData.text
                Accessible.ignored: true
            }
        }
    }

    TextLabel {
        id: timeTitle

        anchors.left: plot.left
        anchors.right: plot.right
        anchors.top: times.bottom
        anchors.topMargin: Theme.tightSpacing
        horizontalAlignment: Text.AlignHCenter
        kind: TextLabel.Caption
        font.weight: Font.Normal
        text: view.chart.timeTitle
        Accessible.ignored: true
    }
}
