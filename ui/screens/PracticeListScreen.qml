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
    // In a low window the search stands beside the title and leaves the rows the height.
    readonly property bool flat: height < 480 && columnWidth >= 480
    readonly property Item lastStop: archive.visible ? archive.lastStop
                                   : items.currentItem ? items.currentItem : titles.lastTitle
    readonly property bool searching: list.isSearching
    // The one row that is swiped aside.
    property ListRow swipedRow: null
    readonly property bool inFront: Window.active

    // What is found may lie in a section that was folded away.
    onSearchingChanged: {
        if (searching) {
            titles.unfold();
            archive.unfold();
        } else {
            titles.foldAgain();
            archive.foldAgain();
        }
    }

    // Up and Down lead through the titles, today's log, the items and the archive; among the rows of the latter two
    // their views move by themselves.
    function moveFocus(forward: bool) {
        const focused = screen.Window.activeFocusItem;
        const from = focused && focused !== screen ? focused : rest;
        let next = null;
        if (forward && from === titles.lastTitle)
            next = items.currentItem;
        else if (forward && from === archive.firstTitle)
            next = archive.currentRow;
        else if (!forward && from === archive.firstTitle)
            next = items.currentItem;
        else if (!forward && from === bar.firstButton)
            next = lastStop;
        if (!next)
            next = from.nextItemInFocusChain(forward);
        if (next)
            next.forceActiveFocus(Qt.TabFocusReason);
    }

    // The row below this item that lies under the point; null if there is none.
    function rowAt(item: Item, x: real, y: real): ListRow {
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            const there = item.mapToItem(child, x, y);
            let row = null;
            if (child.visible && child instanceof ListRow)
                row = child.contains(there) ? child as ListRow : null;
            else if (child.visible)
                row = rowAt(child, there.x, there.y);
            if (row)
                return row;
        }
        return null;
    }

    function swiped(row: ListRow) {
        if (swipedRow !== null && swipedRow !== row)
            swipedRow.swipe.close();
        swipedRow = row;
    }

    function follow() {
        if (visible)
            list.onAppear();
        else
            list.onDisappear();
    }

    Component.onCompleted: {
        if (visible)
            follow();
    }
    onVisibleChanged: follow()

    onInFrontChanged: {
        if (visible && inFront)
            list.onFront();
    }

    Connections {
        target: screen.list

        function onReviewChanged() {
            // The card stands above the rows. Where there are none it waits for another time.
            if (!screen.list.requestToPresentAppStoreReview || !items.visible)
                return;
            items.toTop();
            screen.list.presentReview();
        }

        function onRowMenuChanged() {
            rowMenu.shown = screen.list.rowMenuIsPresented;
        }

        function onSearchBarTextChanged() {
            items.toTop();
        }
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

    Shortcut {
        enabled: screen.visible && search.visible
        sequence: "Ctrl+F"
        onActivated: search.forceActiveFocus(Qt.ShortcutFocusReason)
    }

    Shortcut {
        enabled: screen.visible && !search.activeFocus
        sequence: "Ctrl+Z"
        onActivated: screen.list.undo()
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
            objectName: screen.list.sortMenu.accessibilityIdentifier
            visible: !screen.list.isEmpty
            text: screen.list.sortMenu.title
            iconName: screen.list.sortMenu.image
            size: RoundButton.Small
            onClicked: sortSheet.shown = true
        }

        RoundButton {
            objectName: "add_item_button"
            text: screen.list.addButton.accessibilityLabel
            iconName: screen.list.addButton.image
            size: RoundButton.Small
            prominent: true
            onClicked: screen.list.addButton.trigger()
        }
    }

    SearchField {
        id: search

        objectName: "search_field"
        x: screen.flat ? Math.round(screen.margin + (screen.columnWidth - width) / 2) : screen.margin
        y: screen.flat ? Math.round((title.height - height) / 2) : title.height
        width: screen.flat ? Math.round(screen.columnWidth * 0.4) : screen.columnWidth
        visible: !screen.list.isEmpty
        value: screen.list.searchBarText
        onEdited: text => screen.list.searchBarText = text
        onLeaveRequested: rest.forceActiveFocus(Qt.OtherFocusReason)
    }

    ListView {
        id: items

        function showCurrentRow() {
            if (activeFocus)
                positionViewAtIndex(currentIndex, ListView.Contain);
        }

        function toTop() {
            contentY = originY - topMargin;
        }

        objectName: "exercise_list"
        anchors.top: title.bottom
        anchors.topMargin: search.visible && !screen.flat ? search.height + Theme.smallSpacing : 0
        anchors.bottom: bar.top
        anchors.bottomMargin: Theme.smallSpacing
        width: parent.width
        clip: true
        visible: !screen.list.isEmpty && !screen.list.nothingIsFound
        model: titles.itemsExpanded ? screen.list.exerciseRows : null
        topMargin: titles.height
        bottomMargin: archive.height + Theme.hugeSpacing
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        currentIndex: 0
        highlightFollowsCurrentItem: false

        onActiveFocusChanged: showCurrentRow()
        onCurrentIndexChanged: showCurrentRow()
        onMovementStarted: screen.swiped(null)

        // A tap beside the tempo field ends typing in it.
        TapHandler {
            onTapped: rest.forceActiveFocus(Qt.OtherFocusReason)
        }

        // What is at the top stays there while the titles above it grow or shrink.
        onTopMarginChanged: {
            if (contentY < originY)
                toTop();
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
            onRowSwiped: row => screen.swiped(row)
        }

        // Behind the rows in the order of the keyboard.
        PracticeListFooter {
            id: archive

            parent: items
            y: items.originY + items.contentHeight - items.contentY
            width: items.width
            height: implicitHeight
            margin: screen.margin
            list: screen.list
            scrolledAway: -y
            viewHeight: items.height
            above: items.currentItem
            below: bar.firstButton
            onStepped: forward => screen.moveFocus(forward)
            onRowSwiped: row => screen.swiped(row)
            onUncover: (top, bottom) => {
                const above = y + top;
                const below = y + bottom - items.height;
                if (above < 0)
                    items.contentY += above;
                else if (below > 0)
                    items.contentY += below;
            }
        }

        delegate: ListRow {
            id: row

            required property int index
            required property string name
            required property string durationText

            objectName: "exercise_row_" + index
            x: screen.margin
            width: screen.columnWidth
            text: name
            trailing: durationText
            last: index === items.count - 1
            // The list is one stop for Tab; arrows move within it.
            focusPolicy: Qt.NoFocus
            actions: screen.list.itemActions
            onOpened: screen.list.openExercise(index)
            onLongPressed: screen.list.openRowMenu(PracticeListViewModel.Exercises, index)
            onActionChosen: action => screen.list.act(PracticeListViewModel.Exercises, index, action)
            onSwipedChanged: {
                if (swiped)
                    screen.swiped(row);
            }
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

    // Asks for a row's menu. Rows take a click on anything in them for a tap; hence from above them all.
    MouseArea {
        anchors.fill: items
        enabled: items.visible
        acceptedButtons: Qt.RightButton
        onClicked: event => {
            const row = screen.rowAt(items, event.x, event.y);
            if (row)
                row.longPressed();
        }
    }

    Flickable {
        id: instead

        anchors.fill: items
        visible: screen.list.isEmpty || screen.list.nothingIsFound
        contentHeight: Math.max(height, empty.height, nothing.height)
        boundsBehavior: Flickable.StopAtBounds
        clip: contentHeight > height

        OnDemand {
            id: empty

            x: Math.round((parent.width - width) / 2)
            y: Math.round((instead.contentHeight - height) / 2)
            width: Math.min(screen.columnWidth, 320)
            height: visible ? implicitHeight : 0
            visible: wanted
            wanted: screen.list.isEmpty
            file: Qt.resolvedUrl("EmptyPracticeList.qml")
            given: ({"list": screen.list})
        }

        OnDemand {
            id: nothing

            x: empty.x
            y: Math.round((instead.contentHeight - height) / 2)
            width: empty.width
            height: visible ? implicitHeight : 0
            visible: wanted
            wanted: screen.list.nothingIsFound
            file: Qt.resolvedUrl("NothingFound.qml")
            given: ({"list": screen.list})
        }
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
        above: screen.lastStop
    }

    OnDemand {
        id: undo

        anchors.bottom: bar.top
        anchors.bottomMargin: Theme.smallSpacing
        x: screen.margin
        width: screen.columnWidth
        visible: wanted
        wanted: screen.list.notice.text !== ""
        file: Qt.resolvedUrl("../components/Toast.qml")
        given: ({"notice": screen.list.notice})
    }

    OnDemand {
        id: sortSheet

        file: Qt.resolvedUrl("SortSheet.qml")
        given: ({"menu": screen.list.sortMenu, "opener": sortSheet})
    }

    OnDemand {
        id: rowMenu

        file: Qt.resolvedUrl("RowMenu.qml")
        given: ({"list": screen.list, "opener": rowMenu})
    }

    OnDemand {
        wanted: screen.list.addExerciseAlertIsPresented
        file: Qt.resolvedUrl("AddItemDialog.qml")
        given: ({"list": screen.list})
    }
}
