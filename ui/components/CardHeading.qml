import QtQuick
import Tamsel.Ui

// The top of a card that leads to more: a quiet line, a large one below it, and a chevron. The whole is pressed.
BaseButton {
    id: heading

    property string line
    property string title

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height))
    focusRadius: Theme.fieldRadius
    text: title === "" ? line : line + " " + title

    Rectangle {
        visible: heading.down
        anchors.fill: parent
        anchors.margins: -Theme.smallSpacing
        radius: Theme.fieldRadius
        color: Theme.pressedRow
    }

    Column {
        id: words

        anchors.left: parent.left
        anchors.right: chevron.left
        anchors.rightMargin: Theme.smallSpacing
        anchors.verticalCenter: parent.verticalCenter

        TextLabel {
            width: parent.width
            wrapMode: Text.Wrap
            kind: TextLabel.Secondary
            text: heading.line
            Accessible.ignored: true
        }

        TextLabel {
            width: parent.width
            visible: text !== ""
            wrapMode: Text.Wrap
            maximumLineCount: 2
            kind: TextLabel.Heading
            text: heading.title
            Accessible.ignored: true
        }
    }

    Icon {
        id: chevron

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        name: heading.mirrored ? "chevron-left" : "chevron-right"
        color: Theme.secondaryText
    }
}
