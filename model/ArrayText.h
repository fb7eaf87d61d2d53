#pragma once

#include "model/SettingsStore.h"

#include <QByteArrayView>

#include <optional>

namespace tamsel {

// How an array lies in the settings file: as a JSON array that can be read by eye. A number with a fraction or an
// exponent is a double, any other an integer; a string is data that is UTF-8 text; {"base64":"AAE="} is other data;
// {"double":"inf"} is a double that JSON has no number for.
QByteArray arrayText(const SettingsValue::Array& values);

// Nothing when the text is not such an array.
std::optional<SettingsValue::Array> arrayFromText(QByteArrayView text);

} // namespace tamsel
