#pragma once

#include "app/Singletons.h"
#include "model/Exercise.h"
#include "model/ExerciseSettings.h"
#include "platform/Queue.h"
#include "practice/PracticeToolToggle.h"
#include "practice/ToggleListModel.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>

namespace tamsel {

// The field that an item is renamed in.
struct ExerciseNameTextField {
    Q_GADGET
    QML_VALUE_TYPE(exerciseNameTextField)
    Q_PROPERTY(QString accessibilityIdentifier MEMBER accessibilityIdentifier FINAL)
    Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel FINAL)

public:
    QString accessibilityIdentifier = QStringLiteral("exercise_name_field");
    QString accessibilityLabel = QStringLiteral("Exercise name field");
};

// The settings sheet of one item: its name, its tools, how its tempo is remembered and when its counters are cleared.
// It edits a copy of the settings and reports each change at once. Main thread only.
class ExerciseSettingsViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the practice screen's model")

    Q_PROPERTY(QString exerciseNameTextFieldText READ exerciseNameTextFieldText WRITE setExerciseNameTextFieldText
                   NOTIFY exerciseNameTextFieldTextChanged FINAL)
    Q_PROPERTY(tamsel::ExerciseNameTextField exerciseNameTextField READ exerciseNameTextField CONSTANT FINAL)
    Q_PROPERTY(bool exerciseNameFieldFocused READ exerciseNameFieldFocused WRITE setExerciseNameFieldFocused NOTIFY
                   focusChanged FINAL)
    Q_PROPERTY(bool autoSavedTempo READ autoSavedTempo WRITE setAutoSavedTempo NOTIFY autoSavedTempoChanged FINAL)
    Q_PROPERTY(tamsel::ToggleListModel* tools READ tools CONSTANT FINAL)
    Q_PROPERTY(tamsel::ToggleListModel* counters READ counters CONSTANT FINAL)
    Q_PROPERTY(tamsel::ToggleListModel* clearingRules READ clearingRules CONSTANT FINAL)
    Q_PROPERTY(tamsel::ToggleListModel* tempo READ tempo CONSTANT FINAL)
    Q_PROPERTY(bool hasClearingRules READ hasClearingRules NOTIFY exerciseSettingsChanged FINAL)

public:
    enum class Focus { exerciseNameField };

    using OnExerciseChanged = std::function<void(const Exercise&)>;
    using OnExerciseSettingsChanged = std::function<void(const ExerciseSettings&)>;

    ExerciseSettingsViewModel(Singletons& singletons, Queue& mainQueue, const Exercise& exercise,
                              const ExerciseSettings& settings, OnExerciseChanged onExerciseChanged,
                              OnExerciseSettingsChanged onExerciseSettingsChanged);

    const QString& exerciseNameTextFieldText() const { return m_exerciseNameTextFieldText; }
    static ExerciseNameTextField exerciseNameTextField() { return {}; }
    bool exerciseNameFieldFocused() const { return m_focus == Focus::exerciseNameField; }
    const Exercise& exercise() const { return m_exercise; }
    const ExerciseSettings& exerciseSettings() const { return m_exerciseSettings; }
    bool autoSavedTempo() const { return m_autoSavedTempo; }

    // The switches, in the order of the sheet.
    static QList<PracticeToolToggle> practiceToolToggles();
    PracticeToolToggle standardBPMToggle() const;
    QString autoSavedTempoSubtitle() const;
    QList<PracticeToolToggle> clearingRuleToggles() const;
    bool hasClearingRules() const { return !clearingRuleToggles().isEmpty(); }

    // The same by sections of the sheet.
    ToggleListModel* tools() { return &m_tools; }
    ToggleListModel* counters() { return &m_counters; }
    ToggleListModel* clearingRules() { return &m_clearingRules; }
    ToggleListModel* tempo() { return &m_tempo; }

    void setExerciseNameTextFieldText(const QString& text);
    // Losing the focus takes the name over.
    void setExerciseNameFieldFocused(bool focused);
    // Renames the item everywhere its name is kept. An empty or unchanged name is ignored.
    Q_INVOKABLE void commitExerciseName();

    // Publishes the settings and reports them; settings that are the same change nothing.
    void setExerciseSettings(const ExerciseSettings& settings);
    // Takes over what the practice screen made of the settings, without reporting it back.
    void adopt(const ExerciseSettings& settings);
    void setAutoSavedTempo(bool on);
    // Flips the switch of that identifier. One that does not exist changes nothing.
    Q_INVOKABLE void setOn(const QString& identifier, bool on);

Q_SIGNALS:
    void exerciseNameTextFieldTextChanged();
    void focusChanged();
    void autoSavedTempoChanged();
    void exerciseSettingsChanged();

private:
    void publish(const ExerciseSettings& settings);
    void updateRows();

    QString m_exerciseNameTextFieldText;
    ExerciseSettings m_exerciseSettings;
    std::optional<Focus> m_focus;
    bool m_autoSavedTempo;
    Singletons& m_singletons;
    Queue& m_mainQueue;
    Exercise m_exercise;
    // What the stores call the item; `m_exercise` follows when all of them are done.
    QString m_storedName;
    const OnExerciseChanged m_onExerciseChanged;
    const OnExerciseSettingsChanged m_onExerciseSettingsChanged;
    ToggleListModel m_tools;
    ToggleListModel m_counters;
    ToggleListModel m_clearingRules;
    ToggleListModel m_tempo;
    // Given to the completions of the stores, which do nothing once the sheet is gone.
    std::shared_ptr<ExerciseSettingsViewModel*> m_self = std::make_shared<ExerciseSettingsViewModel*>(this);
};

} // namespace tamsel
