#pragma once

#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "list/Destinations.h"
#include "list/PracticeListViewModel.h"
#include "platform/Platform.h"
#include "practice/PracticeViewModel.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace tamsel {

// The practice tab's stack: the list, and at most one practice screen over it. Main thread only.
class PracticeNavigationStackViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")

    Q_PROPERTY(tamsel::PracticeListViewModel* practiceList READ practiceList CONSTANT FINAL)
    Q_PROPERTY(
        tamsel::PracticeViewModel* practiceViewModel READ practiceViewModel NOTIFY practiceViewModelChanged FINAL)

public:
    // With exactly one item its practice screen opens over the list at once.
    PracticeNavigationStackViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator);

    PracticeListViewModel* practiceList() { return &m_practiceList; }
    // The screen on top of the list; null while the list is on top.
    PracticeViewModel* practiceViewModel() { return m_practiceViewModel.get(); }
    const std::optional<destinations::FromPracticeList>& practiceViewToShowOnAppLaunch() const {
        return m_practiceViewToShowOnAppLaunch;
    }

    void push(const destinations::FromPracticeList& destination);
    // Back to the list, whose screen then tells its model that it appears; what runs on the practice screen is saved.
    Q_INVOKABLE void pop();
    // The window closes: what runs is saved.
    void leave();

Q_SIGNALS:
    void practiceViewModelChanged();

private:
    const Coordinator& m_coordinator;
    const std::optional<destinations::FromPracticeList> m_practiceViewToShowOnAppLaunch;
    PracticeListViewModel m_practiceList;
    std::unique_ptr<PracticeViewModel> m_practiceViewModel;
    // The screen that was left stays until the next one is: it is still being moved away.
    std::unique_ptr<PracticeViewModel> m_leftPracticeViewModel;
};

} // namespace tamsel
