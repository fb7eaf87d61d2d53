import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One row of a section's card: a name, a line of detail below it and a text at the end. The card itself is drawn by the
// section; all but the last row draw the line that parts them from the next.
// Based on a template of its own because a screen reader takes the role from the template, whatever is said here.
T.ItemDelegate {
    id: row

    // Required, so that a view fills it from its model's role of that name.
    required property string detail
    property string trailing
    property bool last: false
    property bool hasLongPress: false

    signal longPressed()

    implicitHeight: Math.max(Math.round(54 * Theme.textScale), Theme.touchTarget,
                             Math.ceil(words.height) + 2 * Theme.smallSpacing)
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.mediumSpacing
    padding: 0
    focusPolicy: Qt.TabFocus
    Keys.forwardTo: [behavior]
    Accessible.name: text
    Accessible.description: trailing === "" ? detail : detail + ", " + trailing
    Accessible.focusable: true
    Accessible.onPressAction: row.clicked()

    PressBehavior {
        id: behavior

        control: row
        radius: Theme.fieldRadius
        gap: -3
        hasLongPress: row.hasLongPress
        onLongPressed: row.longPressed()
    }

    background: Item {
        Rectangle {
            visible: row.down
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

    Item {
        anchors.fill: parent
        anchors.leftMargin: row.leftPadding
        anchors.rightMargin: row.rightPadding
        anchors.topMargin: row.topPadding
        anchors.bottomMargin: row.bottomPadding

        Column {
            id: words

            anchors.left: parent.left
            anchors.right: amount.left
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            spacing: 1

            TextLabel {
                width: parent.width
                // Large text would leave only a few letters of a name on one line.
                wrapMode: Theme.textScale > 1.3 ? Text.Wrap : Text.NoWrap
                maximumLineCount: 2
                text: row.text
                Accessible.ignored: true
            }

            TextLabel {
                width: parent.width
                visible: text !== ""
                kind: TextLabel.Caption
                font.weight: Font.Normal
                text: row.detail
                Accessible.ignored: true
            }
        }

        TextLabel {
            id: amount

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            kind: TextLabel.Secondary
            text: row.trailing
            Accessible.ignored: true
        }
    }
}
