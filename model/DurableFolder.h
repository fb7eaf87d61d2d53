#pragma once

#include <QString>

#include <optional>

namespace tamsel {

// Makes the folder and those above it that are missing, open to their owner alone. On failure, or when nothing can be
// made in it, the reason: "its folder cannot be written (Permission denied)".
std::optional<QString> makeWritableFolder(const QString& path);

// Makes the names in the folder, and the folder's own name, survive a loss of power. On failure the reason.
std::optional<QString> syncFolder(const QString& path);

} // namespace tamsel
