import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The tools that an item has beside the counters, and the sheets that they open.
Item {
    id: tools

    required property PracticeViewModel practice

    readonly property int tileCount: (practice.hasRhythms ? 1 : 0) + (practice.hasTapTempo ? 1 : 0)
                                     + (practice.hasTempoBookmarks ? 1 : 0) + (practice.hasQuickNotes ? 1 : 0)
    readonly property Item lastTile: practice.hasQuickNotes ? quickNote : practice.hasTempoBookmarks ? bookmarks
                                                                        : practice.hasTapTempo ? tap : rhythms

    // A tile that would stand alone in its row has the whole of it.
    function widthOf(tile: Item): int {
        const alone = Theme.tilesStacked || tileCount % 2 === 1 && tile === lastTile;
        return alone ? width : Math.floor((width - flow.spacing) / 2);
    }

    implicitHeight: flow.height

    Flow {
        id: flow

        width: parent.width
        spacing: Theme.mediumSpacing

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
}
