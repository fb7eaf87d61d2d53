import QtQuick
import Tamsel.List
import Tamsel.Ui

// Thanks, and offers the app's page in the software centre.
Card {
    id: card

    required property PracticeListViewModel list

    Accessible.role: Accessible.Grouping
    Accessible.name: title.text

    Column {
        width: parent.width
        spacing: Theme.smallSpacing

        Row {
            width: parent.width
            spacing: Theme.smallSpacing

            Icon {
                id: symbol

                anchors.verticalCenter: parent.verticalCenter
                name: "heart-filled"
                color: Theme.secondAccent
            }

            TextLabel {
                id: title

                width: parent.width - symbol.width - parent.spacing
                wrapMode: Text.Wrap
                kind: TextLabel.Strong
                text: "Thank you for practising with Tamsel"
            }
        }

        TextLabel {
            width: parent.width
            wrapMode: Text.Wrap
            kind: TextLabel.Secondary
            text: card.list.reviewText
        }

        Flow {
            width: parent.width
            topPadding: Theme.tightSpacing
            spacing: Theme.spacing

            PillButton {
                objectName: "review_open_button"
                visible: card.list.reviewPageIsOffered
                look: PillButton.Prominent
                text: "Write a review"
                onClicked: card.list.reviewPageOpened(Qt.openUrlExternally(card.list.reviewPage))
            }

            PillButton {
                objectName: "review_close_button"
                text: card.list.reviewPageIsOffered ? "Not now" : "Close"
                onClicked: card.list.closeReview()
            }
        }
    }
}
