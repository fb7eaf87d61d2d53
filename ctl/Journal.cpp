#include "ctl/Journal.h"

#include "model/Json.h"
#include "model/SettingsFile.h"
#include "model/SettingsKeys.h"
#include "model/StoredDocument.h"
#include "platform/Log.h"

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
        if (!file.open(path) || !file.readAll(values))
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

} // namespace tamsel::ctl
