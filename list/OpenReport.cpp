#include "list/OpenReport.h"

#include "reports/MonthReportViewModel.h"
#include "reports/PracticeTimeDetailViewModel.h"
#include "reports/TopExercisesDetailViewModel.h"

#include <utility>

namespace tamsel {

namespace {

// Opens what the model asks for, if it is a `Model`.
template <class Model, class Destination>
void follow(NavigationStackViewModel& stack, const Coordinator& coordinator, const StackedScreen& screen,
            void (Model::*requested)(const Destination&)) {
    if (auto* const model = qobject_cast<Model*>(screen.model.get())) {
        QObject::connect(model, requested, &stack, [&stack, &coordinator](const Destination& destination) {
            openReport(stack, coordinator, destination);
        });
    }
}

} // namespace

void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator, StackedScreen report) {
    follow(stack, coordinator, report, &PracticeTimeDetailViewModel::destinationRequested);
    follow(stack, coordinator, report, &TopExercisesDetailViewModel::destinationRequested);
    follow(stack, coordinator, report, &MonthReportViewModel::destinationRequested);
    stack.push(std::move(report));
}

void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromHistoryView& destination) {
    openReport(stack, coordinator, coordinator.screen(destination));
}

void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromPracticeTimeDetailView& destination) {
    openReport(stack, coordinator, coordinator.screen(destination));
}

void openReport(NavigationStackViewModel& stack, const Coordinator& coordinator,
                const destinations::FromMonthReport& destination) {
    openReport(stack, coordinator, coordinator.screen(destination));
}

} // namespace tamsel
