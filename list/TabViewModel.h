#pragma once

#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "list/HistoryNavigationStackViewModel.h"
#include "list/PracticeNavigationStackViewModel.h"
#include "list/TabItem.h"
#include "list/ThanksViewModel.h"
#include "platform/Platform.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tamsel {

// The three tabs and the badge on the last one. Main thread only.
class TabViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the content model")

    Q_PROPERTY(
        int selectedTabIndex READ selectedTabIndex WRITE setSelectedTabIndex NOTIFY selectedTabIndexChanged FINAL)
    Q_PROPERTY(bool showUnreadVariantOfThanksTabItem READ showUnreadVariantOfThanksTabItem WRITE
                   setShowUnreadVariantOfThanksTabItem NOTIFY showUnreadVariantOfThanksTabItemChanged FINAL)
    Q_PROPERTY(tamsel::TabItem practiceTabItem READ practiceTabItem CONSTANT FINAL)
    Q_PROPERTY(tamsel::TabItem historyTabItem READ historyTabItem CONSTANT FINAL)
    Q_PROPERTY(tamsel::TabItem thanksTabItem READ thanksTabItem NOTIFY showUnreadVariantOfThanksTabItemChanged FINAL)
    Q_PROPERTY(
        tamsel::PracticeNavigationStackViewModel* practiceNavigationStack READ practiceNavigationStack CONSTANT FINAL)
    Q_PROPERTY(
        tamsel::HistoryNavigationStackViewModel* historyNavigationStack READ historyNavigationStack CONSTANT FINAL)
    Q_PROPERTY(tamsel::ThanksViewModel* thanksViewModel READ thanksViewModel CONSTANT FINAL)

public:
    static constexpr int practiceTabIndex = 0;
    static constexpr int historyTabIndex = 1;
    static constexpr int thanksTabIndex = 2;

    TabViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator);

    int selectedTabIndex() const { return m_selectedTabIndex; }
    // Selecting the thanks tab marks its messages as read.
    void setSelectedTabIndex(int index);
    // Only somebody who has read an earlier message is shown that there is a newer one; a new user never is.
    bool showUnreadVariantOfThanksTabItem() const { return m_showUnreadVariantOfThanksTabItem; }

    // Clearing it marks the messages as read.
    void setShowUnreadVariantOfThanksTabItem(bool show);

    TabItem practiceTabItem() const;
    TabItem historyTabItem() const;
    TabItem thanksTabItem() const;
    PracticeNavigationStackViewModel* practiceNavigationStack() { return &m_practiceNavigationStack; }
    HistoryNavigationStackViewModel* historyNavigationStack() { return &m_historyNavigationStack; }
    HistoryViewModel* historyViewModel() { return m_historyNavigationStack.historyViewModel(); }
    ThanksViewModel* thanksViewModel() { return &m_thanksViewModel; }

Q_SIGNALS:
    void selectedTabIndexChanged();
    void showUnreadVariantOfThanksTabItemChanged();

private:
    void markThanksAsRead();

    Singletons& m_singletons;
    int m_selectedTabIndex = practiceTabIndex;
    PracticeNavigationStackViewModel m_practiceNavigationStack;
    HistoryNavigationStackViewModel m_historyNavigationStack;
    ThanksViewModel m_thanksViewModel;
    bool m_showUnreadVariantOfThanksTabItem;
};

} // namespace tamsel
