#include "model/ArrayText.h"

#include "model/JsonWriter.h"
#include "platform/NumberText.h"

#include <simdjson.h>

#include <cmath>
#include <limits>

namespace tamsel {

namespace {

constexpr auto infinityText = "inf";
constexpr auto negativeInfinityText = "-inf";
constexpr auto notANumberText = "nan";

QByteArray elementText(qint64 value) {
    return QByteArray::number(value);
}

QByteArray elementText(bool value) {
    return value ? "true" : "false";
}

QByteArray elementText(double value) {
    if (std::isfinite(value))
        return decimalText(value).toLatin1();
    const auto* name = std::isnan(value) ? notANumberText : value > 0 ? infinityText : negativeInfinityText;
    return QByteArray(R"({"double":")") + name + R"("})";
}

QByteArray elementText(const QByteArray& value) {
    // Only what comes back from text unchanged is written as text; a leading byte order mark would not.
    const QString text = QString::fromUtf8(value);
    if (text.toUtf8() != value)
        return R"({"base64":")" + value.toBase64() + R"("})";
    QByteArray quoted;
    json::Writer writer(quoted);
    writer.write(text);
    writer.finish();
    return quoted;
}

QByteArray elementText(const SettingsValue::Array& values) {
    return arrayText(values);
}

bool read(simdjson::dom::element element, SettingsValue& value);

bool read(simdjson::dom::array elements, SettingsValue& value) {
    auto& values = value.value.emplace<SettingsValue::Array>();
    for (const simdjson::dom::element element : elements) {
        if (!read(element, values.emplaceBack()))
            return false;
    }
    return true;
}

bool read(simdjson::dom::object object, SettingsValue& value) {
    std::string_view text;
    if (object["base64"].get(text) == simdjson::SUCCESS) {
        const auto decoded = QByteArray::fromBase64Encoding({text.data(), static_cast<qsizetype>(text.size())});
        value.value = *decoded;
        return decoded.decodingStatus == QByteArray::Base64DecodingStatus::Ok;
    }
    if (object["double"].get(text) != simdjson::SUCCESS)
        return false;
    if (text == notANumberText)
        value.value = std::numeric_limits<double>::quiet_NaN();
    else if (text == infinityText)
        value.value = std::numeric_limits<double>::infinity();
    else if (text == negativeInfinityText)
        value.value = -std::numeric_limits<double>::infinity();
    else
        return false;
    return true;
}

bool read(simdjson::dom::element element, SettingsValue& value) {
    using simdjson::dom::element_type;
    switch (element.type()) {
    case element_type::BOOL:
        value.value = bool(element);
        return true;
    case element_type::INT64:
        value.value = qint64{int64_t(element)};
        return true;
    case element_type::DOUBLE:
        value.value = double(element);
        return true;
    case element_type::STRING: {
        const std::string_view text(element);
        value.value = QByteArray(text.data(), static_cast<qsizetype>(text.size()));
        return true;
    }
    case element_type::ARRAY:
        return read(simdjson::dom::array(element), value);
    case element_type::OBJECT:
        return read(simdjson::dom::object(element), value);
    default:
        return false;
    }
}

} // namespace

QByteArray arrayText(const SettingsValue::Array& values) {
    QByteArray text = "[";
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (i > 0)
            text += ',';
        text += std::visit([](const auto& value) { return elementText(value); }, values.at(i).value);
    }
    return text + ']';
}

std::optional<SettingsValue::Array> arrayFromText(QByteArrayView text) {
    simdjson::dom::parser parser;
    simdjson::dom::array elements;
    if (parser.parse(text.data(), static_cast<std::size_t>(text.size())).get(elements) != simdjson::SUCCESS)
        return std::nullopt;
    SettingsValue value;
    if (!read(elements, value))
        return std::nullopt;
    return std::get<SettingsValue::Array>(std::move(value.value));
}

} // namespace tamsel
