pragma ComponentBehavior: Bound

import QtQuick
import Tamsel.Practice
import Tamsel.Ui

// The settings of one item. Each change counts at once; there is nothing to save.
SheetPage {
    id: sheet

    required property PracticeViewModel practice

    readonly property ExerciseSettingsViewModel settings: practice.settingsViewModel

    component Section: Column {
        id: section

        property string title
        property alias model: rows.model

        width: parent !== null ? parent.width : 0
        spacing: Theme.smallSpacing

        TextLabel {
            width: parent.width
            leftPadding: Theme.mediumSpacing
            kind: TextLabel.SecondaryStrong
            text: section.title
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        RowsCard {
            id: rows

            width: parent.width
            delegate: SwitchRow {
                required property int index

                width: rows.width
                last: index === rows.count - 1
                onFlipped: on => sheet.settings.setOn(identifier, on)
            }
        }
    }

    objectName: "settings_sheet"
    title: "Settings"
    shown: practice.isShowingSettings
    onAboutToHide: Qt.inputMethod.commit() // qmllint disable
    onDismissed: practice.isShowingSettings = false

    Column {
        width: parent.width
        spacing: Theme.smallSpacing

        TextLabel {
            width: parent.width
            leftPadding: Theme.mediumSpacing
            kind: TextLabel.SecondaryStrong
            text: "Name"
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        TextEntry {
            id: nameField

            objectName: sheet.settings.exerciseNameTextField.accessibilityIdentifier
            width: parent.width
            placeholderText: sheet.practice.exerciseName
            Accessible.name: sheet.settings.exerciseNameTextField.accessibilityLabel
            onTextEdited: sheet.settings.exerciseNameTextFieldText = text
            onActiveFocusChanged: sheet.settings.exerciseNameFieldFocused = activeFocus
            onAccepted: sheet.settings.commitExerciseName()

            Binding {
                nameField.text: sheet.settings.exerciseNameTextFieldText
            }
        }
    }

    Section {
        title: "Practice Tools"
        model: sheet.settings.tools
    }

    Section {
        title: "Counters"
        model: sheet.settings.counters
    }

    Section {
        title: "Clearing Rules"
        visible: sheet.settings.hasClearingRules
        model: sheet.settings.clearingRules
    }

    Section {
        title: "Tempo"
        model: sheet.settings.tempo
    }
}
