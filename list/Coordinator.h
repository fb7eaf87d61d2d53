#pragma once

#include "app/Singletons.h"
#include "list/Destinations.h"
#include "list/NavigationStackViewModel.h"
#include "list/TipProvider.h"
#include "platform/Platform.h"
#include "practice/PracticeViewModel.h"
#include "reports/ItemColors.h"
#include "reports/ReportDestinations.h"

#include <memory>

namespace tamsel {

// Builds the screen behind each destination, with the stores that its model needs. Main thread only.
class Coordinator {
public:
    // `acceleration` is 1 in normal use: how many seconds of practice pass in one. `tipProvider` is null where there is
    // no store that could take a tip.
    Coordinator(Singletons& singletons, const Platform& platform, int acceleration, TipProvider* tipProvider = nullptr)
        : m_singletons(singletons), m_platform(platform), m_acceleration(acceleration), m_tipProvider(tipProvider),
          m_itemColors(std::make_unique<ItemColors>(singletons.history)) {}

    StackedScreen screen(const destinations::FromPracticeList& destination) const;
    // `practice` is the screen that it is opened from.
    StackedScreen screen(const destinations::FromPracticeView& destination, PracticeViewModel& practice) const;
    StackedScreen screen(const destinations::FromHistoryView& destination) const;
    StackedScreen screen(const destinations::FromPracticeTimeDetailView& destination) const;
    StackedScreen screen(const destinations::FromMonthReport& destination) const;

    // The same for all screens with charts.
    ItemColors& itemColors() const { return *m_itemColors; }

    TipProvider* tipProvider() const { return m_tipProvider; }

private:
    Singletons& m_singletons;
    const Platform m_platform;
    const int m_acceleration;
    TipProvider* const m_tipProvider;
    const std::unique_ptr<ItemColors> m_itemColors;
};

} // namespace tamsel
