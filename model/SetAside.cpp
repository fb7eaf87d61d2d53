#include "model/SetAside.h"

namespace tamsel {

QString setAside(SettingsStore& store, const QString& key) {
    const auto unreadable = store.value(key);
    const QString base = QStringLiteral("unreadable.") + key;
    QString copy = base;
    for (int number = 2;; ++number) {
        const auto present = store.value(copy);
        if (present == unreadable)
            return copy;
        if (!present)
            break;
        copy = QStringLiteral("%1.%2").arg(base).arg(number);
    }
    store.set(copy, *unreadable);
    return copy;
}

} // namespace tamsel
