#include "platform/Log.h"

#include <QByteArray>

#include <atomic>

namespace tamsel {

namespace {
std::atomic<std::FILE*> logStream = nullptr;
}

void log(QStringView line) {
    std::FILE* const stream = logStream.load() != nullptr ? logStream.load() : stdout;
    QByteArray bytes = line.toUtf8();
    bytes.append('\n');
    // One call, so that the stream's own lock keeps the line whole.
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

void setLogStream(std::FILE* stream) {
    logStream.store(stream);
}

} // namespace tamsel
