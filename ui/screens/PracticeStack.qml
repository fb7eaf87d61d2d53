import QtQuick
import Tamsel.List

// The practice tab: the list and, over it, the practice screen that was opened from it. Each is loaded when it is first
// shown, so that the program starts with one of them only.
FocusScope {
    id: stack

    required property PracticeNavigationStackViewModel navigation

    readonly property bool practising: navigation.practiceViewModel !== null

    function takeFocus() {
        if (practising)
            practice.forceActiveFocus(Qt.OtherFocusReason);
        else
            list.forceActiveFocus(Qt.OtherFocusReason);
    }

    function update() {
        // A practice screen keeps the model that it was made for, and goes before the next one comes.
        practice.source = "";
        if (practising)
            practice.setSource("PracticeScreen.qml", {"practice": navigation.practiceViewModel, "focus": true});
        else if (list.item === null)
            list.setSource("PracticeListScreen.qml", {"list": navigation.practiceList, "focus": true});
        takeFocus();
    }

    Component.onCompleted: update()

    Connections {
        target: stack.navigation

        function onPracticeViewModelChanged() {
            stack.update();
        }
    }

    Loader {
        id: list

        anchors.fill: parent
        visible: !stack.practising
    }

    Loader {
        id: practice

        anchors.fill: parent
    }

    Connections {
        target: practice.item
        // Naming the screen's type would load it at the start.
        ignoreUnknownSignals: true

        function onLeaveRequested() {
            stack.navigation.pop();
        }
    }
}
