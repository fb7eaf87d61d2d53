import QtQuick
import QtQuick.Dialogs
import Tamsel.App

// The desktop's own dialogs for choosing a file, where it has them.
Item {
    id: choice

    required property DataViewModel journal

    function save() {
        saveDialog.selectedFile = journal.suggestedFile;
        saveDialog.open();
    }

    function open() {
        openDialog.open();
    }

    FileDialog {
        id: saveDialog

        objectName: "save_file_dialog"
        title: "Save your data"
        fileMode: FileDialog.SaveFile
        nameFilters: choice.journal.fileFilters
        defaultSuffix: choice.journal.fileExtension
        onAccepted: choice.journal.save(selectedFile)
    }

    FileDialog {
        id: openDialog

        objectName: "open_file_dialog"
        title: "Import a file"
        fileMode: FileDialog.OpenFile
        nameFilters: choice.journal.fileFilters
        onAccepted: choice.journal.importFrom(selectedFile)
    }
}
