#pragma once

#include <QString>
#include <QStringList>

namespace tamsel::ctl {

// How a command ends, for scripts.
enum ExitCode : int {
    exitDone = 0,
    exitRefused = 1, // could not do it; one line on standard error says why
    exitUsage = 2,   // was not asked properly; likewise
};

// What a command that shows something has to say: its output, or the line that says why there is none.
struct Answer {
    ExitCode code = exitDone;
    QString text;
};

// One command of tamselctl. `run` gets the arguments behind the command's name.
struct Command {
    const char* name;
    const char* summary;
    ExitCode (*run)(const QStringList& arguments);
};

// Writes the line to standard error, under the program's name, and passes the code on.
ExitCode fail(ExitCode code, const QString& line);

} // namespace tamsel::ctl
