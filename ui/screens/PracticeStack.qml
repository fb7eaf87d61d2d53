import QtQuick
import Tamsel.List
import Tamsel.Ui

// The practice tab: the list and, over it, the practice screen that was opened from it.
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

    // The screen keeps the model that it was made for, and goes before a new one comes.
    function showPractice() {
        practice.source = "";
        if (practising)
            practice.setSource("PracticeScreen.qml", {"practice": navigation.practiceViewModel, "focus": true});
        takeFocus();
    }

    Component.onCompleted: showPractice()

    Connections {
        target: stack.navigation

        function onPracticeViewModelChanged() {
            stack.showPractice();
        }
    }

    PracticeListScreen {
        id: list

        anchors.fill: parent
        visible: !stack.practising
        list: stack.navigation.practiceList
    }

    Loader {
        id: practice

        anchors.fill: parent
    }

    Connections {
        target: practice.item as PracticeScreen

        function onLeaveRequested() {
            stack.navigation.pop();
        }
    }
}
