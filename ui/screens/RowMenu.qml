import QtQuick
import Tamsel.List
import Tamsel.Ui

// What can be done with one row of the practice list.
ActionSheet {
    id: sheet

    required property PracticeListViewModel list

    objectName: "row_menu"
    title: list.rowMenuTitle
    options: list.rowMenuActions
    onChosen: index => list.actFromMenu(index)
    onDismissed: list.closeRowMenu()
}
