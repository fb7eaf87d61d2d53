pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Metronome
import Tamsel.Ui

// The tempo in figures as large as there is room for. A tap empties the field for a new number: Enter or leaving it takes
// the number over, Escape brings the old one back.
FocusScope {
    id: field

    required property MetronomeViewModel metronome

    property int pixelSize: Theme.tempoSize
    property real maximumWidth: width

    readonly property bool editing: input.activeFocus
    // What was shown before the field was emptied; it stands there, faint, until something is typed.
    property string settledText

    implicitWidth: figures.implicitWidth
    implicitHeight: Math.max(Theme.touchTarget, figures.implicitHeight)

    DigitText {
        id: figures

        anchors.centerIn: parent
        text: field.editing ? field.settledText : field.metronome.tempoTextFieldText
        pixelSize: field.pixelSize
        maximumWidth: field.maximumWidth
        color: field.editing ? Theme.secondaryText : Theme.text
        opacity: field.editing ? Theme.disabledOpacity : 1
        visible: !field.editing || input.text === ""
    }

    TextInput {
        id: input

        objectName: "current_tempo_field"
        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        color: activeFocus ? Theme.text : "transparent"
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        font.family: Theme.fontFamily
        font.pixelSize: figures.shownSize
        font.weight: Font.Bold
        inputMethodHints: Qt.ImhDigitsOnly
        // A sign and three figures.
        maximumLength: 4
        cursorDelegate: Rectangle {
            visible: input.cursorVisible
            width: 2
            color: Theme.accent
        }

        Accessible.role: Accessible.EditableText
        Accessible.name: "Current tempo field"
        Accessible.editable: true
        Accessible.onIncreaseAction: field.metronome.plusTapped()
        Accessible.onDecreaseAction: field.metronome.minusTapped()

        onActiveFocusChanged: {
            if (activeFocus)
                field.settledText = field.metronome.tempoTextFieldText;
            field.metronome.tempoTextFieldFocused = activeFocus;
        }
        onTextEdited: field.metronome.tempoTextFieldText = text
        // No number has a space in it.
        Keys.onSpacePressed: event => event.accepted = true
        Keys.onReturnPressed: field.leave()
        Keys.onEnterPressed: field.leave()
        Keys.onEscapePressed: {
            field.metronome.tempoTextFieldText = "";
            field.leave();
        }

        Binding {
            input.text: field.metronome.tempoTextFieldText
        }
    }

    FocusRing {
        visible: field.editing
        gap: 0
        radius: Theme.cardRadius
    }

    // Lets go of the keyboard; the screen's own keys work again.
    function leave() {
        input.focus = false;
    }
}
