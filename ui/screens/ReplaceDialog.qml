pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.App
import Tamsel.Ui

// Shows what a document or a backup would replace, and asks.
PopupBase {
    id: dialog

    required property DataViewModel journal

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0

    objectName: "replace_dialog"
    shown: journal.previewIsPresented
    width: Math.min(Theme.dialogWidth * Math.max(1, Theme.textScale * 0.8), roomWidth - 2 * Theme.screenMargin)
    height: Math.min(implicitHeight, roomHeight - 2 * Theme.smallSpacing)
    implicitHeight: Math.ceil(page.height + buttons.height) + 2 * padding + Theme.mediumSpacing
    x: Math.round((roomWidth - width) / 2)
    y: Math.round((roomHeight - height) / 2)

    onOpened: scope.forceActiveFocus(Qt.PopupFocusReason)
    onDismissed: journal.cancelReplace()

    FocusScope {
        id: scope

        anchors.fill: parent
        Accessible.role: Accessible.Dialog
        Accessible.name: dialog.journal.previewTitle

        Flickable {
            id: scroller

            width: parent.width
            height: parent.height - buttons.height - Theme.mediumSpacing
            contentHeight: page.height
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            Column {
                id: page

                width: scroller.width
                spacing: Theme.mediumSpacing

                TextLabel {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    kind: TextLabel.Heading
                    text: dialog.journal.previewTitle
                }

                Row {
                    width: parent.width

                    Repeater {
                        model: dialog.journal.previewHeadings

                        TextLabel {
                            required property string modelData

                            width: page.width / 2
                            wrapMode: Text.Wrap
                            kind: TextLabel.SecondaryStrong
                            text: modelData
                        }
                    }
                }

                Repeater {
                    model: dialog.journal.previewRows

                    Item {
                        id: row

                        required property var modelData
                        required property int index

                        objectName: "replace_row_" + index
                        width: page.width
                        height: lines.height
                        Accessible.role: Accessible.StaticText
                        Accessible.name: modelData.spokenText

                        Column {
                            id: lines

                            width: parent.width

                            TextLabel {
                                width: parent.width
                                wrapMode: Text.Wrap
                                kind: TextLabel.Caption
                                text: row.modelData.title
                                Accessible.ignored: true
                            }

                            Row {
                                width: parent.width

                                TextLabel {
                                    width: parent.width / 2
                                    rightPadding: Theme.smallSpacing
                                    wrapMode: Text.Wrap
                                    text: row.modelData.now
                                    Accessible.ignored: true
                                }

                                TextLabel {
                                    width: parent.width / 2
                                    wrapMode: Text.Wrap
                                    kind: TextLabel.Strong
                                    text: row.modelData.then
                                    Accessible.ignored: true
                                }
                            }
                        }
                    }
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    kind: TextLabel.Secondary
                    text: dialog.journal.previewText
                }
            }
        }

        Row {
            id: buttons

            readonly property int share: Math.floor((width - spacing) / 2)

            anchors.bottom: parent.bottom
            width: parent.width
            spacing: Theme.spacing

            PillButton {
                objectName: "replace_cancel_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                enabled: !dialog.journal.isBusy
                text: "Cancel"
                onClicked: dialog.journal.cancelReplace()
            }

            PillButton {
                objectName: "replace_confirm_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                enabled: !dialog.journal.isBusy
                look: PillButton.Destructive
                text: "Replace"
                onClicked: dialog.journal.replace()
            }
        }
    }
}
