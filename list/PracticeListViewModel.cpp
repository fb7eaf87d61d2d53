#include "list/PracticeListViewModel.h"

#include "list/SortMenu.h"
#include "model/EventCutoff.h"
#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"
#include "reports/Formats.h"

#include <utility>

namespace tamsel {

namespace {

// The component of the app in the catalogue of software centres.
const QString catalogueIdentifier = QStringLiteral("app.tamsel.Tamsel");

QString textOfRow(const ListRow& row, ListRowModel::Role role) {
    switch (role) {
    case ListRowModel::NameRole:
        return row.name;
    case ListRowModel::DetailRole:
        return row.detail;
    case ListRowModel::DurationTextRole:
        return row.durationText;
    }
    trap();
}

QString textOfItem(const ExercisesSection::Row& row, ListRowModel::Role role, const Calendar& calendar) {
    switch (role) {
    case ListRowModel::NameRole:
        return row.exercise.name;
    case ListRowModel::DetailRole:
        return row.formattedLastPracticedDate(calendar).value_or(QStringLiteral("Not practised yet"));
    case ListRowModel::DurationTextRole:
        return row.formattedPracticeTime().value_or(QString());
    }
    trap();
}

} // namespace

PracticeListViewModel::PracticeListViewModel(Singletons& singletons, const Platform& platform)
    : m_singletons(singletons), m_platform(platform),
      m_metronomeViewModel(true, std::nullopt, singletons.metronome, platform.clock, platform.mainQueue),
      m_historyIndex(singletons.history), m_reviewPrompt(singletons.userDefaults, singletons.history, platform),
      m_lastRemoval(singletons),
      m_notice(platform.mainQueue), m_addButton{QStringLiteral("add item"), QStringLiteral("docBadgePlus"),
                                                [this] { addTapped(); }},
      m_sortMenu(QStringLiteral("sort_order_menu"), QStringLiteral("sortOrder"), QStringLiteral("Sort")),
      m_shake(platform.shakeSource, platform.mainQueue, [this] { shaken(); }),
      m_sortOrder(storedSortOrder(singletons.userDefaults)),
      m_sortOrderTimeRange(preferredTimeRange(singletons.userDefaults).value_or(TimeRange::last7Days)),
      m_dailyLogRows(textOfRow, this),
      m_exerciseRows([this](const auto& row, auto role) { return textOfItem(row, role, m_platform.calendar); }, this),
      m_archiveRows(textOfRow, this) {
    log(QStringLiteral("PracticeListViewModel.init"));
    const auto follow = [this](Observable& observable, bool changesExerciseRows) {
        m_subscriptions.push_back(observable.subscribe([this, changesExerciseRows] {
            m_exerciseRowsAreStale |= changesExerciseRows;
            scheduleRefresh();
        }));
    };
    follow(singletons.exercises.itemsChanged(), true);
    follow(singletons.exercises.archivedItemsChanged(), false);
    follow(singletons.history.eventsChanged(), true);
    follow(singletons.dailyLog.practiceSessionsChanged(), false);
    updateSortMenu();
    refresh();
}

PracticeListViewModel::~PracticeListViewModel() {
    log(QStringLiteral("PracticeListViewModel.deinit"));
}

void PracticeListViewModel::later(void (PracticeListViewModel::*work)()) {
    m_platform.mainQueue.async([self = std::weak_ptr(m_self), work] {
        if (const auto list = self.lock())
            ((*list)->*work)();
    });
}

void PracticeListViewModel::scheduleRefresh() {
    if (std::exchange(m_refreshIsScheduled, true))
        return;
    m_platform.mainQueue.async([self = std::weak_ptr(m_self)] {
        const auto list = self.lock();
        if (list && (*list)->m_refreshIsScheduled)
            (*list)->refresh();
    });
}

void PracticeListViewModel::refresh() {
    m_refreshIsScheduled = false;
    m_shownDay = today();
    if (std::exchange(m_exerciseRowsAreStale, false))
        rebuildExerciseRows();
    m_archive.setItems(m_singletons.exercises.archivedItems());
    showSections();
}

std::optional<Date> PracticeListViewModel::cutoff() const {
    const Date now = m_platform.clock.now();
    if (m_sortOrderTimeRange == TimeRange::allMonths)
        return std::nullopt;
    return isInMonths(m_sortOrderTimeRange)
               ? cutoffOfLastMonths(monthsPerYear, now, m_platform.calendar)
               : cutoffOfLastDays(static_cast<int>(m_sortOrderTimeRange), now, m_platform.calendar);
}

void PracticeListViewModel::rebuildExerciseRows() {
    m_since = cutoff();
    m_historyIndex.update(m_since);
    QList<ExercisesSection::Row> rows;
    const QList<Exercise>& items = m_singletons.exercises.items();
    rows.reserve(items.size());
    for (const Exercise& exercise : items) {
        const auto practice = m_historyIndex.practice(exercise.name);
        rows += {exercise, practice.last, practice.minutes};
    }
    m_exercises.setUnfilteredRows(std::move(rows));
}

void PracticeListViewModel::showSections() {
    const auto dailyLog = DailyLogSection::make(m_singletons.dailyLog.practiceSessions(), m_searchBarText,
                                                m_platform.clock.now(), m_platform.calendar);
    m_shownSessions = dailyLog ? dailyLog->rows : QList<DailyLogSection::Row>();
    m_dailyLogTitle = dailyLog ? dailyLog->title : QString();
    m_exercises.setSortOrder(m_sortOrder);
    m_shownArchive = m_archive.rows(m_searchBarText);

    QList<ListRow> rows;
    for (const DailyLogSection::Row& row : std::as_const(m_shownSessions)) {
        const PracticeSession& session = row.session;
        rows += {session.exercise.name, sessionTypeText(session.type), sessionDurationText(session.seconds)};
    }
    m_dailyLogRows.setRows(std::exchange(rows, {}));
    m_exerciseRows.setRows(m_exercises.rows(m_shownSessions, m_searchBarText));
    rows.reserve(m_shownArchive.size());
    for (const ArchiveSection::Row& row : std::as_const(m_shownArchive))
        rows += {row.exercise.name, QString(), QString()};
    m_archiveRows.setRows(rows);
    Q_EMIT sectionsChanged();
}

void PracticeListViewModel::setSearchBarText(const QString& text) {
    if (m_searchBarText == text)
        return;
    m_searchBarText = text;
    Q_EMIT searchBarTextChanged();
    refresh();
}

bool PracticeListViewModel::isEmpty() const {
    // While something is searched for, the search stays in sight so that it can be given up.
    return !isSearching() && m_exercises.unfilteredRows().isEmpty() && m_archive.items().isEmpty() &&
           m_shownSessions.isEmpty();
}

bool PracticeListViewModel::nothingIsFound() const {
    return isSearching() && m_shownSessions.isEmpty() && shownExercises().isEmpty() && m_shownArchive.isEmpty();
}

QString PracticeListViewModel::nothingFoundTitle() const {
    return QStringLiteral("No item is called “%1”").arg(m_searchBarText);
}

QString PracticeListViewModel::addSearchedItemText() const {
    return QStringLiteral("Add “%1”").arg(m_searchBarText);
}

void PracticeListViewModel::setSortOrder(SortOrder order) {
    m_sortOrder = order;
    saveSortOrder(m_singletons.userDefaults, order);
    updateSortMenu();
    refresh();
}

void PracticeListViewModel::setSortOrderTimeRange(TimeRange range) {
    m_sortOrderTimeRange = range;
    savePreferredTimeRange(m_singletons.userDefaults, range);
    m_exerciseRowsAreStale = true;
    updateSortMenu();
    refresh();
}

void PracticeListViewModel::updateSortMenu() {
    m_sortMenu.setOptions(
        sortMenuOptions(m_sortOrder, m_sortOrderTimeRange, [this](SortOrder order, std::optional<TimeRange> range) {
            if (range)
                setSortOrderTimeRange(*range);
            setSortOrder(order);
        }));
}

void PracticeListViewModel::asynchronouslyReloadData() {
    log(QStringLiteral("PracticeListViewModel.asynchronouslyReloadData"));
    later(&PracticeListViewModel::reload);
}

void PracticeListViewModel::reload() {
    const SortOrder order = storedSortOrder(m_singletons.userDefaults);
    const TimeRange range = preferredTimeRange(m_singletons.userDefaults).value_or(TimeRange::last7Days);
    const bool menuChanges = order != m_sortOrder || range != m_sortOrderTimeRange;
    m_sortOrder = order;
    m_sortOrderTimeRange = range;
    m_singletons.userDefaults.atomically([&] {
        saveSortOrder(m_singletons.userDefaults, order);
        savePreferredTimeRange(m_singletons.userDefaults, range);
    });
    if (menuChanges)
        updateSortMenu();
    // The range may be another one, or midnight may have passed since the list was last looked at.
    m_exerciseRowsAreStale |= cutoff() != m_since;
    refresh();
}

void PracticeListViewModel::addTapped() {
    setAddExerciseAlertIsPresented(true);
}

void PracticeListViewModel::setAddExerciseAlertIsPresented(bool presented) {
    if (std::exchange(m_addExerciseAlertIsPresented, presented) == presented)
        return;
    Q_EMIT addExerciseAlertIsPresentedChanged();
    if (!presented && !m_addExerciseAlertTextFieldText.isEmpty())
        addExercise(m_addExerciseAlertTextFieldText);
}

void PracticeListViewModel::setAddExerciseAlertTextFieldText(const QString& text) {
    if (m_addExerciseAlertTextFieldText == text)
        return;
    m_addExerciseAlertTextFieldText = text;
    Q_EMIT addExerciseAlertTextFieldTextChanged();
}

void PracticeListViewModel::addExercise(const QString& name) {
    const Exercise exercise = m_singletons.exercises.add(name);
    m_platform.mainQueue.async([self = std::weak_ptr(m_self), exercise] {
        const auto list = self.lock();
        if (!list)
            return;
        (*list)->setAddExerciseAlertTextFieldText(QString());
        (*list)->asynchronouslyReloadData();
        (*list)->open({exercise, std::nullopt});
    });
}

void PracticeListViewModel::addSearchedItem() {
    if (!isSearching())
        return;
    addExercise(m_searchBarText);
    setSearchBarText(QString());
}

void PracticeListViewModel::openExercise(int row) {
    if (const auto found = target(Section::Exercises, row))
        open({found->exercise, std::nullopt});
}

void PracticeListViewModel::openDailyLogRow(int row) {
    if (const auto found = target(Section::DailyLog, row))
        open({found->exercise, found->session});
}

void PracticeListViewModel::open(destinations::FromPracticeList destination) {
    m_destination = std::move(destination);
    Q_EMIT destinationChanged();
}

std::optional<destinations::FromPracticeList> PracticeListViewModel::takeDestination() {
    return std::exchange(m_destination, std::nullopt);
}

void PracticeListViewModel::archive(const Exercise& exercise) {
    m_lastRemoval.archiving(exercise);
    m_singletons.exercises.archive(exercise);
    offerUndo();
    asynchronouslyReloadData();
}

void PracticeListViewModel::archive(const PracticeSession& session) {
    m_lastRemoval.archiving(session.exercise);
    m_singletons.exercises.archive(session.exercise, [this](const Exercise& archived) {
        m_platform.mainQueue.async([self = std::weak_ptr(m_self), archived] {
            const auto list = self.lock();
            if (!list)
                return;
            (*list)->m_singletons.dailyLog.removeSessions(
                [&](const PracticeSession& each) { return each.exercise == archived; });
            (*list)->asynchronouslyReloadData();
        });
    });
    offerUndo();
}

void PracticeListViewModel::unarchive(const Exercise& exercise) {
    if (m_lastRemoval.isOf(exercise)) {
        // There is nothing left to take back.
        m_lastRemoval.forget();
        m_notice.end();
    }
    m_singletons.exercises.unarchive(exercise);
    log(QStringLiteral("unarchived exercise: ") + exercise.name);
    asynchronouslyReloadData();
}

void PracticeListViewModel::deleteArchived(const Exercise& exercise) {
    m_lastRemoval.deleting(exercise);
    if (m_singletons.exercises.archivedItems().contains(exercise))
        m_singletons.exercises.remove(exercise);
    log(QStringLiteral("deleted archived exercise: ") + exercise.name);
    offerUndo();
    asynchronouslyReloadData();
}

QList<RowAction> PracticeListViewModel::itemActions() const {
    return {{QStringLiteral("archive"), QStringLiteral("archive_action"), QStringLiteral("archiveBox"), false}};
}

QList<RowAction> PracticeListViewModel::archiveActions() const {
    return {
        {QStringLiteral("unarchive"), QStringLiteral("unarchive_action"), QStringLiteral("unarchive"), false},
        {QStringLiteral("delete"), QStringLiteral("delete_action"), QStringLiteral("trash"), true},
    };
}

std::optional<PracticeListViewModel::Target> PracticeListViewModel::target(Section section, int row) const {
    const auto isIn = [row](const auto& rows) { return row >= 0 && row < rows.size(); };
    switch (section) {
    case Section::DailyLog:
        if (isIn(m_shownSessions))
            return Target{section, m_shownSessions.at(row).session.exercise, m_shownSessions.at(row).session};
        break;
    case Section::Exercises:
        if (isIn(shownExercises()))
            return Target{section, shownExercises().at(row).exercise, std::nullopt};
        break;
    case Section::Archive:
        if (isIn(m_shownArchive))
            return Target{section, m_shownArchive.at(row).exercise, std::nullopt};
        break;
    }
    return std::nullopt;
}

void PracticeListViewModel::act(Section section, int row, int action) {
    if (const auto found = target(section, row))
        act(*found, action);
}

void PracticeListViewModel::act(const Target& target, int action) {
    constexpr int firstAction = 0;
    constexpr int secondAction = 1;
    if (target.section == Section::Archive && action == firstAction)
        unarchive(target.exercise);
    else if (target.section == Section::Archive && action == secondAction)
        deleteArchived(target.exercise);
    else if (action == firstAction && target.session)
        archive(*target.session);
    else if (action == firstAction)
        archive(target.exercise);
}

void PracticeListViewModel::openRowMenu(Section section, int row) {
    m_rowMenu = target(section, row);
    Q_EMIT rowMenuChanged();
}

void PracticeListViewModel::closeRowMenu() {
    if (std::exchange(m_rowMenu, std::nullopt))
        Q_EMIT rowMenuChanged();
}

void PracticeListViewModel::actFromMenu(int action) {
    const auto about = m_rowMenu;
    closeRowMenu();
    if (about)
        act(*about, action);
}

QString PracticeListViewModel::rowMenuTitle() const {
    return m_rowMenu ? m_rowMenu->exercise.name : QString();
}

QList<RowAction> PracticeListViewModel::rowMenuActions() const {
    if (!m_rowMenu)
        return {};
    return m_rowMenu->section == Section::Archive ? archiveActions() : itemActions();
}

void PracticeListViewModel::offerUndo() {
    m_notice.offerUndo(m_lastRemoval.text(), [this] { undo(); });
}

void PracticeListViewModel::undo() {
    if (!m_lastRemoval.isThere())
        return;
    m_lastRemoval.takeBack();
    m_notice.end();
    asynchronouslyReloadData();
}

void PracticeListViewModel::shaken() {
    // Only what can be seen to come back is brought back.
    if (m_isOnTop)
        undo();
}

QString PracticeListViewModel::reviewText() const {
    return m_reviewPageIsMissing
               ? QStringLiteral("No software centre answered on this device. Thank you for the thought!")
               : QStringLiteral("You have spent hours with Tamsel. If it serves you well, a review "
                                "helps other musicians find it.");
}

QUrl PracticeListViewModel::reviewPage() const {
    return QUrl(QStringLiteral("appstream://") + catalogueIdentifier);
}

void PracticeListViewModel::presentReview() {
    if (!std::exchange(m_requestToPresentAppStoreReview, false))
        return;
    m_reviewPrompt.didRequestReview();
    m_reviewCardIsPresented = true;
    m_reviewPageIsMissing = false;
    Q_EMIT reviewChanged();
}

void PracticeListViewModel::reviewPageOpened(bool shown) {
    if (shown)
        m_reviewCardIsPresented = false;
    else
        m_reviewPageIsMissing = true;
    Q_EMIT reviewChanged();
}

void PracticeListViewModel::closeReview() {
    if (std::exchange(m_reviewCardIsPresented, false))
        Q_EMIT reviewChanged();
}

void PracticeListViewModel::onFront() {
    if (today() != m_shownDay)
        asynchronouslyReloadData();
}

Date PracticeListViewModel::today() const {
    return m_platform.calendar.startOfDay(m_platform.clock.now());
}

void PracticeListViewModel::onDisappear() {
    m_isOnTop = false;
}

void PracticeListViewModel::onAppear() {
    m_isOnTop = true;
    if (!std::exchange(m_isFirstLaunch, false)) {
        // What was done before the list was left is not taken back by a shake of the device.
        m_lastRemoval.forget();
        m_notice.end();
        asynchronouslyReloadData();
        if (m_reviewPrompt.shouldRequestReview()) {
            m_requestToPresentAppStoreReview = true;
            Q_EMIT reviewChanged();
        }
    }
    m_metronomeViewModel.setTempo(checkedTruncate(m_singletons.metronome.tempoBPM()));
    m_metronomeViewModel.takeCharge();
}

} // namespace tamsel
