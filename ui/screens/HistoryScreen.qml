pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// What was practised in the past, at a glance: how much, and what most.
FocusScope {
    id: screen

    required property HistoryViewModel history

    signal practiceRequested()

    focus: true

    readonly property bool beside: width >= Theme.twoColumnWidth
    readonly property int roomWidth: beside ? 2 * Theme.contentWidth + Theme.largeSpacing : Theme.contentWidth
    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - roomWidth) / 2))
    readonly property int columnWidth: beside ? Math.floor((width - 2 * margin - Theme.largeSpacing) / 2)
                                              : width - 2 * margin

    // A window that stayed open over night is looked at again when it comes to the front.
    readonly property bool inFront: Window.active

    function appear() {
        if (visible)
            history.onAppear();
    }

    onVisibleChanged: appear()
    onInFrontChanged: appear()
    Component.onCompleted: appear()

    Keys.onDownPressed: scroller.scroll(Theme.touchTarget)
    Keys.onUpPressed: scroller.scroll(-Theme.touchTarget)

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    ScreenTitle {
        id: title

        x: screen.margin
        width: screen.width - 2 * screen.margin
        text: screen.history.title

        RoundButton {
            objectName: "share_button"
            text: "Share"
            iconName: "share"
            onClicked: screen.history.share()
        }
    }

    OnDemand {
        id: nothing

        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(title.height + Math.max(0, (screen.height - title.height - height) * 0.42))
        width: Math.min(screen.width - 2 * Theme.screenMargin, 320)
        visible: screen.history.isEmpty
        wanted: screen.history.isEmpty
        file: Qt.resolvedUrl("EmptyHistory.qml")
    }

    Connections {
        target: nothing.item
        ignoreUnknownSignals: true

        function onAction() {
            screen.practiceRequested();
        }
    }

    Flickable {
        id: scroller

        function scroll(way: int) {
            contentY = Math.max(0, Math.min(Math.max(0, contentHeight - height), contentY + way));
        }

        objectName: "history_page"
        anchors.top: title.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !screen.history.isEmpty
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
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(parent.width, Theme.contentWidth)
                value: screen.history.timeRange
                options: screen.history.timeRangeOptions
                onValueSelected: value => screen.history.timeRange = value
            }

            Grid {
                width: parent.width
                columns: screen.beside ? 2 : 1
                columnSpacing: Theme.largeSpacing
                rowSpacing: Theme.largeSpacing

                PracticeTimeCard {
                    width: screen.columnWidth
                    overview: screen.history.practiceTimeOverview
                    onDetailRequested: screen.history.openPracticeTime()
                    onBarTapped: index => screen.history.openBar(index)
                }

                TopExercisesCard {
                    width: screen.columnWidth
                    overview: screen.history.topExercisesOverview
                    onDetailRequested: screen.history.openTopExercises()
                }
            }
        }
    }

    EdgeFade {
        anchors.top: scroller.top
        width: parent.width
        visible: scroller.visible && !scroller.atYBeginning
        atTop: true
    }
}
