import QtQuick
import Tamsel.Metronome
import Tamsel.Ui

// The metronome in one line, for screens on which it is not the main thing.
Item {
    id: bar

    required property MetronomeViewModel metronome
    // Where Backtab leads from the first button.
    property Item above: null
    readonly property Item firstButton: minus

    // Less is on the left and more on the right in every script, as on any metronome.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true
    implicitHeight: Math.max(60, tempo.implicitHeight + Theme.smallSpacing)

    Surface {
        anchors.fill: parent
        radius: height / 2
    }

    RoundButton {
        id: minus

        objectName: "minus button"
        anchors.left: parent.left
        anchors.leftMargin: Theme.smallSpacing
        anchors.verticalCenter: parent.verticalCenter
        text: "minus button"
        KeyNavigation.backtab: bar.above
        iconName: "minus"
        size: RoundButton.Small
        flat: true
        hasLongPress: true
        longPressText: "Long press for a big step"
        onClicked: bar.metronome.minusTapped()
        onLongPressed: bar.metronome.minusLongPressed()
    }

    TempoField {
        id: tempo

        anchors.left: minus.right
        anchors.verticalCenter: parent.verticalCenter
        width: Math.round(72 * Math.min(1.4, Theme.textScale))
        pixelSize: Theme.numberSize
        metronome: bar.metronome
    }

    RoundButton {
        id: plus

        objectName: "plus button"
        anchors.left: tempo.right
        anchors.verticalCenter: parent.verticalCenter
        text: "plus button"
        iconName: "plus"
        size: RoundButton.Small
        flat: true
        hasLongPress: true
        longPressText: "Long press for a big step"
        onClicked: bar.metronome.plusTapped()
        onLongPressed: bar.metronome.plusLongPressed()
    }

    TextLabel {
        id: tapWord

        visible: false
        kind: TextLabel.Strong
        text: "Tap"
    }

    // A picture where the word has no room.
    PillButton {
        readonly property real room: play.x - x - Theme.tightSpacing
        readonly property bool wordFits: Math.ceil(tapWord.implicitWidth) + leftPadding + rightPadding <= room

        objectName: "tap_tempo_button"
        anchors.left: plus.right
        anchors.leftMargin: Theme.tightSpacing
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, room)
        text: "Tap Tempo"
        caption: wordFits ? tapWord.text : ""
        iconName: wordFits ? "" : "hand.tap"
        look: PillButton.Plain
        leftPadding: Theme.spacing
        rightPadding: Theme.spacing
        onStruck: bar.metronome.tapTempoTapped()
    }

    RoundButton {
        id: play

        objectName: "play pause button"
        anchors.right: parent.right
        anchors.rightMargin: Theme.smallSpacing
        anchors.verticalCenter: parent.verticalCenter
        text: "play pause button"
        iconName: bar.metronome.isPlaying ? "pause" : "play"
        size: RoundButton.Small
        prominent: true
        bellOn: bar.metronome.isVisualBellOn
        Accessible.description: bar.metronome.isPlaying ? "playing" : "stopped"
        onClicked: bar.metronome.playPauseTapped()
    }
}
