import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What dialogs and sheets have in common: they lie over the darkened window and keep the keyboard to themselves. They
// are to be seen while `shown` is true. `dismissed` comes when a key that leads back or a press outside has closed one; its owner then
// takes `shown` back.
T.Popup {
    id: popup

    property bool shown: false

    signal dismissed()

    // Where the keyboard was before: Qt gives it back to the window and to nothing in it.
    property Item focusBefore: null

    onAboutToShow: focusBefore = parent.Window.activeFocusItem

    function follow() {
        if (shown)
            open();
        else
            close();
    }

    parent: T.Overlay.overlay
    modal: true
    dim: true
    focus: true
    padding: Theme.largeSpacing
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onShownChanged: follow()
    Component.onCompleted: follow()
    onClosed: {
        if (focusBefore !== null && focusBefore.visible)
            focusBefore.forceActiveFocus(Qt.PopupFocusReason);
        if (shown)
            dismissed();
    }

    // Escape is seen to by the template; the other keys that lead back are not.
    Shortcut {
        enabled: popup.opened
        sequences: ["Back", "Alt+Left"]
        onActivated: popup.close()
    }

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }

    background: Rectangle {
        radius: Theme.heroRadius
        color: Theme.ground
    }
}
