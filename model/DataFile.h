#pragma once

#include "model/Json.h"

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <functional>
#include <optional>

// Whole files from and to the disk. Any thread.
namespace tamsel::datafile {

// More than this is not read: reading takes several times a document's size in memory.
inline constexpr qsizetype largestBytes = qsizetype(1) << 30;

// The bytes, or one line that says why not: "it is a folder". Only plain files are read; a pipe or a device could keep
// the reader waiting for ever.
json::Result<QByteArray> read(const QString& path);

// The system's calls by which a file reaches the disk. Tests hand in some that fail.
struct Calls {
    std::function<ssize_t(int descriptor, const char* bytes, std::size_t size)> write;
    std::function<int(int descriptor)> sync;
    std::function<int(const char* from, const char* to)> rename;

    static const Calls& system();
};

// Makes the file, or replaces it: at any moment, and after any failure, there is the old file or the whole new one,
// which is on the disk when the call returns. Readable by its owner only. What is there and no plain file stays. On
// failure one line that says why.
std::optional<QString> write(const QString& path, const QByteArray& bytes, const Calls& calls = Calls::system());

} // namespace tamsel::datafile
