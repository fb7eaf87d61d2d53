#pragma once

#include <QDir>
#include <QStringList>

namespace tamsel {

// What the program was asked to open, so that another process in another folder understands it: URLs as they are, and
// everything else as the absolute path of a file.
QStringList launchRequests(const QStringList& arguments, const QDir& workingFolder);

} // namespace tamsel
