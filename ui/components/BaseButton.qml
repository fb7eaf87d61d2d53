import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What everything that can be pressed has in common. `text` is the spoken name and `objectName` the identifier.
// `clicked` comes from a tap, Space or Enter. With `hasLongPress`, `longPressed` comes once from holding down, a right
// click, Shift+Enter or the menu key, and the tap that ends it is swallowed. The keyboard focus is taken by Tab only, so
// that after a tap the screen's own keys keep working. A held key counts once.
T.AbstractButton {
    id: button

    property bool hasLongPress: false
    // What a long press does, for screen readers.
    property string longPressText
    property real focusRadius: height / 2
    property real focusGap: 3

    signal longPressed()

    focusPolicy: Qt.TabFocus
    padding: 0

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: longPressText
    Accessible.focusable: true
    Accessible.onPressAction: button.clicked()

    Component.onCompleted: {
        if (hasLongPress)
            pressAndHold.connect(longPressed);
    }

    Keys.onPressed: event => {
        const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        const menu = event.key === Qt.Key_Menu && hasLongPress;
        const space = event.key === Qt.Key_Space;
        event.accepted = enter || menu || (space && event.isAutoRepeat);
        if (event.isAutoRepeat || !event.accepted)
            return;
        if (menu || (hasLongPress && (event.modifiers & Qt.ShiftModifier)))
            button.longPressed();
        else
            button.clicked();
    }
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    // Other buttons, and every touch, go through to the control below.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        enabled: button.hasLongPress
        onClicked: button.longPressed()
    }

    FocusRing {
        visible: button.activeFocus
        gap: button.focusGap
        radius: button.focusRadius + gap
    }
}
