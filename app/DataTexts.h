#pragma once

#include "model/BackupFile.h"
#include "model/DataSummary.h"

#include <QList>
#include <QString>

// How a user's data and its copies are told of. Any thread.
namespace tamsel {

// One line of the preview: what there is now, and what there is going to be.
struct DataComparison {
    QString title;
    QString now;
    QString then;
};

// Items, archived items, notes, events, and the days of the first and the last event in the zone ("–" without any).
QList<DataComparison> compare(const DataSummary& now, const DataSummary& then, const QString& zoneName);

// "14 March 2024" in English.
QString dayText(QDate day);
// "1.25 MB" in English.
QString sizeText(qint64 bytes);
// "14 March 2024" or, for a copy made before data was replaced, "14 March 2024, 15:30".
QString backupText(const BackupFile& backup);
// "1.25 MB, verified" or, for such a copy, "1.25 MB, verified, before an import".
QString backupDetail(const BackupFile& backup, const QString& finding);
// A name for an export: "Tamsel 2024-03-14.tamsel".
QString exportFileName(Date now, const QString& zoneName);

} // namespace tamsel
