import QtQuick
import Tamsel.Ui

// Says what was just done and lets it be taken back.
Item {
    id: bar

    property string text

    signal undone()

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height)) + 2 * Theme.tightSpacing
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Surface {
        anchors.fill: parent
        radius: Math.min(height / 2, Theme.cardRadius)
        color: Theme.undoGround
    }

    TextLabel {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.mediumSpacing
        anchors.right: button.left
        anchors.rightMargin: Theme.tightSpacing
        anchors.verticalCenter: parent.verticalCenter
        wrapMode: Theme.textScale > 1.3 ? Text.Wrap : Text.NoWrap
        maximumLineCount: 2
        kind: TextLabel.Secondary
        color: Theme.undoInk
        text: bar.text
        Accessible.ignored: true
    }

    BaseButton {
        id: button

        objectName: "undo_button"
        anchors.right: parent.right
        anchors.rightMargin: Theme.tightSpacing
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: Math.max(Theme.touchTarget, Math.ceil(caption.implicitWidth) + 2 * Theme.spacing)
        implicitHeight: Math.max(Theme.touchTarget, Math.ceil(caption.implicitHeight))
        focusGap: -2
        text: "Undo"
        onClicked: bar.undone()

        TextLabel {
            id: caption

            anchors.centerIn: parent
            kind: TextLabel.Strong
            color: Theme.undoAccent
            text: button.text
            Accessible.ignored: true
        }
    }
}
