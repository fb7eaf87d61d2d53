import QtQuick
import Tamsel.Ui

// Asks for one line of text. It shows `entryText` and reports what is typed; its owner closes it.
PopupBase {
    id: dialog

    property string title
    property string placeholder
    property string entryText
    property string confirmText
    property string cancelText: "Cancel"

    signal entryEdited(text: string)
    signal confirmed()

    // Above the middle, so that the keyboard of a phone leaves it free.
    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0

    x: Math.round((roomWidth - width) / 2)
    y: Math.round(Math.max(Theme.mediumSpacing, (roomHeight - height) * 0.25))
    width: Math.min(Theme.dialogWidth * Math.max(1, Theme.textScale * 0.8), roomWidth - 2 * Theme.screenMargin)

    onOpened: entry.forceActiveFocus(Qt.PopupFocusReason)

    implicitHeight: Math.ceil(page.height) + topPadding + bottomPadding

    Column {
        id: page

        width: dialog.availableWidth
        spacing: Theme.mediumSpacing
        Accessible.role: Accessible.Dialog
        Accessible.name: dialog.title

        TextLabel {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            kind: TextLabel.Heading
            text: dialog.title
        }

        TextEntry {
            id: entry

            objectName: "alert_text_field"
            width: parent.width
            placeholderText: dialog.placeholder
            Accessible.name: dialog.title
            onTextEdited: dialog.entryEdited(text)
            onAccepted: dialog.confirmed()

            Binding {
                entry.text: dialog.entryText
            }
        }

        Row {
            id: buttons

            readonly property int share: Math.floor((width - spacing) / 2)

            width: parent.width
            spacing: Theme.spacing

            PillButton {
                objectName: "alert_cancel_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                text: dialog.cancelText
                onClicked: dialog.dismissed()
            }

            PillButton {
                objectName: "alert_confirm_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                look: PillButton.Prominent
                text: dialog.confirmText
                onClicked: dialog.confirmed()
            }
        }
    }
}
