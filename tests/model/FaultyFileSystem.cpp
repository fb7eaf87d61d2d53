#include "tests/model/FaultyFileSystem.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tamsel::test {

namespace {

FaultyFileSystem* current = nullptr;
sqlite3_vfs* real = nullptr;

// What SQLite sees as a file; the system's own follows it in memory.
struct File {
    sqlite3_file base;
    const char* path;

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    static File* of(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
};

const sqlite3_io_methods* methods(sqlite3_file* file) {
    return File::of(file)->real()->pMethods;
}

template <auto method, class... Arguments>
auto pass(sqlite3_file* file, Arguments... arguments) {
    return (methods(file)->*method)(File::of(file)->real(), arguments...);
}

} // namespace

struct FileCalls {
    static int read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
        return current->m_readsFail ? SQLITE_IOERR_READ : pass<&sqlite3_io_methods::xRead>(file, bytes, size, offset);
    }

    static int write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
        if (const int result = current->nextResult(current->m_failure))
            return result;
        current->m_writtenBytes += size;
        return pass<&sqlite3_io_methods::xWrite>(file, bytes, size, offset);
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size) {
        const int result = current->nextResult(current->m_failure);
        return result != 0 ? result : pass<&sqlite3_io_methods::xTruncate>(file, size);
    }

    static int sync(sqlite3_file* file, int flags) {
        if (const int result = current->nextResult(SQLITE_IOERR_FSYNC))
            return result;
        sqlite3_int64 size = 0;
        pass<&sqlite3_io_methods::xFileSize>(file, &size);
        QByteArray bytes(size, '\0');
        pass<&sqlite3_io_methods::xRead>(file, static_cast<void*>(bytes.data()), static_cast<int>(size),
                                         sqlite3_int64{0});
        if (const char* path = File::of(file)->path)
            current->m_syncedFiles.insert(QFile::decodeName(path), bytes);
        return pass<&sqlite3_io_methods::xSync>(file, flags);
    }

    static int open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
        static constexpr sqlite3_io_methods all = {
            .iVersion = 2,
            .xClose = [](sqlite3_file* each) { return pass<&sqlite3_io_methods::xClose>(each); },
            .xRead = read,
            .xWrite = write,
            .xTruncate = truncate,
            .xSync = sync,
            .xFileSize = [](sqlite3_file* each,
                            sqlite3_int64* size) { return pass<&sqlite3_io_methods::xFileSize>(each, size); },
            .xLock = [](sqlite3_file* each, int lock) { return pass<&sqlite3_io_methods::xLock>(each, lock); },
            .xUnlock = [](sqlite3_file* each, int lock) { return pass<&sqlite3_io_methods::xUnlock>(each, lock); },
            .xCheckReservedLock = [](sqlite3_file* each,
                                     int* out) { return pass<&sqlite3_io_methods::xCheckReservedLock>(each, out); },
            .xFileControl = [](sqlite3_file* each, int operation,
                               void* out) { return pass<&sqlite3_io_methods::xFileControl>(each, operation, out); },
            .xSectorSize = [](sqlite3_file* each) { return pass<&sqlite3_io_methods::xSectorSize>(each); },
            .xDeviceCharacteristics =
                [](sqlite3_file* each) { return pass<&sqlite3_io_methods::xDeviceCharacteristics>(each); },
            .xShmMap =
                [](sqlite3_file* each, int page, int size, int extend, void volatile** out) {
                    return pass<&sqlite3_io_methods::xShmMap>(each, page, size, extend, out);
                },
            .xShmLock = [](sqlite3_file* each, int offset, int count,
                           int lock) { return pass<&sqlite3_io_methods::xShmLock>(each, offset, count, lock); },
            .xShmBarrier = [](sqlite3_file* each) { pass<&sqlite3_io_methods::xShmBarrier>(each); },
            .xShmUnmap = [](sqlite3_file* each,
                            int remove) { return pass<&sqlite3_io_methods::xShmUnmap>(each, remove); },
            .xFetch = nullptr,
            .xUnfetch = nullptr,
        };
        File::of(file)->path = path;
        const int result = real->xOpen(real, path, File::of(file)->real(), flags, outFlags);
        file->pMethods = result == SQLITE_OK ? &all : nullptr;
        return result;
    }

    static int remove(sqlite3_vfs*, const char* path, int syncFolder) {
        current->m_syncedFiles.remove(QFile::decodeName(path));
        return real->xDelete(real, path, syncFolder);
    }
};

namespace {
sqlite3_vfs faulty;
}

FaultyFileSystem::FaultyFileSystem() {
    EXPECT_EQ(current, nullptr);
    current = this;
    real = sqlite3_vfs_find(nullptr);
    faulty = *real;
    faulty.szOsFile += static_cast<int>(sizeof(File));
    faulty.zName = "faulty";
    faulty.xOpen = FileCalls::open;
    faulty.xDelete = FileCalls::remove;
    sqlite3_vfs_register(&faulty, 1);
}

FaultyFileSystem::~FaultyFileSystem() {
    sqlite3_vfs_unregister(&faulty);
    sqlite3_vfs_register(real, 1);
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
