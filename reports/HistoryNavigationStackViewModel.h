#pragma once

#include "app/Singletons.h"
#include "platform/Platform.h"
#include "reports/HistoryViewModel.h"
#include "reports/ReportStack.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The history tab's stack: the overview, and the reports that were opened from it. Main thread only.
class HistoryNavigationStackViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")

    Q_PROPERTY(tamsel::HistoryViewModel* historyViewModel READ historyViewModel CONSTANT FINAL)
    Q_PROPERTY(tamsel::ReportStack* reports READ reports CONSTANT FINAL)

public:
    // Begins with the preferred range where the journal offers it, otherwise with seven days.
    HistoryNavigationStackViewModel(Singletons& singletons, const Platform& platform);

    HistoryViewModel* historyViewModel() { return &m_historyViewModel; }
    ReportStack* reports() { return &m_reports; }

private:
    ReportStack m_reports;
    HistoryViewModel m_historyViewModel;
};

} // namespace tamsel
