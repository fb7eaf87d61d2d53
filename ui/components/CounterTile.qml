import QtQuick
import Tamsel.Ui

// A counter: a picture and a large number, which gets smaller where there is no room for it. A tap counts, a long press
// clears.
BaseButton {
    id: tile

    property string iconName
    property string countText
    property string hint
    property string hintName
    property string hintIdentifier
    property color ink: Theme.text

    implicitHeight: Math.ceil(figures.height + words.implicitHeight) + 2 * Theme.spacing
    leftPadding: Theme.spacing
    rightPadding: Theme.spacing
    focusRadius: Theme.cardRadius
    hasLongPress: true
    longPressText: hint

    background: Surface {
        relief: tile.down ? Surface.Pressed : Surface.Raised
        depth: Theme.Middle
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: tile.leftPadding
        anchors.rightMargin: tile.rightPadding
        anchors.topMargin: Theme.spacing
        anchors.bottomMargin: Theme.spacing

        Row {
            id: figures

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.mediumSpacing

            Icon {
                id: symbol

                anchors.verticalCenter: parent.verticalCenter
                name: tile.iconName
                size: Theme.largeIcon
                color: tile.ink
            }

            DigitText {
                id: count

                anchors.verticalCenter: parent.verticalCenter
                text: tile.countText
                color: tile.ink
                maximumWidth: tile.availableWidth - symbol.width - Theme.mediumSpacing
            }
        }

        LongPressHint {
            id: words

            objectName: tile.hintIdentifier
            anchors.bottom: parent.bottom
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: tile.hint
            spokenName: tile.hintName
            onActivated: tile.longPressed()
        }
    }
}
