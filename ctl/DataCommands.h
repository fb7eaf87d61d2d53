#pragma once

#include "ctl/Command.h"

namespace tamsel::ctl {

// tamselctl export, import, check, backups, restore: the user's data without a screen. Those that change it hold the
// lock of the data folder meanwhile, so that they refuse while the app runs.
ExitCode exportData(const QStringList& arguments);
ExitCode importData(const QStringList& arguments);
ExitCode check(const QStringList& arguments);
ExitCode listBackups(const QStringList& arguments);
ExitCode restore(const QStringList& arguments);

} // namespace tamsel::ctl
