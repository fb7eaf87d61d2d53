import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The saved tempos of an item, to choose one.
ActionSheet {
    required property PracticeViewModel practice

    objectName: "bookmarks_sheet"
    title: "Tempo Bookmarks"
    options: practice.bookmarkOptions
    columns: Theme.textScale > 1.3 ? 1 : 2
    onChosen: index => practice.chooseBookmark(index)
}
