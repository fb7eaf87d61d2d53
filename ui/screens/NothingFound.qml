import QtQuick
import Tamsel.List
import Tamsel.Ui

// What the practice list shows when no item is called what is searched for.
EmptyState {
    id: nothing

    required property PracticeListViewModel list

    iconName: "search"
    title: list.nothingFoundTitle
    explanation: "Neither among your items nor in the archive."
    actionText: list.addSearchedItemText
    actionIdentifier: "add_searched_item_button"
    onAction: list.addSearchedItem()
}
