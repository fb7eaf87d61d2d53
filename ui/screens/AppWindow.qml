import QtQuick
import Tamsel.App
import Tamsel.List
import Tamsel.Ui

// The one window: three tabs, and whatever was opened in them.
Window {
    id: window

    required property ContentViewModel content

    readonly property TabViewModel tabs: content.tabViewModel
    readonly property PracticeNavigationStackViewModel navigation: tabs.practiceNavigationStack
    readonly property int tab: tabs.selectedTabIndex
    // In a low or very wide window the tabs stand beside the screen and leave it the height.
    readonly property bool rail: width > height && (height < 560 || width >= 1000)
    // An opened practice screen has the window to itself, unless that has room for both.
    readonly property bool tabsShown: tab !== 0 || navigation.depth === 0
                                      || (rail ? width >= 1000 : height >= 780 * Theme.textScale)
    readonly property int railWidth: rail && tabsShown ? tabBar.implicitWidth : 0
    readonly property int footHeight: !rail && tabsShown ? tabBar.implicitHeight : 0

    title: "Tamsel"
    width: 390
    height: 844
    minimumWidth: 320
    minimumHeight: 320
    color: Theme.ground
    visible: true

    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    // The other tabs' stacks take it by themselves when they are shown.
    onTabChanged: {
        if (tab === 2)
            thanks.forceActiveFocus(Qt.OtherFocusReason);
    }
    onClosing: content.leave()

    Binding {
        target: Appearance
        property: "devicePixelRatio"
        value: window.Screen.devicePixelRatio
    }

    Shortcut {
        sequence: "Ctrl+1"
        onActivated: window.tabs.selectedTabIndex = 0
    }

    Shortcut {
        sequence: "Ctrl+2"
        onActivated: window.tabs.selectedTabIndex = 1
    }

    Shortcut {
        sequence: "Ctrl+3"
        onActivated: window.tabs.selectedTabIndex = 2
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: window.close()
    }

    OnDemand {
        id: banner

        width: parent.width
        wanted: window.content.storageWarning !== ""
        file: Qt.resolvedUrl("StorageWarning.qml")
        given: ({"content": window.content})
    }

    Item {
        id: area

        x: window.LayoutMirroring.enabled ? 0 : window.railWidth
        y: banner.height
        width: parent.width - window.railWidth
        height: parent.height - y - window.footHeight

        ScreenStack {
            id: practice

            anchors.fill: parent
            visible: window.tab === 0
            navigation: window.navigation
            firstFile: "PracticeListScreen.qml"
            firstGiven: ({"list": window.navigation.practiceList, "focus": true})
        }

        ScreenStack {
            id: history

            anchors.fill: parent
            visible: window.tab === 1
            navigation: window.tabs.historyNavigationStack
            firstFile: "HistoryScreen.qml"
            firstGiven: ({"history": window.tabs.historyNavigationStack.historyViewModel, "focus": true})
        }

        OnDemand {
            id: thanks

            anchors.fill: parent
            visible: window.tab === 2
            wanted: visible
            file: Qt.resolvedUrl("ThanksScreen.qml")
            given: ({"thanks": window.tabs.thanksViewModel})
        }
    }

    OnDemand {
        visible: false
        wanted: window.content.dataViewModel.sheetIsPresented
        file: Qt.resolvedUrl("DataSheet.qml")
        given: ({"journal": window.content.dataViewModel})
    }

    OnDemand {
        visible: false
        wanted: window.content.dataViewModel.backups.isPresented
        file: Qt.resolvedUrl("BackupsSheet.qml")
        given: ({"journal": window.content.dataViewModel})
    }

    OnDemand {
        visible: false
        wanted: window.content.dataViewModel.previewIsPresented
        file: Qt.resolvedUrl("ReplaceDialog.qml")
        given: ({"journal": window.content.dataViewModel})
    }

    OnDemand {
        visible: false
        wanted: window.content.leftPractice.isPresented
        file: Qt.resolvedUrl("LeftPracticeDialog.qml")
        given: ({"leftPractice": window.content.leftPractice})
    }

    Connections {
        target: history.firstScreen
        // Naming the screen's type would load it at the start.
        ignoreUnknownSignals: true

        function onPracticeRequested() {
            window.tabs.selectedTabIndex = 0;
        }
    }

    TabBar {
        id: tabBar

        x: window.rail && window.LayoutMirroring.enabled ? parent.width - width : 0
        y: window.rail ? banner.height : parent.height - height
        width: window.rail ? implicitWidth : parent.width
        height: window.rail ? parent.height - banner.height : implicitHeight
        visible: window.tabsShown
        vertical: window.rail
        tabs: window.tabs
    }
}
