#include "app/DataTexts.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

namespace tamsel {

namespace {

constexpr double millisecondsPerSecond = 1000;

QDate dayOf(Date date, const QString& zoneName) {
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(date.unixSeconds() * millisecondsPerSecond),
                                          QTimeZone(zoneName.toUtf8()))
        .date();
}

QString dayText(const std::optional<Date>& date, const QString& zoneName) {
    return date ? tamsel::dayText(dayOf(*date, zoneName)) : QStringLiteral("–");
}

} // namespace

QList<DataComparison> compare(const DataSummary& now, const DataSummary& then, const QString& zoneName) {
    const auto count = [](const char* title, qsizetype before, qsizetype after) {
        return DataComparison{QString::fromLatin1(title), QLocale().toString(static_cast<qlonglong>(before)),
                              QLocale().toString(static_cast<qlonglong>(after))};
    };
    return {count("Items", now.items, then.items),
            count("Archived items", now.archivedItems, then.archivedItems),
            count("Notes", now.notes, then.notes),
            count("Practice events", now.events, then.events),
            {QStringLiteral("First practice"), dayText(now.firstEvent, zoneName), dayText(then.firstEvent, zoneName)},
            {QStringLiteral("Last practice"), dayText(now.lastEvent, zoneName), dayText(then.lastEvent, zoneName)}};
}

QString dayText(QDate day) {
    return QLocale().toString(day, QStringLiteral("d MMMM yyyy"));
}

QString sizeText(qint64 bytes) {
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString backupText(const BackupFile& backup) {
    const QString day = dayText(backup.day);
    if (backup.kind == BackupFile::Kind::daily)
        return day;
    return QStringLiteral("%1, %2").arg(day, QLocale().toString(backup.time, QStringLiteral("HH:mm")));
}

QString backupDetail(const BackupFile& backup, const QString& finding) {
    const QString detail = QStringLiteral("%1, %2").arg(sizeText(backup.bytes), finding);
    // What a narrow row cuts off is the least of it.
    return backup.kind == BackupFile::Kind::daily ? detail : detail + QStringLiteral(", before an import");
}

QString exportFileName(Date now, const QString& zoneName) {
    return QStringLiteral("Tamsel %1.%2").arg(dayOf(now, zoneName).toString(Qt::ISODate), DataDump::fileExtension);
}

} // namespace tamsel
