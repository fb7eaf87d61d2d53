pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tamsel.Ui

// Where a note is written. It shows `text` and reports what is typed; its owner closes it. A press outside or Escape
// closes it without a word about what was typed, which its owner keeps.
PopupBase {
    id: dialog

    property string title
    property string text
    property bool canSave: false
    // What can be put into the text with a tap, as values with a `title` and an `identifier`.
    property var snippets: []

    signal edited(text: string)
    signal saved()
    signal cancelled()
    signal snippetChosen(index: int)

    readonly property real roomWidth: parent ? parent.width : 0
    readonly property real roomHeight: parent ? parent.height : 0

    x: Math.round((roomWidth - width) / 2)
    // Above the middle, so that the keyboard of a phone leaves it free.
    y: Math.round(Math.max(Theme.smallSpacing, (roomHeight - height) * 0.2))
    width: Math.min(Theme.dialogWidth * Math.max(1, Theme.textScale * 0.8), roomWidth - 2 * Theme.mediumSpacing)
    height: Math.min(implicitHeight, roomHeight - 2 * Theme.smallSpacing)
    implicitHeight: Math.ceil(heading.height + frame.wantedHeight + chips.height + buttons.height)
                    + 3 * column.spacing + topPadding + bottomPadding

    onOpened: {
        area.forceActiveFocus(Qt.PopupFocusReason);
        area.cursorPosition = area.length;
    }
    onAboutToHide: commit()

    // What an input method is still composing belongs to the text.
    function commit() {
        Qt.inputMethod.commit(); // qmllint disable
    }

    function save() {
        commit();
        dialog.saved();
    }

    Column {
        id: column

        width: dialog.availableWidth
        spacing: Theme.mediumSpacing
        Accessible.role: Accessible.Dialog
        Accessible.name: dialog.title

        TextLabel {
            id: heading

            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            kind: TextLabel.Heading
            text: dialog.title
        }

        Item {
            id: frame

            readonly property real wantedHeight: Math.max(2 * Theme.touchTarget,
                                                          area.contentHeight + 2 * Theme.spacing)

            width: parent.width
            height: Math.min(wantedHeight, dialog.height - dialog.topPadding - dialog.bottomPadding - heading.height
                                           - chips.height - buttons.height - 3 * column.spacing)

            Surface {
                anchors.fill: parent
                relief: Surface.Pressed
                depth: Theme.Shallow
                radius: Theme.cardRadius
            }

            FocusRing {
                visible: area.activeFocus
                gap: 0
                radius: Theme.cardRadius
            }

            Flickable {
                id: scroller

                anchors.fill: parent
                anchors.margins: Theme.tightSpacing
                boundsBehavior: Flickable.StopAtBounds
                clip: true

                T.TextArea.flickable: T.TextArea {
                    id: area

                    objectName: "note_text_field"
                    leftPadding: Theme.spacing
                    rightPadding: Theme.spacing
                    topPadding: Theme.smallSpacing
                    bottomPadding: Theme.smallSpacing
                    wrapMode: TextEdit.Wrap
                    textFormat: TextEdit.PlainText
                    color: Theme.text
                    selectionColor: Theme.accent
                    selectedTextColor: Theme.accentInk
                    selectByMouse: true
                    font.family: Theme.fontFamily
                    font.pixelSize: Theme.bodySize
                    cursorDelegate: Rectangle {
                        visible: area.cursorVisible
                        width: 2
                        color: Theme.accent
                    }
                    // Tab leads on, as everywhere; a note has no use for tabs.
                    Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                    Keys.onPressed: event => {
                        event.accepted = (event.modifiers & Qt.ControlModifier)
                                         && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
                        if (event.accepted)
                            dialog.save();
                    }
                    Accessible.name: dialog.title
                    onTextChanged: if (text !== dialog.text) dialog.edited(text)

                    Binding {
                        area.text: dialog.text
                    }
                }
            }
        }

        Flow {
            id: chips

            width: parent.width
            visible: repeater.count > 0
            height: visible ? implicitHeight : 0
            spacing: Theme.smallSpacing

            Repeater {
                id: repeater

                model: dialog.snippets

                PillButton {
                    required property var modelData
                    required property int index

                    objectName: "insert_" + modelData.identifier
                    width: Math.min(implicitWidth, chips.width)
                    leftPadding: Theme.spacing
                    rightPadding: Theme.spacing
                    text: modelData.title
                    longPressText: "Puts it into the note"
                    onClicked: {
                        dialog.commit();
                        dialog.snippetChosen(index);
                        area.cursorPosition = area.length;
                    }
                }
            }
        }

        Row {
            id: buttons

            readonly property int share: Math.floor((width - spacing) / 2)

            width: parent.width
            spacing: Theme.spacing

            PillButton {
                id: cancel

                objectName: "note_cancel_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                text: "Cancel"
                longPressText: "Drops what was typed"
                onClicked: dialog.cancelled()
            }

            PillButton {
                objectName: "note_save_button"
                width: buttons.share
                leftPadding: Theme.smallSpacing
                rightPadding: Theme.smallSpacing
                enabled: dialog.canSave || area.preeditText !== ""
                look: PillButton.Prominent
                text: "Save"
                onClicked: dialog.save()
            }
        }
    }
}
