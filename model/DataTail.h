#pragma once

#include "model/SettingsStore.h"

namespace tamsel {

// Stops the program when more bytes are to be kept than there are.
void requireKeptBytes(qsizetype keptBytes, qsizetype length);

// Keeps the first bytes of the data and replaces everything behind them. A value of another kind counts as empty data.
// Stops the program when there are fewer bytes than are to be kept.
void replaceDataTail(SettingsValue& value, qsizetype keptBytes, QByteArrayView tail);

} // namespace tamsel
