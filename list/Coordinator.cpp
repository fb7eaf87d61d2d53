#include "list/Coordinator.h"

#include "practice/NotesViewModel.h"
#include "practice/PracticeViewModel.h"
#include "reports/MonthReportViewModel.h"
#include "reports/PracticeDayBreakdownViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/ReportData.h"
#include "reports/TopExercisesDetailViewModel.h"

#include <memory>
#include <utility>
#include <variant>

namespace tamsel {

namespace {

StackedScreen report(const QString& file, std::unique_ptr<QObject> model) {
    return {file, QStringLiteral("report"), std::move(model)};
}

} // namespace

StackedScreen Coordinator::screen(const destinations::FromPracticeList& destination) const {
    return {QStringLiteral("PracticeScreen.qml"), QStringLiteral("practice"),
            std::make_unique<PracticeViewModel>(m_singletons, m_platform, destination.exercise, m_acceleration)};
}

StackedScreen Coordinator::screen(const destinations::FromPracticeView& destination,
                                  PracticeViewModel& practice) const {
    using enum destinations::FromPracticeView::Case;
    switch (destination.leadsTo) {
    case history:
        return screen(destinations::FromHistoryView{destinations::FromHistoryView::PracticeTime{
            destination.exercise, firstTimeRange(m_singletons.history, m_singletons.userDefaults,
                                                 m_platform.clock.now(), m_platform.calendar)}});
    case notes:
        break;
    }
    return {
        QStringLiteral("NotesScreen.qml"), QStringLiteral("notes"),
        std::make_unique<NotesViewModel>(m_singletons.notes, m_platform, destination.exercise, practice.noteDrafts())};
}

StackedScreen Coordinator::screen(const destinations::FromHistoryView& destination) const {
    using From = destinations::FromHistoryView;
    if (const auto* const exercises = std::get_if<From::Exercises>(&destination.target)) {
        return report(QStringLiteral("MostPracticedScreen.qml"),
                      std::make_unique<TopExercisesDetailViewModel>(m_singletons.history, exercises->timeRange,
                                                                    m_platform, *m_itemColors));
    }
    const auto& practiceTime = std::get<From::PracticeTime>(destination.target);
    return report(QStringLiteral("PracticeTimeScreen.qml"),
                  std::make_unique<PracticeTimeDetailViewModel>(m_singletons, practiceTime.exercise,
                                                                practiceTime.timeRange, m_platform, *m_itemColors));
}

StackedScreen Coordinator::screen(const destinations::FromPracticeTimeDetailView& destination) const {
    if (const auto* const day = std::get_if<DayOfEvents>(&destination.target))
        return screen(destinations::FromMonthReport{*day});
    return report(QStringLiteral("MonthReportScreen.qml"),
                  std::make_unique<MonthReportViewModel>(std::get<MonthOfEvents>(destination.target),
                                                         m_singletons.history, m_platform));
}

StackedScreen Coordinator::screen(const destinations::FromMonthReport& destination) const {
    return report(QStringLiteral("DayBreakdownScreen.qml"),
                  std::make_unique<PracticeDayBreakdownViewModel>(destination.dayBreakdown, m_platform.calendar));
}

} // namespace tamsel
