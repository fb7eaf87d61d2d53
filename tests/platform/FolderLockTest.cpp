#include "platform/FolderLock.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tamsel {
namespace {

TEST(FolderLock, HoldsTheFolderUntilItIsGone) {
    const QTemporaryDir folder;
    auto lock = FolderLock::take(folder.path());
    ASSERT_TRUE(lock);
    FolderLock::Failure failure{};
    EXPECT_FALSE(FolderLock::take(folder.path(), &failure));
    EXPECT_EQ(failure, FolderLock::Failure::HeldByAnother);
    const FolderLock moved = *std::move(lock);
    lock.reset();
    EXPECT_FALSE(FolderLock::take(folder.path())) << "a lock that was moved still holds";
}

TEST(FolderLock, IsFreedWhenItsProcessDies) {
    const QTemporaryDir folder;
    const pid_t child = ::fork();
    if (child == 0) {
        const auto lock = FolderLock::take(folder.path());
        ::_exit(lock ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_EQ(status, 0) << "the child could not take the lock";
    EXPECT_TRUE(FolderLock::take(folder.path()));
}

TEST(FolderLock, SaysWhenTheFolderCannotBeWritten) {
    FolderLock::Failure failure{};
    EXPECT_FALSE(FolderLock::take(QStringLiteral("/nonexistent/folder"), &failure));
    EXPECT_EQ(failure, FolderLock::Failure::NotWritable);
}

} // namespace
} // namespace tamsel
