#include "model/DataTail.h"

#include "platform/FatalError.h"

namespace tamsel {

void requireKeptBytes(qsizetype keptBytes, qsizetype length) {
    if (keptBytes < 0 || keptBytes > length)
        trap();
}

void replaceDataTail(SettingsValue& value, qsizetype keptBytes, QByteArrayView tail) {
    if (!std::holds_alternative<QByteArray>(value.value))
        value.value = QByteArray();
    auto& bytes = std::get<QByteArray>(value.value);
    requireKeptBytes(keptBytes, bytes.size());
    bytes.truncate(keptBytes);
    bytes.append(tail);
}

} // namespace tamsel
