import QtQuick
import Tamsel.Ui

// A tool of the practice screen: an icon, its name, and a line that says how it stands or what a long press does.
BaseButton {
    id: tile

    property string iconName
    property string caption
    // How it stands.
    property string detail
    // What a long press does, in words and as the name of the button that a screen reader has for it.
    property string hint
    property string hintName
    property string hintIdentifier
    property color ink: Theme.text

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height) + 2 * Theme.spacing)
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.smallSpacing
    focusRadius: Theme.cardRadius
    longPressText: hint

    background: Surface {
        relief: tile.down ? Surface.Pressed : Surface.Raised
        depth: Theme.Middle
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: tile.leftPadding
        anchors.rightMargin: tile.rightPadding

        Icon {
            id: symbol

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            name: tile.iconName
            size: Theme.tabIcon
            color: tile.ink
        }

        Column {
            id: words

            anchors.left: symbol.right
            anchors.leftMargin: Theme.spacing
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            TextLabel {
                width: parent.width
                kind: TextLabel.Strong
                text: tile.caption
                Accessible.ignored: true
            }

            TextLabel {
                width: parent.width
                visible: text !== ""
                kind: TextLabel.Caption
                text: tile.detail
                Accessible.ignored: true
            }

            LongPressHint {
                objectName: tile.hintIdentifier
                width: parent.width
                visible: text !== ""
                text: tile.hint
                spokenName: tile.hintName
                onActivated: tile.longPressed()
            }
        }
    }
}
