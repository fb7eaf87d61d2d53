#include "model/DataDump.h"
#include "model/Json.h"
#include "model/SettingsKeys.h"
#include "model/SettingsSchema.h"
#include "model/SqliteDatabase.h"
#include "tests/model/TemporaryFolder.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tamsel {

namespace {

// docs/data-format.md, by which people read their own data.
QString page() {
    QFile file(QStringLiteral(TAMSEL_DOCS "/data-format.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

// The code blocks in a language, in order.
QStringList blocks(const QString& language) {
    QStringList found = page().split(QStringLiteral("\n```%1\n").arg(language)).mid(1);
    for (QString& block : found)
        block.truncate(block.indexOf(QStringLiteral("\n```")));
    return found;
}

template <class T>
void expectIsWrittenSo(const QString& example) {
    const QByteArray document = example.toUtf8();
    const auto value = json::decode<T>(document);
    ASSERT_TRUE(value) << value.error().message.toStdString();
    EXPECT_EQ(json::encode(*value), document);
}

TEST(DataFormatPageTest, ExampleDocumentsAreWhatTamselWrites) {
    const QStringList examples = blocks(QStringLiteral("json"));
    ASSERT_EQ(examples.size(), 9);
    expectIsWrittenSo<QList<Exercise>>(examples.at(0));
    expectIsWrittenSo<QList<PracticeSession>>(examples.at(1));
    expectIsWrittenSo<QList<PracticeSession>>(examples.at(2));
    expectIsWrittenSo<QList<HistoryEvent>>(examples.at(3));
    expectIsWrittenSo<QList<Note>>(examples.at(4));
    expectIsWrittenSo<ExerciseSettings>(examples.at(5));
    expectIsWrittenSo<qint64>(examples.at(6));
    expectIsWrittenSo<DataDump>(examples.at(8));
    EXPECT_EQ(examples.at(7).toUtf8(), json::encodeCase(QLatin1String("practiceRecency")));
}

TEST(DataFormatPageTest, EveryKeyIsNamed) {
    const QString text = page();
    const QStringList names = QStringList{keys::exercises,
                                          keys::archivedExercises,
                                          keys::practiceSessions,
                                          keys::historyEvents,
                                          QStringLiteral("notes."),
                                          QStringLiteral("Settings."),
                                          keys::preferredTimeRange,
                                          keys::sortOrder,
                                          keys::hasReadThanksMessage,
                                          keys::hasReadThanksMessageAug5,
                                          keys::hasReadJul15Message,
                                          keys::dateOfLastReviewRequest,
                                          keys::numberOfPromptsForReview,
                                          keys::runningPractice} +
                              keys::legacy::suffixes;
    for (const QString& name : names)
        EXPECT_TRUE(text.contains(QStringLiteral("`%1`").arg(name))) << name.toStdString();
}

TEST(DataFormatPageTest, TheTablesAreTheFilesOwn) {
    const test::TemporaryFolder folder;
    SqliteDatabase database;
    ASSERT_TRUE(openSettingsDatabase(database, folder.filePath(QStringLiteral("standard.sqlite"))));
    const auto tables = database.text("SELECT group_concat(sql || ';', ' ') FROM sqlite_schema WHERE type = 'table'");
    EXPECT_EQ(blocks(QStringLiteral("sql")).value(0).simplified(), tables.value_or(QString()).simplified());
    const auto marks =
        QStringLiteral("`PRAGMA application_id` is %1 (\"TMSL\"), `PRAGMA user_version` is the format: %2.")
            .arg(schema::applicationId)
            .arg(schema::formatVersion);
    EXPECT_TRUE(page().contains(marks));
    EXPECT_TRUE(page().contains(QStringLiteral("is cut every %1 bytes").arg(schema::chunkBytes)));
}

} // namespace

} // namespace tamsel
