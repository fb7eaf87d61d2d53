#pragma once

#include <QString>

namespace tamsel {

// Stops the program: a state that must never happen has happened. Writes "Fatal error: " and the message (or, when it
// is empty, "Fatal error") to standard error and aborts. Any thread.
[[noreturn]] void fatalError(const QString& message);

// Ends the program at once with exit code 1, after the line on standard error: data that the program stands on cannot
// be reached. Nothing is written on the way out. Any thread.
[[noreturn]] void refuseToGoOn(const QString& line);

// Stops the program without a message: arithmetic that overflowed, or a promise of a library that did not hold.
[[noreturn]] void trap();

} // namespace tamsel
