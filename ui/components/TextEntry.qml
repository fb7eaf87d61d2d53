pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// One line of text to type, in a hollow.
T.TextField {
    id: entry

    implicitWidth: 240
    implicitHeight: Math.max(Theme.touchTarget, Math.ceil(contentHeight) + 2 * Theme.spacing)
    leftPadding: Theme.mediumSpacing
    rightPadding: Theme.mediumSpacing
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter
    color: Theme.text
    placeholderTextColor: Theme.secondaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    selectByMouse: true
    font.family: Theme.fontFamily
    font.pixelSize: Theme.bodySize
    cursorDelegate: Rectangle {
        visible: entry.cursorVisible
        width: 2
        color: Theme.accent
    }

    background: Surface {
        relief: Surface.Pressed
        depth: Theme.Shallow
        radius: Math.min(height / 2, Theme.cardRadius)

        FocusRing {
            visible: entry.activeFocus
            gap: 0
            radius: Math.min(height / 2, Theme.cardRadius)
        }
    }

    TextLabel {
        objectName: "placeholder"
        anchors.fill: parent
        anchors.leftMargin: entry.leftPadding
        anchors.rightMargin: entry.rightPadding
        visible: entry.text === "" && entry.preeditText === ""
        verticalAlignment: Text.AlignVCenter
        text: entry.placeholderText
        color: entry.placeholderTextColor
        Accessible.ignored: true
    }
}
