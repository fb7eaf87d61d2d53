#include "app/SettingsStoreChoice.h"

#include "platform/FatalError.h"
#include "platform/NumberText.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace tamsel {

SettingsStoreChoice chooseSettingsStore(const LaunchConditions& launch, const Clock& clock) {
    if (!launch.isUnderInterfaceTest)
        return {standardDataFolder(), QStringLiteral("standard"), false};
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/tamsel-XXXXXX"));
    if (!folder.isValid())
        trap();
    // Left in place: whoever runs the test may want to look at the data.
    folder.setAutoRemove(false);
    return {folder.path(), QStringLiteral("UITests_") + decimalText(clock.now().unixSeconds()), true};
}

QString standardDataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tamsel");
}

} // namespace tamsel
