import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One tab of the TabBar. The selected one is told by its bold title and by the hollow around its icon.
// Based on a template of its own because a screen reader takes the role from the template, whatever is said here.
T.TabButton {
    id: tab

    property string iconName
    property bool selected: false

    readonly property color ink: selected ? Theme.accent : Theme.secondaryText

    implicitHeight: Theme.tabIcon + 3 * Theme.smallSpacing + title.implicitHeight
    padding: 0
    checked: selected
    focusPolicy: Qt.TabFocus
    Keys.forwardTo: [behavior]
    Accessible.name: text
    Accessible.focusable: true
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: tab.clicked()

    PressBehavior {
        id: behavior

        control: tab
        radius: Theme.fieldRadius
        gap: -4
    }

    Item {
        anchors.fill: parent
        anchors.leftMargin: tab.leftPadding
        anchors.rightMargin: tab.rightPadding
        anchors.topMargin: tab.topPadding
        anchors.bottomMargin: tab.bottomPadding

        Surface {
            id: hollow

            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.tightSpacing
            width: Theme.tabIcon + 36
            height: Theme.tabIcon + Theme.smallSpacing
            radius: height / 2
            relief: tab.selected || tab.down ? Surface.Pressed : Surface.Flat
            depth: Theme.Shallow

            Icon {
                anchors.centerIn: parent
                name: tab.iconName
                size: Theme.tabIcon
                color: tab.ink
            }
        }

        TextLabel {
            id: title

            anchors.top: hollow.bottom
            anchors.topMargin: 2
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            kind: TextLabel.Caption
            font.weight: tab.selected ? Font.Bold : Font.Medium
            text: tab.text
            color: tab.ink
            Accessible.ignored: true
        }
    }
}
