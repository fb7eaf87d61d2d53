pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// The first screen: what was practised today, all items, and the metronome at hand.
FocusScope {
    id: screen

    required property PracticeListViewModel list

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))
    readonly property int columnWidth: width - 2 * margin
    readonly property bool isEmpty: list.exerciseRows.count === 0 && list.dailyLogRows.count === 0

    // Up and Down lead through the titles, today's log and the items; among the items the ListView moves by itself.
    function moveFocus(forward: bool) {
        const focused = screen.Window.activeFocusItem;
        const from = focused && focused !== screen ? focused : rest;
        const beside = forward ? titles.lastTitle : bar.firstButton;
        const next = from === beside && items.currentItem ? items.currentItem : from.nextItemInFocusChain(forward);
        if (next)
            next.forceActiveFocus(Qt.TabFocusReason);
    }

    Component.onCompleted: {
        if (visible)
            list.onAppear();
    }
    onVisibleChanged: {
        if (visible)
            list.onAppear();
    }

    Keys.onSpacePressed: event => {
        if (!event.isAutoRepeat)
            screen.list.metronomeViewModel.playPauseTapped();
    }
    Keys.onDownPressed: moveFocus(true)
    Keys.onUpPressed: moveFocus(false)

    Shortcut {
        enabled: screen.visible
        sequence: "Ctrl+N"
        onActivated: screen.list.addTapped()
    }

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    ScreenTitle {
        id: title

        x: screen.margin
        width: screen.columnWidth
        text: "Practice"

        RoundButton {
            objectName: "add_item_button"
            text: "add item"
            iconName: "docBadgePlus"
            size: RoundButton.Small
            prominent: true
            onClicked: screen.list.addTapped()
        }
    }

    ListView {
        id: items

        function showCurrentRow() {
            if (activeFocus)
                positionViewAtIndex(currentIndex, ListView.Contain);
        }

        objectName: "exercise_list"
        anchors.top: title.bottom
        anchors.bottom: bar.top
        anchors.bottomMargin: Theme.smallSpacing
        width: parent.width
        clip: true
        visible: !screen.isEmpty
        model: titles.itemsExpanded ? screen.list.exerciseRows : null
        topMargin: titles.height
        bottomMargin: Theme.hugeSpacing
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        currentIndex: 0
        highlightFollowsCurrentItem: false

        onActiveFocusChanged: showCurrentRow()
        onCurrentIndexChanged: showCurrentRow()

        // A tap beside the tempo field ends typing in it.
        TapHandler {
            onTapped: rest.forceActiveFocus(Qt.OtherFocusReason)
        }

        // What is at the top stays there while the titles above it grow or shrink.
        onTopMarginChanged: {
            if (contentY < originY)
                contentY = originY - topMargin;
        }

        PracticeListHeader {
            id: titles

            parent: items.contentItem
            y: items.originY - height
            width: items.width
            margin: screen.margin
            list: screen.list
            below: items.currentItem
            onStepped: forward => screen.moveFocus(forward)
        }

        delegate: ListRow {
            required property int index
            required property string identifier
            required property string name
            required property string durationText

            objectName: identifier
            x: screen.margin
            width: screen.columnWidth
            text: name
            trailing: durationText
            last: index === items.count - 1
            // The list is one stop for Tab; arrows move within it.
            focusPolicy: Qt.NoFocus
            onClicked: screen.list.openExercise(index)
        }

        // The card that the rows lie on.
        Surface {
            parent: items.contentItem
            visible: items.count > 0
            x: screen.margin
            y: items.originY
            width: screen.columnWidth
            height: items.contentHeight
        }
    }

    OnDemand {
        anchors.centerIn: items
        width: Math.min(screen.columnWidth, 320)
        visible: screen.isEmpty
        wanted: screen.isEmpty
        file: Qt.resolvedUrl("EmptyPracticeList.qml")
        given: ({"list": screen.list})
    }

    EdgeFade {
        anchors.bottom: items.bottom
        width: parent.width
        visible: items.visible && !items.atYEnd
    }

    EdgeFade {
        anchors.top: items.top
        width: parent.width
        visible: items.visible && !items.atYBeginning
        atTop: true
    }

    MetronomeBar {
        id: bar

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.mediumSpacing
        x: screen.margin
        width: screen.columnWidth
        metronome: screen.list.metronomeViewModel
        above: items.currentItem
    }

    OnDemand {
        wanted: screen.list.addExerciseAlertIsPresented
        file: Qt.resolvedUrl("AddItemDialog.qml")
        given: ({"list": screen.list})
    }
}
