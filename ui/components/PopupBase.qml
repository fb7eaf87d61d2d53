pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What dialogs and sheets have in common: they lie over the darkened window, keep the keyboard to themselves and let
// their owner decide when they close. `dismissed` comes from Escape or a press outside.
T.Popup {
    id: popup

    signal dismissed()

    parent: T.Overlay.overlay
    modal: true
    dim: true
    focus: true
    padding: Theme.largeSpacing
    closePolicy: T.Popup.NoAutoClose

    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        TapHandler {
            onTapped: popup.dismissed()
        }
    }

    background: Rectangle {
        radius: Theme.heroRadius
        color: Theme.ground
    }
}
