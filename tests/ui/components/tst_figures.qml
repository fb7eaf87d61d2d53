import QtQuick
import QtTest
import Tamsel.Ui

// Figures stand still while a number runs, and fit where they are put.
Item {
    id: scene

    width: 400
    height: 300

    DigitText {
        id: digits

        pixelSize: 84
    }

    ClockText {
        id: clock

        y: 120
        text: "04:32"
        spokenText: "4 minutes, 32 seconds"
    }

    BeatIndicator {
        id: beats

        y: 200
        count: 4
    }

    TestCase {
        name: "Figures"
        when: windowShown

        function widthOf(text) {
            digits.text = text;
            return digits.implicitWidth;
        }

        function cleanup() {
            digits.maximumWidth = Infinity;
        }

        function test_allNumbersOfOneLengthAreEquallyWide() {
            const width = widthOf("000");
            for (const text of ["111", "120", "126", "444", "999"])
                compare(widthOf(text), width, text);
            verify(widthOf("1234") > width);
        }

        function test_aNumberGetsSmallerWhereItWouldNotFit() {
            const width = widthOf("500");
            compare(digits.shownSize, 84);
            digits.maximumWidth = Math.floor(width / 2);
            verify(digits.implicitWidth <= digits.maximumWidth, digits.implicitWidth + " of " + width);
            fuzzyCompare(digits.shownSize, 42, 2);
        }

        function test_theColonIsNarrowerThanAFigure() {
            verify(widthOf("0:0") < widthOf("000"));
        }

        function test_aClockIsSpokenInWords() {
            compare(clock.Accessible.name, "4 minutes, 32 seconds");
            compare(clock.Accessible.role, Accessible.StaticText);
        }

        function test_theBeatThatSoundsIsToldByItsShape_data() {
            return [{"tag": "none", "current": -1}, {"tag": "first", "current": 0}, {"tag": "last", "current": 3}];
        }

        function test_theBeatThatSoundsIsToldByItsShape(data) {
            beats.current = data.current;
            const row = beats.children[0];
            const longOnes = [];
            for (let i = 0; i < beats.count; ++i) {
                if (row.children[i].width > beats.dot)
                    longOnes.push(i);
            }
            compare(longOnes, data.current < 0 ? [] : [data.current]);
        }
    }
}
