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

    // Whether the press that a `clicked` belongs to has been told already.
    property bool pressTold: false

    signal longPressed()
    // Comes with the press itself, for what counts the moment: `clicked` comes when the finger is lifted.
    signal struck()

    focusPolicy: Qt.TabFocus
    padding: 0
    Keys.forwardTo: [behavior]
    onPressed: {
        pressTold = true;
        struck();
    }
    onCanceled: pressTold = false
    // Enter and a screen reader click without a press.
    onClicked: {
        if (!pressTold)
            struck();
        pressTold = false;
    }

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
