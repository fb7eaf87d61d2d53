import QtQuick
import Tamsel.Ui

// Shows which control the keyboard is on. Fills and slightly exceeds its parent.
Rectangle {
    id: ring

    property real gap: 3

    anchors.fill: parent
    anchors.margins: -gap
    color: "transparent"
    border.width: Theme.focusRingWidth
    border.color: Theme.accent
}
