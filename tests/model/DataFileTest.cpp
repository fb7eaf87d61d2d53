#include "model/DataFile.h"

#include "tests/model/TemporaryFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

namespace tamsel {
namespace {

class DataFileTest : public testing::Test {
protected:
    QByteArray contents() const {
        const auto bytes = datafile::read(path);
        return bytes ? *bytes : QByteArray("(unreadable)");
    }
    // The file itself and nothing that was left beside it.
    qsizetype fileCount() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(); }

    const test::TemporaryFolder folder;
    const QString path = folder.filePath(QStringLiteral("my journal.tamsel"));
};

TEST_F(DataFileTest, EachFailingCallLeavesTheOldFileAndNothingElse) {
    ASSERT_EQ(datafile::write(path, "old"), std::nullopt);
    int calls = 0;
    int failing = 0;
    const auto fails = [&] {
        errno = ENOSPC;
        return calls++ == failing;
    };
    // Three bytes at a time, so that a disk can become full in the middle.
    const datafile::Calls& real = datafile::Calls::system();
    const datafile::Calls faulty{
        [&](int descriptor, const char* bytes, std::size_t size) {
            return fails() ? ssize_t{-1} : real.write(descriptor, bytes, std::min<std::size_t>(size, 3));
        },
        [&](int descriptor) { return fails() ? -1 : real.sync(descriptor); },
        [&](const char* from, const char* to) { return fails() ? -1 : real.rename(from, to); }};
    const QByteArray bytes = "the new document";
    for (;; ++failing) {
        calls = 0;
        const auto failure = datafile::write(path, bytes, faulty);
        EXPECT_EQ(fileCount(), 1);
        if (!failure)
            break;
        EXPECT_EQ(*failure, qt_error_string(ENOSPC));
        EXPECT_EQ(contents(), QByteArray("old")) << failing;
    }
    EXPECT_EQ(failing, (bytes.size() + 2) / 3 + 2) << "each write, the sync and the rename";
    EXPECT_EQ(contents(), bytes);
}

TEST_F(DataFileTest, WhatIsNoPlainFileIsNamedAndNotWaitedFor) {
    const auto reason = [](const QString& name) { return datafile::read(name).error().message; };
    EXPECT_EQ(reason(path), qt_error_string(ENOENT));
    EXPECT_EQ(reason(folder.path()), QStringLiteral("it is a folder"));
    EXPECT_EQ(reason(QStringLiteral("/dev/zero")), QStringLiteral("it is not a plain file"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(reason(path), QStringLiteral("it is not a plain file"));
    const QString huge = folder.filePath(QStringLiteral("huge"));
    QFile file(huge);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(datafile::largestBytes + 1)) << "it takes no room";
    EXPECT_EQ(reason(huge), QStringLiteral("it is larger than 1 GiB"));
}

TEST_F(DataFileTest, AFolderThatCannotTakeTheFileIsTold) {
    EXPECT_EQ(datafile::write(QStringLiteral("/proc/a.tamsel"), "x"), qt_error_string(ENOENT));
    EXPECT_EQ(datafile::write(folder.filePath(QStringLiteral("none/a.tamsel")), "x"), qt_error_string(ENOENT));
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(datafile::write(pipe, "x"), QStringLiteral("it is not a plain file"));
    EXPECT_EQ(datafile::read(pipe).error().message, QStringLiteral("it is not a plain file")) << "it is still there";
    ASSERT_TRUE(QDir().mkpath(path));
    EXPECT_NE(datafile::write(path, "x"), std::nullopt) << "a folder of the name is in the way";
}

TEST_F(DataFileTest, OnlyItsOwnerMayReadIt) {
    ASSERT_EQ(datafile::write(path, "x"), std::nullopt);
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther), 0);
}

} // namespace
} // namespace tamsel
