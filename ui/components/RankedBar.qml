import QtQuick
import Tamsel.Ui

// One item of a ranking: its name, how long it was practised, and a bar beside the longest.
BaseButton {
    id: row

    // A value with a `name`, an `amount`, a `share` from 0 to 1, a `colorIndex` and the text that is spoken.
    required property var item

    objectName: item.identifier
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height) + Theme.chartDot + Theme.spacing)
    focusRadius: Theme.fieldRadius
    focusGap: 0
    text: item.spokenText

    background: Rectangle {
        visible: row.down
        radius: Theme.fieldRadius
        color: Theme.pressedRow
    }

    Item {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.smallSpacing
        anchors.right: parent.right
        anchors.rightMargin: Theme.smallSpacing
        y: Theme.tightSpacing
        height: Math.ceil(Math.max(name.implicitHeight, amount.implicitHeight))

        TextLabel {
            id: name

            anchors.left: parent.left
            anchors.right: amount.left
            anchors.rightMargin: Theme.spacing
            wrapMode: Text.Wrap
            maximumLineCount: 6
            text: row.item.name
            Accessible.ignored: true
        }

        TextLabel {
            id: amount

            anchors.right: parent.right
            anchors.baseline: name.baseline
            kind: TextLabel.Secondary
            text: row.item.amount
            Accessible.ignored: true
        }
    }

    Rectangle {
        anchors.left: words.left
        anchors.top: words.bottom
        anchors.topMargin: Theme.tightSpacing
        width: Math.max(Theme.chartDot, Math.round(row.item.share * words.width))
        height: Theme.chartDot
        radius: height / 2
        color: Theme.chartColor(row.item.colorIndex)
    }
}
