import QtQuick
import Tamsel.Ui

// A sheet with room for a page: nearly the whole of a phone's screen, a card in a larger window. Its content scrolls
// under a title and a button that closes it.
PopupBase {
    id: sheet

    property string title
    property string doneText: "Done"
    default property alias content: page.data
    readonly property alias scroller: scroller

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0
    readonly property bool atEdge: roomWidth < Theme.twoColumnWidth

    width: Math.min(roomWidth - 2 * Theme.smallSpacing, Theme.contentWidth)
    height: Math.min(implicitHeight, roomHeight - 2 * Theme.smallSpacing)
    implicitHeight: Math.ceil(top.height + page.height) + 2 * padding + Theme.mediumSpacing
    x: Math.round((roomWidth - width) / 2)
    y: Math.round(atEdge ? roomHeight - height - Theme.smallSpacing : (roomHeight - height) / 2)

    onOpened: scope.forceActiveFocus(Qt.PopupFocusReason)

    FocusScope {
        id: scope

        anchors.fill: parent
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title

        Item {
            id: top

            width: parent.width
            height: Math.max(done.height, words.height)

            TextLabel {
                id: words

                anchors.left: parent.left
                anchors.right: done.left
                anchors.rightMargin: Theme.spacing
                anchors.verticalCenter: parent.verticalCenter
                kind: TextLabel.Heading
                text: sheet.title
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            PillButton {
                id: done

                objectName: "done_button"
                anchors.right: parent.right
                look: PillButton.Plain
                text: sheet.doneText
                onClicked: sheet.dismissed()
            }
        }

        Flickable {
            id: scroller

            // Wide enough for the shadows of what lies on it.
            anchors.fill: parent
            anchors.topMargin: top.height
            anchors.leftMargin: -Theme.largeSpacing
            anchors.rightMargin: -Theme.largeSpacing
            anchors.bottomMargin: -Theme.largeSpacing
            contentHeight: page.height + Theme.mediumSpacing + Theme.largeSpacing
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            Column {
                id: page

                x: Theme.largeSpacing
                y: Theme.mediumSpacing
                width: scroller.width - 2 * Theme.largeSpacing
                spacing: Theme.mediumSpacing
            }

            FocusFollower {
                scroller: scroller
            }
        }
    }
}
