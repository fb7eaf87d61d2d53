#pragma once

#include "app/BackupsViewModel.h"
#include "app/Singletons.h"
#include "model/Backups.h"
#include "model/DataSummary.h"
#include "platform/Observable.h"
#include "platform/Platform.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace tamsel {

// One line of what is about to be replaced.
struct ReplaceRow {
    Q_GADGET
    QML_VALUE_TYPE(replaceRow)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString now MEMBER now FINAL)
    Q_PROPERTY(QString then MEMBER then FINAL)
    Q_PROPERTY(QString spokenText MEMBER spokenText FINAL)

public:
    QString title;
    QString now;
    QString then;
    QString spokenText;
};

// All data as a whole: taking it out as a document, bringing one or a backup in after a preview, and taking that back.
// What takes time is done away from the screen. Main thread only.
class DataViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the content model")

    Q_PROPERTY(
        bool sheetIsPresented READ sheetIsPresented WRITE setSheetIsPresented NOTIFY sheetIsPresentedChanged FINAL)
    Q_PROPERTY(bool previewIsPresented READ previewIsPresented NOTIFY previewChanged FINAL)
    Q_PROPERTY(QString previewTitle READ previewTitle NOTIFY previewChanged FINAL)
    Q_PROPERTY(QString previewText READ previewText CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ReplaceRow> previewRows READ previewRows NOTIFY previewChanged FINAL)
    Q_PROPERTY(QStringList previewHeadings READ previewHeadings CONSTANT FINAL)
    Q_PROPERTY(QString explanation READ explanation CONSTANT FINAL)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged FINAL)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY statusChanged FINAL)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged FINAL)
    Q_PROPERTY(QString undoText READ undoText NOTIFY canUndoChanged FINAL)
    Q_PROPERTY(QUrl suggestedFile READ suggestedFile NOTIFY sheetIsPresentedChanged FINAL)
    Q_PROPERTY(QStringList fileFilters READ fileFilters CONSTANT FINAL)
    Q_PROPERTY(QString fileExtension READ fileExtension CONSTANT FINAL)
    Q_PROPERTY(tamsel::BackupsViewModel* backups READ backups CONSTANT FINAL)

public:
    // `leaveScreens` ends what runs and leads back to the list: what is about to be replaced may be shown there.
    DataViewModel(Singletons& singletons, const Platform& platform, Backups& backups,
                  std::function<void()> leaveScreens);

    BackupsViewModel* backups() { return &m_backupsViewModel; }

    bool sheetIsPresented() const { return m_sheetIsPresented; }
    // Presenting forgets the last message.
    void setSheetIsPresented(bool presented);

    QString explanation() const;
    // What came of the last action, as a sentence, or that one is under way; empty before one.
    QString statusText() const;
    bool isBusy() const { return m_isBusy; }

    // In the documents folder, its name with today's date.
    QUrl suggestedFile() const;
    QStringList fileFilters() const;
    QString fileExtension() const { return DataDump::fileExtension; }
    // Under a name without an end the file gets the document's, unless a file of that name is there: the person was not
    // asked about that one.
    Q_INVOKABLE void save(const QUrl& file);
    // Makes the document's text for the clipboard, which comes with `copied`.
    Q_INVOKABLE void copy();

    // Reads it, and shows what it would replace or why it cannot be used.
    Q_INVOKABLE void importFrom(const QUrl& file);
    // The same for a file that the desktop opens with this program. While something else is under way it waits.
    void openDocument(const QString& path);
    // The same for a row of `backups`.
    Q_INVOKABLE void restore(int row);

    bool previewIsPresented() const { return m_offer.has_value(); }
    QString previewTitle() const;
    QString previewText() const;
    // Over the two columns of the rows.
    QStringList previewHeadings() const { return {QStringLiteral("Now"), QStringLiteral("Then")}; }
    QList<ReplaceRow> previewRows() const;
    Q_INVOKABLE void cancelReplace();
    // Makes a backup, then replaces everything at once.
    Q_INVOKABLE void replace();

    // Until something is practised, or an item or an event is changed. What else was changed, such as a note, is in the
    // backup that undoing makes first.
    bool canUndo() const { return m_undo.has_value(); }
    QString undoText() const;
    Q_INVOKABLE void undo();

Q_SIGNALS:
    void sheetIsPresentedChanged();
    void previewChanged();
    void statusChanged();
    void canUndoChanged();
    void copied(const QString& text);

private:
    // What could take the place of the present data.
    struct Offer {
        QString title;
        std::variant<DataDump, UserData> data;
        DataSummary now;
        DataSummary then;
    };
    struct Undo {
        UserData data;
        QString text;
    };

    // Makes the document and gives it to `use`, away from the screen; then `finish` gets what `use` has answered, or
    // why there is no document.
    using Failure = std::optional<QString>;
    void makeDocument(std::function<Failure(QByteArray document)> use, std::function<void(const Failure&)> finish);
    void consider(const QString& path, const QString& title, bool isBackup);
    void considerWaiting();
    void makeBackupThen(std::function<void()> change);
    void putInPlace(const Offer& offer);
    void forgetUndo();
    void setMessage(const QString& message);
    void setIsBusy(bool busy);

    Singletons& m_singletons;
    const Platform m_platform;
    Backups& m_backups;
    BackupsViewModel m_backupsViewModel;
    const std::function<void()> m_leaveScreens;
    bool m_sheetIsPresented = false;
    QString m_message;
    bool m_isBusy = false;
    std::optional<QString> m_waitingDocument;
    std::optional<Offer> m_offer;
    std::optional<Undo> m_undo;
    bool m_isReplacing = false;
    std::vector<Observable::Subscription> m_changeSubscriptions;
};

} // namespace tamsel
