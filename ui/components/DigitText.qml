pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Ui

// Text whose digits are all equally wide, so that nothing jumps while a number runs. It gets smaller where it would be
// wider than `maximumWidth`. Drawing only: whoever uses it says what it shows.
Item {
    id: digits

    property string text
    property color color: Theme.text
    property int pixelSize: Theme.numberSize
    property int weight: Font.Bold
    property real maximumWidth: Infinity

    // Large figures stand a little closer than the typeface sets them.
    readonly property real cellWidth: widest.advanceWidth * 0.97
    readonly property real fullWidth: {
        let width = 0;
        for (const character of text)
            width += widthOf(character);
        return width;
    }
    // Before there is any room it is not known how much there will be.
    readonly property real fit: maximumWidth > 0 ? Math.min(1, maximumWidth / Math.max(1, fullWidth)) : 1
    readonly property int shownSize: Math.floor(pixelSize * fit)

    implicitWidth: Math.ceil(fullWidth * shownSize / pixelSize)
    // Figures have no descenders: a line of them needs less height than a line of text, the same less above and below.
    implicitHeight: Math.ceil(narrow.height * 0.8)
    Accessible.ignored: true

    function widthOf(character: string): real {
        return character >= "0" && character <= "9" ? cellWidth : narrow.advanceWidth(character);
    }

    TextMetrics {
        id: widest

        font.family: Theme.fontFamily
        font.pixelSize: digits.pixelSize
        font.weight: digits.weight
        text: "0"
    }

    FontMetrics {
        id: narrow

        font: widest.font
    }

    // A number is read from left to right in every script.
    Row {
        anchors.verticalCenter: parent.verticalCenter
        LayoutMirroring.enabled: false

        Repeater {
            model: digits.text.length

            Text {
                required property int index

                readonly property string character: digits.text.charAt(index)

                width: digits.widthOf(character) * digits.shownSize / digits.pixelSize
                text: character
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                color: digits.color
                font.family: Theme.fontFamily
                font.pixelSize: digits.shownSize
                font.weight: digits.weight
                Accessible.ignored: true
            }
        }
    }
}
