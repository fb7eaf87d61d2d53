#include "ctl/Command.h"

#include <cstdio>

namespace tamsel::ctl {

ExitCode fail(ExitCode code, const QString& line) {
    std::fprintf(stderr, "tamselctl: %s\n", line.toUtf8().constData());
    return code;
}

} // namespace tamsel::ctl
