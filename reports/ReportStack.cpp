#include "reports/ReportStack.h"

#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/TopExercisesDetailViewModel.h"

#include <utility>
#include <variant>

namespace tamsel {

ReportStack::ReportStack(Singletons& singletons, const Platform& platform, QObject* parent)
    : QAbstractListModel(parent), m_singletons(singletons), m_platform(platform), m_colors(singletons.history) {}

void ReportStack::open(const destinations::FromHistoryView& destination) {
    if (const auto* const exercises = std::get_if<destinations::FromHistoryView::Exercises>(&destination.target)) {
        push(Kind::MostPracticed, std::make_unique<TopExercisesDetailViewModel>(
                                      m_singletons.history, exercises->timeRange, m_platform, m_colors));
        return;
    }
    const auto& practiceTime = std::get<destinations::FromHistoryView::PracticeTime>(destination.target);
    auto model = std::make_unique<PracticeTimeDetailViewModel>(m_singletons, practiceTime.exercise,
                                                               practiceTime.timeRange, m_platform, m_colors);
    connect(model.get(), &PracticeTimeDetailViewModel::destinationRequested, this,
            [this](const destinations::FromPracticeTimeDetailView& next) { open(next); });
    push(Kind::PracticeTime, std::move(model));
}

void ReportStack::open(const destinations::FromPracticeTimeDetailView& destination) {
    if (const auto* const day = std::get_if<DayOfEvents>(&destination.target))
        openDay(*day);
    else
        openMonth(std::get<MonthOfEvents>(destination.target));
}

void ReportStack::open(const destinations::FromMonthReport& destination) {
    openDay(destination.dayBreakdown);
}

void ReportStack::openDay(const DayOfEvents& day) {
    push(Kind::Day, std::make_unique<PracticeDayBreakdownViewModel>(day, m_platform.calendar));
}

void ReportStack::openMonth(const MonthOfEvents& month) {
    auto model = std::make_unique<MonthReportViewModel>(month, m_singletons.history, m_platform);
    connect(model.get(), &MonthReportViewModel::destinationRequested, this,
            [this](const destinations::FromMonthReport& next) { open(next); });
    push(Kind::Month, std::move(model));
}

void ReportStack::push(Kind kind, std::unique_ptr<QObject> model) {
    m_left.clear();
    beginInsertRows({}, count(), count());
    m_screens.push_back({kind, std::move(model)});
    endInsertRows();
    Q_EMIT countChanged();
}

void ReportStack::pop() {
    if (m_screens.empty())
        return;
    beginRemoveRows({}, count() - 1, count() - 1);
    m_left.push_back(std::move(m_screens.back()));
    m_screens.pop_back();
    endRemoveRows();
    Q_EMIT countChanged();
}

void ReportStack::clear() {
    while (!m_screens.empty())
        pop();
}

int ReportStack::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ReportStack::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= count())
        return {};
    const Screen& screen = m_screens[static_cast<std::size_t>(index.row())];
    return role == KindRole ? QVariant::fromValue(screen.kind) : QVariant::fromValue(screen.model.get());
}

QHash<int, QByteArray> ReportStack::roleNames() const {
    return {{KindRole, "kind"}, {ScreenRole, "screen"}};
}

} // namespace tamsel
