import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// A note on a card, under its day's title where it is the first of that day. A tap edits it; a button deletes it.
Item {
    id: row

    required property int index
    required property string noteText
    required property string dayTitle

    signal edited()
    signal deleted()

    readonly property real titleHeight: title.visible ? title.height : 0

    implicitHeight: titleHeight + card.height + Theme.spacing

    TextLabel {
        id: title

        anchors.left: parent.left
        anchors.right: parent.right
        leftPadding: Theme.tightSpacing
        rightPadding: Theme.tightSpacing
        topPadding: Theme.spacing
        bottomPadding: Theme.smallSpacing
        visible: row.dayTitle !== ""
        kind: TextLabel.SecondaryStrong
        text: row.dayTitle
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    T.ItemDelegate {
        id: card

        objectName: "note_" + row.index
        y: row.titleHeight
        width: parent.width
        height: Math.max(Theme.touchTarget, Math.ceil(words.height) + 2 * Theme.mediumSpacing)
        focusPolicy: Qt.TabFocus
        text: row.noteText
        Keys.forwardTo: [behavior]
        Accessible.name: text
        Accessible.description: "Edit"
        Accessible.focusable: true
        Accessible.onPressAction: card.clicked()
        onClicked: row.edited()

        PressBehavior {
            id: behavior

            control: card
            radius: Theme.cardRadius
        }

        background: Surface {
            relief: card.down ? Surface.Pressed : Surface.Raised
            depth: Theme.Middle
        }

        TextLabel {
            id: words

            anchors.left: parent.left
            anchors.leftMargin: Theme.mediumSpacing
            anchors.right: remove.left
            anchors.rightMargin: Theme.smallSpacing
            anchors.verticalCenter: parent.verticalCenter
            wrapMode: Text.Wrap
            text: row.noteText
            Accessible.ignored: true
        }

        RoundButton {
            id: remove

            objectName: "delete_note_" + row.index
            anchors.right: parent.right
            anchors.rightMargin: Theme.tightSpacing
            anchors.verticalCenter: parent.verticalCenter
            text: "Delete note"
            iconName: "trash"
            size: RoundButton.Small
            flat: true
            onClicked: row.deleted()
        }
    }
}
