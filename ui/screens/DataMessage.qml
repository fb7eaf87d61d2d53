import QtQuick
import Tamsel.App
import Tamsel.Ui

// What came of the last action on all data, or that one is under way.
TextLabel {
    required property DataViewModel journal

    objectName: "data_message"
    visible: text !== ""
    horizontalAlignment: Text.AlignHCenter
    wrapMode: Text.Wrap
    lineHeight: 1.25
    text: journal.statusText
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
