#pragma once

#include "model/SettingsStore.h"

#include <QString>

namespace tamsel {

// Keeps a copy of data that cannot be read, so that the next save under its key destroys nothing: under
// "unreadable." + key, with ".2", ".3" … behind it when other data lies there already. Does nothing when the same data
// has been set aside before. Returns the copy's key. Main thread only.
QString setAside(SettingsStore& store, const QString& key);

} // namespace tamsel
