#include "list/SortMenu.h"

#include "platform/FatalError.h"

#include <utility>

namespace tamsel {

namespace {

struct RangeTexts {
    QString title;
    QString accessibilityIdentifier;
};

RangeTexts texts(TimeRange range) {
    switch (range) {
    case TimeRange::last7Days:
        return {QStringLiteral("Last 7 days"), QStringLiteral("sort_practiceTime_last7Days")};
    case TimeRange::last30Days:
        return {QStringLiteral("Last 30 days"), QStringLiteral("sort_practiceTime_last30Days")};
    case TimeRange::last90Days:
        return {QStringLiteral("Last 90 days"), QStringLiteral("sort_practiceTime_last90Days")};
    case TimeRange::last12Months:
        return {QStringLiteral("Last 12 months"), QStringLiteral("sort_practiceTime_last12Months")};
    case TimeRange::allMonths:
        return {QStringLiteral("All time"), QStringLiteral("sort_practiceTime_allMonths")};
    }
    trap();
}

QString mark(bool isChosen) {
    return isChosen ? QStringLiteral("checkmark") : QString();
}

} // namespace

QList<ToolbarMenuOption> sortMenuOptions(SortOrder order, TimeRange range, const SortChoice& choose) {
    const auto button = [&](const QString& identifier, const QString& title, SortOrder itsOrder) {
        return ToolbarMenuOption{identifier, mark(order == itsOrder),
                                 ToolbarMenuOption::Button([=] { choose(itsOrder, std::nullopt); }), title};
    };
    ToolbarMenuOption::Submenu ranges;
    for (const TimeRange offered : offeredTimeRanges()) {
        auto [title, identifier] = texts(offered);
        ranges += {std::move(identifier), mark(order == SortOrder::practiceTime && range == offered), std::move(title),
                   [=] { choose(SortOrder::practiceTime, offered); }};
    }
    return {button(QStringLiteral("sort_by_name"), QStringLiteral("Name"), SortOrder::name),
            button(QStringLiteral("sort_by_recency"), QStringLiteral("Most Recent"), SortOrder::practiceRecency),
            {QStringLiteral("sort_by_practice_time"), mark(order == SortOrder::practiceTime), std::move(ranges),
             QStringLiteral("Most Practiced")}};
}

} // namespace tamsel
