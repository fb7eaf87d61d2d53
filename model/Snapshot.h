#pragma once

#include "model/Json.h"
#include "model/SettingsStore.h"
#include "model/UserData.h"

#include <QString>

#include <functional>
#include <optional>

namespace tamsel {

// A way to all values of a store that any thread can go, once or more: what the call yields is one state of the store,
// as it was when the way was made or as some later change has left it. The error is one line.
using Snapshot = std::function<json::Result<UserData::Values>()>;

// To be called on the main thread, which it does not keep waiting: where the store lies in a file and all is on disk,
// it is read when the way is gone.
Snapshot snapshotOf(const SettingsStore& store);

// The same for the value under one key, which may be absent.
using ValueSnapshot = std::function<json::Result<std::optional<SettingsValue>>()>;
ValueSnapshot snapshotOf(const SettingsStore& store, const QString& key);

} // namespace tamsel
