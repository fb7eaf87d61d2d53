import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The lengths a timer can have or, while one exists, what can be done with it.
ActionSheet {
    id: sheet

    required property PracticeViewModel practice

    property bool shown: false

    readonly property var runOptions: [
        {"title": "Save", "identifier": "timer_save"},
        {"title": "Cancel", "identifier": "timer_cancel", "destructive": true}
    ]

    objectName: "timer_sheet"
    visible: shown
    title: "Timer"
    options: practice.timerExists ? runOptions : practice.timerMenuOptions
    columns: practice.timerExists ? 1 : Theme.textScale > 1.3 ? 2 : 3
    onDismissed: shown = false
    onChosen: index => {
        shown = false;
        if (!practice.timerExists)
            practice.startTimer(practice.timerMenuOptions[index].minutes);
        else if (index === 0)
            practice.saveTimer();
        else
            practice.cancelTimer();
    }
}
