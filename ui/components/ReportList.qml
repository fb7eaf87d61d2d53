pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// The lines of a report on a card; what is declared in it stands above them and scrolls with them. The lines are one
// stop for the keyboard, which moves between them by arrows.
ListView {
    id: list

    // Values with an `identifier`, a `title`, a `detail` and whether one is a heading.
    required property var lines
    required property int margin
    required property int columnWidth
    property string emptyText
    property bool canOpen: true
    default property alias above: top.data

    signal lineTapped(index: int)

    readonly property real firstY: originY - topMargin
    property real firstYBefore: 0
    readonly property real lastY: Math.max(firstY, originY + contentHeight + bottomMargin - height)
    readonly property Item focused: Window.activeFocusItem

    function scroll(way: real) {
        contentY = Math.max(firstY, Math.min(lastY, contentY + way));
    }

    function showCurrentLine() {
        if (activeFocus && currentItem !== null && focused === currentItem)
            positionViewAtIndex(currentIndex, ListView.Contain);
    }

    objectName: "report_list"
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    activeFocusOnTab: count > 0 && canOpen
    currentIndex: 0
    highlightFollowsCurrentItem: false
    model: list.lines
    topMargin: top.height
    bottomMargin: Theme.hugeSpacing + (nothing.visible ? nothing.height + Theme.largeSpacing : 0)

    onCurrentIndexChanged: showCurrentLine()
    // Something above the lines that has the keyboard is brought into sight.
    onFocusedChanged: {
        for (let each = focused; each !== null; each = each.parent) {
            if (each !== top)
                continue;
            const y = focused.mapToItem(contentItem, 0, 0).y;
            const low = y + focused.height + Theme.largeSpacing - height;
            contentY = Math.max(firstY, Math.min(Math.max(contentY, low), y - Theme.largeSpacing));
        }
        showCurrentLine();
    }
    // What is at the top stays there while it grows or shrinks.
    onFirstYChanged: {
        if (contentY <= firstYBefore + 1)
            contentY = firstY;
        firstYBefore = firstY;
    }
    onModelChanged: contentY = firstY

    Column {
        id: top

        parent: list.contentItem
        x: list.margin
        y: list.originY - height
        width: list.columnWidth
        topPadding: 2 * Theme.spacing
        bottomPadding: children.length > 0 ? Theme.largeSpacing : 0
        spacing: Theme.largeSpacing
    }

    TextLabel {
        id: nothing

        objectName: "empty_report_text"
        parent: list.contentItem
        visible: list.count === 0 && text !== ""
        x: list.margin
        y: list.originY + Theme.largeSpacing
        width: list.columnWidth
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        kind: TextLabel.Secondary
        lineHeight: 1.25
        text: list.emptyText
    }

    delegate: ReportLine {
        required property var modelData
        required property int index

        x: list.margin
        width: list.columnWidth
        line: modelData
        last: index === list.count - 1
        canOpen: list.canOpen
        onTapped: list.lineTapped(index)
    }

    // The card that the lines lie on.
    Surface {
        parent: list.contentItem
        visible: list.count > 0
        x: list.margin
        y: list.originY
        width: list.columnWidth
        height: list.contentHeight
    }
}
