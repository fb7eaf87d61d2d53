import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The lengths a timer can have or, while one exists, what can be done with it.
ActionSheet {
    id: sheet

    required property PracticeViewModel practice

    readonly property var runOptions: [
        {"title": "Save", "identifier": "timer_save"},
        {"title": "Cancel", "identifier": "timer_cancel", "destructive": true}
    ]

    objectName: "timer_sheet"
    title: "Timer"
    message: practice.timerExists ? "Save records the time practised, Cancel drops it." : ""
    options: practice.timerExists ? runOptions : practice.timerMenuOptions
    columns: practice.timerExists ? 1 : Theme.textScale > 1.3 ? 2 : 3
    onChosen: index => {
        if (!practice.timerExists)
            practice.startTimer(practice.timerMenuOptions[index].minutes);
        else if (index === 0)
            practice.saveTimer();
        else
            practice.cancelTimer();
    }
}
