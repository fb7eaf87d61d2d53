pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.App
import Tamsel.Ui

// The backups, to look at and to bring one back.
SheetPage {
    id: sheet

    required property DataViewModel journal

    readonly property BackupsViewModel backups: journal.backups

    objectName: "backups_sheet"
    title: "Backups"
    shown: backups.isPresented
    onDismissed: backups.isPresented = false

    TextLabel {
        width: parent.width
        wrapMode: Text.Wrap
        lineHeight: 1.25
        kind: TextLabel.Secondary
        text: sheet.backups.explanation
    }

    DataMessage {
        width: parent.width
        journal: sheet.journal
    }

    TextLabel {
        objectName: "backups_warning"
        width: parent.width
        visible: text !== ""
        wrapMode: Text.Wrap
        color: Theme.destructive
        text: sheet.backups.warning
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }

    TextLabel {
        objectName: "backups_empty"
        width: parent.width
        visible: text !== ""
        wrapMode: Text.Wrap
        text: sheet.backups.emptyText
    }

    BackupRows {
        width: parent.width
        visible: sheet.backups.rows.length > 0
        rows: sheet.backups.rows
        actionText: "Restore"
        enabled: !sheet.journal.isBusy
        onChosen: index => sheet.journal.restore(index)
    }

    TextLabel {
        width: parent.width
        topPadding: Theme.smallSpacing
        kind: TextLabel.SecondaryStrong
        text: "Kept in"
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    TextLabel {
        objectName: "backups_folder"
        width: parent.width
        wrapMode: Text.WrapAnywhere
        text: sheet.backups.folderText
    }

    PillButton {
        objectName: "backups_folder_button"
        width: parent.width
        text: "Choose another folder …"
        onClicked: {
            choice.shown = true;
            choice.item.open(); // qmllint disable
        }
    }

    PillButton {
        objectName: "backups_standard_folder_button"
        width: parent.width
        visible: sheet.backups.folderIsChosen
        text: "Back to Tamsel's own folder"
        onClicked: sheet.backups.useStandardFolder()
    }

    OnDemand {
        id: choice

        visible: false
        file: Qt.resolvedUrl("FolderChoice.qml")
        given: ({"backups": sheet.backups})
    }
}
