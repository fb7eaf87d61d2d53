#pragma once

#include "model/DataDump.h"
#include "model/Json.h"
#include "model/UserData.h"
#include "platform/Date.h"

#include <QtGlobal>

#include <optional>

namespace tamsel {

// How much there is in a user's data, for somebody who is about to replace it.
struct DataSummary {
    qsizetype items = 0;
    qsizetype archivedItems = 0;
    qsizetype notes = 0;
    qsizetype events = 0;
    std::optional<Date> firstEvent; // the earliest, wherever it stands
    std::optional<Date> lastEvent;

    static DataSummary of(const DataDump& dump);
    // The error when the items or the history cannot be read. Notes that cannot be read count as none.
    static json::Result<DataSummary> of(const UserData& data);

    bool operator==(const DataSummary&) const = default;
};

} // namespace tamsel
