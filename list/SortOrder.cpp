#include "list/SortOrder.h"

#include "model/Json.h"
#include "model/SettingsKeys.h"

#include <array>

namespace tamsel {

namespace {

// In the order of the enumeration.
constexpr QLatin1String nameCase("name");
constexpr QLatin1String practiceRecencyCase("practiceRecency");
constexpr QLatin1String practiceTimeCase("practiceTime");

} // namespace

SortOrder storedSortOrder(const SettingsStore& store) {
    const auto data = store.data(keys::sortOrder);
    if (!data)
        return SortOrder::name;
    const auto index = json::decodeCase(*data, {nameCase, practiceRecencyCase, practiceTimeCase}, keys::sortOrder);
    return index ? static_cast<SortOrder>(*index) : SortOrder::name;
}

void saveSortOrder(SettingsStore& store, SortOrder order) {
    constexpr std::array cases{nameCase, practiceRecencyCase, practiceTimeCase};
    store.setData(keys::sortOrder, json::encodeCase(cases.at(static_cast<std::size_t>(order))));
}

} // namespace tamsel
