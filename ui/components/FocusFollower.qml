import QtQuick

// Brings the control that the keyboard moves to into sight.
QtObject {
    id: follower

    required property Flickable scroller
    // Room left above and below the control.
    property int room: 24

    readonly property Item control: scroller.Window.activeFocusItem

    // Not before the control has its place.
    onControlChanged: Qt.callLater(show) // qmllint disable

    function show() {
        let above = control;
        while (above !== null && above !== scroller.contentItem)
            above = above.parent;
        if (above === null || control.height > scroller.height)
            return;
        const top = control.mapToItem(scroller.contentItem, 0, 0).y - room;
        const bottom = top + control.height + 2 * room;
        const lowest = Math.max(0, scroller.contentHeight - scroller.height);
        if (top < scroller.contentY)
            scroller.contentY = Math.max(0, top);
        else if (bottom > scroller.contentY + scroller.height)
            scroller.contentY = Math.min(lowest, bottom - scroller.height);
    }
}
