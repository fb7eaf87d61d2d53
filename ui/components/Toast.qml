import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// A sentence over the lower end of a screen that confirms what was done, perhaps with a button to undo it. It goes by
// itself and never takes the keyboard.
Item {
    id: toast

    required property TimedNotice notice

    visible: notice !== null && notice.text !== ""
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height)) + 2 * Theme.smallSpacing
    Accessible.role: Accessible.AlertMessage
    Accessible.name: words.text

    Surface {
        anchors.fill: parent
        radius: Theme.cardRadius
        color: Theme.ground
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.cardRadius
        color: Theme.ground
        border.width: Theme.hairline
        border.color: Theme.separator
    }

    Icon {
        id: symbol

        anchors.left: parent.left
        anchors.leftMargin: Theme.mediumSpacing
        anchors.verticalCenter: parent.verticalCenter
        visible: Theme.textScale < 1.5
        width: visible ? size : 0
        name: "checkmark"
        color: Theme.accent
    }

    TextLabel {
        id: words

        anchors.left: symbol.right
        anchors.leftMargin: symbol.visible ? Theme.spacing : 0
        anchors.right: action.visible ? action.left : parent.right
        anchors.rightMargin: Theme.mediumSpacing
        anchors.verticalCenter: parent.verticalCenter
        wrapMode: Text.Wrap
        // The message of a long name is not to cover the screen.
        maximumLineCount: 2
        text: toast.notice !== null ? toast.notice.text : ""
        Accessible.ignored: true
    }

    PillButton {
        id: action

        objectName: "undo_button"
        anchors.right: parent.right
        anchors.rightMargin: Theme.smallSpacing
        anchors.verticalCenter: parent.verticalCenter
        visible: text !== ""
        look: PillButton.Plain
        leftPadding: Theme.mediumSpacing
        rightPadding: Theme.mediumSpacing
        text: toast.notice !== null ? toast.notice.actionText : ""
        onClicked: toast.notice.act()
    }
}
