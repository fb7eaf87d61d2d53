import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// What was practised on one day.
FocusScope {
    id: screen

    required property PracticeDayBreakdownViewModel report

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    signal leaveRequested()

    Keys.onDownPressed: list.scroll(Theme.touchTarget)
    Keys.onUpPressed: list.scroll(-Theme.touchTarget)

    // Has the keyboard while no control has it; its keys are the screen's.
    Item {
        id: rest

        focus: true
    }

    NavigationHeader {
        id: header

        x: Theme.spacing
        width: parent.width - 2 * Theme.spacing
        text: screen.report.title
        onBack: screen.leaveRequested()
    }

    ReportList {
        id: list

        anchors.top: header.bottom
        anchors.topMargin: -Theme.spacing
        anchors.bottom: parent.bottom
        width: parent.width
        margin: screen.margin
        columnWidth: screen.width - 2 * screen.margin
        lines: screen.report.rows
        emptyText: screen.report.emptyText
        canOpen: false

        TextLabel {
            objectName: "day_total"
            width: parent.width
            visible: text !== ""
            horizontalAlignment: Text.AlignHCenter
            kind: TextLabel.Title
            text: screen.report.totalText
        }
    }

    EdgeFade {
        anchors.top: list.top
        width: parent.width
        visible: !list.atYBeginning
        atTop: true
    }
}
