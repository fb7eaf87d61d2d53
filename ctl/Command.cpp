#include "ctl/Command.h"

#include <cstdio>

namespace tamsel::ctl {

ExitCode fail(ExitCode code, const QString& line) {
    // One line, also where an argument that it repeats has several.
    const QByteArray text = QString(line).replace(QLatin1Char('\n'), QLatin1Char(' ')).toUtf8();
    std::fprintf(stderr, "tamselctl: %s\n", text.constData());
    return code;
}

} // namespace tamsel::ctl
