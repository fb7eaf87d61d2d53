import QtQuick
import Tamsel.App
import Tamsel.Ui

// Asks what is to become of a practice that was cut off. Escape puts it off.
PopupBase {
    id: dialog

    required property LeftPracticeViewModel leftPractice

    // Not before the window's screens have taken the keyboard, so that they do not take it from the dialog.
    property bool ready: false

    function begin() {
        ready = true;
    }

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0

    objectName: "left_practice_dialog"
    shown: ready && leftPractice.isPresented
    width: Math.min(Theme.dialogWidth * Math.max(1, Theme.textScale * 0.8), roomWidth - 2 * Theme.screenMargin)
    height: Math.min(implicitHeight, roomHeight - 2 * Theme.smallSpacing)
    implicitHeight: Math.ceil(page.height) + 2 * padding
    x: Math.round((roomWidth - width) / 2)
    y: Math.round((roomHeight - height) / 2)

    Component.onCompleted: Qt.callLater(begin) // qmllint disable
    onOpened: scope.forceActiveFocus(Qt.PopupFocusReason)
    onDismissed: leftPractice.decideLater()

    FocusScope {
        id: scope

        anchors.fill: parent
        Accessible.role: Accessible.Dialog
        Accessible.name: dialog.leftPractice.title

        Flickable {
            anchors.fill: parent
            contentHeight: page.height
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: page

                width: parent.width
                spacing: Theme.mediumSpacing

                TextLabel {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    kind: TextLabel.Heading
                    text: dialog.leftPractice.title
                }

                TextLabel {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    lineHeight: 1.25
                    text: dialog.leftPractice.text
                }

                PillButton {
                    objectName: "left_practice_keep_button"
                    width: parent.width
                    look: PillButton.Prominent
                    text: "Keep"
                    onClicked: dialog.leftPractice.keep()
                }

                PillButton {
                    objectName: "left_practice_discard_button"
                    width: parent.width
                    look: PillButton.Destructive
                    text: "Discard"
                    onClicked: dialog.leftPractice.discard()
                }
            }
        }
    }
}
