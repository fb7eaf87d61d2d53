import QtQuick
import Tamsel.Ui

// A round button with an icon. It stands out of the ground and goes into it while pressed; a flat one shows only the
// latter. With `bellOn` a ring lights up around it.
BaseButton {
    id: button

    enum Size { Small, Regular, Large, ExtraLarge }

    property int size: RoundButton.Regular
    property string iconName
    // In the accent colour.
    property bool prominent: false
    property bool flat: false
    // There is nothing for it to do at present. It can be pressed all the same.
    property bool dimmed: false
    property bool bellOn: false

    // Larger than usual, where there is room.
    property real zoom: 1

    readonly property int side: Math.round(Theme.buttonSides[size] * zoom)
    readonly property int iconSize: Math.round(Theme.buttonIcons[size] * zoom)
    readonly property int ringWidth: size === RoundButton.ExtraLarge ? 6 : 3

    implicitWidth: side
    implicitHeight: side
    opacity: enabled ? 1 : Theme.disabledOpacity

    background: Surface {
        relief: button.down ? Surface.Pressed : button.flat ? Surface.Flat : Surface.Raised
        depth: button.size === RoundButton.Small ? Theme.Shallow : Theme.Middle
        radius: button.side / 2
        color: !button.prominent ? Theme.ground : button.down ? Theme.accentPressed : Theme.accent
        shadowColors: button.prominent && button.down ? Theme.pressedAccentShadowColors : Theme.shadowColors

        Rectangle {
            visible: button.bellOn
            anchors.fill: parent
            anchors.margins: -button.ringWidth
            radius: width / 2
            color: "transparent"
            border.width: button.ringWidth
            border.color: Theme.bell
        }
    }

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: button.iconName
            size: button.iconSize
            color: button.prominent ? Theme.accentInk : button.dimmed ? Theme.secondaryText : Theme.text
            opacity: button.dimmed ? Theme.disabledOpacity : 1
        }
    }
}
