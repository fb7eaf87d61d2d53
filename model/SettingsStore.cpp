#include "model/SettingsStore.h"

#include <utility>

namespace tamsel {

namespace {

// The plain kinds read as one another; everything else reads as nothing (false, 0, 0.0).
template <class T>
T plain(const std::optional<SettingsValue>& stored) {
    if (!stored)
        return {};
    if (const auto* flag = std::get_if<bool>(&stored->value))
        return static_cast<T>(*flag);
    if (const auto* integer = std::get_if<qint64>(&stored->value))
        return static_cast<T>(*integer);
    if (const auto* real = std::get_if<double>(&stored->value)) {
        if constexpr (std::is_same_v<T, qint64>) {
            // A double outside the integers' range (2^63 is the first above it) reads as 0.
            return *real >= -9223372036854775808.0 && *real < 9223372036854775808.0 ? static_cast<qint64>(*real) : 0;
        } else {
            return static_cast<T>(*real);
        }
    }
    return {};
}

template <class T>
std::optional<T> ofKind(std::optional<SettingsValue> stored) {
    if (!stored || !std::holds_alternative<T>(stored->value))
        return std::nullopt;
    return std::get<T>(std::move(stored->value));
}

} // namespace

std::optional<QByteArray> SettingsStore::data(const QString& key) const {
    return ofKind<QByteArray>(value(key));
}

std::optional<SettingsValue::Array> SettingsStore::array(const QString& key) const {
    return ofKind<SettingsValue::Array>(value(key));
}

bool SettingsStore::boolean(const QString& key) const {
    return plain<bool>(value(key));
}

qint64 SettingsStore::integer(const QString& key) const {
    return plain<qint64>(value(key));
}

double SettingsStore::real(const QString& key) const {
    return plain<double>(value(key));
}

void SettingsStore::setData(const QString& key, QByteArray bytes) {
    set(key, {std::move(bytes)});
}

void SettingsStore::setArray(const QString& key, SettingsValue::Array values) {
    set(key, {std::move(values)});
}

void SettingsStore::setBoolean(const QString& key, bool value) {
    set(key, {value});
}

void SettingsStore::setInteger(const QString& key, qint64 value) {
    set(key, {value});
}

void SettingsStore::setReal(const QString& key, double value) {
    set(key, {value});
}

} // namespace tamsel
