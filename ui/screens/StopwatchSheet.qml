import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// What can be done with a stopwatch that has been started.
ActionSheet {
    id: sheet

    required property PracticeViewModel practice

    objectName: "stopwatch_sheet"
    title: "Stopwatch"
    message: "Save records the time practised, Cancel drops it."
    options: [
        {"title": "Save", "identifier": "stopwatch_save"},
        {"title": "Cancel", "identifier": "stopwatch_cancel", "destructive": true}
    ]
    onChosen: index => {
        if (index === 0)
            practice.finishStopwatch();
        else
            practice.cancelStopwatch();
    }
}
