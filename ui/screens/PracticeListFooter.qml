pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// What stands below the items and scrolls with them: the archive. However many rows it has, only those in sight are
// made: its own view is as high as what can be seen, and moves along.
Item {
    id: footer

    required property PracticeListViewModel list
    property int margin: Theme.screenMargin
    // How much of this has scrolled away above what can be seen, and how high the latter is.
    property real scrolledAway: 0
    property real viewHeight: 0

    readonly property Item firstTitle: title
    // Where the arrows are within the archive; null while it has no row to show.
    readonly property Item currentRow: rows.count > 0 ? rows.currentItem : null
    readonly property Item lastStop: currentRow !== null ? currentRow : firstTitle
    // Where Backtab leads from the title.
    property Item above: null
    // Where Tab leads from the title while there is no row.
    property Item below: null

    // The keyboard went to what lies between these two, counted from the top of this.
    signal uncover(top: real, bottom: real)
    signal rowSwiped(row: ListRow)
    // Up or Down was pressed where no row of the archive lies that way. The list above would move among its items.
    signal stepped(forward: bool)

    function unfold() {
        title.unfold();
    }

    function foldAgain() {
        title.foldAgain();
    }

    readonly property real cardTop: Theme.mediumSpacing + title.height

    visible: list.archivedItemsCount > 0
    Keys.onDownPressed: stepped(true)
    Keys.onUpPressed: stepped(false)
    implicitHeight: visible ? cardTop + (rows.count > 0 ? rows.contentHeight + Theme.tightSpacing : 0) : 0

    SectionHeader {
        id: title

        objectName: "archive_header"
        x: footer.margin
        y: Theme.mediumSpacing
        width: footer.width - 2 * footer.margin
        expanded: false
        text: footer.list.archiveTitle
        iconName: "archiveBox"
        KeyNavigation.backtab: footer.above
        KeyNavigation.tab: footer.currentRow !== null ? footer.currentRow : footer.below
        onActiveFocusChanged: {
            if (activeFocus)
                footer.uncover(y, y + height);
        }
    }

    Surface {
        visible: rows.count > 0
        x: footer.margin
        y: footer.cardTop
        width: footer.width - 2 * footer.margin
        height: rows.contentHeight
    }

    ListView {
        id: rows

        readonly property real shift: Math.max(0, Math.min(footer.scrolledAway - footer.cardTop, contentHeight - height))

        function uncoverCurrent() {
            if (activeFocus && currentItem)
                footer.uncover(footer.cardTop + currentItem.y - originY,
                               footer.cardTop + currentItem.y - originY + currentItem.height);
        }

        objectName: "archive_list"
        x: footer.margin
        y: footer.cardTop + shift
        width: footer.width - 2 * footer.margin
        height: footer.viewHeight
        visible: count > 0
        interactive: false
        keyNavigationEnabled: true
        model: title.expanded && footer.visible ? footer.list.archiveRows : null
        reuseItems: true
        currentIndex: 0
        highlightFollowsCurrentItem: false
        onActiveFocusChanged: uncoverCurrent()
        onCurrentItemChanged: uncoverCurrent()

        Binding {
            rows.contentY: rows.originY + rows.shift
        }

        delegate: ListRow {
            id: row

            required property int index
            required property string name

            objectName: "archive_row_" + index
            width: rows.width
            text: name
            last: index === rows.count - 1
            actions: footer.list.archiveActions
            focusPolicy: Qt.NoFocus
            onOpened: footer.list.openRowMenu(PracticeListViewModel.Archive, index)
            onLongPressed: footer.list.openRowMenu(PracticeListViewModel.Archive, index)
            onActionChosen: action => footer.list.act(PracticeListViewModel.Archive, index, action)
            onSwipedChanged: {
                if (swiped)
                    footer.rowSwiped(row);
            }
        }
    }
}
