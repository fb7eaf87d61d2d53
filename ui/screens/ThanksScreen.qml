import QtQuick
import Tamsel.Ui

// A word of thanks.
FocusScope {
    id: screen

    focus: true

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    ScreenTitle {
        id: title

        x: screen.margin
        width: screen.width - 2 * screen.margin
        text: "Thanks!"
    }

    Flickable {
        anchors.top: title.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: card.height + 2 * Theme.hugeSpacing
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Card {
            id: card

            x: screen.margin
            y: 2 * Theme.spacing
            width: screen.width - 2 * screen.margin
            radius: Theme.heroRadius
            padding: Theme.largeSpacing + Theme.tightSpacing

            Column {
                width: parent.width
                spacing: Theme.mediumSpacing

                Icon {
                    name: "heart-filled"
                    size: Theme.largeIcon
                    color: Theme.thumbsDown
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    kind: TextLabel.Heading
                    text: "Thank you for practising with Tamsel"
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    lineHeight: 1.25
                    text: "Slow scales, the same four bars for the fifth time, the étude that will not sit still: that is where music is made. It is good to be on the stand beside you."
                }

                TextLabel {
                    width: parent.width
                    wrapMode: Text.Wrap
                    lineHeight: 1.25
                    kind: TextLabel.Secondary
                    text: "What you practise stays on this device. Nobody counts along but you."
                }
            }
        }
    }
}
