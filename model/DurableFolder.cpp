#include "model/DurableFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tamsel {

namespace {

constexpr mode_t ownerOnly = 0700;

QString reason(const char* failing, int error) {
    return QStringLiteral("its folder cannot be %1 (%2)").arg(QLatin1String(failing), qt_error_string(error));
}

// The error number; 0 when the folder is there.
int makeOne(const QString& path) {
    if (::mkdir(QFile::encodeName(path).constData(), ownerOnly) == 0)
        return 0;
    const int error = errno;
    return error != EEXIST ? error : QFileInfo(path).isDir() ? 0 : ENOTDIR;
}

int make(const QString& path) {
    const int error = makeOne(path);
    const QString parent = QFileInfo(path).path();
    // Some places, such as /proc, say this of every new name, though the folder above is there.
    if (error != ENOENT || QFileInfo(parent).isDir())
        return error;
    const int parentError = make(parent);
    return parentError == 0 ? makeOne(path) : parentError;
}

int sync(const QString& path) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that may be passed through but not listed is not one that we made.
    if (descriptor < 0)
        return errno == EACCES ? 0 : errno;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    // Some file systems cannot do this and say so; they have nothing better.
    return error == EIO ? error : 0;
}

} // namespace

std::optional<QString> makeWritableFolder(const QString& path) {
    if (const int error = make(QDir(path).absolutePath()); error != 0)
        return reason("made", error);
    if (::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK | X_OK, AT_EACCESS) != 0)
        return reason("written", errno);
    return std::nullopt;
}

std::optional<QString> syncFolder(const QString& path) {
    // Up to the root: an earlier run may have made any of these and ended before it could do this.
    for (QString folder = QDir(path).absolutePath();; folder = QFileInfo(folder).path()) {
        if (const int error = sync(folder); error != 0)
            return reason("synced", error);
        if (QDir(folder).isRoot())
            return std::nullopt;
    }
}

} // namespace tamsel
