import QtQuick
import Tamsel.App
import Tamsel.Ui

// Stands at the top of the window while a change is not on disk.
Banner {
    id: warning

    required property ContentViewModel content

    objectName: "storage_warning"
    text: content.storageWarning
}
