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
    height: atEdge ? roomHeight - 2 * y : Math.min(implicitHeight, roomHeight - 2 * y)
    implicitHeight: Math.ceil(top.height + page.height) + 2 * padding + Theme.mediumSpacing
    x: Math.round((roomWidth - width) / 2)
    // Its top stays when its content grows, so that nothing moves under the finger.
    y: atEdge || roomHeight < Theme.twoColumnWidth ? Theme.smallSpacing : 2 * Theme.hugeSpacing

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
            anchors.bottomMargin: -Theme.mediumSpacing
            contentHeight: page.height + 2 * Theme.mediumSpacing
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

        // Within the round corners.
        EdgeFade {
            anchors.top: scroller.top
            anchors.left: scroller.left
            anchors.right: scroller.right
            visible: !scroller.atYBeginning
            atTop: true
        }

        EdgeFade {
            anchors.bottom: scroller.bottom
            anchors.left: scroller.left
            anchors.right: scroller.right
            anchors.leftMargin: Theme.mediumSpacing
            anchors.rightMargin: Theme.mediumSpacing
            visible: !scroller.atYEnd
        }
    }
}
