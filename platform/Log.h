#pragma once

#include <QStringView>

#include <cstdio>

namespace tamsel {

// Writes one line to the console: standard output, unless sent elsewhere. Any thread; lines never interleave.
void log(QStringView line);

// Sends the lines to another stream from now on. A command whose own output is data sends them to standard error.
void setLogStream(std::FILE* stream);

} // namespace tamsel
