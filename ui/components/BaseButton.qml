import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What all buttons have in common. `text` is the spoken name and `objectName` the identifier. `clicked` comes from a tap,
// Space or Enter; with `hasLongPress`, `longPressed` comes as PressBehavior says, and the tap that ends it is swallowed.
// The keyboard's focus is taken by Tab only, so that after a tap the screen's own keys keep working.
T.AbstractButton {
    id: button

    property alias hasLongPress: behavior.hasLongPress
    // What a long press does, for screen readers.
    property string longPressText
    property alias focusRadius: behavior.radius
    property alias focusGap: behavior.gap

    signal longPressed()

    focusPolicy: Qt.TabFocus
    padding: 0
    Keys.forwardTo: [behavior]

    Accessible.name: text
    Accessible.description: longPressText
    Accessible.focusable: true
    Accessible.onPressAction: button.clicked()

    PressBehavior {
        id: behavior

        control: button
        onLongPressed: button.longPressed()
    }
}
