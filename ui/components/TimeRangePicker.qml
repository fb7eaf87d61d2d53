pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// Selects one range of time. One stop for the keyboard; the arrows move the selection, Home and End lead to the smallest
// and the greatest range.
FocusScope {
    id: picker

    // The ranges to choose from, the greatest last: each with a `label`, an `identifier` and its `value`.
    required property var options
    // That of the selected range. The owner takes on what valueSelected() says.
    required property int value

    readonly property int greatestTimeRange: options.length > 0 ? options[options.length - 1].value : value

    signal valueSelected(value: int)

    readonly property int columns: widest * repeater.count <= width ? repeater.count : Math.ceil(repeater.count / 2)
    readonly property int rows: Math.ceil(repeater.count / Math.max(1, columns))
    readonly property int optionHeight: Math.max(Theme.touchTarget, Math.round(36 * Theme.textScale))
    property int widest: 0

    implicitHeight: rows * optionHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: "Time range"

    function step(by: int) {
        for (let i = 0; i < repeater.count; ++i) {
            const option = repeater.itemAt(i) as T.RadioButton;
            if (!option.checked)
                continue;
            const next = Math.max(0, Math.min(repeater.count - 1, i + by));
            select(next);
            return;
        }
    }

    function select(index: int) {
        valueSelected(options[index].value);
        repeater.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }

    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        for (let i = 0; event.accepted && i < repeater.count; ++i) {
            const wanted = event.key === Qt.Key_Home ? i === 0 : options[i].value === greatestTimeRange;
            if (wanted)
                select(i);
        }
    }

    Keys.onRightPressed: step(LayoutMirroring.enabled ? -1 : 1)
    Keys.onLeftPressed: step(LayoutMirroring.enabled ? 1 : -1)

    Surface {
        anchors.fill: parent
        radius: picker.optionHeight / 2
        relief: Surface.Pressed
        depth: Theme.Shallow
    }

    Grid {
        anchors.fill: parent
        columns: picker.columns

        Repeater {
            id: repeater

            model: picker.options

            T.RadioButton {
                id: option

                required property var modelData
                required property int index

                objectName: modelData.identifier
                width: Math.floor(picker.width / picker.columns)
                height: picker.optionHeight
                implicitWidth: Math.ceil(words.implicitWidth) + 2 * Theme.tightSpacing
                text: modelData.label
                checked: modelData.value === picker.value
                autoExclusive: false
                focusPolicy: checked || activeFocus ? Qt.TabFocus : Qt.NoFocus
                Accessible.name: text
                Accessible.focusable: true
                Accessible.onPressAction: picker.valueSelected(modelData.value)
                onClicked: picker.valueSelected(modelData.value)
                onImplicitWidthChanged: picker.widest = Math.max(picker.widest, implicitWidth)
                Component.onCompleted: picker.widest = Math.max(picker.widest, implicitWidth)

                background: Item {
                    Surface {
                        anchors.fill: parent
                        anchors.margins: Theme.tightSpacing
                        visible: option.checked && height > 0
                        radius: Math.max(0, height / 2)
                        depth: Theme.Shallow
                    }

                    FocusRing {
                        visible: option.activeFocus
                        gap: 0
                        radius: height / 2
                    }
                }

                contentItem: TextLabel { // qmllint disable deferred-property-id
                    id: words

                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    kind: TextLabel.Caption
                    font.weight: option.checked ? Font.DemiBold : Font.Medium
                    color: option.checked ? Theme.accent : Theme.secondaryText
                    text: option.text
                    Accessible.ignored: true
                }
            }
        }
    }
}
