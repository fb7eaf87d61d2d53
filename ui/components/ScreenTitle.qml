import QtQuick
import Tamsel.Ui

// The large title at the top of a tab's first screen, with room for buttons at its end.
Item {
    id: header

    property alias text: title.text
    default property alias buttons: row.data

    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(title.implicitHeight)) + 2 * Theme.spacing

    TextLabel {
        id: title

        anchors.left: parent.left
        anchors.right: row.left
        anchors.rightMargin: Theme.smallSpacing
        anchors.verticalCenter: parent.verticalCenter
        kind: TextLabel.Title
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.bodySize
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Row {
        id: row

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.mediumSpacing
    }
}
