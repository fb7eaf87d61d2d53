#include "app/RecoveryViewModel.h"

#include "model/DataFile.h"
#include "model/Recovery.h"
#include "model/SqliteSettingsStore.h"

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

TEST(RecoveryViewModel, OffersWhatCanBeReadAndPutsItInPlace) {
    QLocale::setDefault(QLocale::c());
    const QTemporaryDir folder;
    const QString copies = folder.filePath(QStringLiteral("backups"));
    const QString path = SqliteSettingsStore::filePath(folder.path());
    const auto copy = [&copies](const char* name) { return copies + QLatin1Char('/') + QLatin1String(name); };
    const UserData::Values values{{QStringLiteral("exercises"), {QByteArray("[]")}}};
    ASSERT_EQ(backups::write(values, copy("tamsel-000001-2024-03-13.sqlite"), folder.path()), std::nullopt);
    ASSERT_EQ(datafile::write(copy("tamsel-000002-2024-03-14.sqlite"), "damaged as well"), std::nullopt);
    ASSERT_EQ(datafile::write(path, "damaged"), std::nullopt);

    const QList<BackupFile> usable = RecoveryViewModel::usableBackups(copies);
    int done = 0;
    RecoveryViewModel recovery(path, QStringLiteral("the line"), usable, [&done] { ++done; });
    ASSERT_EQ(recovery.rows().size(), 1);
    EXPECT_EQ(recovery.rows().first().title, QStringLiteral("13 March 2024"));
    EXPECT_EQ(recovery.problem(), QStringLiteral("the line"));

    ASSERT_TRUE(QFile::rename(usable.first().path, copy("away")));
    recovery.restore(0);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(recovery.failure().startsWith(QStringLiteral("The backup cannot be used: ")));
    EXPECT_EQ(*datafile::read(path), QByteArray("damaged"));

    ASSERT_TRUE(QFile::rename(copy("away"), usable.first().path));
    recovery.restore(0);
    EXPECT_EQ(done, 1);
    EXPECT_EQ(recovery::problemIn(path), std::nullopt);
}

} // namespace
} // namespace tamsel
