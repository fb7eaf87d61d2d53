import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What every control that can be pressed has beyond its template, laid over it: Enter presses it as Space does, a held
// key counts once, the keyboard's place shows, and with `hasLongPress` a long press comes from holding down, a right
// click, Shift+Enter or the menu key, once each time. The control forwards its keys to this.
Item {
    id: behavior

    required property T.AbstractButton control
    property bool hasLongPress: false
    property bool takesRightClick: hasLongPress
    property real radius: control.height / 2
    property real gap: 3

    signal longPressed()

    anchors.fill: parent

    Component.onCompleted: {
        // Connected only where it is wanted: the template takes a connection as a wish to swallow the tap.
        if (hasLongPress)
            control.pressAndHold.connect(longPressed);
    }

    Keys.onPressed: event => {
        const enter = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        const menu = event.key === Qt.Key_Menu && behavior.hasLongPress;
        const space = event.key === Qt.Key_Space;
        event.accepted = enter || menu || (space && event.isAutoRepeat);
        if (event.isAutoRepeat || !event.accepted)
            return;
        if (menu || (behavior.hasLongPress && (event.modifiers & Qt.ShiftModifier)))
            behavior.longPressed();
        else
            behavior.control.clicked();
    }
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    // Other buttons, and every touch, go through to the control below.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        enabled: behavior.takesRightClick
        onClicked: behavior.longPressed()
    }

    FocusRing {
        visible: behavior.control.activeFocus
        gap: behavior.gap
        radius: behavior.radius + gap
    }
}
