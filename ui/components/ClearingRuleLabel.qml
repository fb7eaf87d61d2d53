import QtQuick
import Tamsel.Ui

// "Clear", a counter's picture, "on", and the other counter's picture or words. What is said about it says its row.
Flow {
    id: label

    property string clearedIcon
    property string triggerIcon
    property string triggerText

    spacing: Theme.smallSpacing

    TextLabel {
        id: clear

        text: "Clear"
        Accessible.ignored: true
    }

    Icon {
        name: label.clearedIcon
        size: clear.height
    }

    TextLabel {
        text: "on"
        Accessible.ignored: true
    }

    Icon {
        visible: label.triggerIcon !== ""
        name: label.triggerIcon
        size: clear.height
    }

    TextLabel {
        visible: text !== ""
        text: label.triggerText
        Accessible.ignored: true
    }
}
