import QtQuick
import Tamsel.Ui

// How much of something is done, from 0 to 1.
Rectangle {
    id: bar

    property real value: 0

    implicitHeight: 4
    radius: height / 2
    color: Theme.track
    Accessible.role: Accessible.ProgressBar

    Rectangle {
        anchors.left: parent.left
        width: Math.round(parent.width * Math.max(0, Math.min(1, bar.value)))
        height: parent.height
        radius: parent.radius
        color: Theme.accent
    }
}
