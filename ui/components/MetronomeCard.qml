import QtQuick
import Tamsel.Metronome
import Tamsel.Ui

// The metronome as the main thing of a screen, to be read and hit from a music stand: the tempo in huge figures between
// minus and plus, play between the bookmarks below and above, and the beats. The figures grow with the card.
Item {
    id: card

    required property MetronomeViewModel metronome
    property string caption
    // Whether the tempo is saved by its owner's word; the button for it says this, and has nothing to do without it.
    property bool savable: false
    property string saveText
    // The height that the screen has for the card; it takes more if it needs more.
    property int roomHeight: 0

    signal saveRequested()

    readonly property int edge: width < 340 ? Theme.spacing : Theme.mediumSpacing + 2
    // Where the screen offers height, everything is larger, to be read and hit from further away.
    readonly property real zoom: Math.max(1, Math.min(width / 350, roomHeight / 300, 1.6))
    readonly property int figureRoom: width - 2 * (edge + Math.round(Theme.largeButton * zoom) + Theme.spacing)
    readonly property int figureSize: Math.max(Theme.tempoSize, Math.min(figureRoom / 2, Theme.tempoSize * zoom * 1.2))
    readonly property int neededHeight: top.height + below.height + beats.height + 2 * Theme.mediumSpacing + 2 * padding
    readonly property int padding: Theme.largeSpacing
    readonly property int spare: height - neededHeight

    // Less is on the left and more on the right in every script, as on any metronome.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true
    implicitHeight: Math.max(neededHeight, roomHeight)

    Surface {
        anchors.fill: parent
        radius: Theme.heroRadius
    }

    // The visual bell: on with one click, off with the next. Never a motion.
    Rectangle {
        objectName: "visual_bell"
        anchors.fill: parent
        radius: Theme.heroRadius
        visible: card.metronome.isVisualBellOn
        color: Theme.bellHaze
        border.width: 3
        border.color: Theme.bell
    }

    Item {
        id: body

        anchors.fill: parent
        anchors.leftMargin: card.edge
        anchors.rightMargin: card.edge
        anchors.topMargin: card.padding + card.spare / 4
        anchors.bottomMargin: anchors.topMargin

        Item {
            id: top

            anchors.left: parent.left
            anchors.right: parent.right
            height: figures.height + line.height

            RoundButton {
                objectName: "minus button"
                anchors.left: parent.left
                anchors.verticalCenter: figures.verticalCenter
                text: "minus button"
                iconName: "minus"
                size: RoundButton.Large
                zoom: card.zoom
                hasLongPress: true
                longPressText: "Long press for a big step"
                onClicked: card.metronome.minusTapped()
                onLongPressed: card.metronome.minusLongPressed()
            }

            TempoField {
                id: figures

                anchors.horizontalCenter: parent.horizontalCenter
                width: card.figureRoom
                height: Math.max(Math.round(Theme.largeButton * card.zoom), implicitHeight)
                pixelSize: card.figureSize
                metronome: card.metronome
            }

            // Where there is something to save now and then, the room for it stays.
            Item {
                id: line

                anchors.top: figures.bottom
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(words.implicitWidth + (save.visible ? save.width + Theme.tightSpacing : 0), parent.width)
                height: card.savable ? Math.max(words.height, save.height) : words.height

                TextLabel {
                    id: words

                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(implicitWidth, parent.width - (save.visible ? save.width + Theme.tightSpacing : 0))
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    kind: TextLabel.Caption
                    font.letterSpacing: 0.6
                    text: card.caption
                }

                PillButton {
                    id: save

                    objectName: "save_tempo_button"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    visible: card.savable && text !== ""
                    look: PillButton.Plain
                    leftPadding: Theme.smallSpacing
                    rightPadding: Theme.smallSpacing
                    text: card.saveText
                    longPressText: "Makes this the tempo that the item opens at"
                    onClicked: card.saveRequested()
                }
            }

            RoundButton {
                objectName: "plus button"
                anchors.right: parent.right
                anchors.verticalCenter: figures.verticalCenter
                text: "plus button"
                iconName: "plus"
                size: RoundButton.Large
                zoom: card.zoom
                hasLongPress: true
                longPressText: "Long press for a big step"
                onClicked: card.metronome.plusTapped()
                onLongPressed: card.metronome.plusLongPressed()
            }
        }

        Item {
            id: below

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: Math.round((Theme.largeButton - Theme.regularButton) * card.zoom / 2)
            anchors.rightMargin: anchors.leftMargin
            y: Math.round((top.height + parent.height - beats.height - height) / 2)
            height: play.height

            RoundButton {
                objectName: "down button"
                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                text: "down button"
                iconName: "chevron-down"
                zoom: card.zoom
                dimmed: !card.metronome.canStepDown
                onClicked: card.metronome.downTapped()
            }

            // The ring that play sits in.
            Rectangle {
                anchors.centerIn: play
                width: play.width + 12
                height: width
                radius: width / 2
                visible: card.metronome.isPlaying
                color: Theme.accentHaze
            }

            RoundButton {
                id: play

                objectName: "play pause button"
                anchors.centerIn: parent
                text: "play pause button"
                iconName: card.metronome.isPlaying ? "pause" : "play"
                size: RoundButton.ExtraLarge
                zoom: card.zoom
                prominent: true
                bellOn: card.metronome.isVisualBellOn
                Accessible.description: card.metronome.isPlaying ? "playing" : "stopped"
                onClicked: card.metronome.playPauseTapped()
            }

            RoundButton {
                objectName: "up button"
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: "up button"
                iconName: "chevron-up"
                zoom: card.zoom
                dimmed: !card.metronome.canStepUp
                onClicked: card.metronome.upTapped()
            }
        }

        BeatIndicator {
            id: beats

            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            count: card.metronome.beatIndicatorCount
            current: card.metronome.beatIndicatorIndex
            dot: Math.round(10 * card.zoom)
        }
    }
}
