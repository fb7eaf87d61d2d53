import QtQuick
import Tamsel.Ui

// What was practised in the past. Until there are reports it says where today's practice can be seen.
FocusScope {
    id: screen

    signal practiceRequested()

    focus: true

    readonly property int margin: Math.max(Theme.screenMargin, Math.floor((width - Theme.contentWidth) / 2))

    ScreenTitle {
        id: title

        x: screen.margin
        width: screen.width - 2 * screen.margin
        text: "History"
    }

    EmptyState {
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(title.height + Math.max(0, (screen.height - title.height - height) * 0.42))
        width: Math.min(screen.width - 2 * Theme.screenMargin, 320)
        iconName: "text.book.closed"
        title: "Your practice is being kept"
        explanation: "Every minute you save is recorded. Today's sessions stand at the top of the practice list; charts over weeks and months will appear here."
        actionText: "Go to practice"
        actionIdentifier: "history_practice_button"
        onAction: screen.practiceRequested()
    }
}
