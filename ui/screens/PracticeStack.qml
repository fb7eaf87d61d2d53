pragma ComponentBehavior: Bound

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

    onPractisingChanged: takeFocus()

    PracticeListScreen {
        id: list

        anchors.fill: parent
        visible: !stack.practising
        focus: !stack.practising
        list: stack.navigation.practiceList
    }

    Loader {
        id: practice

        anchors.fill: parent
        active: stack.practising
        focus: stack.practising
        sourceComponent: PracticeScreen {
            focus: true
            practice: stack.navigation.practiceViewModel
            onLeft: stack.navigation.pop()
        }
    }
}
