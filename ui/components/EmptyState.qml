import QtQuick
import Tamsel.Ui

// What a screen shows while it has nothing else to show: what belongs here, and what to do next.
Column {
    id: empty

    property string iconName
    property string title
    property string explanation
    property string actionText
    property string actionIdentifier

    signal action()

    spacing: Theme.mediumSpacing

    Surface {
        anchors.horizontalCenter: parent.horizontalCenter
        // In a low window the words and the button come first.
        visible: empty.Window.height >= 480
        width: 112
        height: width
        radius: width / 2
        relief: Surface.Pressed
        depth: Theme.Deep

        Icon {
            anchors.centerIn: parent
            name: empty.iconName
            size: Theme.hugeIcon
            color: Theme.secondaryText
        }
    }

    TextLabel {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        kind: TextLabel.Heading
        text: empty.title
    }

    TextLabel {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        kind: TextLabel.Secondary
        lineHeight: 1.25
        text: empty.explanation
    }

    PillButton {
        objectName: empty.actionIdentifier
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, parent.width)
        visible: empty.actionText !== ""
        look: PillButton.Prominent
        text: empty.actionText
        onClicked: empty.action()
    }
}
