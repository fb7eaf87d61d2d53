import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One switch of a sheet: what it switches, a line that explains it, and the switch. The template is one that a screen
// reader knows as something to be checked, with its state.
T.CheckDelegate {
    id: row

    required property string identifier
    required property string title
    required property string spokenName
    required property string subtitle
    required property string iconName
    required property bool isOn
    required property string clearedIcon
    required property string triggerIcon
    required property string triggerText
    property bool last: false

    // With large text, the room goes to the words, so that none is broken.
    readonly property bool crowded: Theme.textScale > 1.6
    readonly property int gap: crowded ? Theme.tightSpacing : Theme.spacing

    signal flipped(on: bool)

    objectName: identifier
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(words.height) + 2 * Theme.spacing)
    leftPadding: crowded ? Theme.smallSpacing : Theme.mediumSpacing
    rightPadding: leftPadding
    padding: 0
    focusPolicy: Qt.TabFocus
    checked: isOn
    onToggled: flipped(checked)
    Keys.onReturnPressed: flip()
    Keys.onEnterPressed: flip()

    Accessible.name: spokenName
    Accessible.description: subtitle
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()

    function flip() {
        toggle();
        toggled();
    }

    background: Item {
        Rectangle {
            visible: row.down
            anchors.fill: parent
            anchors.margins: Theme.tightSpacing
            radius: Theme.fieldRadius
            color: Theme.pressedRow
        }

        Rectangle {
            visible: !row.last
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: Theme.hairline
            color: Theme.separator
        }

        FocusRing {
            visible: row.activeFocus
            gap: -Theme.tightSpacing
            radius: Theme.fieldRadius
        }
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: row.leftPadding
        anchors.rightMargin: row.rightPadding

        Icon {
            id: symbol

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: row.iconName !== ""
            name: row.iconName
            size: row.crowded ? Theme.smallIcon : Theme.icon
            color: Theme.secondaryText
        }

        Column {
            id: words

            anchors.left: symbol.visible ? symbol.right : parent.left
            anchors.leftMargin: symbol.visible ? row.gap : 0
            anchors.right: knob.left
            anchors.rightMargin: row.gap
            anchors.verticalCenter: parent.verticalCenter

            TextLabel {
                width: parent.width
                visible: text !== ""
                wrapMode: Text.Wrap
                text: row.title
                Accessible.ignored: true
            }

            ClearingRuleLabel {
                width: parent.width
                visible: row.clearedIcon !== ""
                clearedIcon: row.clearedIcon
                triggerIcon: row.triggerIcon
                triggerText: row.triggerText
            }

            TextLabel {
                width: parent.width
                visible: text !== ""
                wrapMode: Text.Wrap
                kind: TextLabel.Caption
                font.weight: Font.Normal
                text: row.subtitle
                Accessible.ignored: true
            }
        }

        // On: filled, the knob at the end, and a check mark on it.
        Rectangle {
            id: knob

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.switchWidth
            height: Theme.switchHeight
            radius: height / 2
            color: row.checked ? Theme.accent : Theme.track
            border.width: row.checked ? 0 : Theme.hairline
            border.color: Theme.idleDot

            Rectangle {
                x: row.checked !== row.mirrored ? parent.width - width - Theme.tightSpacing : Theme.tightSpacing
                anchors.verticalCenter: parent.verticalCenter
                width: parent.height - 2 * Theme.tightSpacing
                height: width
                radius: width / 2
                color: row.checked ? Theme.accentInk : Theme.idleDot

                Icon {
                    anchors.centerIn: parent
                    visible: row.checked
                    name: "checkmark"
                    size: Theme.smallIcon
                    color: Theme.accent
                }
            }
        }
    }
}
