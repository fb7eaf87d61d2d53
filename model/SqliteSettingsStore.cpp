#include "model/SqliteSettingsStore.h"

#include "model/DurableFolder.h"
#include "model/SettingsFile.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

#include <QDir>
#include <QUrl>

#include <utility>

namespace tamsel {

namespace {

// The keys for a message: the first few by name.
QString listed(const QStringList& keys) {
    constexpr qsizetype mostNamed = 3;
    const QString names = QStringLiteral("\"%1\"").arg(keys.mid(0, mostNamed).join(QStringLiteral("\", \"")));
    return keys.size() <= mostNamed ? names : QStringLiteral("%1 and %2 more").arg(names).arg(keys.size() - mostNamed);
}

} // namespace

QString SqliteSettingsStore::filePath(const QString& folder, const QString& suite) {
    const QString name = QString::fromLatin1(QUrl::toPercentEncoding(suite));
    return QStringLiteral("%1/%2.sqlite").arg(QDir(folder).absolutePath(), name);
}

SqliteSettingsStore::Opened SqliteSettingsStore::open(const QString& folder, const QString& suite) {
    const QString path = filePath(folder, suite);
    const auto failed = [&path](const QString& reason) {
        return Opened{nullptr, QStringLiteral("Unable to open %1: %2").arg(path, reason)};
    };
    if (const auto reason = makeWritableFolder(folder))
        return failed(*reason);
    auto file = std::make_unique<SettingsFile>();
    if (!file->open(path))
        return failed(file->error());
    return {std::unique_ptr<SqliteSettingsStore>(new SqliteSettingsStore(std::move(file), path)), {}};
}

SqliteSettingsStore::SqliteSettingsStore(std::unique_ptr<SettingsFile> file, QString path)
    : m_file(std::move(file)), m_path(std::move(path)) {}

SqliteSettingsStore::~SqliteSettingsStore() {
    if (!m_pending.isEmpty() && !m_file->write(m_pending))
        log(QStringLiteral("Lost on closing. %1").arg(failureLine()));
}

std::optional<SettingsValue> SqliteSettingsStore::value(const QString& key) const {
    const auto* change = m_pending.find(key);
    if (change == nullptr)
        return stored(key);
    const bool needsStored = std::holds_alternative<PendingChanges::Tail>(*change);
    return PendingChanges::applied(*change, needsStored ? stored(key) : std::nullopt);
}

std::optional<SettingsValue> SqliteSettingsStore::stored(const QString& key) const {
    std::optional<SettingsValue> value;
    if (!m_file->read(key, value))
        refuseToGoOn(QStringLiteral("Unable to read \"%1\" from %2: %3").arg(key, m_path, m_file->error()));
    return value;
}

QMap<QString, SettingsValue> SqliteSettingsStore::dictionaryRepresentation() const {
    QMap<QString, SettingsValue> values;
    if (!m_file->readAll(values))
        refuseToGoOn(QStringLiteral("Unable to read %1: %2").arg(m_path, m_file->error()));
    for (auto each = m_pending.all().cbegin(); each != m_pending.all().cend(); ++each) {
        const auto found = values.constFind(each.key());
        auto present = found == values.cend() ? std::nullopt : std::optional(*found);
        if (auto value = PendingChanges::applied(each.value(), std::move(present)))
            values.insert(each.key(), *std::move(value));
        else
            values.remove(each.key());
    }
    return values;
}

void SqliteSettingsStore::set(const QString& key, SettingsValue value) {
    m_pending.set(key, std::move(value));
    write();
}

void SqliteSettingsStore::replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) {
    m_pending.replaceTail(key, keptBytes, tail);
    write();
}

void SqliteSettingsStore::remove(const QString& key) {
    m_pending.remove(key);
    write();
}

void SqliteSettingsStore::atomically(const std::function<void()>& changes) {
    ++m_groupDepth;
    changes();
    --m_groupDepth;
    write();
}

bool SqliteSettingsStore::retryFailedWrites() {
    write();
    return m_pending.isEmpty();
}

void SqliteSettingsStore::write() {
    if (m_groupDepth > 0 || m_pending.isEmpty())
        return;
    std::optional<QString> failure;
    if (m_file->write(m_pending))
        m_pending.clear();
    else
        failure = failureLine();
    if (failure == m_writeFailure)
        return;
    // The first of a row of failures; until one write succeeds, the rest would only repeat it.
    if (!m_writeFailure)
        log(*failure);
    m_writeFailure = failure;
    notifyWriteFailureChanged();
}

QString SqliteSettingsStore::failureLine() const {
    return QStringLiteral("Unable to save %1 to %2: %3").arg(listed(m_pending.all().keys()), m_path, m_file->error());
}

} // namespace tamsel
