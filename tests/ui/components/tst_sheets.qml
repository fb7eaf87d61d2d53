import QtQuick
import QtTest
import Tamsel.Ui

// What lies over the window: made when it is first wanted, worked by tap or keyboard, closed by a choice.
Item {
    id: scene

    width: 390
    height: 600

    property var chosen: []
    property var edits: []
    property int confirmed: 0
    property int dismissed: 0

    OnDemand {
        id: opener
    }

    ActionSheet {
        id: sheet

        opener: opener
        title: "Timer"
        columns: 3
        options: [1, 2, 3, 4, 5].map(n => ({"title": n + ":00", "identifier": n + " minute timer"}))
        onChosen: index => scene.chosen.push(index)
    }

    AlertDialog {
        id: alert

        title: "Add practice item"
        placeholder: "e.g. \"C Major Scales\""
        confirmText: "Add"
        onEntryEdited: text => scene.edits.push(text)
        onConfirmed: scene.confirmed += 1
        onDismissed: scene.dismissed += 1
    }

    TestCase {
        name: "Sheets"
        when: windowShown

        function init() {
            scene.chosen = [];
            scene.edits = [];
            scene.confirmed = 0;
            scene.dismissed = 0;
        }

        function cleanup() {
            opener.shown = false;
            alert.shown = false;
            tryVerify(() => !sheet.opened && !alert.opened);
        }

        function open() {
            opener.shown = true;
            tryVerify(() => sheet.opened);
            waitForRendering(sheet.contentItem);
        }

        function openAlert() {
            alert.shown = true;
            tryVerify(() => alert.opened);
            waitForRendering(alert.contentItem);
        }

        function test_aTapChoosesAndCloses() {
            open();
            const option = findChild(sheet.contentItem, "4 minute timer");
            verify(option.height >= Theme.touchTarget);
            mouseClick(option);
            compare(scene.chosen, [3]);
            tryVerify(() => !sheet.opened);
        }

        function test_arrowsMoveThroughTheGrid_data() {
            return [{"tag": "first", "keys": [Qt.Key_Down], "index": 0},
                    {"tag": "down a row", "keys": [Qt.Key_Down, Qt.Key_Down], "index": 3},
                    {"tag": "right", "keys": [Qt.Key_Down, Qt.Key_Right, Qt.Key_Right], "index": 2},
                    {"tag": "not beyond the end", "keys": [Qt.Key_Down, Qt.Key_Down, Qt.Key_Right, Qt.Key_Right], "index": 4},
                    {"tag": "back up", "keys": [Qt.Key_Down, Qt.Key_Down, Qt.Key_Up], "index": 0}];
        }

        function test_arrowsMoveThroughTheGrid(data) {
            open();
            for (const key of data.keys)
                keyClick(key);
            keyClick(Qt.Key_Return);
            compare(scene.chosen, [data.index]);
        }

        function test_escapeAndAPressOutsideChooseNothing_data() {
            return [{"tag": "Escape", "act": () => keyClick(Qt.Key_Escape)},
                    {"tag": "outside", "act": () => mouseClick(scene, 20, 20)}];
        }

        function test_escapeAndAPressOutsideChooseNothing(data) {
            open();
            data.act();
            tryVerify(() => !sheet.opened);
            compare(scene.chosen, []);
        }

        function test_anAlertTakesTheKeyboardAndReportsWhatIsTyped() {
            openAlert();
            keyClick("b");
            keyClick("a");
            compare(scene.edits, ["b", "ba"]);
            keyClick(Qt.Key_Return);
            compare(scene.confirmed, 1);
            verify(alert.opened, "its owner closes it");
        }

        function test_anAlertIsLeftByCancelEscapeOrAPressOutside_data() {
            return [{"tag": "Cancel", "act": () => mouseClick(findChild(alert.contentItem, "alert_cancel_button"))},
                    {"tag": "Escape", "act": () => keyClick(Qt.Key_Escape)},
                    {"tag": "outside", "act": () => mouseClick(scene, 20, 580)}];
        }

        function test_anAlertIsLeftByCancelEscapeOrAPressOutside(data) {
            openAlert();
            data.act();
            compare(scene.dismissed, 1);
            compare(scene.confirmed, 0);
            alert.shown = false;
            compare(scene.dismissed, 1, "closing by its owner is no dismissal");
        }
    }
}
