import QtQuick
import Tamsel.Ui

// A button that says in words what it does, as wide as the words need, with an icon before them if it has one.
BaseButton {
    id: button

    enum Look { Raised, Prominent, Plain, Destructive }

    property int look: PillButton.Raised
    property string iconName
    // What it shows, where that is not what is spoken.
    property string caption: text
    // Behind the caption, quieter.
    property string detail

    readonly property bool prominent: look === PillButton.Prominent
    readonly property color ink: !enabled ? Theme.secondaryText
                                : prominent ? Theme.accentInk
                                : look === PillButton.Destructive ? Theme.destructive
                                : look === PillButton.Plain ? Theme.accent
                                : Theme.text

    readonly property real besides: (iconName === "" ? 0 : Theme.icon + Theme.smallSpacing)
                                    + (detail === "" ? 0 : more.implicitWidth + Theme.smallSpacing)

    implicitWidth: Math.max(Theme.touchTarget, Math.ceil(words.implicitWidth) + leftPadding + rightPadding + besides)
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.implicitHeight) + 2 * Theme.smallSpacing)
    leftPadding: Theme.largeSpacing
    rightPadding: Theme.largeSpacing
    opacity: enabled ? 1 : Theme.disabledOpacity

    background: Surface {
        relief: button.down ? Surface.Pressed : button.look === PillButton.Plain ? Surface.Flat : Surface.Raised
        depth: Theme.Shallow
        radius: height / 2
        color: !button.prominent ? Theme.ground : button.down ? Theme.accentPressed : Theme.accent
        shadowColors: button.prominent && button.down ? Theme.pressedAccentShadowColors : Theme.shadowColors
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: button.leftPadding
        anchors.rightMargin: button.rightPadding
        anchors.topMargin: button.topPadding
        anchors.bottomMargin: button.bottomPadding

        Row {
            anchors.centerIn: parent
            spacing: Theme.smallSpacing

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.iconName !== ""
                name: button.iconName
                color: button.ink
            }

            TextLabel {
                id: words

                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                width: Math.min(implicitWidth, button.availableWidth - button.besides)
                kind: TextLabel.Strong
                text: button.caption
                color: button.ink
                Accessible.ignored: true
            }

            TextLabel {
                id: more

                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                kind: TextLabel.Secondary
                text: button.detail
                color: button.prominent ? button.ink : Theme.secondaryText
                Accessible.ignored: true
            }
        }
    }
}
