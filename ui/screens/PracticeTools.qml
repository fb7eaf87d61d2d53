pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// Timer, stopwatch and today's sessions of one item.
Item {
    id: tools

    required property PracticeViewModel practice

    // Side by side unless the text is so large that the clocks would not be readable.
    readonly property bool stacked: Theme.textScale > 1.35
    readonly property int cardWidth: stacked ? width : Math.floor((width - clocks.spacing) / 2)

    implicitHeight: page.height

    Column {
        id: page

        width: parent.width
        spacing: Theme.mediumSpacing

        Grid {
            id: clocks

            columns: tools.stacked ? 1 : 2
            spacing: Theme.mediumSpacing

            ClockCard {
                objectName: "timer_button"
                width: tools.cardWidth
                enabled: tools.practice.timerExists || tools.practice.canStartTimer
                text: "Timer"
                iconName: "hourglass"
                clockText: tools.practice.timerText
                spokenText: tools.practice.timerSpokenText
                runExists: tools.practice.timerExists
                running: tools.practice.timerIsRunning
                progress: tools.practice.timerProgress
                toggleIdentifier: "timer_pause_button"
                onToggled: tools.practice.timerIsRunning ? tools.practice.pauseTimer() : tools.practice.resumeTimer()
                onClicked: timerSheet.shown = true
            }

            ClockCard {
                objectName: "stopwatch_button"
                width: tools.cardWidth
                enabled: tools.practice.stopwatchExists || tools.practice.canStartStopwatch
                text: "Stopwatch"
                iconName: "stopwatch"
                clockText: tools.practice.stopwatchText
                spokenText: tools.practice.stopwatchSpokenText
                runExists: tools.practice.stopwatchExists
                running: tools.practice.stopwatchIsRunning
                toggleIdentifier: "stopwatch_pause_button"
                onToggled: tools.practice.stopwatchIsRunning ? tools.practice.pauseStopwatch()
                                                             : tools.practice.resumeStopwatch()
                onClicked: {
                    if (tools.practice.stopwatchExists)
                        stopwatchSheet.shown = true;
                    else
                        tools.practice.startStopwatch();
                }
            }
        }

        TextLabel {
            objectName: "today_text"
            width: parent.width
            leftPadding: Theme.tightSpacing
            topPadding: Theme.tightSpacing
            kind: TextLabel.SecondaryStrong
            visible: text !== ""
            text: tools.practice.todayText
        }

        RowsCard {
            id: sessions

            width: parent.width
            visible: count > 0
            model: tools.practice.recentPracticeSessions
            delegate: SessionRow {
                required property var modelData
                required property int index

                objectName: modelData.identifier
                width: sessions.width
                title: modelData.title
                detail: modelData.detail
                last: index === sessions.count - 1
            }
        }
    }

    OnDemand {
        id: timerSheet

        file: Qt.resolvedUrl("TimerSheet.qml")
        given: ({"practice": tools.practice, "opener": timerSheet})
    }

    OnDemand {
        id: stopwatchSheet

        file: Qt.resolvedUrl("StopwatchSheet.qml")
        given: ({"practice": tools.practice, "opener": stopwatchSheet})
    }
}
