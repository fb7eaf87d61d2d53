import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// A note written during practice.
NoteDialog {
    required property PracticeViewModel practice

    objectName: "quick_note_dialog"
    shown: practice.isShowingAddNoteTextField
    title: "New note"
    text: practice.addNoteTextFieldText
    canSave: practice.canSaveNote
    snippets: practice.snippetOptions
    onEdited: text => practice.addNoteTextFieldText = text
    onSaved: practice.saveNote()
    onCancelled: practice.dropNote()
    onDismissed: practice.isShowingAddNoteTextField = false
    onSnippetChosen: index => practice.insertSnippet(index)
}
