pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// What stands above the items and scrolls with them: today's log, if there is one, and the items' own title.
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

    implicitHeight: page.height
    Keys.onDownPressed: stepped(true)
    Keys.onUpPressed: stepped(false)

    Column {
        id: page

        x: header.margin
        y: Theme.tightSpacing
        width: header.width - 2 * header.margin
        bottomPadding: Theme.tightSpacing

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
                required property int index
                required property string identifier
                required property string name
                required property string durationText

                objectName: identifier
                width: log.width
                text: name
                trailing: durationText
                last: index === log.count - 1
                onClicked: header.list.openDailyLogRow(index)
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
