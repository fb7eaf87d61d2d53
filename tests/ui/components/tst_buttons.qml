import QtQuick
import QtTest
import Tamsel.Ui

// What can be pressed: by finger, mouse and keyboard, once for each press.
Item {
    id: scene

    width: 400
    height: 600

    property int below: 0

    Keys.onPressed: below += 1

    RoundButton {
        id: plain

        objectName: "plain"
        text: "plain button"
        iconName: "plus"
        size: RoundButton.Small
    }

    RoundButton {
        id: holding

        y: 60
        text: "holding button"
        iconName: "minus"
        hasLongPress: true
        longPressText: "Long press for a big step"
    }

    PillButton {
        id: pill

        y: 140
        text: "Pill"
    }

    SectionHeader {
        id: section

        y: 200
        width: 300
        text: "Items"
        iconName: "checkmark"
    }

    ListRow {
        id: listRow

        y: 260
        width: 300
        text: "A name that is much too long for the width that there is for it"
        detail: "Timer"
        trailing: "25m"
    }

    ClockCard {
        id: clockCard

        y: 340
        width: 170
        text: "Timer"
        iconName: "hourglass"
        clockText: "04:32"
        runExists: true
        running: true
        toggleIdentifier: "toggle"
    }

    SignalSpy {
        id: taps

        signalName: "clicked"
    }

    SignalSpy {
        id: longPresses

        target: holding
        signalName: "longPressed"
    }

    SignalSpy {
        id: toggles

        target: clockCard
        signalName: "toggled"
    }

    TestCase {
        name: "Buttons"
        when: windowShown

        function init() {
            taps.target = null;
            taps.clear();
            longPresses.clear();
            toggles.clear();
            scene.below = 0;
            scene.forceActiveFocus();
        }

        function buttons() {
            return [plain, holding, pill, section, listRow, clockCard];
        }

        function test_everyButtonIsLargeEnoughToHit() {
            for (const button of buttons()) {
                verify(button.width >= Theme.touchTarget, button.text);
                verify(button.height >= Theme.touchTarget, button.text);
            }
        }

        function test_aTapIsOneClick_data() {
            return buttons().map(button => ({"tag": button.text.substring(0, 10), "button": button}));
        }

        function test_aTapIsOneClick(data) {
            taps.target = data.button;
            // Beside the small button in the card's corner.
            mouseClick(data.button, 10, data.button.height - 10);
            compare(taps.count, 1);
            verify(!data.button.activeFocus, "a tap leaves the keyboard to the screen");
            touchEvent(data.button).press(0, data.button, 10, data.button.height - 10).commit();
            touchEvent(data.button).release(0, data.button, 10, data.button.height - 10).commit();
            compare(taps.count, 2);
        }

        function test_keysPressWhatTheyAreOn_data() {
            return [{"tag": "Space", "key": Qt.Key_Space}, {"tag": "Return", "key": Qt.Key_Return},
                    {"tag": "Enter", "key": Qt.Key_Enter}];
        }

        function test_keysPressWhatTheyAreOn(data) {
            for (const button of buttons()) {
                taps.target = button;
                taps.clear();
                button.forceActiveFocus(Qt.TabFocusReason);
                keyClick(data.key);
                compare(taps.count, 1, button.text);
            }
            compare(scene.below, 0, "a key that pressed a button does nothing else");
        }

        function test_tabReachesEveryButtonInOrder() {
            const reached = [];
            for (let i = 0; i < 7; ++i) {
                keyClick(Qt.Key_Tab);
                reached.push(scene.Window.activeFocusItem.text);
            }
            compare(reached, [plain.text, holding.text, pill.text, section.text, listRow.text, clockCard.text,
                              "Pause timer"]);
        }

        function test_holdingDownIsOneLongPressAndNoTap() {
            taps.target = holding;
            mousePress(holding);
            tryCompare(longPresses, "count", 1);
            mouseRelease(holding);
            compare(longPresses.count, 1);
            compare(taps.count, 0);
        }

        function test_withoutALongPressASlowTapIsATap() {
            taps.target = plain;
            const fingers = touchEvent(scene);
            fingers.press(0, plain).commit();
            // Once a finger that came later has been down for long enough, this one has.
            fingers.stationary(0).press(1, holding).commit();
            tryCompare(longPresses, "count", 1);
            fingers.release(0, plain).stationary(1).commit();
            compare(taps.count, 1);
            fingers.release(1, holding).commit();
        }

        function test_aLongPressNeedsNoGesture_data() {
            return [{"tag": "right click", "act": () => mouseClick(holding, 20, 20, Qt.RightButton)},
                    {"tag": "Shift+Return", "act": () => keyClick(Qt.Key_Return, Qt.ShiftModifier)},
                    {"tag": "menu key", "act": () => keyClick(Qt.Key_Menu)}];
        }

        function test_aLongPressNeedsNoGesture(data) {
            taps.target = holding;
            holding.forceActiveFocus(Qt.TabFocusReason);
            data.act();
            compare(longPresses.count, 1);
            compare(taps.count, 0);
        }

        function test_aMenuKeyWithoutMenuIsLeftToTheScreen() {
            plain.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Menu);
            compare(scene.below, 1);
        }

        function test_pressingShows() {
            const before = grabImage(plain).pixel(22, 6);
            mousePress(plain);
            verify(!Qt.colorEqual(grabImage(plain).pixel(22, 6), before));
            mouseRelease(plain);
            verify(Qt.colorEqual(grabImage(plain).pixel(22, 6), before));
        }

        function test_theCardAndItsButtonAreTwo() {
            taps.target = clockCard;
            mouseClick(findChild(clockCard, "toggle"));
            compare(toggles.count, 1);
            compare(taps.count, 0);
        }

        function test_aSectionFolds() {
            verify(section.expanded);
            mouseClick(section);
            verify(!section.expanded);
            compare(section.Accessible.description, "collapsed");
            mouseClick(section);
            verify(section.expanded);
        }
    }
}
