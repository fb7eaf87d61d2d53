#pragma once

#include <QString>

#include <optional>

namespace tamsel {

// Holds a folder for this process alone, for as long as the object lives. The system frees it however the process ends.
class FolderLock {
public:
    enum class Failure { HeldByAnother, NotWritable };

    // Takes the lock through the file "lock" in the folder, which must exist. On failure the result is empty and
    // `failure`, where given, says why.
    static std::optional<FolderLock> take(const QString& folder, Failure* failure = nullptr);

    FolderLock(FolderLock&& other) noexcept;
    FolderLock& operator=(FolderLock&& other) noexcept;
    ~FolderLock();

private:
    explicit FolderLock(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor = -1;
};

} // namespace tamsel
