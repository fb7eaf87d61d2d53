pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The days on which one item was practised.
FocusScope {
    id: screen

    required property ItemHistoryViewModel history

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    signal leaveRequested()

    NavigationHeader {
        id: titleBar

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: screen.history.exerciseName
        onBack: screen.leaveRequested()
    }

    TextLabel {
        id: summary

        objectName: "item_history_summary"
        anchors.top: titleBar.bottom
        x: screen.margin
        width: screen.width - 2 * screen.margin
        leftPadding: Theme.mediumSpacing
        topPadding: Theme.smallSpacing
        bottomPadding: Theme.smallSpacing
        visible: !screen.history.isEmpty
        kind: TextLabel.SecondaryStrong
        text: screen.history.summary
    }

    ListView {
        id: list

        objectName: "item_history_list"
        anchors.top: summary.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !screen.history.isEmpty
        focus: true
        keyNavigationEnabled: false
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        model: screen.history.days
        bottomMargin: Theme.hugeSpacing
        delegate: SessionRow {
            required property var modelData
            required property int index

            objectName: modelData.identifier
            x: screen.margin
            width: list.width - 2 * screen.margin
            title: modelData.detail
            detail: modelData.title
            last: index === list.count - 1
        }

        Keys.onUpPressed: contentY = Math.max(originY, contentY - Theme.touchTarget)
        Keys.onDownPressed: contentY = Math.max(originY, Math.min(originY + contentHeight - height,
                                                                  contentY + Theme.touchTarget))
    }

    EmptyState {
        visible: screen.history.isEmpty
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(titleBar.height + Math.max(0, (screen.height - titleBar.height - height) * 0.4))
        width: Math.min(screen.width - 2 * Theme.screenMargin, 320)
        iconName: "text.book.closed"
        title: "No practice recorded yet"
        explanation: "Start the timer or the stopwatch. From one minute on, what you save is listed here day by day."
    }
}
