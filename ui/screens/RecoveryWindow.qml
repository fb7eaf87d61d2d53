import QtQuick
import Tamsel.App
import Tamsel.Ui

// Comes instead of the app when its data cannot be used.
Window {
    id: window

    required property RecoveryViewModel recovery

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    title: "Tamsel"
    width: 390
    height: 844
    minimumWidth: 320
    minimumHeight: 320
    color: Theme.ground
    visible: true

    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding {
        target: Appearance
        property: "devicePixelRatio"
        value: window.Screen.devicePixelRatio
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: window.close()
    }

    FocusScope {
        anchors.fill: parent
        focus: true

        Flickable {
            id: scroller

            anchors.fill: parent
            contentHeight: page.height + 2 * Theme.hugeSpacing
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: page

                x: window.margin
                y: Theme.hugeSpacing
                width: window.width - 2 * window.margin
                spacing: Theme.largeSpacing

                Icon {
                    name: "warning"
                    size: Theme.hugeIcon
                    color: Theme.secondaryText
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    kind: TextLabel.Title
                    text: window.recovery.title
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    lineHeight: 1.25
                    text: window.recovery.text
                }

                TextLabel {
                    objectName: "recovery_failure"
                    width: parent.width
                    visible: text !== ""
                    wrapMode: Text.Wrap
                    color: Theme.destructive
                    text: window.recovery.failure
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                }

                BackupRows {
                    width: parent.width
                    rows: window.recovery.rows
                    actionText: "Use this"
                    onChosen: index => window.recovery.restore(index)
                }

                TextLabel {
                    objectName: "recovery_problem"
                    width: parent.width
                    wrapMode: Text.WrapAnywhere
                    kind: TextLabel.Caption
                    text: window.recovery.problem
                }

                PillButton {
                    objectName: "recovery_quit_button"
                    text: "Quit"
                    onClicked: window.close()
                }
            }

            FocusFollower {
                scroller: scroller
            }
        }
    }
}
