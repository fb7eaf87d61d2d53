import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One line of a report, or the heading of the lines below it. Opens what it is about where it can.
T.ItemDelegate {
    id: row

    // A value with an `identifier`, a `title`, a `detail` and whether it is a heading.
    required property var line
    property bool last: false
    property bool canOpen: true
    // A detail that would leave the title too little room stands below it.
    readonly property bool stacked: amount.implicitWidth > 0.4 * (width - leftPadding - rightPadding)

    signal tapped()

    objectName: line.identifier
    text: line.title
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.implicitHeight + (stacked ? amount.implicitHeight : 0))
                                                + 2 * Theme.spacing)
    padding: 0
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.mediumSpacing
    // The list is one stop for Tab.
    focusPolicy: Qt.NoFocus
    Keys.forwardTo: [behavior]
    Accessible.name: text
    Accessible.description: line.detail
    Accessible.focusable: canOpen
    Accessible.onPressAction: row.clicked()
    onClicked: {
        if (canOpen)
            tapped();
    }

    PressBehavior {
        id: behavior

        control: row
        radius: Theme.fieldRadius
        gap: -3
    }

    background: Item {
        Rectangle {
            visible: row.down && row.canOpen
            anchors.fill: parent
            anchors.margins: Theme.tightSpacing
            radius: Theme.fieldRadius
            color: Theme.pressedRow
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

    TextLabel {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: row.leftPadding + (row.line.isHeading ? 0 : Theme.tightSpacing)
        anchors.right: !row.stacked ? amount.left : chevron.visible ? chevron.left : parent.right
        anchors.rightMargin: row.stacked && !chevron.visible ? row.rightPadding : Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: row.stacked ? -Math.round(amount.implicitHeight / 2) : 0
        // Large text would leave only a few letters of a name on one line.
        wrapMode: Text.Wrap
        maximumLineCount: 6
        kind: row.line.isHeading ? TextLabel.Strong : TextLabel.Body
        text: row.text
        Accessible.ignored: true
    }

    TextLabel {
        id: amount

        anchors.left: row.stacked ? words.left : undefined
        anchors.right: row.stacked ? undefined : chevron.visible ? chevron.left : parent.right
        anchors.rightMargin: chevron.visible ? Theme.smallSpacing : row.rightPadding
        anchors.top: row.stacked ? words.bottom : undefined
        anchors.verticalCenter: row.stacked ? undefined : parent.verticalCenter
        kind: TextLabel.Secondary
        text: row.line.detail
        Accessible.ignored: true
    }

    Icon {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: row.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: row.canOpen && !row.line.isHeading
        name: row.mirrored ? "chevron-left" : "chevron-right"
        size: Theme.smallIcon
        color: Theme.secondaryText
    }
}
