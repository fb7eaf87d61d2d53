#pragma once

#include "app/Singletons.h"
#include "list/ArchiveSection.h"
#include "list/DailyLogSection.h"
#include "list/Destinations.h"
#include "list/DeviceShakeViewModifier.h"
#include "list/ExercisesSection.h"
#include "list/HistoryIndex.h"
#include "list/LastRemoval.h"
#include "list/ListRow.h"
#include "list/ListRowModel.h"
#include "list/ReviewPrompt.h"
#include "list/RowAction.h"
#include "list/SortOrder.h"
#include "list/ToolbarButton.h"
#include "list/ToolbarMenuViewModel.h"
#include "metronome/MetronomeViewModel.h"
#include "model/PracticeSession.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "practice/TimedNotice.h"
#include "reports/TimeRange.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <vector>

namespace tamsel {

// The practice list: today's sessions, the items that were not practised today, the archive, and the small metronome
// below them. What the stores publish is taken in on the next turn of the main queue, once for all that came together;
// what the user does shows at once. Main thread only.
class PracticeListViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the navigation stack")

    Q_PROPERTY(tamsel::ToolbarButton addButton READ addButton CONSTANT FINAL)
    Q_PROPERTY(tamsel::ToolbarMenuViewModel* sortMenu READ sortMenu CONSTANT FINAL)
    Q_PROPERTY(QString searchBarText READ searchBarText WRITE setSearchBarText NOTIFY searchBarTextChanged FINAL)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchBarTextChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY sectionsChanged FINAL)
    Q_PROPERTY(bool nothingIsFound READ nothingIsFound NOTIFY sectionsChanged FINAL)
    Q_PROPERTY(QString nothingFoundTitle READ nothingFoundTitle NOTIFY searchBarTextChanged FINAL)
    Q_PROPERTY(QString addSearchedItemText READ addSearchedItemText NOTIFY searchBarTextChanged FINAL)

    Q_PROPERTY(QString dailyLogTitle READ dailyLogTitle NOTIFY sectionsChanged FINAL)
    Q_PROPERTY(tamsel::ListRowModel* dailyLogRows READ dailyLogRows CONSTANT FINAL)
    Q_PROPERTY(QString exercisesTitle READ exercisesTitle CONSTANT FINAL)
    Q_PROPERTY(tamsel::ListRowModel* exerciseRows READ exerciseRows CONSTANT FINAL)
    Q_PROPERTY(QString archiveTitle READ archiveTitle CONSTANT FINAL)
    Q_PROPERTY(tamsel::ListRowModel* archiveRows READ archiveRows CONSTANT FINAL)
    Q_PROPERTY(int archivedItemsCount READ archivedItemsCount NOTIFY sectionsChanged FINAL)
    Q_PROPERTY(QList<tamsel::RowAction> itemActions READ itemActions CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::RowAction> archiveActions READ archiveActions CONSTANT FINAL)

    Q_PROPERTY(bool rowMenuIsPresented READ rowMenuIsPresented NOTIFY rowMenuChanged FINAL)
    Q_PROPERTY(QString rowMenuTitle READ rowMenuTitle NOTIFY rowMenuChanged FINAL)
    Q_PROPERTY(QList<tamsel::RowAction> rowMenuActions READ rowMenuActions NOTIFY rowMenuChanged FINAL)
    Q_PROPERTY(tamsel::TimedNotice* notice READ notice CONSTANT FINAL)

    Q_PROPERTY(bool addExerciseAlertIsPresented READ addExerciseAlertIsPresented WRITE setAddExerciseAlertIsPresented
                   NOTIFY addExerciseAlertIsPresentedChanged FINAL)
    Q_PROPERTY(QString addExerciseAlertTextFieldText READ addExerciseAlertTextFieldText WRITE
                   setAddExerciseAlertTextFieldText NOTIFY addExerciseAlertTextFieldTextChanged FINAL)
    Q_PROPERTY(bool requestToPresentAppStoreReview READ requestToPresentAppStoreReview NOTIFY reviewChanged FINAL)
    Q_PROPERTY(bool reviewCardIsPresented READ reviewCardIsPresented NOTIFY reviewChanged FINAL)
    Q_PROPERTY(QString reviewText READ reviewText NOTIFY reviewChanged FINAL)
    Q_PROPERTY(bool reviewPageIsOffered READ reviewPageIsOffered NOTIFY reviewChanged FINAL)
    Q_PROPERTY(QUrl reviewPage READ reviewPage CONSTANT FINAL)
    Q_PROPERTY(tamsel::MetronomeViewModel* metronomeViewModel READ metronomeViewModel CONSTANT FINAL)

public:
    enum class Section { DailyLog, Exercises, Archive };
    Q_ENUM(Section)

    PracticeListViewModel(Singletons& singletons, const Platform& platform);
    ~PracticeListViewModel() override;

    const ToolbarButton& addButton() const { return m_addButton; }
    ToolbarMenuViewModel* sortMenu() { return &m_sortMenu; }
    SortOrder sortOrder() const { return m_sortOrder; }
    // Saved at once.
    void setSortOrder(SortOrder order);
    // The span of the order by practice time, and of the times that the rows show.
    TimeRange sortOrderTimeRange() const { return m_sortOrderTimeRange; }
    // Saved at once.
    void setSortOrderTimeRange(TimeRange range);

    const QString& searchBarText() const { return m_searchBarText; }
    void setSearchBarText(const QString& text);
    bool isSearching() const { return !m_searchBarText.isEmpty(); }
    // There is no item at all, not even an archived one, nothing was practised today, and nothing is searched for.
    bool isEmpty() const;
    // There are items, and none is called what is searched for.
    bool nothingIsFound() const;
    QString nothingFoundTitle() const;
    QString addSearchedItemText() const;

    // Today's date and how long was practised; empty without a session to show.
    const QString& dailyLogTitle() const { return m_dailyLogTitle; }
    ListRowModel* dailyLogRows() { return &m_dailyLogRows; }
    // What the rows show.
    const QList<DailyLogSection::Row>& shownSessions() const { return m_shownSessions; }
    const QList<ExercisesSection::Row>& shownExercises() const { return m_exerciseRows.rows(); }
    const QList<ArchiveSection::Row>& shownArchive() const { return m_shownArchive; }
    QString exercisesTitle() const { return QStringLiteral("Items"); }
    ListRowModel* exerciseRows() { return &m_exerciseRows; }
    QString archiveTitle() const { return QStringLiteral("Archive"); }
    ListRowModel* archiveRows() { return &m_archiveRows; }
    // Without any there is no archive section.
    int archivedItemsCount() const { return static_cast<int>(m_archive.items().size()); }
    // What can be done with a row of the log or of the items, and with one of the archive; the most far-reaching last.
    QList<RowAction> itemActions() const;
    QList<RowAction> archiveActions() const;

    bool rowMenuIsPresented() const { return m_rowMenu.has_value(); }
    QString rowMenuTitle() const;
    QList<RowAction> rowMenuActions() const;
    // Offers to take back the last removal, for some seconds after it was done.
    TimedNotice* notice() { return &m_notice; }

    MetronomeViewModel* metronomeViewModel() { return &m_metronomeViewModel; }

    bool addExerciseAlertIsPresented() const { return m_addExerciseAlertIsPresented; }
    // Closing the alert adds an item named as its text says, unless that is empty, and opens it.
    void setAddExerciseAlertIsPresented(bool presented);
    const QString& addExerciseAlertTextFieldText() const { return m_addExerciseAlertTextFieldText; }
    void setAddExerciseAlertTextFieldText(const QString& text);

    // Set when a screen is to open; taken by the navigation stack.
    std::optional<destinations::FromPracticeList> takeDestination();

    // The screen is to show the review card, and says so with presentReview().
    bool requestToPresentAppStoreReview() const { return m_requestToPresentAppStoreReview; }
    bool reviewCardIsPresented() const { return m_reviewCardIsPresented; }
    QString reviewText() const;
    bool reviewPageIsOffered() const { return !m_reviewPageIsMissing; }
    // The app's page in the device's software centre.
    QUrl reviewPage() const;

    // Reads the settings and the stores again, on a later turn of the main queue.
    void asynchronouslyReloadData();

    void archive(const Exercise& exercise);
    // The session's item goes to the archive, and all sessions of today that it has leave the log.
    void archive(const PracticeSession& session);
    void unarchive(const Exercise& exercise);
    // For good, except for undo().
    void deleteArchived(const Exercise& exercise);

    Q_INVOKABLE void addTapped();
    // An item of the name that is searched for; it opens.
    Q_INVOKABLE void addSearchedItem();
    Q_INVOKABLE void openExercise(int row);
    Q_INVOKABLE void openDailyLogRow(int row);
    // Rows and actions that are not there do nothing.
    Q_INVOKABLE void act(tamsel::PracticeListViewModel::Section section, int row, int action);
    Q_INVOKABLE void openRowMenu(tamsel::PracticeListViewModel::Section section, int row);
    Q_INVOKABLE void closeRowMenu();
    Q_INVOKABLE void actFromMenu(int action);
    // Takes back the last archiving or deleting since the list appeared, whether or not it is still offered.
    Q_INVOKABLE void undo();
    // The review card is on the screen, which counts as having asked.
    Q_INVOKABLE void presentReview();
    // The device showed the page, or has nothing that could.
    Q_INVOKABLE void reviewPageOpened(bool shown);
    Q_INVOKABLE void closeReview();
    // Each time the list appears: the small metronome takes charge of the one there is.
    Q_INVOKABLE void onAppear();
    // Each time the window comes to the front: it may have stayed open over night.
    Q_INVOKABLE void onFront();
    // Each time another screen covers the list.
    Q_INVOKABLE void onDisappear();

Q_SIGNALS:
    void searchBarTextChanged();
    void sectionsChanged();
    void rowMenuChanged();
    void reviewChanged();
    void addExerciseAlertIsPresentedChanged();
    void addExerciseAlertTextFieldTextChanged();
    void destinationChanged();

private:
    // What an action is about, whatever becomes of the rows meanwhile.
    struct Target {
        Section section;
        Exercise exercise;
        std::optional<PracticeSession> session; // of a row of the log
    };

    void addExercise(const QString& name);
    void open(destinations::FromPracticeList destination);
    std::optional<Target> target(Section section, int row) const;
    void act(const Target& target, int action);
    void offerUndo();
    void shaken();
    // Takes in what the stores published, on a later turn of the main queue and once.
    void scheduleRefresh();
    void refresh();
    void rebuildExerciseRows();
    // The first moment that belongs to the span of the rows' times; nothing where all belongs to it.
    std::optional<Date> cutoff() const;
    void showSections();
    void updateSortMenu();
    void reload();
    Date today() const;
    // On a later turn of the main queue, unless the list is gone by then.
    void later(void (PracticeListViewModel::*work)());

    Singletons& m_singletons;
    const Platform m_platform;
    MetronomeViewModel m_metronomeViewModel;
    HistoryIndex m_historyIndex;
    ReviewPrompt m_reviewPrompt;
    LastRemoval m_lastRemoval;
    TimedNotice m_notice;
    const ToolbarButton m_addButton;
    ToolbarMenuViewModel m_sortMenu;
    const DeviceShakeViewModifier m_shake; // takes back what undo() does
    SortOrder m_sortOrder;
    TimeRange m_sortOrderTimeRange;
    QString m_searchBarText;

    bool m_refreshIsScheduled = false;
    bool m_exerciseRowsAreStale = true;
    Date m_shownDay;             // the day of the last refresh
    std::optional<Date> m_since; // what the times of the rows are counted from; nothing for all time
    ExercisesSection m_exercises;
    ArchiveSection m_archive;
    // What is shown.
    QList<DailyLogSection::Row> m_shownSessions;
    QList<ArchiveSection::Row> m_shownArchive;
    ListRowsOf<ListRow> m_dailyLogRows;
    ListRowsOf<ExercisesSection::Row> m_exerciseRows;
    ListRowsOf<ListRow> m_archiveRows;
    QString m_dailyLogTitle;

    std::optional<Target> m_rowMenu;
    bool m_isOnTop = false;
    bool m_isFirstLaunch = true; // until the list has appeared once
    bool m_requestToPresentAppStoreReview = false;
    bool m_reviewCardIsPresented = false;
    bool m_reviewPageIsMissing = false;
    bool m_addExerciseAlertIsPresented = false;
    QString m_addExerciseAlertTextFieldText;
    std::optional<destinations::FromPracticeList> m_destination;
    std::shared_ptr<PracticeListViewModel*> m_self = std::make_shared<PracticeListViewModel*>(this);
    std::vector<Observable::Subscription> m_subscriptions;
};

} // namespace tamsel
