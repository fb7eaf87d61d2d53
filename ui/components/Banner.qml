import QtQuick
import Tamsel.Ui

// A sentence that stands at the top of the window for as long as what it says is so. Hidden without a text.
Item {
    id: banner

    property string text

    visible: text !== ""
    implicitHeight: visible ? Math.ceil(words.implicitHeight) + 2 * Theme.spacing : 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Rectangle {
        anchors.fill: parent
        color: Theme.warningGround
    }

    Icon {
        id: symbol

        anchors.left: parent.left
        anchors.leftMargin: Theme.screenMargin
        anchors.verticalCenter: parent.verticalCenter
        name: "warning"
        color: Theme.warningInk
    }

    TextLabel {
        id: words

        anchors.left: symbol.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: Theme.screenMargin
        anchors.verticalCenter: parent.verticalCenter
        wrapMode: Text.Wrap
        kind: TextLabel.Secondary
        color: Theme.warningInk
        text: banner.text
        Accessible.ignored: true
    }
}
