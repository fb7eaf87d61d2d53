pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// What the colours of a chart stand for.
Flow {
    id: legend

    // Values with a `name` and a `colorIndex`.
    required property var entries

    spacing: Theme.spacing

    Repeater {
        model: legend.entries

        Row {
            id: entry

            required property var modelData

            spacing: Theme.smallSpacing
            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.name

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.chartDot
                height: width
                radius: Theme.chartCorner
                color: Theme.chartColor(entry.modelData.colorIndex)
            }

            TextLabel {
                width: Math.min(implicitWidth, legend.width - Theme.chartDot - entry.spacing)
                kind: TextLabel.Caption
                wrapMode: Text.Wrap
                maximumLineCount: 2
                text: entry.modelData.name
                Accessible.ignored: true
            }
        }
    }
}
