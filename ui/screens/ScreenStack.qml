pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.List
import Tamsel.Ui

// A tab: its first screen and, over it, the screens that were opened from there. Each is loaded when it is first shown,
// so that the program starts with one of them only, and stays as it is while others lie over it. All ways back are
// here: Escape, the platform's back key, Alt+Left, the mouse's back button, and a swipe from the leading edge.
FocusScope {
    id: stack

    required property NavigationStackViewModel navigation
    // The file of the tab's first screen, and values for the properties that it requires.
    required property string firstFile
    property var firstGiven: ({})

    readonly property alias firstScreen: first.item

    function takeFocus() {
        const top = navigation.depth === 0 ? first : screens.itemAt(navigation.depth - 1);
        if (top !== null)
            top.forceActiveFocus(Qt.OtherFocusReason);
    }

    function update() {
        if (!visible)
            return;
        if (navigation.depth === 0 && first.item === null)
            first.setSource(firstFile, stack.firstGiven);
        takeFocus();
    }

    onVisibleChanged: update()
    Component.onCompleted: update()

    Keys.onPressed: event => {
        const back = event.key === Qt.Key_Escape || event.key === Qt.Key_Back || event.matches(StandardKey.Back);
        if (back && stack.navigation.depth > 0)
            stack.navigation.back();
        else
            event.accepted = false;
    }

    Connections {
        target: stack.navigation

        function onTopChanged() {
            stack.update();
        }
    }

    Loader {
        id: first

        anchors.fill: parent
        visible: stack.navigation.depth === 0
    }

    Repeater {
        id: screens

        model: stack.navigation

        Loader {
            id: screen

            required property int index
            required property string file
            // The property of the screen that takes its model.
            required property string argument
            required property QtObject screenModel

            anchors.fill: parent
            visible: index === stack.navigation.depth - 1
            Component.onCompleted: {
                const given = {"focus": true};
                given[argument] = screenModel;
                setSource(file, given);
            }

            Connections {
                target: screen.item
                // Naming the screen's type would load it at the start.
                ignoreUnknownSignals: true

                function onLeaveRequested() {
                    stack.navigation.pop();
                }
            }
        }
    }

    BackSwipe {
        anchors.fill: parent
        enabled: stack.navigation.depth > 0
        onBack: stack.navigation.back()
    }
}
