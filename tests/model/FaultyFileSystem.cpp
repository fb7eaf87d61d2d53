#include "tests/model/FaultyFileSystem.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>

namespace tamsel::test {

namespace {
FaultyFileSystem* current = nullptr;
}

// Files are the system's own, with some of their calls exchanged for these.
struct FaultyFileSystem::Calls {
    struct File {
        QString path;
        const sqlite3_io_methods* own;
        sqlite3_io_methods exchanged;
    };

    static const sqlite3_io_methods& own(sqlite3_file* file) { return *current->m_calls->files.at(file).own; }

    static int open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
        Calls& calls = *current->m_calls;
        const int result = calls.real->xOpen(calls.real, path, file, flags, outFlags);
        if (result != SQLITE_OK)
            return result;
        File& opened = calls.files[file] = {QFile::decodeName(path), file->pMethods, *file->pMethods};
        opened.exchanged.xRead = read;
        opened.exchanged.xWrite = write;
        opened.exchanged.xTruncate = truncate;
        opened.exchanged.xSync = sync;
        file->pMethods = &opened.exchanged;
        return result;
    }

    static int remove(sqlite3_vfs*, const char* path, int syncFolder) {
        current->m_syncedFiles.remove(QFile::decodeName(path));
        return current->m_calls->real->xDelete(current->m_calls->real, path, syncFolder);
    }

    static int read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
        return current->m_readsFail ? SQLITE_IOERR_READ : own(file).xRead(file, bytes, size, offset);
    }

    static int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
        if (const int result = current->nextResult(current->m_failure))
            return result;
        current->m_writtenBytes += size;
        return own(file).xWrite(file, bytes, size, offset);
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size) {
        const int result = current->nextResult(current->m_failure);
        return result != 0 ? result : own(file).xTruncate(file, size);
    }

    static int sync(sqlite3_file* file, int flags) {
        if (const int result = current->nextResult(SQLITE_IOERR_FSYNC))
            return result;
        sqlite3_int64 size = 0;
        own(file).xFileSize(file, &size);
        QByteArray bytes(size, '\0');
        own(file).xRead(file, bytes.data(), static_cast<int>(size), 0);
        current->m_syncedFiles.insert(current->m_calls->files.at(file).path, bytes);
        return own(file).xSync(file, flags);
    }

    sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
    sqlite3_vfs faulty = *real;
    std::map<sqlite3_file*, File> files;
};

FaultyFileSystem::FaultyFileSystem() : m_calls(std::make_unique<Calls>()) {
    EXPECT_EQ(current, nullptr);
    current = this;
    m_calls->faulty.zName = "faulty";
    m_calls->faulty.xOpen = Calls::open;
    m_calls->faulty.xDelete = Calls::remove;
    sqlite3_vfs_register(&m_calls->faulty, 1);
}

FaultyFileSystem::~FaultyFileSystem() {
    sqlite3_vfs_unregister(&m_calls->faulty);
    sqlite3_vfs_register(m_calls->real, 1);
    current = nullptr;
}

void FaultyFileSystem::failAfter(int count, int result, Duration duration) {
    m_passing = count;
    m_failure = result;
    m_duration = duration;
    m_hasFailed = false;
}

QMap<QString, QByteArray> FaultyFileSystem::syncedFiles(const QString& folder) const {
    QMap<QString, QByteArray> files;
    for (auto each = m_syncedFiles.cbegin(); each != m_syncedFiles.cend(); ++each) {
        const QFileInfo file(each.key());
        if (file.path() == folder)
            files.insert(file.fileName(), each.value());
    }
    return files;
}

void FaultyFileSystem::heal() {
    m_failure = 0;
    m_readsFail = false;
}

int FaultyFileSystem::nextResult(int failure) {
    if (m_failure == 0)
        return 0;
    if (m_passing > 0) {
        --m_passing;
        return 0;
    }
    m_hasFailed = true;
    if (m_duration == Duration::once)
        m_failure = 0;
    return failure;
}

} // namespace tamsel::test
