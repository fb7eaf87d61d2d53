pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The tools of one item, the ways to its history and notes, and today's sessions of it.
Item {
    id: tools

    required property PracticeViewModel practice

    // Side by side unless the text is so large that the clocks would not be readable.
    readonly property bool stacked: Theme.tilesStacked
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

        // Few items have all tools, many have none: what is not used is not made.
        OnDemand {
            width: parent.width
            visible: wanted
            wanted: tools.practice.hasThumbsUp || tools.practice.hasThumbsDown
            file: Qt.resolvedUrl("CounterTiles.qml")
            given: ({"practice": tools.practice})
        }

        OnDemand {
            width: parent.width
            visible: wanted
            wanted: tools.practice.hasRhythms || tools.practice.hasTapTempo || tools.practice.hasTempoBookmarks
                    || tools.practice.hasQuickNotes
            file: Qt.resolvedUrl("ToolTiles.qml")
            given: ({"practice": tools.practice})
        }

        Flow {
            width: parent.width
            spacing: Theme.smallSpacing

            PillButton {
                objectName: "history_button"
                look: PillButton.Plain
                leftPadding: Theme.tightSpacing
                rightPadding: Theme.mediumSpacing
                text: "History"
                onClicked: tools.practice.historyTapped()
            }

            PillButton {
                objectName: "notes_button"
                look: PillButton.Plain
                leftPadding: Theme.tightSpacing
                rightPadding: Theme.mediumSpacing
                text: tools.practice.notesText
                onClicked: tools.practice.notesTapped()
            }

            TextLabel {
                objectName: "today_text"
                width: implicitWidth
                height: Theme.touchTarget
                leftPadding: Theme.tightSpacing
                verticalAlignment: Text.AlignVCenter
                kind: TextLabel.SecondaryStrong
                visible: text !== ""
                text: tools.practice.todayText
            }
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

    OnDemand {
        shown: tools.practice.isShowingAddNoteTextField
        file: Qt.resolvedUrl("QuickNoteDialog.qml")
        given: ({"practice": tools.practice})
    }

    OnDemand {
        shown: tools.practice.isShowingSettings
        file: Qt.resolvedUrl("ExerciseSettingsSheet.qml")
        given: ({"practice": tools.practice})
    }
}
