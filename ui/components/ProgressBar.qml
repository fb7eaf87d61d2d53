import QtQuick
import Tamsel.Ui

// How much of something is done, from 0 to 1. Drawing only: whoever uses it says what it shows.
Rectangle {
    id: bar

    property real value: 0

    implicitHeight: 4
    radius: height / 2
    color: Theme.track
    Accessible.ignored: true

    Rectangle {
        anchors.left: parent.left
        width: Math.round(parent.width * Math.max(0, Math.min(1, bar.value)))
        height: parent.height
        radius: parent.radius
        color: Theme.accent
    }
}
