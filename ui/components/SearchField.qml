import QtQuick
import Tamsel.Ui

// One line of text to search for. Escape or the button at its end empties it; Escape in an empty field leaves it.
TextEntry {
    id: field

    // What is searched for. `edited` tells what it is to be.
    property string value

    signal edited(text: string)
    signal leaveRequested()

    // The same on both sides, for the picture on one and the button on the other, in either direction of reading.
    leftPadding: Theme.mediumSpacing + Theme.icon + Theme.smallSpacing
    rightPadding: leftPadding
    placeholderText: "Search"
    inputMethodHints: Qt.ImhNoPredictiveText
    Accessible.name: placeholderText
    Accessible.searchEdit: true
    onTextEdited: edited(text)
    Keys.onEscapePressed: {
        if (value === "")
            leaveRequested();
        else
            edited("");
    }
    Keys.onReturnPressed: leaveRequested()
    Keys.onEnterPressed: leaveRequested()

    Binding {
        field.text: field.value
    }

    Icon {
        anchors.left: parent.left
        anchors.leftMargin: Theme.mediumSpacing
        anchors.verticalCenter: parent.verticalCenter
        name: "search"
        color: Theme.secondaryText
    }

    RoundButton {
        objectName: "search_clear_button"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: field.value !== ""
        text: "Clear search"
        iconName: "xmark"
        size: RoundButton.Small
        flat: true
        onClicked: field.edited("")
    }
}
