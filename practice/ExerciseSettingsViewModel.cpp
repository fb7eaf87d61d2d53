#include "practice/ExerciseSettingsViewModel.h"

#include <algorithm>
#include <utility>

namespace tamsel {

namespace {

const QString thumbsUpImage = QStringLiteral("hand.thumbsup");
const QString thumbsDownImage = QStringLiteral("hand.thumbsdown");
const QString savedTempoIdentifier = QStringLiteral("saved_tempo");
// How many of the tool switches belong to the counters: the first ones.
constexpr qsizetype counterCount = 2;

struct Rule {
    const char* id;
    bool ExerciseSettings::*isOn;
    bool clearsThumbsUp;
    bool onTempo; // otherwise on the other counter
};

constexpr Rule thumbsUpOnTempo{"clear_thumbs_up_on_tempo_changes", &ExerciseSettings::clearThumbsUpOnTempoChanges, true,
                               true};
constexpr Rule thumbsDownOnTempo{"clear_thumbs_down_on_tempo_changes", &ExerciseSettings::clearThumbsDownOnTempoChanges,
                                 false, true};
constexpr Rule thumbsUpOnThumbsDown{"clear_thumbs_up_on_thumbs_down", &ExerciseSettings::clearThumbsUpOnThumbsDown,
                                    true, false};
constexpr Rule thumbsDownOnThumbsUp{"clear_thumbs_down_on_thumbs_up", &ExerciseSettings::clearThumbsDownOnThumbsUp,
                                    false, false};

QList<Rule> offeredRules(const ExerciseSettings& settings) {
    if (settings.thumbsUpCounterEnabled && settings.thumbsDownCounterEnabled)
        return {thumbsUpOnTempo, thumbsDownOnTempo, thumbsUpOnThumbsDown, thumbsDownOnThumbsUp};
    if (settings.thumbsUpCounterEnabled)
        return {thumbsUpOnTempo};
    // Not the rule of the tempo: deliberate.
    if (settings.thumbsDownCounterEnabled)
        return {thumbsDownOnThumbsUp};
    return {};
}

ToggleListModel::Row ruleRow(const Rule& rule, const ExerciseSettings& settings) {
    const auto name = [](bool up) { return up ? QStringLiteral("thumbs up") : QStringLiteral("thumbs down"); };
    const auto image = [](bool up) { return up ? thumbsUpImage : thumbsDownImage; };
    ToggleListModel::Row row;
    row.identifier = QString::fromLatin1(rule.id);
    row.isOn = settings.*rule.isOn;
    row.clearedIcon = image(rule.clearsThumbsUp);
    if (rule.onTempo)
        row.triggerText = QStringLiteral("tempo change");
    else
        row.triggerIcon = image(!rule.clearsThumbsUp);
    row.spokenName = QStringLiteral("Clear %1 on %2")
                         .arg(name(rule.clearsThumbsUp), rule.onTempo ? row.triggerText : name(!rule.clearsThumbsUp));
    return row;
}

ToggleListModel::Row toolRow(const PracticeToolToggle& toggle, const ExerciseSettings& settings) {
    ToggleListModel::Row row;
    row.identifier = toggle.id;
    row.isOn = settings.*toggle.isOn;
    if (toggle.label) {
        row.title = toggle.label->title;
        row.iconName = toggle.label->systemImage.value_or(QString());
    }
    row.subtitle = toggle.subtitle.value_or(QString());
    return row;
}

} // namespace

ExerciseSettingsViewModel::ExerciseSettingsViewModel(Singletons& singletons, Queue& mainQueue, const Exercise& exercise,
                                                     const ExerciseSettings& settings,
                                                     OnExerciseChanged onExerciseChanged,
                                                     OnExerciseSettingsChanged onExerciseSettingsChanged)
    : m_exerciseNameTextFieldText(exercise.name), m_exerciseSettings(settings),
      m_autoSavedTempo(settings.autoSavedTempo), m_singletons(singletons), m_mainQueue(mainQueue), m_exercise(exercise),
      m_storedName(exercise.name), m_onExerciseChanged(std::move(onExerciseChanged)),
      m_onExerciseSettingsChanged(std::move(onExerciseSettingsChanged)) {
    updateRows();
}

// Switches

QList<PracticeToolToggle> ExerciseSettingsViewModel::practiceToolToggles() {
    const auto label = [](const QString& image, const QString& title) {
        return PracticeToolToggle::Label{image, title};
    };
    const QString counter = QStringLiteral("Counter");
    const QString counting = QStringLiteral("Tap to increase, long-press to clear");
    return {
        {QStringLiteral("thumbs_up_counter"), &ExerciseSettings::thumbsUpCounterEnabled, label(thumbsUpImage, counter),
         counting},
        {QStringLiteral("thumbs_down_counter"), &ExerciseSettings::thumbsDownCounterEnabled,
         label(thumbsDownImage, counter), counting},
        {QStringLiteral("quick_notes"), &ExerciseSettings::quickNotesEnabled,
         label(QStringLiteral("text.badge.plus"), QStringLiteral("Quick Notes")),
         QStringLiteral("Long-press for quick snippets")},
        {QStringLiteral("beat_patterns"), &ExerciseSettings::subdivisionsEnabled,
         label(QStringLiteral("music.quarternote.3"), QStringLiteral("Subdivisions")), std::nullopt},
        {QStringLiteral("tap_tempo"), &ExerciseSettings::tapTempoEnabled,
         label(QStringLiteral("hand.tap"), QStringLiteral("Tap Tempo")), std::nullopt},
        {QStringLiteral("bookmarked_tempi"), &ExerciseSettings::bookmarksEnabled,
         label(QStringLiteral("bookmark"), QStringLiteral("Tempo Bookmarks")),
         QStringLiteral("Long-press to select a saved tempo")},
    };
}

PracticeToolToggle ExerciseSettingsViewModel::standardBPMToggle() const {
    return {QStringLiteral("standard_bpm"), &ExerciseSettings::snapToStandardTempi,
            PracticeToolToggle::Label{std::nullopt, QStringLiteral("Standard BPM")},
            m_exerciseSettings.snapToStandardTempi ? QStringLiteral("+/- by traditional values")
                                                   : QStringLiteral("+/- by 1, long-press for 10")};
}

QString ExerciseSettingsViewModel::autoSavedTempoSubtitle() const {
    if (m_exerciseSettings.autoSavedTempo)
        return QStringLiteral("Open to last used tempo");
    return QStringLiteral("Open to last saved tempo: %1").arg(m_exerciseSettings.tempo);
}

QList<PracticeToolToggle> ExerciseSettingsViewModel::clearingRuleToggles() const {
    QList<PracticeToolToggle> toggles;
    for (const Rule& rule : offeredRules(m_exerciseSettings))
        toggles += PracticeToolToggle{QString::fromLatin1(rule.id), rule.isOn, std::nullopt, std::nullopt};
    return toggles;
}

void ExerciseSettingsViewModel::updateRows() {
    QList<ToggleListModel::Row> rows;
    for (const PracticeToolToggle& toggle : practiceToolToggles())
        rows += toolRow(toggle, m_exerciseSettings);
    // Both have the same title; what is a picture on the screen has to be said.
    rows[0].spokenName = QStringLiteral("Counter, thumbs up");
    rows[1].spokenName = QStringLiteral("Counter, thumbs down");
    m_counters.setRows(rows.first(counterCount));
    m_tools.setRows(rows.sliced(counterCount));
    QList<ToggleListModel::Row> rules;
    for (const Rule& rule : offeredRules(m_exerciseSettings))
        rules += ruleRow(rule, m_exerciseSettings);
    m_clearingRules.setRows(rules);
    ToggleListModel::Row saved;
    saved.identifier = savedTempoIdentifier;
    saved.title = QStringLiteral("Auto Save Tempo");
    saved.subtitle = autoSavedTempoSubtitle();
    saved.isOn = m_autoSavedTempo;
    m_tempo.setRows({saved, toolRow(standardBPMToggle(), m_exerciseSettings)});
}

void ExerciseSettingsViewModel::setOn(const QString& identifier, bool on) {
    if (identifier == savedTempoIdentifier) {
        setAutoSavedTempo(on);
        return;
    }
    const QList<PracticeToolToggle> toggles =
        practiceToolToggles() + QList{standardBPMToggle()} + clearingRuleToggles();
    const auto found = std::ranges::find(toggles, identifier, &PracticeToolToggle::id);
    if (found == toggles.end())
        return;
    ExerciseSettings settings = m_exerciseSettings;
    settings.*found->isOn = on;
    setExerciseSettings(settings);
}

void ExerciseSettingsViewModel::setAutoSavedTempo(bool on) {
    if (std::exchange(m_autoSavedTempo, on) == on)
        return;
    Q_EMIT autoSavedTempoChanged();
    ExerciseSettings settings = m_exerciseSettings;
    settings.autoSavedTempo = on;
    setExerciseSettings(settings);
}

void ExerciseSettingsViewModel::setExerciseSettings(const ExerciseSettings& settings) {
    if (m_exerciseSettings == settings)
        return;
    publish(settings);
    m_onExerciseSettingsChanged(m_exerciseSettings);
}

void ExerciseSettingsViewModel::adopt(const ExerciseSettings& settings) {
    if (m_exerciseSettings != settings)
        publish(settings);
}

void ExerciseSettingsViewModel::publish(const ExerciseSettings& settings) {
    m_exerciseSettings = settings;
    updateRows();
    Q_EMIT exerciseSettingsChanged();
}

// Name

void ExerciseSettingsViewModel::setExerciseNameTextFieldText(const QString& text) {
    if (m_exerciseNameTextFieldText == text)
        return;
    m_exerciseNameTextFieldText = text;
    Q_EMIT exerciseNameTextFieldTextChanged();
}

void ExerciseSettingsViewModel::setExerciseNameFieldFocused(bool focused) {
    if (focused == exerciseNameFieldFocused())
        return;
    m_focus = focused ? std::optional(Focus::exerciseNameField) : std::nullopt;
    Q_EMIT focusChanged();
    if (!focused)
        commitExerciseName();
}

void ExerciseSettingsViewModel::commitExerciseName() {
    const QString newName = m_exerciseNameTextFieldText;
    if (newName == m_storedName || newName.isEmpty())
        return;
    const QString oldName = std::exchange(m_storedName, newName);
    // The list and today's log together: no crash leaves a session of an item that is not there.
    m_singletons.userDefaults.atomically([&] {
        m_singletons.exercises.rename(m_exercise, newName,
                                      [self = std::weak_ptr(m_self), &singletons = m_singletons,
                                       &mainQueue = m_mainQueue, oldName](const Exercise& renamed) {
                                          singletons.dailyLog.renameExercise(oldName, renamed.name);
                                          singletons.history.renameExercise(
                                              oldName, renamed.name, [self, &mainQueue, renamed] {
                                                  mainQueue.async([self, renamed] {
                                                      const auto sheet = self.lock();
                                                      if (!sheet)
                                                          return;
                                                      (*sheet)->m_exercise = renamed;
                                                      (*sheet)->m_onExerciseChanged(renamed);
                                                  });
                                              });
                                      });
    });
}

} // namespace tamsel
