pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The tools of one item, the ways to its history and notes, and today's sessions of it.
Item {
    id: tools

    required property PracticeViewModel practice

    // Side by side unless the text is so large that the clocks would not be readable.
    readonly property bool stacked: Theme.textScale > 1.35
    readonly property int cardWidth: stacked ? width : Math.floor((width - clocks.spacing) / 2)
    // A tile that would stand alone in its row has the whole of it.
    readonly property int counterWidth: practice.hasThumbsUp && practice.hasThumbsDown ? cardWidth : width
    readonly property int tileCount: (practice.hasRhythms ? 1 : 0) + (practice.hasTapTempo ? 1 : 0)
                                     + (practice.hasTempoBookmarks ? 1 : 0) + (practice.hasQuickNotes ? 1 : 0)
    readonly property Item lastTile: practice.hasQuickNotes ? quickNote : practice.hasTempoBookmarks ? bookmarks
                                                                        : practice.hasTapTempo ? tap : rhythms

    function widthOf(tile: Item): int {
        return tileCount % 2 === 1 && tile === lastTile ? width : cardWidth;
    }

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

        Flow {
            width: parent.width
            spacing: Theme.mediumSpacing
            visible: tools.practice.hasThumbsUp || tools.practice.hasThumbsDown

            CounterTile {
                objectName: "thumbs_up_counter"
                width: tools.counterWidth
                visible: tools.practice.hasThumbsUp
                text: tools.practice.thumbsUpLabel
                iconName: "hand.thumbsup"
                ink: Theme.thumbsUp
                countText: tools.practice.thumbsUpText
                hint: "Hold to clear"
                hintName: "Clear thumbs up counter"
                hintIdentifier: "clear_thumbs_up_counter"
                onClicked: tools.practice.thumbsUpTapped()
                onLongPressed: tools.practice.thumbsUpLongPressed()
            }

            CounterTile {
                objectName: "thumbs_down_counter"
                width: tools.counterWidth
                visible: tools.practice.hasThumbsDown
                text: tools.practice.thumbsDownLabel
                iconName: "hand.thumbsdown"
                ink: Theme.thumbsDown
                countText: tools.practice.thumbsDownText
                hint: "Hold to clear"
                hintName: "Clear thumbs down counter"
                hintIdentifier: "clear_thumbs_down_counter"
                onClicked: tools.practice.thumbsDownTapped()
                onLongPressed: tools.practice.thumbsDownLongPressed()
            }
        }

        Flow {
            width: parent.width
            spacing: Theme.mediumSpacing
            visible: tools.tileCount > 0

            ToolTile {
                id: rhythms

                objectName: "beat_patterns_button"
                width: tools.widthOf(rhythms)
                visible: tools.practice.hasRhythms
                text: "beat patterns"
                iconName: "music.quarternote.3"
                caption: "Rhythm"
                detail: tools.practice.rhythmText
                Accessible.description: tools.practice.rhythmText
                onClicked: rhythmsSheet.shown = true
            }

            ToolTile {
                id: tap

                objectName: "tap_tempo_button"
                width: tools.widthOf(tap)
                visible: tools.practice.hasTapTempo
                text: "Tap Tempo"
                iconName: "hand.tap"
                caption: "Tap Tempo"
                detail: "Tap the beat"
                onStruck: tools.practice.tapTempoTapped()
            }

            ToolTile {
                id: bookmarks

                objectName: "tempo_bookmarks_button"
                width: tools.widthOf(bookmarks)
                visible: tools.practice.hasTempoBookmarks
                text: tools.practice.bookmarkLabel
                iconName: tools.practice.tempoIsBookmarked ? "bookmark.fill" : "bookmark"
                ink: tools.practice.tempoIsBookmarked ? Theme.accent : Theme.text
                caption: "Bookmark"
                hint: "Hold for list"
                hintName: "Show tempo bookmarks"
                hintIdentifier: "show_tempo_bookmarks"
                hasLongPress: true
                onClicked: tools.practice.bookmarkTapped()
                onLongPressed: bookmarksSheet.shown = tools.practice.bookmarksLongPressed()
            }

            ToolTile {
                id: quickNote

                objectName: "quick_note_button"
                width: tools.widthOf(quickNote)
                visible: tools.practice.hasQuickNotes
                text: "Add note"
                iconName: "text.badge.plus"
                caption: "Note"
                hint: "Hold for list"
                hintName: "Show quick snippets"
                hintIdentifier: "show_quick_snippets"
                hasLongPress: true
                onClicked: tools.practice.quickNoteTapped()
                onLongPressed: snippetsSheet.shown = true
            }
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
        id: rhythmsSheet

        file: Qt.resolvedUrl("RhythmsSheet.qml")
        given: ({"practice": tools.practice, "opener": rhythmsSheet})
    }

    OnDemand {
        id: bookmarksSheet

        file: Qt.resolvedUrl("BookmarksSheet.qml")
        given: ({"practice": tools.practice, "opener": bookmarksSheet})
    }

    OnDemand {
        id: snippetsSheet

        file: Qt.resolvedUrl("SnippetsSheet.qml")
        given: ({"practice": tools.practice, "opener": snippetsSheet})
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
