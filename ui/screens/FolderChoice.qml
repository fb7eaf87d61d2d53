import QtQuick
import QtQuick.Dialogs
import Tamsel.App

// The desktop's own dialog for choosing the folder of the backups.
Item {
    id: choice

    required property BackupsViewModel backups

    function open() {
        dialog.open();
    }

    FolderDialog {
        id: dialog

        objectName: "backup_folder_dialog"
        title: "Where backups are kept"
        onAccepted: choice.backups.chooseFolder(selectedFolder)
    }
}
