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

std::optional<SettingsValue> valueOf(simdjson::dom::element element);

std::optional<SettingsValue> valueOf(simdjson::dom::array elements) {
    SettingsValue::Array values;
    for (const simdjson::dom::element element : elements) {
        auto value = valueOf(element);
        if (!value)
            return std::nullopt;
        values += *std::move(value);
    }
    return SettingsValue{std::move(values)};
}

std::optional<SettingsValue> valueOf(simdjson::dom::object object) {
    std::string_view text;
    if (object["base64"].get(text) == simdjson::SUCCESS) {
        const auto decoded =
            QByteArray::fromBase64Encoding(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
        return decoded ? std::optional(SettingsValue{*decoded}) : std::nullopt;
    }
    if (object["double"].get(text) != simdjson::SUCCESS)
        return std::nullopt;
    if (text == notANumberText)
        return SettingsValue{std::numeric_limits<double>::quiet_NaN()};
    if (text == infinityText)
        return SettingsValue{std::numeric_limits<double>::infinity()};
    if (text == negativeInfinityText)
        return SettingsValue{-std::numeric_limits<double>::infinity()};
    return std::nullopt;
}

std::optional<SettingsValue> valueOf(simdjson::dom::element element) {
    using simdjson::dom::element_type;
    switch (element.type()) {
    case element_type::BOOL:
        return SettingsValue{bool(element)};
    case element_type::INT64:
        return SettingsValue{qint64{int64_t(element)}};
    case element_type::DOUBLE:
        return SettingsValue{double(element)};
    case element_type::STRING: {
        const std::string_view text(element);
        return SettingsValue{QByteArray(text.data(), static_cast<qsizetype>(text.size()))};
    }
    case element_type::ARRAY:
        return valueOf(simdjson::dom::array(element));
    case element_type::OBJECT:
        return valueOf(simdjson::dom::object(element));
    default:
        return std::nullopt;
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
    auto value = valueOf(elements);
    return value ? std::optional(std::get<SettingsValue::Array>(std::move(value->value))) : std::nullopt;
}

} // namespace tamsel
