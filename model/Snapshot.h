#pragma once

#include "model/Json.h"
#include "model/SettingsStore.h"
#include "model/UserData.h"

#include <functional>

namespace tamsel {

// A way to all values of a store that any thread can go, once or more: what the call yields is one state of the store,
// as it was when the way was made or as some later change has left it. The error is one line.
using Snapshot = std::function<json::Result<UserData::Values>()>;

// To be called on the main thread, which it does not keep waiting: where the store lies in a file and all is on disk,
// it is read when the way is gone.
Snapshot snapshotOf(const SettingsStore& store);

} // namespace tamsel
