#pragma once

#include <QString>
#include <QStringList>

namespace tamsel {

// How the program was started, for those whom it concerns.
struct LaunchConditions {
    // Automated tests asked for empty data and no review prompts.
    bool isUnderInterfaceTest = false;

    // Only the argument itself counts, wherever it stands.
    static LaunchConditions from(const QStringList& arguments) {
        return {arguments.contains(QStringLiteral("UI_TESTING"))};
    }
};

} // namespace tamsel
