pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// A choice of actions: a sheet at the lower edge of a phone, a card in the middle of a larger window. Each option is a
// value with a `title` and an `identifier`, perhaps a `detail`, a `destructive` or `selected` flag where that is true, and
// the name of an `image` where it has one: a check mark stands for what is chosen already.
// It closes with a choice, Escape or a press outside.
PopupBase {
    id: sheet

    // Says whether the sheet is to be seen.
    required property OnDemand opener
    property string title
    // What the choice means, where the titles alone could be taken amiss.
    property string message
    property var options: []
    property int columns: 1

    signal chosen(index: int)

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0
    readonly property bool atEdge: roomWidth < Theme.twoColumnWidth

    shown: opener.shown
    width: Math.min(roomWidth - 2 * Theme.smallSpacing, 420)
    x: Math.round((roomWidth - width) / 2)
    y: Math.round(atEdge ? roomHeight - height - Theme.smallSpacing : (roomHeight - height) / 2)
    height: Math.min(implicitHeight, roomHeight - 2 * Theme.smallSpacing)
    implicitHeight: Math.ceil(choices.height) + topPadding + bottomPadding

    onDismissed: opener.shown = false
    // Each time from the beginning, wherever the keyboard was the last time.
    onOpened: {
        for (let i = 0; i < repeater.count; ++i)
            repeater.itemAt(i).focus = false;
        keys.forceActiveFocus(Qt.PopupFocusReason);
    }

    FocusScope {
        id: keys

        anchors.fill: parent
        Accessible.role: Accessible.PopupMenu
        Accessible.name: sheet.title
        Keys.onDownPressed: moveFocus(sheet.columns)
        Keys.onUpPressed: moveFocus(-sheet.columns)
        Keys.onRightPressed: moveFocus(mirrored ? -1 : 1)
        Keys.onLeftPressed: moveFocus(mirrored ? 1 : -1)

        readonly property bool mirrored: LayoutMirroring.enabled

        function moveFocus(step: int) {
            let from = -1;
            for (let i = 0; i < repeater.count; ++i)
                from = repeater.itemAt(i).activeFocus ? i : from;
            const to = from < 0 ? (step > 0 ? 0 : repeater.count - 1)
                                : Math.max(0, Math.min(repeater.count - 1, from + step));
            repeater.itemAt(to).forceActiveFocus(Qt.TabFocusReason);
        }

        Flickable {
            anchors.fill: parent
            anchors.margins: -Theme.spacing
            contentHeight: choices.height + 2 * Theme.spacing
            interactive: contentHeight > height
            clip: interactive
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: choices

                x: Theme.spacing
                y: Theme.spacing
                width: parent.width - 2 * Theme.spacing
                spacing: Theme.mediumSpacing

                TextLabel {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    maximumLineCount: 3
                    kind: TextLabel.Heading
                    text: sheet.title
                }

                TextLabel {
                    width: parent.width
                    visible: text !== ""
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    kind: TextLabel.Secondary
                    text: sheet.message
                }

                Grid {
                    id: grid

                    width: parent.width
                    columns: sheet.columns
                    columnSpacing: Theme.spacing
                    rowSpacing: Theme.spacing

                    Repeater {
                        id: repeater

                        model: sheet.options

                        PillButton {
                            required property var modelData
                            required property int index

                            objectName: modelData.identifier
                            width: Math.floor((grid.width - (sheet.columns - 1) * grid.columnSpacing) / sheet.columns)
                            leftPadding: Theme.smallSpacing
                            rightPadding: Theme.smallSpacing
                            text: modelData.title
                            detail: modelData.detail ?? ""
                            iconName: modelData.image ?? ""
                            Accessible.description: iconName === "checkmark" || modelData.selected === true ? "chosen"
                                                                                                            : detail
                            look: modelData.destructive === true ? PillButton.Destructive
                                : modelData.selected === true ? PillButton.Prominent : PillButton.Raised
                            onClicked: {
                                sheet.opener.shown = false;
                                sheet.chosen(index);
                            }
                        }
                    }
                }
            }
        }
    }
}
