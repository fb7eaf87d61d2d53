#include "ctl/Journal.h"

#include "app/SettingsStoreChoice.h"
#include "model/Json.h"
#include "model/SettingsFile.h"
#include "model/SettingsKeys.h"
#include "model/SqliteSettingsStore.h"
#include "model/StoredDocument.h"
#include "platform/Log.h"

#include <QDate>
#include <QFileInfo>

#include <cstdio>

namespace tamsel::ctl {

namespace {

ExitCode tell(const Answer& answer) {
    if (answer.code != exitDone)
        return fail(answer.code, answer.text);
    const QByteArray text = answer.text.toUtf8();
    const auto size = static_cast<std::size_t>(text.size());
    if (std::fwrite(text.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        return fail(exitRefused, QStringLiteral("cannot write to standard output: %1").arg(qt_error_string()));
    return exitDone;
}

} // namespace

Journal::Opened Journal::open(const QString& path) {
    // The stores tell the console what they do, which nobody who asks for a report has asked for.
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    setLogStream(nowhere);
    std::unique_ptr<Journal> journal(new Journal);
    QMap<QString, SettingsValue> values;
    // To open a file that is still empty would make a settings file of it.
    if (QFileInfo(path).size() > 0) {
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

Answer answer(Understand understand, const QStringList& arguments, Singletons& singletons, const Platform& platform) {
    try {
        return {exitDone, understand(arguments)(singletons, platform)};
    } catch (const Answer& early) {
        return early;
    }
}

ExitCode tellFromJournal(Understand understand, const QStringList& arguments) {
    try {
        const Show show = understand(arguments);
        const auto opened = Journal::open(SqliteSettingsStore::filePath(standardDataFolder()));
        if (!opened.journal)
            return fail(exitRefused, opened.failure);
        return tell({exitDone, show(opened.journal->singletons(), opened.journal->platform())});
    } catch (const Answer& early) {
        return tell(early);
    }
}

QString calendarDate(int dayNumber, bool withDay) {
    const QDate date = QDate(1970, 1, 1).addDays(dayNumber);
    const QString month =
        QStringLiteral("%1-%2").arg(date.year(), 4, 10, QLatin1Char('0')).arg(date.month(), 2, 10, QLatin1Char('0'));
    return withDay ? QStringLiteral("%1-%2").arg(month).arg(date.day(), 2, 10, QLatin1Char('0')) : month;
}

} // namespace tamsel::ctl
