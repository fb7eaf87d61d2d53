#include "platform/FatalError.h"

#include <cstdio>
#include <cstdlib>

namespace tamsel {

void fatalError(const QString& message) {
    const QByteArray text = message.toUtf8();
    if (text.isEmpty())
        std::fputs("Fatal error\n", stderr);
    else
        std::fprintf(stderr, "Fatal error: %s\n", text.constData());
    std::abort();
}

void refuseToGoOn(const QString& line) {
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

void trap() {
    std::abort();
}

} // namespace tamsel
