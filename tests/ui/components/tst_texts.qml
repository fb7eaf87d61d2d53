import QtQuick
import QtTest
import Tamsel.Ui

// Names come from people: long, in any script, with signs that look like markup.
Item {
    id: scene

    width: 400
    height: 300

    TextLabel {
        id: label

        width: 150
    }

    TextEntry {
        id: entry

        y: 60
        placeholderText: "e.g. \"C Major Scales\""
    }

    TestCase {
        name: "Texts"
        when: windowShown

        function cleanup() {
            Appearance.textScale = 1;
            entry.text = "";
        }

        function test_namesStayOnTheirLineAndAtTheLeadingEdge_data() {
            return [{"tag": "long", "text": "Piano Concerto No. 3 in D minor, third movement"},
                    {"tag": "Hebrew", "text": "סולמות בדו מז'ור לשתי הידיים יחד"},
                    {"tag": "Arabic", "text": "سلم موسيقي طويل جدا للتدريب اليومي على البيانو"}];
        }

        function test_namesStayOnTheirLineAndAtTheLeadingEdge(data) {
            label.text = data.text;
            verify(label.truncated);
            compare(label.lineCount, 1);
            compare(label.effectiveHorizontalAlignment, Text.AlignLeft);
            verify(label.contentWidth <= label.width);
        }

        function test_markupIsText() {
            label.text = "<b>bold</b> & more";
            compare(label.textFormat, Text.PlainText);
            verify(label.implicitWidth > 100);
        }

        function test_textFollowsTheSystemsSize() {
            const sizes = [];
            for (const scale of [1, 1.5, 2]) {
                Appearance.textScale = scale;
                sizes.push(label.font.pixelSize);
            }
            compare(sizes, [17, 26, 34]);
        }

        function test_thePlaceholderGoesWithTheFirstLetter() {
            entry.forceActiveFocus();
            const placeholder = findChild(entry, "placeholder");
            verify(placeholder.visible);
            keyClick("C");
            compare(entry.text, "C");
            verify(!placeholder.visible);
        }
    }
}
