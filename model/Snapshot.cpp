#include "model/Snapshot.h"

#include "model/SettingsFile.h"

#include <QFileInfo>

namespace tamsel {

namespace {

json::Result<UserData::Values> readBeside(const QString& path) {
    // Opening would make an empty one.
    if (!QFileInfo(path).isFile())
        return json::Error{QStringLiteral("there is no such file")};
    SettingsFile file;
    UserData::Values values;
    // A connection of its own sees what is committed, and neither waits for one that writes nor hinders it.
    if (!file.open(path, SettingsFile::OnClose::leaveLog) || !file.readAll(values)) {
        const QString error = file.error();
        return json::Error{error};
    }
    return values;
}

} // namespace

Snapshot snapshotOf(const SettingsStore& store) {
    const QString path = store.location();
    if (!store.writeFailure() && QFileInfo(path).isAbsolute())
        return [path] { return readBeside(path); };
    // What waits for a full disk to empty is in this store alone.
    return [values = store.dictionaryRepresentation()] { return json::Result<UserData::Values>(values); };
}

} // namespace tamsel
