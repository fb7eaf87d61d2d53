#pragma once

#include "model/ExerciseSettings.h"

#include <QString>

#include <optional>

namespace tamsel {

// One switch of an item's settings.
struct PracticeToolToggle {
    struct Label {
        std::optional<QString> systemImage;
        QString title;
    };

    QString id; // the accessibility identifier
    bool ExerciseSettings::*isOn;
    std::optional<Label> label;
    std::optional<QString> subtitle;
};

} // namespace tamsel
