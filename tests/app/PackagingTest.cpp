#include "model/DataDump.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

// What is given to the desktop: how it tells the document from other files, and which program opens it.
TEST(PackagingTest, TheDesktopKnowsTheDocumentAndWhoOpensIt) {
    const QTemporaryDir data;
    const QString packages = data.filePath(QStringLiteral("mime/packages"));
    ASSERT_TRUE(QDir().mkpath(packages));
    ASSERT_TRUE(QFile::copy(QStringLiteral(TAMSEL_PACKAGING "/tamsel.xml"), packages + QStringLiteral("/tamsel.xml")));
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QStringLiteral("journal.") + DataDump::fileExtension,
                                                           QMimeDatabase::MatchExtension);
    if (before.isNull())
        qunsetenv("XDG_DATA_HOME");
    else
        qputenv("XDG_DATA_HOME", before);
    EXPECT_EQ(type.name(), QStringLiteral("application/") + DataDump::contentType);
    EXPECT_EQ(type.preferredSuffix(), DataDump::fileExtension);

    QFile entry(QStringLiteral(TAMSEL_PACKAGING "/tamsel.desktop"));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains("\nMimeType=" + type.name().toUtf8() + ";"));
}

TEST(PackagingTest, TheDesktopEntryIsAsTheDesktopsWantIt) {
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(QStringLiteral("desktop-file-validate"), {QStringLiteral(TAMSEL_PACKAGING "/tamsel.desktop")});
    ASSERT_TRUE(validator.waitForFinished()) << validator.errorString().toStdString();
    EXPECT_EQ(validator.exitCode(), 0);
    EXPECT_EQ(validator.readAll().toStdString(), "");
}

} // namespace
} // namespace tamsel
