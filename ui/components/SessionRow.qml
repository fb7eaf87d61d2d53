import QtQuick
import Tamsel.Ui

// A session that was saved: what it was and how long. It is only read.
Item {
    id: row

    property string title
    property string detail
    property bool last: false

    implicitHeight: Math.round(Math.max(Theme.touchTarget, words.implicitHeight + 2 * Theme.spacing))
    Accessible.role: Accessible.ListItem
    Accessible.name: detail + ", " + title

    TextLabel {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: Theme.mediumSpacing
        anchors.right: amount.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: row.detail
        Accessible.ignored: true
    }

    TextLabel {
        id: amount

        anchors.right: parent.right
        anchors.rightMargin: Theme.mediumSpacing
        anchors.verticalCenter: parent.verticalCenter
        kind: TextLabel.Secondary
        text: row.title
        Accessible.ignored: true
    }

    Rectangle {
        visible: !row.last
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: Theme.hairline
        color: Theme.separator
    }
}
