#include "app/RecoveryViewModel.h"
#include "model/BackupFile.h"
#include "model/DataFile.h"
#include "model/RunningPractice.h"
#include "tests/support/LogCapture.h"
#include "tests/ui/UiWorld.h"
#include "tests/ui/WarningCollector.h"
#include "ui/Ui.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace tamsel {
namespace {

using namespace std::chrono_literals;
using test::UiWorld;

const QString documentPath = QStringLiteral(TAMSEL_TEST_DATA "/export.tamsel");

QQuickItem* findBelow(QQuickItem& item, const QString& identifier) {
    if (item.objectName() == identifier)
        return &item;
    for (QQuickItem* const child : item.childItems()) {
        if (QQuickItem* const found = findBelow(*child, identifier))
            return found;
    }
    return nullptr;
}

class DataScreensTest : public testing::Test {
protected:
    DataScreensTest() { QLocale::setDefault(QLocale::c()); }
    void TearDown() override { EXPECT_EQ(warnings.text(), ""); }

    // The history screen's share action.
    void openDataSheet(QSize size = {390, 844}) {
        ui.addExercises({QStringLiteral("C Major Scales"), QStringLiteral("Long Tones")});
        ui.practise(QStringLiteral("Long Tones"), 600, SessionType::timer);
        ui.open(size);
        ui.backups().setFolder(folder.filePath(QStringLiteral("backups")));
        ui.tabs().setSelectedTabIndex(TabViewModel::historyTabIndex);
        ASSERT_TRUE(ui.click(QStringLiteral("share_button")));
        ASSERT_NE(ui.find(QStringLiteral("data_save_button")), nullptr);
    }
    DataViewModel& data() { return *ui.content().dataViewModel(); }
    QString text(const char* identifier) {
        QQuickItem* const item = ui.find(QLatin1String(identifier));
        return item == nullptr ? QString() : item->property("text").toString();
    }
    // What the person chose in the desktop's dialog of that name.
    void choose(const char* dialogName, const char* property, const QUrl& url) {
        QObject* const dialog = ui.window().findChild<QObject*>(QLatin1String(dialogName));
        ASSERT_NE(dialog, nullptr);
        dialog->setProperty(property, url);
        QMetaObject::invokeMethod(dialog, "accepted");
        QMetaObject::invokeMethod(dialog, "close");
        ui.settle();
    }

    const test::WarningCollector warnings;
    const test::LogCapture console;
    const QTemporaryDir folder;
    UiWorld ui;
};

TEST_F(DataScreensTest, TheShareActionSavesAndCopiesAllData) {
    openDataSheet();
    const QByteArray document = *json::encode(ui.singletons().dataStores().makeDataDump());
    ASSERT_TRUE(ui.click(QStringLiteral("data_copy_button")));
    EXPECT_EQ(QGuiApplication::clipboard()->text().toUtf8(), document);
    EXPECT_EQ(text("data_message"), QStringLiteral("All data is on the clipboard, as text."));
    const QString path = folder.filePath(QStringLiteral("mine.tamsel"));
    data().save(QUrl::fromLocalFile(path));
    ui.settle();
    EXPECT_EQ(text("data_message"), QStringLiteral("Saved as “mine.tamsel”."));
    EXPECT_EQ(*datafile::read(path), document);
    ui.press(Qt::Key_Escape);
    EXPECT_FALSE(data().sheetIsPresented());
    EXPECT_EQ(ui.find(QStringLiteral("data_save_button")), nullptr);
}

TEST_F(DataScreensTest, AnImportIsPreviewedReplacedAndTakenBack) {
    openDataSheet();
    ui.content().open(documentPath);
    ui.settle();
    ASSERT_NE(ui.find(QStringLiteral("replace_confirm_button")), nullptr);
    EXPECT_EQ(data().previewRows().size(), 6);
    EXPECT_NE(ui.find(QStringLiteral("replace_row_5")), nullptr);
    ui.press(Qt::Key_Escape);
    EXPECT_FALSE(data().previewIsPresented());
    EXPECT_EQ(ui.singletons().exercises.items().first().name, QStringLiteral("C Major Scales"));

    ui.content().open(documentPath);
    ui.settle();
    ASSERT_TRUE(ui.click(QStringLiteral("replace_confirm_button")));
    EXPECT_EQ(ui.singletons().exercises.items().last().name, QStringLiteral("Étude 9 “Winter”"));
    EXPECT_EQ(text("data_message"), QStringLiteral("All data is now that of “export.tamsel”."));
    ASSERT_TRUE(ui.click(QStringLiteral("data_undo_button")));
    EXPECT_EQ(ui.singletons().exercises.items().last().name, QStringLiteral("Long Tones"));
    EXPECT_EQ(ui.find(QStringLiteral("data_undo_button")), nullptr);
}

TEST_F(DataScreensTest, AFileThatCannotBeUsedIsToldWhereItWasChosen) {
    ui.addExercises({QStringLiteral("C Major Scales"), QStringLiteral("Long Tones")});
    ui.open();
    ui.content().open(folder.filePath(QStringLiteral("none.tamsel")));
    ui.settle();
    EXPECT_TRUE(text("data_message").startsWith(QStringLiteral("“none.tamsel” cannot be used. Nothing was changed.")));
    EXPECT_EQ(ui.find(QStringLiteral("replace_confirm_button")), nullptr);
}

TEST_F(DataScreensTest, BackupsAreListedAndOneIsBroughtBack) {
    openDataSheet();
    ui.backups().makeDaily();
    ui.settle();
    ASSERT_TRUE(ui.click(QStringLiteral("data_backups_button")));
    ASSERT_NE(ui.find(QStringLiteral("backup_0")), nullptr);
    EXPECT_EQ(text("backup_0"), QStringLiteral("14 March 2024"));
    EXPECT_TRUE(
        ui.find(QStringLiteral("backup_0"))->property("detail").toString().endsWith(QStringLiteral(", verified")));
    ui.singletons().exercises.setItems({});
    ASSERT_TRUE(ui.click(QStringLiteral("backup_0")));
    ASSERT_TRUE(ui.click(QStringLiteral("replace_confirm_button")));
    EXPECT_EQ(ui.singletons().exercises.items().size(), 2);
    EXPECT_EQ(ui.find(QStringLiteral("backup_0")), nullptr) << "the sheet has done its work";
    EXPECT_NE(ui.find(QStringLiteral("data_undo_button")), nullptr);
}

TEST_F(DataScreensTest, APracticeThatWasCutOffIsAskedAboutFirst) {
    const Exercise item{QStringLiteral("C Major Scales"), ui.world.uuids.next()};
    ui.world.singletons->exercises.setItems({item, {QStringLiteral("Long Tones"), ui.world.uuids.next()}});
    ui.world.singletons->runningPractice.update(item, SessionType::stopwatch, 754);
    ui.open();
    ASSERT_NE(ui.find(QStringLiteral("left_practice_keep_button")), nullptr);
    EXPECT_TRUE(ui.singletons().dailyLog.practiceSessions().isEmpty()) << "nothing is recorded unasked";
    ASSERT_TRUE(ui.click(QStringLiteral("left_practice_keep_button")));
    EXPECT_EQ(ui.find(QStringLiteral("left_practice_keep_button")), nullptr);
    ASSERT_EQ(ui.singletons().history.events().size(), 1);
    EXPECT_EQ(ui.singletons().history.events().first().practiceTime, 12);
}

TEST_F(DataScreensTest, EscapePutsThatOffAndDiscardDropsIt) {
    const Exercise item{QStringLiteral("C Major Scales"), ui.world.uuids.next()};
    ui.world.singletons->exercises.setItems({item, {QStringLiteral("Long Tones"), ui.world.uuids.next()}});
    ui.world.singletons->runningPractice.update(item, SessionType::timer, 754);
    ui.open();
    ui.press(Qt::Key_Escape);
    EXPECT_EQ(ui.find(QStringLiteral("left_practice_discard_button")), nullptr);
    EXPECT_EQ(ui.singletons().runningPractice.left().size(), 1);
    ui.content().leftPractice()->discard();
    EXPECT_TRUE(ui.singletons().runningPractice.left().isEmpty());
    EXPECT_TRUE(ui.singletons().history.events().isEmpty());
}

TEST_F(DataScreensTest, TheDialogsForFilesHandOnWhatWasChosen) {
    openDataSheet();
    ASSERT_TRUE(ui.click(QStringLiteral("data_import_button")));
    choose("open_file_dialog", "selectedFile", QUrl::fromLocalFile(documentPath));
    ASSERT_TRUE(data().previewIsPresented());
    data().cancelReplace();
    ASSERT_TRUE(ui.click(QStringLiteral("data_backups_button")));
    ASSERT_TRUE(ui.click(QStringLiteral("backups_folder_button")));
    choose("backup_folder_dialog", "selectedFolder", QUrl::fromLocalFile(folder.filePath(QStringLiteral("other"))));
    EXPECT_EQ(text("backups_folder"), folder.filePath(QStringLiteral("other")));
    ASSERT_TRUE(ui.click(QStringLiteral("backups_standard_folder_button")));
    EXPECT_FALSE(ui.backups().folderIsChosen());
}

TEST_F(DataScreensTest, TheRecoveryWindowPutsTheChosenBackupInPlace) {
    ui.open(); // for its warnings to be seen as well
    const QString path = folder.filePath(QStringLiteral("standard.sqlite"));
    const QString copy = folder.filePath(QStringLiteral("tamsel-000001-2024-03-14.sqlite"));
    ASSERT_EQ(backups::write({{QStringLiteral("exercises"), {QByteArray("[]")}}}, copy, folder.path()), std::nullopt);
    ASSERT_EQ(datafile::write(path, "damaged"), std::nullopt);
    int done = 0;
    RecoveryViewModel recovery(path, QStringLiteral("Unable to use it: damaged"),
                               RecoveryViewModel::usableBackups(folder.path()), [&done] { ++done; });
    QQmlApplicationEngine engine;
    ui::registerWith(engine);
    engine.setInitialProperties({{QStringLiteral("recovery"), QVariant::fromValue(&recovery)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Tamsel/Ui/screens/RecoveryWindow.qml")));
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QQuickItem* const row = findBelow(*window->contentItem(), QStringLiteral("backup_0"));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->property("text").toString(), QStringLiteral("14 March 2024"));
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier,
                      row->mapToScene(QPointF(row->width() / 2, row->height() / 2)).toPoint());
    EXPECT_EQ(done, 1);
    EXPECT_EQ(*datafile::read(path), *datafile::read(copy));
}

} // namespace
} // namespace tamsel
