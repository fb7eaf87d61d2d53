pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// A card with a row for each backup; those that cannot be read cannot be chosen.
RowsCard {
    id: card

    property var rows: []
    property string actionText

    signal chosen(index: int)

    model: rows
    delegate: ListRow {
        required property var modelData
        required property int index

        objectName: modelData.identifier
        width: card.width
        enabled: modelData.isUsable
        text: modelData.title
        detail: modelData.detail
        // Large text needs the room.
        trailing: modelData.isUsable && Theme.textScale <= 1.3 ? card.actionText : ""
        last: index === card.count - 1
        onClicked: card.chosen(index)
    }
}
