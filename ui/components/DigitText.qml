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

    readonly property real fullWidth: {
        let width = 0;
        for (const character of text)
            width += isDigit(character) ? widest.advanceWidth : narrow.advanceWidth(character);
        return width;
    }
    readonly property real fit: Math.min(1, maximumWidth / Math.max(1, fullWidth))
    readonly property int shownSize: Math.floor(pixelSize * fit)

    implicitWidth: Math.ceil(fullWidth * shownSize / pixelSize)
    implicitHeight: Math.ceil(narrow.height * shownSize / pixelSize)
    Accessible.ignored: true

    function isDigit(character: string): bool {
        return character >= "0" && character <= "9";
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
        LayoutMirroring.enabled: false

        Repeater {
            model: digits.text.length

            Text {
                required property int index

                readonly property string character: digits.text.charAt(index)

                width: (digits.isDigit(character) ? widest.advanceWidth : narrow.advanceWidth(character))
                       * digits.shownSize / digits.pixelSize
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
