import QtQuick
import QtTest
import Tamsel.Ui

// Every text can be read on its ground, in light and in dark, and follows a change at once.
Item {
    id: scene

    width: 200
    height: 200

    Surface {
        id: surface

        anchors.centerIn: parent
        width: 100
        height: 100
    }

    TestCase {
        name: "Theme"
        when: windowShown

        function cleanup() {
            Appearance.scheme = Appearance.Light;
        }

        function channel(value) {
            return value <= 0.04045 ? value / 12.92 : Math.pow((value + 0.055) / 1.055, 2.4);
        }

        function luminance(color) {
            return 0.2126 * channel(color.r) + 0.7152 * channel(color.g) + 0.0722 * channel(color.b);
        }

        // As the Web Content Accessibility Guidelines define it.
        function contrast(text, ground) {
            const seen = Qt.tint(ground, text);
            const a = luminance(seen);
            const b = luminance(ground);
            return (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
        }

        function pairs() {
            const bell = Qt.tint(Theme.ground, Theme.bellHaze);
            return [
                ["text", Theme.text, Theme.ground, 4.5],
                ["secondary text", Theme.secondaryText, Theme.ground, 4.5],
                ["text on a pressed row", Theme.text, Theme.pressedRow, 4.5],
                ["secondary text on a pressed row", Theme.secondaryText, Theme.pressedRow, 4.5],
                ["text while the bell is on", Theme.text, bell, 4.5],
                ["secondary text while the bell is on", Theme.secondaryText, bell, 4.5],
                ["accent", Theme.accent, Theme.ground, 4.5],
                ["on the accent", Theme.accentInk, Theme.accent, 4.5],
                ["on the pressed accent", Theme.accentInk, Theme.accentPressed, 4.5],
                ["destructive", Theme.destructive, Theme.ground, 4.5],
                ["warning", Theme.warningInk, Theme.warningGround, 4.5],
                ["thumbs up, in large figures", Theme.thumbsUp, Theme.ground, 3],
                ["thumbs down, in large figures", Theme.thumbsDown, Theme.ground, 3],
                ["the dot of a silent beat", Theme.idleDot, Theme.ground, 3],
                ["the ring of the bell", Theme.bell, Theme.ground, 3]
            ];
        }

        function test_textCanBeRead_data() {
            return [{"tag": "light", "scheme": Appearance.Light}, {"tag": "dark", "scheme": Appearance.Dark}];
        }

        function test_textCanBeRead(data) {
            Appearance.scheme = data.scheme;
            compare(Theme.dark, data.scheme === Appearance.Dark);
            for (const [name, text, ground, least] of pairs()) {
                const found = contrast(text, ground);
                verify(found >= least, name + ": " + found.toFixed(2));
            }
        }

        function test_theSurfaceFollowsTheScheme() {
            Appearance.scheme = Appearance.Light;
            const light = grabImage(scene).pixel(100, 100);
            Appearance.scheme = Appearance.Dark;
            const dark = grabImage(scene).pixel(100, 100);
            verify(Qt.colorEqual(light, "#e9edf3"));
            verify(Qt.colorEqual(dark, "#22262f"));
        }

        function test_noAreaFlashesWithReducedMotion() {
            verify(Theme.bellHaze.a > 0);
            Appearance.reducedMotion = true;
            compare(Theme.bellHaze.a, 0);
            verify(Theme.bell.a > 0, "the ring remains");
            Appearance.reducedMotion = false;
        }
    }
}
