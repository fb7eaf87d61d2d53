import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The counters that an item has.
Flow {
    id: tiles

    required property PracticeViewModel practice

    // A tile that would stand alone in its row has the whole of it.
    readonly property int tileWidth: Theme.tilesStacked || !practice.hasThumbsUp || !practice.hasThumbsDown
                                     ? width : Math.floor((width - spacing) / 2)

    spacing: Theme.mediumSpacing

    CounterTile {
        objectName: "thumbs_up_counter"
        width: tiles.tileWidth
        visible: tiles.practice.hasThumbsUp
        text: tiles.practice.thumbsUpLabel
        iconName: "hand.thumbsup"
        ink: Theme.thumbsUp
        countText: tiles.practice.thumbsUpText
        hint: "Hold to clear"
        hintName: "Clear thumbs up counter"
        hintIdentifier: "clear_thumbs_up_counter"
        onClicked: tiles.practice.thumbsUpTapped()
        onLongPressed: tiles.practice.thumbsUpLongPressed()
    }

    CounterTile {
        objectName: "thumbs_down_counter"
        width: tiles.tileWidth
        visible: tiles.practice.hasThumbsDown
        text: tiles.practice.thumbsDownLabel
        iconName: "hand.thumbsdown"
        ink: Theme.thumbsDown
        countText: tiles.practice.thumbsDownText
        hint: "Hold to clear"
        hintName: "Clear thumbs down counter"
        hintIdentifier: "clear_thumbs_down_counter"
        onClicked: tiles.practice.thumbsDownTapped()
        onLongPressed: tiles.practice.thumbsDownLongPressed()
    }
}
