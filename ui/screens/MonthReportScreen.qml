import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// The days of a month with practice.
FocusScope {
    id: screen

    required property MonthReportViewModel report

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
        onLineTapped: index => screen.report.openRow(index)
    }

    EdgeFade {
        anchors.top: list.top
        width: parent.width
        visible: !list.atYBeginning
        atTop: true
    }
}
