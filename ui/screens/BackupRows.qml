pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.App
import Tamsel.Ui

// A card with a row for each backup; those that cannot be read cannot be chosen.
RowsCard {
    id: card

    property list<backupRow> rows
    property string actionText

    signal chosen(index: int)

    model: rows
    delegate: ListRow {
        required property backupRow modelData
        required property int index

        objectName: modelData.identifier
        width: card.width
        enabled: modelData.isUsable
        text: modelData.title
        detail: modelData.detail
        trailing: modelData.isUsable ? card.actionText : ""
        last: index === card.count - 1
        onClicked: card.chosen(index)
    }
}
