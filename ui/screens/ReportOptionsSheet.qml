import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// The options of a report: whether its chart shows the average.
PopupBase {
    id: sheet

    // Says whether the sheet is to be seen.
    required property OnDemand opener
    required property bool averageShown

    signal averageToggled()

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0
    readonly property bool atEdge: roomWidth < Theme.twoColumnWidth

    shown: opener.shown
    width: Math.min(roomWidth - 2 * Theme.smallSpacing, 420)
    x: Math.round((roomWidth - width) / 2)
    y: Math.round(atEdge ? roomHeight - height - Theme.smallSpacing : (roomHeight - height) / 2)
    implicitHeight: Math.ceil(choices.height) + topPadding + bottomPadding

    onDismissed: opener.shown = false
    onOpened: toggle.forceActiveFocus(Qt.PopupFocusReason)

    FocusScope {
        anchors.fill: parent
        Accessible.role: Accessible.PopupMenu
        Accessible.name: title.text

        Column {
            id: choices

            width: parent.width
            spacing: Theme.mediumSpacing

            TextLabel {
                id: title

                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                kind: TextLabel.Heading
                text: "Options"
            }

            T.CheckDelegate {
                id: toggle

                objectName: "show_average"
                width: parent.width
                height: Math.max(Theme.touchTarget, Math.ceil(words.implicitHeight) + 2 * Theme.smallSpacing)
                text: "Show Average"
                checked: sheet.averageShown
                focusPolicy: Qt.TabFocus
                Accessible.name: text
                Accessible.onPressAction: flip()
                Accessible.onToggleAction: flip()
                Keys.onReturnPressed: flip()
                Keys.onEnterPressed: flip()
                onToggled: flip()

                function flip() {
                    sheet.opener.shown = false;
                    sheet.averageToggled();
                }

                background: Surface {
                    relief: toggle.down ? Surface.Pressed : Surface.Raised
                    depth: Theme.Shallow
                    radius: height / 2

                    FocusRing {
                        visible: toggle.activeFocus
                        radius: height / 2
                    }
                }

                TextLabel {
                    id: words

                    anchors.left: parent.left
                    anchors.leftMargin: Theme.largeSpacing
                    anchors.right: check.left
                    anchors.verticalCenter: parent.verticalCenter
                    kind: TextLabel.Strong
                    text: toggle.text
                    Accessible.ignored: true
                }

                Icon {
                    id: check

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.largeSpacing
                    anchors.verticalCenter: parent.verticalCenter
                    visible: toggle.checked
                    name: "checkmark"
                    color: Theme.accent
                }
            }
        }
    }
}
