import QtQuick
import Tamsel.List
import Tamsel.Ui

// The three tabs: along the bottom of a tall window, or as a rail beside a wide one.
Item {
    id: bar

    required property TabViewModel tabs
    property bool vertical: false

    readonly property int tabHeight: Math.ceil(practice.implicitHeight)
    readonly property int tabWidth: vertical ? width : Math.min(Math.floor(width / 3), 180)

    implicitHeight: tabHeight + 2 * Theme.tightSpacing
    implicitWidth: Math.max(88, Math.round(88 * Theme.textScale))
    Accessible.role: Accessible.PageTabList

    // The line that parts the tabs from the screen.
    Rectangle {
        x: bar.vertical ? parent.width - width : 0
        width: bar.vertical ? Theme.hairline : parent.width
        height: bar.vertical ? parent.height : Theme.hairline
        color: Theme.separator
    }

    Grid {
        anchors.horizontalCenter: parent.horizontalCenter
        y: bar.vertical ? Theme.largeSpacing : Theme.tightSpacing
        columns: bar.vertical ? 1 : 3
        spacing: bar.vertical ? Theme.spacing : 0

        TabButton {
            id: practice

            objectName: bar.tabs.practiceTabItem.accessibilityIdentifier
            width: bar.tabWidth
            text: bar.tabs.practiceTabItem.title
            iconName: bar.tabs.practiceTabItem.systemImage
            selected: bar.tabs.selectedTabIndex === 0
            onClicked: bar.tabs.selectedTabIndex = 0
        }

        TabButton {
            objectName: bar.tabs.historyTabItem.accessibilityIdentifier
            width: bar.tabWidth
            text: bar.tabs.historyTabItem.title
            iconName: bar.tabs.historyTabItem.systemImage
            selected: bar.tabs.selectedTabIndex === 1
            onClicked: bar.tabs.selectedTabIndex = 1
        }

        TabButton {
            objectName: bar.tabs.thanksTabItem.accessibilityIdentifier
            width: bar.tabWidth
            text: bar.tabs.thanksTabItem.title
            iconName: bar.tabs.thanksTabItem.systemImage
            selected: bar.tabs.selectedTabIndex === 2
            onClicked: bar.tabs.selectedTabIndex = 2
        }
    }
}
