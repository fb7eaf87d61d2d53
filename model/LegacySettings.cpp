#include "model/LegacySettings.h"

#include "model/SettingsKeys.h"
#include "model/StoredSettings.h"

#include <algorithm>

namespace tamsel {

namespace {

// Reads the settings under the old keys; what is absent there has the value of a new item.
class LegacyReader {
public:
    LegacyReader(const SettingsStore& store, const Exercise& exercise)
        : m_store(store), m_prefix(keys::uuidText(exercise.id)) {}

    bool hasAny() const {
        return std::ranges::any_of(keys::legacy::suffixes, [this](const QString& suffix) {
            return m_store.value(m_prefix + suffix).has_value();
        });
    }

    ExerciseSettings settings() const {
        namespace legacy = keys::legacy;
        ExerciseSettings result;
        read(legacy::advancedSubdivisions, result.advancedSubdivisionsEnabled);
        readBookmarks(result.bookmarks);
        read(legacy::tempoBookmarks, result.bookmarksEnabled);
        read(legacy::quickNotes, result.quickNotesEnabled);
        read(legacy::subdivisions, result.subdivisionsEnabled);
        read(legacy::tapTempoEnabled, result.tapTempoEnabled);
        read(legacy::thumbsDownCounter, result.thumbsDownCounterEnabled);
        read(legacy::thumbsUpCounter, result.thumbsUpCounterEnabled);
        if (m_store.value(m_prefix + legacy::tempo))
            result.tempo = m_store.integer(m_prefix + legacy::tempo);
        read(legacy::clearThumbsDownOnTempoChanges, result.clearThumbsDownOnTempoChanges);
        read(legacy::clearThumbsDownOnThumbsUp, result.clearThumbsDownOnThumbsUp);
        read(legacy::clearThumbsUpOnTempoChanges, result.clearThumbsUpOnTempoChanges);
        read(legacy::clearThumbsUpOnThumbsDown, result.clearThumbsUpOnThumbsDown);
        return result;
    }

private:
    void read(const QString& suffix, bool& field) const {
        if (m_store.value(m_prefix + suffix))
            field = m_store.boolean(m_prefix + suffix);
    }

    void readBookmarks(QList<qint64>& bookmarks) const {
        const auto stored = m_store.array(m_prefix + keys::legacy::bookmarks);
        for (const SettingsValue& element : stored.value_or(SettingsValue::Array())) {
            if (const auto* tempo = std::get_if<qint64>(&element.value))
                bookmarks += *tempo;
        }
    }

    const SettingsStore& m_store;
    const QString m_prefix;
};

} // namespace

void migrateLegacySettings(SettingsStore& store, const QList<Exercise>& exercises) {
    if (store.boolean(keys::didMigrateLegacySettings))
        return;
    store.atomically([&] {
        for (const Exercise& exercise : exercises) {
            const LegacyReader legacy(store, exercise);
            if (!legacy.hasAny())
                continue;
            if (!storedSettings(store, exercise.id))
                storeSettings(store, exercise.id, legacy.settings());
            for (const QString& suffix : keys::legacy::suffixes)
                store.remove(keys::uuidText(exercise.id) + suffix);
        }
        store.setBoolean(keys::didMigrateLegacySettings, true);
    });
}

} // namespace tamsel
