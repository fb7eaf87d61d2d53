#pragma once

#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "list/NavigationStackViewModel.h"
#include "platform/Platform.h"
#include "reports/HistoryViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The history tab's stack: the overview, and the reports that were opened from it. Main thread only. The base is named
// in full so that the type description that qmllint reads finds it.
class HistoryNavigationStackViewModel final : public tamsel::NavigationStackViewModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")

    Q_PROPERTY(tamsel::HistoryViewModel* historyViewModel READ historyViewModel CONSTANT FINAL)

public:
    // Begins with the preferred range where the journal offers it, otherwise with seven days.
    HistoryNavigationStackViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator);

    HistoryViewModel* historyViewModel() { return &m_historyViewModel; }

private:
    HistoryViewModel m_historyViewModel;
};

} // namespace tamsel
