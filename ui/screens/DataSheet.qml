import QtQuick
import Tamsel.App
import Tamsel.Ui

// All data as one document: out of the device and back in.
SheetPage {
    id: sheet

    required property DataViewModel journal

    objectName: "data_sheet"
    title: "Your data"
    shown: journal.sheetIsPresented
    onDismissed: journal.sheetIsPresented = false

    TextLabel {
        width: parent.width
        wrapMode: Text.Wrap
        lineHeight: 1.25
        kind: TextLabel.Secondary
        text: sheet.journal.explanation
    }

    DataMessage {
        width: parent.width
        journal: sheet.journal
    }

    PillButton {
        objectName: "data_undo_button"
        width: parent.width
        visible: sheet.journal.canUndo
        enabled: !sheet.journal.isBusy
        look: PillButton.Prominent
        text: sheet.journal.undoText
        onClicked: sheet.journal.undo()
    }

    PillButton {
        objectName: "data_save_button"
        width: parent.width
        enabled: !sheet.journal.isBusy
        iconName: "save"
        text: "Save to a file …"
        onClicked: choice.save()
    }

    PillButton {
        objectName: "data_copy_button"
        width: parent.width
        enabled: !sheet.journal.isBusy
        iconName: "copy"
        text: "Copy as text"
        onClicked: sheet.journal.copy()
    }

    PillButton {
        objectName: "data_import_button"
        width: parent.width
        enabled: !sheet.journal.isBusy
        iconName: "import"
        text: "Import a file …"
        onClicked: choice.open()
    }

    PillButton {
        objectName: "data_backups_button"
        width: parent.width
        enabled: !sheet.journal.isBusy
        iconName: "backups"
        text: "Backups …"
        onClicked: sheet.journal.backups.isPresented = true
    }

    Connections {
        target: sheet.journal

        function onCopied(text: string) {
            Clipboard.setText(text);
        }
    }

    OnDemand {
        id: choice

        function save() {
            shown = true;
            item.save(); // qmllint disable
        }

        function open() {
            shown = true;
            item.open(); // qmllint disable
        }

        visible: false
        file: Qt.resolvedUrl("FileChoice.qml")
        given: ({"journal": sheet.journal})
    }
}
