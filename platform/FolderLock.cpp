#include "platform/FolderLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tamsel {

std::optional<FolderLock> FolderLock::take(const QString& folder, Failure* failure) {
    const auto fail = [failure](Failure reason) {
        if (failure != nullptr)
            *failure = reason;
        return std::nullopt;
    };
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/lock"));
    const int descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return fail(Failure::NotWritable);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const Failure reason = errno == EWOULDBLOCK ? Failure::HeldByAnother : Failure::NotWritable;
        ::close(descriptor);
        return fail(reason);
    }
    return FolderLock(descriptor);
}

FolderLock::FolderLock(FolderLock&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FolderLock::~FolderLock() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

} // namespace tamsel
