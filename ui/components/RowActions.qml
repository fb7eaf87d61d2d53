pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// What lies behind a row that is swiped aside: its actions, to be tapped. Each is a value with a `title`, an
// `identifier`, an `image` and a `destructive` flag.
Row {
    id: behind

    property var actions: []

    signal chosen(index: int)

    // Which action lies at a point of this; -1 for none.
    function indexAt(place: point): int {
        for (let i = 0; i < repeater.count; ++i) {
            const action = repeater.itemAt(i);
            if (place.x >= action.x && place.x < action.x + action.width)
                return i;
        }
        return -1;
    }

    leftPadding: Theme.tightSpacing
    rightPadding: Theme.tightSpacing
    spacing: Theme.tightSpacing

    Repeater {
        id: repeater

        model: behind.actions

        Item {
            id: action

            required property var modelData
            required property int index
            readonly property color ink: Theme.accentInk

            objectName: modelData.identifier
            width: Math.max(Math.round(76 * Math.min(Theme.textScale, 1.5)), Math.ceil(caption.implicitWidth)
                            + 2 * Theme.smallSpacing)
            height: behind.height
            Accessible.role: Accessible.Button
            Accessible.name: modelData.title
            Accessible.onPressAction: behind.chosen(index)
            // The row takes the touches of what lies behind it and hands them on this way.
            T.SwipeDelegate.onClicked: behind.chosen(index)

            Rectangle {
                anchors.fill: parent
                anchors.topMargin: Theme.tightSpacing
                anchors.bottomMargin: Theme.tightSpacing
                radius: Theme.fieldRadius
                color: action.modelData.destructive ? Theme.destructive : Theme.accent
                opacity: action.T.SwipeDelegate.pressed ? 0.8 : 1
            }

            Column {
                anchors.centerIn: parent

                Icon {
                    anchors.horizontalCenter: parent.horizontalCenter
                    name: action.modelData.image
                    size: Theme.smallIcon
                    color: action.ink
                }

                TextLabel {
                    id: caption

                    kind: TextLabel.Caption
                    text: action.modelData.title
                    color: action.ink
                    Accessible.ignored: true
                }
            }
        }
    }
}
