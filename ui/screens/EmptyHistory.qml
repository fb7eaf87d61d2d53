import Tamsel.Ui

// The history before the first event.
EmptyState {
    iconName: "text.book.closed"
    title: "Your practice is being kept"
    explanation: "Practice an item for a minute or more and save: charts over days, months and years grow here from it."
    actionText: "Go to practice"
    actionIdentifier: "history_practice_button"
}
