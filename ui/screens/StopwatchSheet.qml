import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// What can be done with a stopwatch that has been started.
ActionSheet {
    id: sheet

    required property PracticeViewModel practice

    property bool shown: false

    objectName: "stopwatch_sheet"
    visible: shown
    title: "Stopwatch"
    options: [
        {"title": "Save", "identifier": "stopwatch_save"},
        {"title": "Cancel", "identifier": "stopwatch_cancel", "destructive": true}
    ]
    onDismissed: shown = false
    onChosen: index => {
        shown = false;
        if (index === 0)
            practice.finishStopwatch();
        else
            practice.cancelStopwatch();
    }
}
