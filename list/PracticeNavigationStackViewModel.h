#pragma once

#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "list/Destinations.h"
#include "list/NavigationStackViewModel.h"
#include "list/PracticeListViewModel.h"
#include "platform/Platform.h"
#include "practice/PracticeViewModel.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tamsel {

// The practice tab's stack: the list, at most one practice screen over it, and over that its notes or its history.
// Main thread only.
// The base is named in full because the description of types for QML takes the name as it stands here.
class PracticeNavigationStackViewModel final : public tamsel::NavigationStackViewModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")

    Q_PROPERTY(tamsel::PracticeListViewModel* practiceList READ practiceList CONSTANT FINAL)

public:
    // With exactly one item its practice screen opens over the list at once.
    PracticeNavigationStackViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator);

    PracticeListViewModel* practiceList() { return &m_practiceList; }
    // The practice screen over the list; null while there is none.
    PracticeViewModel* practiceViewModel() const;
    const std::optional<destinations::FromPracticeList>& practiceViewToShowOnAppLaunch() const {
        return m_practiceViewToShowOnAppLaunch;
    }

    // Leaves the practice screen that is open, and opens another.
    void push(const destinations::FromPracticeList& destination);
    // Opens the item's notes or history over its practice screen; does nothing while that is not open.
    void push(const destinations::FromPracticeView& destination);
    // The window closes: what runs is saved.
    void leave();

private:
    // Opens what the practice screen asks for.
    void follow(PracticeViewModel& practice);
    // What runs on the practice screen is saved, and it hears that its notes or its history are left. The list's screen
    // tells its model itself that it appears.
    void leaving(QObject& screenModel) override;
    // The notes and the history of the item.
    bool closesWithin(QObject& screenModel) override;

    const Coordinator& m_coordinator;
    const std::optional<destinations::FromPracticeList> m_practiceViewToShowOnAppLaunch;
    PracticeListViewModel m_practiceList;
};

} // namespace tamsel
