import QtQuick
import Tamsel.Ui

// A timer or stopwatch: pressed into the ground until a run exists, then raised, with a button that pauses and resumes
// it. Pressing the card itself is `clicked`.
BaseButton {
    id: card

    property string iconName
    property string clockText
    property string spokenText
    property bool runExists: false
    property bool running: false
    // From 0 to 1; negative where there is no end to come nearer to.
    property real progress: -1
    property string toggleIdentifier

    signal toggled()

    implicitHeight: Math.ceil(title.height + clock.implicitHeight) + Theme.spacing + 3 * Theme.tightSpacing
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.tightSpacing
    topPadding: Theme.tightSpacing
    bottomPadding: Theme.spacing
    focusRadius: Theme.cardRadius
    Accessible.description: spokenText

    background: Surface {
        relief: card.runExists && !card.down ? Surface.Raised : Surface.Pressed
        depth: card.runExists ? Theme.Middle : Theme.Shallow
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: card.leftPadding
        anchors.rightMargin: card.rightPadding
        anchors.topMargin: card.topPadding
        anchors.bottomMargin: card.bottomPadding

        Item {
            id: title

            width: parent.width
            height: Theme.touchTarget

            Icon {
                id: symbol

                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                name: card.iconName
                size: Theme.smallIcon
                color: Theme.secondaryText
            }

            TextLabel {
                anchors.left: symbol.right
                anchors.leftMargin: Theme.smallSpacing
                // The button's picture does not fill it.
                anchors.right: toggle.visible ? toggle.left : parent.right
                anchors.rightMargin: toggle.visible ? -Theme.smallSpacing : 0
                anchors.verticalCenter: parent.verticalCenter
                kind: TextLabel.Caption
                text: card.text
                Accessible.ignored: true
            }

            RoundButton {
                id: toggle

                objectName: card.toggleIdentifier
                anchors.right: parent.right
                visible: card.runExists
                text: (card.running ? "Pause " : "Resume ") + card.text.toLowerCase()
                iconName: card.running ? "pause" : "play"
                size: RoundButton.Small
                flat: true
                onClicked: card.toggled()
            }
        }

        ClockText {
            id: clock

            anchors.left: parent.left
            anchors.top: title.bottom
            anchors.topMargin: -Theme.smallSpacing
            text: card.clockText
            spokenText: card.spokenText
            maximumWidth: parent.width - Theme.spacing
            color: card.runExists ? Theme.text : Theme.secondaryText
        }

        ProgressBar {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.bottom: parent.bottom
            visible: card.runExists && card.progress >= 0
            value: card.progress
        }
    }
}
