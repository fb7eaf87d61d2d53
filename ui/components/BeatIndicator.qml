pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// A dot for each click of the group; the one that sounded last is long and in the accent colour.
Item {
    id: indicator

    property int count: 1
    // From 0; -1 while nothing sounds.
    property int current: -1
    property int dot: 10

    readonly property int longDot: Math.round(dot * 2.6)

    implicitWidth: dots.width
    implicitHeight: dot
    Accessible.ignored: true

    Row {
        id: dots

        anchors.centerIn: parent
        spacing: Theme.smallSpacing

        Repeater {
            model: indicator.count

            Rectangle {
                required property int index

                readonly property bool sounding: index === indicator.current

                width: sounding ? indicator.longDot : indicator.dot
                height: indicator.dot
                radius: height / 2
                color: sounding ? Theme.accent : Theme.idleDot
            }
        }
    }
}
