import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The rhythms that the metronome can click.
ActionSheet {
    required property PracticeViewModel practice

    objectName: "rhythms_sheet"
    title: "Subdivisions"
    options: practice.rhythmOptions
    columns: Theme.textScale > 1.3 ? 2 : 3
    onChosen: index => practice.chooseRhythm(index)
}
