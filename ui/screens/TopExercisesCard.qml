pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Reports
import Tamsel.Ui

// What was practised most in a range. Leads to the ranking of everything.
Card {
    id: card

    required property TopExercisesOverviewViewModel overview

    signal detailRequested()

    Column {
        width: parent.width
        spacing: Theme.spacing

        CardHeading {
            objectName: "top_exercises_card"
            width: parent.width
            line: card.overview.heading
            title: card.overview.topExercise
            onClicked: card.detailRequested()
        }

        Column {
            width: parent.width
            Accessible.role: Accessible.List
            Accessible.name: card.overview.valueTitle + ", " + card.overview.nameTitle

            Repeater {
                model: card.overview.items

                RankedBar {
                    required property var modelData

                    width: parent.width
                    item: modelData
                    onClicked: card.detailRequested()
                }
            }
        }

        TextLabel {
            objectName: "top_exercises_explanation"
            width: parent.width
            visible: text !== ""
            wrapMode: Text.Wrap
            kind: TextLabel.Secondary
            lineHeight: 1.25
            text: card.overview.explanation
        }

        PillButton {
            objectName: "full_ranking_button"
            width: Math.min(implicitWidth, parent.width)
            leftPadding: Theme.mediumSpacing
            rightPadding: Theme.mediumSpacing
            visible: card.overview.explanation !== ""
            text: card.overview.rankingText
            onClicked: card.detailRequested()
        }
    }
}
