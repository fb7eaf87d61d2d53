#include "list/TabViewModel.h"

#include "model/SettingsKeys.h"

#include <utility>

namespace tamsel {

namespace {

bool hasUnreadThanksMessage(const SettingsStore& store) {
    const bool hasReadEarlierOne =
        store.boolean(keys::hasReadThanksMessage) || store.boolean(keys::hasReadJul15Message);
    return hasReadEarlierOne && !store.boolean(keys::hasReadThanksMessageAug5);
}

} // namespace

TabViewModel::TabViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator)
    : m_singletons(singletons), m_practiceNavigationStack(singletons, platform, coordinator),
      m_historyNavigationStack(singletons, platform, coordinator), m_thanksViewModel(coordinator.tipProvider()),
      m_showUnreadVariantOfThanksTabItem(hasUnreadThanksMessage(singletons.userDefaults)) {}

void TabViewModel::setSelectedTabIndex(int index) {
    if (std::exchange(m_selectedTabIndex, index) != index)
        Q_EMIT selectedTabIndexChanged();
    if (index == thanksTabIndex)
        setShowUnreadVariantOfThanksTabItem(false);
}

void TabViewModel::setShowUnreadVariantOfThanksTabItem(bool show) {
    if (std::exchange(m_showUnreadVariantOfThanksTabItem, show) != show)
        Q_EMIT showUnreadVariantOfThanksTabItemChanged();
    if (!show)
        markThanksAsRead();
}

void TabViewModel::markThanksAsRead() {
    m_singletons.userDefaults.setBoolean(keys::hasReadThanksMessage, true);
    m_singletons.userDefaults.setBoolean(keys::hasReadThanksMessageAug5, true);
}

TabItem TabViewModel::practiceTabItem() const {
    return {QStringLiteral("practice_tab"), QStringLiteral("metronome"), QStringLiteral("Practice")};
}

TabItem TabViewModel::historyTabItem() const {
    return {QStringLiteral("history_tab"), QStringLiteral("text.book.closed"), QStringLiteral("History")};
}

TabItem TabViewModel::thanksTabItem() const {
    const bool unread = m_showUnreadVariantOfThanksTabItem;
    return {QStringLiteral("thanks_tab"), unread ? QStringLiteral("sparkles") : QStringLiteral("heart"),
            unread ? QStringLiteral("New!") : QStringLiteral("Thanks")};
}

} // namespace tamsel
