#include "model/Snapshot.h"

#include "model/SettingsFile.h"

#include <QFileInfo>

#include <optional>

namespace tamsel {

namespace {

std::optional<json::Error> problemOf(const QString& path) {
    // Opening would make an empty one.
    return QFileInfo(path).isFile() ? std::nullopt
                                    : std::optional(json::Error{QStringLiteral("there is no such file")});
}

json::Result<UserData::Values> readBeside(const QString& path) {
    if (const auto missing = problemOf(path))
        return *missing;
    SettingsFile file;
    UserData::Values values;
    // A connection of its own sees what is committed, and neither waits for one that writes nor hinders it.
    if (!file.open(path, SettingsFile::OnClose::leaveLog) || !file.readAll(values)) {
        const QString error = file.error();
        return json::Error{error};
    }
    return values;
}

json::Result<std::optional<SettingsValue>> readBeside(const QString& path, const QString& key) {
    if (const auto missing = problemOf(path))
        return *missing;
    SettingsFile file;
    std::optional<SettingsValue> value;
    if (!file.openBeside(path) || !file.read(key, value)) {
        const QString error = file.error();
        return json::Error{error};
    }
    return value;
}

// Nothing where the store lies in no file, or its file is not up to date.
std::optional<QString> fileOf(const SettingsStore& store) {
    const QString path = store.location();
    return !store.writeFailure() && QFileInfo(path).isAbsolute() ? std::optional(path) : std::nullopt;
}

} // namespace

Snapshot snapshotOf(const SettingsStore& store) {
    if (const auto path = fileOf(store))
        return [path = *path] { return readBeside(path); };
    // What waits for a full disk to empty is in this store alone.
    return [values = store.dictionaryRepresentation()] { return json::Result<UserData::Values>(values); };
}

ValueSnapshot snapshotOf(const SettingsStore& store, const QString& key) {
    if (const auto path = fileOf(store))
        return [path = *path, key] { return readBeside(path, key); };
    return [value = store.value(key)] { return json::Result<std::optional<SettingsValue>>(value); };
}

} // namespace tamsel
