import QtQuick
import Tamsel.List
import Tamsel.Ui

// Asks for the name of a new practice item. The item is made when the dialog closes with a text in it, so Cancel empties
// the text first.
AlertDialog {
    id: dialog

    required property PracticeListViewModel list

    objectName: "add_item_dialog"
    shown: list.addExerciseAlertIsPresented
    title: "Add practice item"
    placeholder: "e.g. \"C Major Scales\""
    confirmText: "Add"
    entryText: list.addExerciseAlertTextFieldText
    onEntryEdited: text => list.addExerciseAlertTextFieldText = text
    onConfirmed: list.addExerciseAlertIsPresented = false
    onDismissed: {
        list.addExerciseAlertTextFieldText = "";
        list.addExerciseAlertIsPresented = false;
    }
}
