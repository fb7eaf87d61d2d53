import QtQuick
import Tamsel.Ui

// A raised card with one row for each entry of a short list. Long lists belong into a ListView.
Item {
    id: card

    property alias model: repeater.model
    property alias delegate: repeater.delegate
    readonly property alias count: repeater.count

    implicitHeight: rows.height

    Surface {
        anchors.fill: parent
    }

    Column {
        id: rows

        width: parent.width

        Repeater {
            id: repeater
        }
    }
}
