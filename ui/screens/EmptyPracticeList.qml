import QtQuick
import Tamsel.List
import Tamsel.Ui

// What the practice list shows before there is an item.
EmptyState {
    id: empty

    required property PracticeListViewModel list

    iconName: "musicNoteList"
    title: "Nothing to practise yet"
    explanation: "Add the pieces, scales and studies that you work on. Tamsel keeps the time you spend on each."
    actionText: "Add practice item"
    actionIdentifier: "add_first_item_button"
    onAction: list.addTapped()
}
