import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// What can be saved as a note with one tap.
ActionSheet {
    required property PracticeViewModel practice

    objectName: "snippets_sheet"
    title: "Quick Notes"
    message: "Saves a note that says how your practice stands."
    options: practice.snippetOptions
    onChosen: index => practice.chooseSnippet(index)
}
