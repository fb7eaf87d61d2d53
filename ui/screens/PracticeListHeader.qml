pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// What stands above the items and scrolls with them: a word of thanks now and then, today's log, if there is one, and
// the items' own title.
Item {
    id: header

    required property PracticeListViewModel list
    property int margin: Theme.screenMargin
    property alias itemsExpanded: itemsTitle.expanded
    // Where Tab leads from the last title.
    property Item below: null
    readonly property Item lastTitle: itemsTitle

    // Up or Down was pressed on a title or a row of the log. The list below would move among its items.
    signal stepped(forward: bool)
    signal rowSwiped(row: ListRow)

    function unfold() {
        logTitle.unfold();
        itemsTitle.unfold();
    }

    function foldAgain() {
        logTitle.foldAgain();
        itemsTitle.foldAgain();
    }

    implicitHeight: page.height
    Keys.onDownPressed: stepped(true)
    Keys.onUpPressed: stepped(false)

    Column {
        id: page

        x: header.margin
        y: Theme.tightSpacing
        width: header.width - 2 * header.margin
        bottomPadding: Theme.tightSpacing

        OnDemand {
            id: review

            width: parent.width
            visible: wanted
            wanted: header.list.reviewCardIsPresented
            file: Qt.resolvedUrl("ReviewCard.qml")
            given: ({"list": header.list})
        }

        Item {
            width: 1
            height: Theme.mediumSpacing
            visible: review.visible
        }

        SectionHeader {
            id: logTitle

            objectName: "daily_log_header"
            width: parent.width
            visible: log.count > 0
            text: header.list.dailyLogTitle
            iconName: "checkmark"
        }

        RowsCard {
            id: log

            width: parent.width
            visible: count > 0 && logTitle.expanded
            model: header.list.dailyLogRows
            delegate: ListRow {
                id: row

                required property int index
                required property string name
                required property string durationText

                objectName: "daily_log_row_" + index
                width: log.width
                text: name
                trailing: durationText
                last: index === log.count - 1
                actions: header.list.itemActions
                onOpened: header.list.openDailyLogRow(index)
                onLongPressed: header.list.openRowMenu(PracticeListViewModel.DailyLog, index)
                onActionChosen: action => header.list.act(PracticeListViewModel.DailyLog, index, action)
                onSwipedChanged: {
                    if (swiped)
                        header.rowSwiped(row);
                }
            }
        }

        Item {
            width: 1
            height: Theme.mediumSpacing
            visible: log.count > 0
        }

        SectionHeader {
            id: itemsTitle

            objectName: "exercises_header"
            width: parent.width
            text: header.list.exercisesTitle
            iconName: "musicNoteList"
            KeyNavigation.tab: header.below
        }
    }
}
