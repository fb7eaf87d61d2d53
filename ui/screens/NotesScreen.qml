pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The notes of one item by day, newest first.
FocusScope {
    id: screen

    required property NotesViewModel notes

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    signal leaveRequested()

    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.New);
        if (event.accepted)
            screen.notes.addTapped();
    }

    // Has the keyboard while no control has it.
    Item {
        focus: true
    }

    NavigationHeader {
        id: header

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: "Notes"
        onBack: screen.leaveRequested()

        RoundButton {
            objectName: "add_note_button"
            text: "Add note"
            iconName: "plus"
            size: RoundButton.Small
            onClicked: screen.notes.addTapped()
        }
    }

    ListView {
        id: list

        objectName: "notes_list"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !screen.notes.isEmpty
        topMargin: Theme.smallSpacing
        bottomMargin: Theme.hugeSpacing + toast.height
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        model: screen.notes.rows
        delegate: NoteRow {
            required property string noteId

            x: screen.margin
            width: list.width - 2 * screen.margin
            onEdited: screen.notes.editTapped(noteId)
            onDeleted: screen.notes.deleteTapped(noteId)
        }
    }

    EdgeFade {
        anchors.top: list.top
        width: parent.width
        visible: list.visible && !list.atYBeginning
        atTop: true
    }

    FocusFollower {
        scroller: list
    }

    EmptyState {
        visible: screen.notes.isEmpty
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(header.height + Math.max(0, (screen.height - header.height - height) * 0.4))
        width: Math.min(screen.width - 2 * Theme.screenMargin, 320)
        iconName: "text.badge.plus"
        title: "No notes yet"
        explanation: "Write down what to watch next time: a fingering, a tempo, a passage. Notes stay with this item."
        actionText: "Write a note"
        actionIdentifier: "add_first_note_button"
        onAction: screen.notes.addTapped()
    }

    Toast {
        id: toast

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.mediumSpacing
        x: screen.margin
        width: screen.width - 2 * screen.margin
        notice: screen.notes.notice
    }

    NoteDialog {
        objectName: "note_editor"
        shown: screen.notes.isShowingEditor
        title: screen.notes.editorTitle
        text: screen.notes.editorText
        canSave: screen.notes.canSave
        onEdited: text => screen.notes.editorText = text
        onSaved: screen.notes.saveEditor()
        onCancelled: screen.notes.cancelEditor()
        onDismissed: screen.notes.closeEditor()
    }
}
