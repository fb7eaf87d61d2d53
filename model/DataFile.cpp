#include "model/DataFile.h"

#include "model/DurableFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tamsel::datafile {

namespace {

// What a JSON parser may look at behind a document's end, so that it need not be copied for that.
constexpr qsizetype room = 64;

bool writeAll(int descriptor, const QByteArray& bytes, const Calls& calls) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            calls.write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written == 0)
            errno = ENOSPC;
        else if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

} // namespace

const Calls& Calls::system() {
    static const Calls calls{
        [](int descriptor, const char* bytes, std::size_t size) { return ::write(descriptor, bytes, size); },
        [](int descriptor) { return ::fsync(descriptor); },
        [](const char* from, const char* to) { return std::rename(from, to); }};
    return calls;
}

json::Result<QByteArray> read(const QString& path) {
    const auto failed = [](const QString& reason) { return json::Error{reason}; };
    // Without waiting for somebody who writes into a pipe.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return failed(qt_error_string(errno));
    const auto guard = qScopeGuard([descriptor] { ::close(descriptor); });
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        return failed(qt_error_string(errno));
    if (S_ISDIR(status.st_mode))
        return failed(QStringLiteral("it is a folder"));
    if (!S_ISREG(status.st_mode))
        return failed(QStringLiteral("it is not a plain file"));
    if (status.st_size > largestBytes)
        return failed(QStringLiteral("it is larger than 1 GiB"));
    QByteArray bytes;
    bytes.reserve(status.st_size + room);
    bytes.resize(status.st_size);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t got = ::read(descriptor, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return failed(qt_error_string(errno));
        if (got == 0)
            break; // cut off meanwhile
        done += got;
    }
    bytes.truncate(done);
    return bytes;
}

std::optional<QString> write(const QString& path, const QByteArray& bytes, const Calls& calls) {
    const QByteArray target = QFile::encodeName(path);
    struct stat present {};
    // A device or a pipe is not to make room for a file.
    if (::stat(target.constData(), &present) == 0 && !S_ISREG(present.st_mode))
        return S_ISDIR(present.st_mode) ? qt_error_string(EISDIR) : QStringLiteral("it is not a plain file");
    QByteArray part = target + ".XXXXXX";
    const int descriptor = ::mkostemp(part.data(), O_CLOEXEC);
    if (descriptor < 0)
        return qt_error_string(errno);
    const bool isOnDisk = writeAll(descriptor, bytes, calls) && calls.sync(descriptor) == 0;
    int error = isOnDisk ? 0 : errno;
    if (::close(descriptor) != 0 && error == 0)
        error = errno;
    if (error == 0 && calls.rename(part.constData(), target.constData()) != 0)
        error = errno;
    if (error != 0) {
        ::unlink(part.constData());
        return qt_error_string(error);
    }
    return syncFolder(QFileInfo(path).absolutePath());
}

} // namespace tamsel::datafile
