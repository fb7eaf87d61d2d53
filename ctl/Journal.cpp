#include "ctl/Journal.h"

#include "app/SettingsStoreChoice.h"
#include "model/Json.h"
#include "model/SettingsFile.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredDocument.h"
#include "platform/Log.h"
#include "reports/TimeRange.h"

#include <QDate>
#include <QFileInfo>

#include <cstdio>

namespace tamsel::ctl {

Journal::Opened Journal::open(const QString& path) {
    // The stores tell the console what they do, which nobody who asks for a report has asked for.
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    setLogStream(nowhere);
    std::unique_ptr<Journal> journal(new Journal);
    QMap<QString, SettingsValue> values;
    if (QFileInfo::exists(path)) {
        SettingsFile file;
        if (!file.open(path, SettingsFile::OnClose::leaveLog) || !file.readAll(values))
            return {nullptr, QStringLiteral("cannot read %1: %2").arg(path, file.error())};
    }
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        journal->m_store.set(value.key(), *value);
    // The app gives a new user an item to begin with; who only looks is shown that there is none.
    if (!values.contains(keys::exercises))
        journal->m_store.setData(keys::exercises, "[]");
    // It would stop the program.
    const auto events = readDocument<QList<HistoryEvent>>(journal->m_store, keys::historyEvents);
    if (events.isUnreadable())
        return {nullptr, QStringLiteral("cannot read %1: %2").arg(path, events.problem)};
    journal->m_singletons.emplace(journal->m_store, journal->m_platform, journal->m_output, journal->m_session);
    return {std::move(journal), {}};
}

ExitCode tellFromJournal(const QStringList& arguments,
                         Answer (*answer)(const QStringList& arguments, Singletons& singletons,
                                          const Platform& platform)) {
    const auto opened = Journal::open(SqliteSettingsStore::filePath(standardDataFolder()));
    if (!opened.journal)
        return fail(exitRefused, opened.failure);
    const Answer given = answer(arguments, opened.journal->singletons(), opened.journal->platform());
    if (given.code != exitDone)
        return fail(given.code, given.text);
    std::fputs(given.text.toUtf8().constData(), stdout);
    return exitDone;
}

QString calendarDate(int dayNumber, bool withDay) {
    const QDate date = QDate(1970, 1, 1).addDays(dayNumber);
    const QString month =
        QStringLiteral("%1-%2").arg(date.year(), 4, 10, QLatin1Char('0')).arg(date.month(), 2, 10, QLatin1Char('0'));
    return withDay ? QStringLiteral("%1-%2").arg(month).arg(date.day(), 2, 10, QLatin1Char('0')) : month;
}

QStringList timeRangeNames() {
    QStringList names;
    for (const TimeRange range : everyTimeRange())
        names += caseName(range);
    return names;
}

} // namespace tamsel::ctl
