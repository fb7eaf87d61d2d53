import QtQuick
import Tamsel.Ui

// The top of a screen that was opened from another: a way back, its title in the middle, and room for a button.
Item {
    id: header

    property alias text: title.text
    default property alias buttons: row.data

    signal back()

    readonly property int side: Math.max(backButton.width, row.width) + Theme.smallSpacing

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(title.implicitHeight)) + Theme.spacing

    RoundButton {
        id: backButton

        objectName: "back button"
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        text: "Back"
        iconName: mirrored ? "chevron-right" : "chevron-left"
        size: RoundButton.Small
        flat: true
        onClicked: header.back()
    }

    TextLabel {
        id: title

        anchors.left: parent.left
        anchors.leftMargin: header.side
        anchors.right: parent.right
        anchors.rightMargin: header.side
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 3
        kind: TextLabel.Heading
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Row {
        id: row

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.smallSpacing
    }
}
