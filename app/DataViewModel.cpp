#include "app/DataViewModel.h"

#include "app/DataTexts.h"
#include "model/DataCheck.h"
#include "model/DataFile.h"
#include "model/Json.h"
#include "model/Snapshot.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace tamsel {

namespace {

// A place in a document stands at the beginning of a line, and ends with a colon.
QString sentence(const QString& reason) {
    return reason + QLatin1Char('.');
}

QString cannotBeUsed(const QString& title, const QString& reason) {
    return QStringLiteral("“%1” cannot be used. Nothing was changed. (%2)").arg(title, sentence(reason));
}

// Of what a desktop's dialog may offer: a place that only the network has.
const QString notOnThisDevice = QStringLiteral("it does not lie on this device");

// Where the desktop's dialog has not seen to it.
QString withExtension(const QString& path) {
    const QString extended = path + QLatin1Char('.') + DataDump::fileExtension;
    return QFileInfo(path).suffix().isEmpty() && !QFileInfo::exists(extended) ? extended : path;
}

} // namespace

DataViewModel::DataViewModel(Singletons& singletons, const Platform& platform, Backups& backups,
                             std::function<void()> leaveScreens)
    : m_singletons(singletons), m_platform(platform), m_backups(backups), m_backupsViewModel(backups),
      m_leaveScreens(std::move(leaveScreens)) {
    // What was said of something else does not stand on the page of backups.
    connect(&m_backupsViewModel, &BackupsViewModel::isPresentedChanged, this, [this] {
        if (m_backupsViewModel.isPresented())
            setMessage({});
    });
    // Whatever is changed after an import must not go with it when that is taken back.
    for (Observable* const each :
         {&singletons.exercises.itemsChanged(), &singletons.exercises.archivedItemsChanged(),
          &singletons.history.eventsChanged(), &singletons.dailyLog.practiceSessionsChanged()}) {
        m_changeSubscriptions.push_back(each->subscribe([this] {
            if (!m_isReplacing)
                forgetUndo();
        }));
    }
}

void DataViewModel::setSheetIsPresented(bool presented) {
    if (std::exchange(m_sheetIsPresented, presented) == presented)
        return;
    if (presented)
        setMessage({});
    Q_EMIT sheetIsPresentedChanged();
}

QString DataViewModel::explanation() const {
    return QStringLiteral("Everything you have practised, in one document: to keep, or to take to another device.");
}

QString DataViewModel::statusText() const {
    return m_isBusy ? QStringLiteral("One moment …") : m_message;
}

// Taking it out

QUrl DataViewModel::suggestedFile() const {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QUrl::fromLocalFile(folder + QLatin1Char('/') +
                               exportFileName(m_platform.clock.now(), m_platform.calendar.zoneName()));
}

QStringList DataViewModel::fileFilters() const {
    return {QStringLiteral("Tamsel data (*.%1)").arg(DataDump::fileExtension), QStringLiteral("All files (*)")};
}

void DataViewModel::makeDocument(std::function<Failure(QByteArray document)> use,
                                 std::function<void(const Failure&)> finish) {
    setIsBusy(true);
    const auto failure = std::make_shared<Failure>();
    const auto work = [snapshot = snapshotOf(m_singletons.userDefaults), use = std::move(use), failure] {
        const auto values = snapshot();
        const auto dump = values ? makeDataDump(*values) : json::Result<DataDump>(values.error());
        auto document = dump ? json::encode(*dump) : std::nullopt;
        if (document)
            *failure = use(*std::move(document));
        else
            *failure = dump ? QStringLiteral("a date is no number") : dump.error().message;
    };
    m_backups.onQueue(work, [this, failure, finish = std::move(finish)] {
        setIsBusy(false);
        finish(*failure);
        considerWaiting();
    });
}

void DataViewModel::save(const QUrl& file) {
    if (m_isBusy)
        return;
    const auto tell = [this](const QString& name, const Failure& failure) {
        setMessage(failure ? QStringLiteral("“%1” could not be saved: %2").arg(name, sentence(*failure))
                           : QStringLiteral("Saved as “%1”.").arg(name));
    };
    if (!file.isLocalFile()) {
        tell(file.fileName(), notOnThisDevice);
        return;
    }
    const QString path = withExtension(file.toLocalFile());
    makeDocument([path](const QByteArray& document) { return datafile::write(path, document); },
                 [tell, path](const Failure& failure) { tell(QFileInfo(path).fileName(), failure); });
}

void DataViewModel::copy() {
    if (m_isBusy)
        return;
    const auto text = std::make_shared<QString>();
    makeDocument(
        [text](const QByteArray& document) {
            *text = QString::fromUtf8(document);
            return Failure();
        },
        [this, text](const Failure& failure) {
            if (!failure)
                Q_EMIT copied(*text);
            setMessage(failure ? QStringLiteral("Nothing could be copied: %1").arg(sentence(*failure))
                               : QStringLiteral("All data is on the clipboard, as text."));
        });
}

// Bringing it in

void DataViewModel::importFrom(const QUrl& file) {
    if (!file.isLocalFile()) {
        setMessage(cannotBeUsed(file.fileName(), notOnThisDevice));
        return;
    }
    consider(file.toLocalFile(), QFileInfo(file.toLocalFile()).fileName(), false);
}

void DataViewModel::openDocument(const QString& path) {
    setSheetIsPresented(true);
    m_waitingDocument = path;
    considerWaiting();
}

void DataViewModel::considerWaiting() {
    if (m_isBusy || !m_waitingDocument)
        return;
    const QString path = *std::exchange(m_waitingDocument, std::nullopt);
    consider(path, QFileInfo(path).fileName(), false);
}

void DataViewModel::restore(int row) {
    consider(m_backupsViewModel.path(row), m_backupsViewModel.title(row), true);
}

void DataViewModel::consider(const QString& path, const QString& title, bool isBackup) {
    if (m_isBusy)
        return;
    setIsBusy(true);
    setMessage({});
    struct Result {
        std::optional<Offer> offer;
        QString problem;
    };
    const auto result = std::make_shared<Result>();
    const auto read = [path, title, isBackup, result, snapshot = snapshotOf(m_singletons.userDefaults)] {
        const auto fail = [&result](const json::Error& error) { result->problem = error.message; };
        const auto present = snapshot();
        if (!present)
            return fail(present.error());
        const auto now = DataSummary::of(UserData(*present));
        const DataSummary summary = now ? *now : DataSummary();
        if (isBackup) {
            const auto values = backups::read(path);
            if (!values)
                return fail(values.error());
            UserData data(*values);
            const auto then = DataSummary::of(data);
            if (!then)
                return fail(then.error());
            result->offer = Offer{title, std::move(data), summary, *then};
            return;
        }
        auto bytes = datafile::read(path);
        if (!bytes)
            return fail(bytes.error());
        auto dump = checkDataDump(*std::move(bytes));
        if (!dump)
            return fail(dump.error());
        const DataSummary then = DataSummary::of(*dump);
        result->offer = Offer{title, *std::move(dump), summary, then};
    };
    m_backups.onQueue(read, [this, title, result] {
        setIsBusy(false);
        if (result->offer) {
            m_offer = std::move(result->offer);
            Q_EMIT previewChanged();
        } else {
            setMessage(cannotBeUsed(title, result->problem));
        }
        considerWaiting();
    });
}

QString DataViewModel::previewTitle() const {
    return m_offer ? QStringLiteral("Replace all data with “%1”?").arg(m_offer->title) : QString();
}

QString DataViewModel::previewText() const {
    return QStringLiteral("A backup is made first, and you can take it back.");
}

QList<ReplaceRow> DataViewModel::previewRows() const {
    QList<ReplaceRow> rows;
    if (!m_offer)
        return rows;
    for (const DataComparison& each : compare(m_offer->now, m_offer->then, m_platform.calendar.zoneName())) {
        rows += {each.title, each.now, each.then,
                 QStringLiteral("%1: now %2, then %3").arg(each.title, each.now, each.then)};
    }
    return rows;
}

void DataViewModel::cancelReplace() {
    if (!m_offer || m_isBusy)
        return;
    m_offer.reset();
    Q_EMIT previewChanged();
}

void DataViewModel::replace() {
    if (!m_offer || m_isBusy)
        return;
    makeBackupThen([this] { putInPlace(*m_offer); });
}

void DataViewModel::makeBackupThen(std::function<void()> change) {
    // What runs is recorded first, so that the backup has it.
    m_leaveScreens();
    setIsBusy(true);
    m_backups.makeBeforeReplacing([this, change = std::move(change)](const std::optional<QString>& failure) {
        setIsBusy(false);
        m_backupsViewModel.setIsPresented(false);
        setSheetIsPresented(true);
        if (failure)
            setMessage(
                QStringLiteral("Nothing was changed, because no backup could be made: %1").arg(sentence(*failure)));
        else
            change();
        m_offer.reset();
        Q_EMIT previewChanged();
        considerWaiting();
    });
}

void DataViewModel::putInPlace(const Offer& offer) {
    const DataStores stores = m_singletons.dataStores();
    stores.history.finishRenames();
    m_undo = Undo{UserData::of(m_singletons.userDefaults), QStringLiteral("Undo “%1”").arg(offer.title)};
    m_isReplacing = true;
    std::visit([&stores](const auto& data) { stores.replace(data); }, offer.data);
    m_isReplacing = false;
    Q_EMIT canUndoChanged();
    setMessage(QStringLiteral("All data is now that of “%1”.").arg(offer.title));
}

// Taking it back

QString DataViewModel::undoText() const {
    return m_undo ? m_undo->text : QString();
}

void DataViewModel::undo() {
    if (!m_undo || m_isBusy)
        return;
    makeBackupThen([this] {
        if (!m_undo) {
            setMessage(
                QStringLiteral("You have practised since, so this cannot be taken back any more. The backups have "
                               "what was there before."));
            return;
        }
        const UserData data = std::exchange(m_undo, std::nullopt)->data;
        m_isReplacing = true;
        m_singletons.dataStores().replace(data);
        m_isReplacing = false;
        Q_EMIT canUndoChanged();
        setMessage(QStringLiteral("Everything is as it was before."));
    });
}

void DataViewModel::forgetUndo() {
    if (std::exchange(m_undo, std::nullopt))
        Q_EMIT canUndoChanged();
}

void DataViewModel::setMessage(const QString& message) {
    if (std::exchange(m_message, message) != message)
        Q_EMIT statusChanged();
}

void DataViewModel::setIsBusy(bool busy) {
    if (std::exchange(m_isBusy, busy) != busy)
        Q_EMIT statusChanged();
}

} // namespace tamsel
