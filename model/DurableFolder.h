#pragma once

#include <QString>

#include <optional>

namespace tamsel {

// Makes the folder and those above it that are missing, open to their owner alone. On failure the system's reason, such
// as "Permission denied".
std::optional<QString> makeFolder(const QString& path);

// Makes the names in the folder, and the folder's own name, survive a loss of power. On failure the system's reason.
std::optional<QString> syncFolder(const QString& path);

} // namespace tamsel
