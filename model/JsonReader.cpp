#include "model/JsonReader.h"

#include "model/JsonFault.h"

#include <QtEndian>

#include <cstring>

namespace tamsel::json {

namespace {

// Reading takes about six times a document's size in memory. A journal of a century stays below a tenth of this.
constexpr qsizetype largestDocument = qsizetype(1) << 30;

// The parser takes no note of nesting until it has used memory for all of it.
bool nestsTooDeeply(QByteArrayView document) {
    int depth = 0;
    bool isInText = false;
    for (const char* at = document.begin(); at != document.end(); ++at) {
        if (*at == '"')
            isInText = !isInText;
        else if (*at == '\\' && at + 1 != document.end())
            ++at;
        else if (!isInText && (*at == '[' || *at == '{') && ++depth > deepestNesting)
            return true;
        else if (!isInText && (*at == ']' || *at == '}'))
            --depth;
    }
    return false;
}

// Eight hexadecimal digits, the first one lowest, as the four bytes that they stand for. Adds to `faults` where one is
// no digit. All eight at once, a byte of the word each.
std::uint32_t bytesOfDigits(std::uint64_t digits, std::uint64_t& faults) {
    constexpr std::uint64_t each = 0x0101010101010101;
    constexpr std::uint64_t high = 0x80 * each;

    // The high bit tells which bytes are at least `bound`; right for bytes below 0x80.
    const auto atLeast = [](std::uint64_t bytes, std::uint64_t bound) {
        return (bytes & ~high) + (0x80 - bound) * each;
    };
    const std::uint64_t lower = digits | 0x20 * each;
    const std::uint64_t isDigit = atLeast(digits, '0') & ~atLeast(digits, '9' + 1);
    const std::uint64_t isLetter = atLeast(lower, 'a') & ~atLeast(lower, 'f' + 1);
    faults |= ((isDigit | isLetter) & high) ^ high;
    faults |= digits & high;
    // A digit's value is in its low four bits; letters, which have bit 6 set, count from 9 there.
    const std::uint64_t values = (digits & 0x0F * each) + 9 * (digits >> 6 & each);
    std::uint64_t pairs = (values << 4 | values >> 8) & 0x00FF00FF00FF00FF;
    pairs = (pairs | pairs >> 8) & 0x0000FFFF0000FFFF;
    return static_cast<std::uint32_t>(pairs | pairs >> 16);
}

} // namespace

bool reading::readUuid(std::string_view text, QUuid& target) {
    if (text.size() != 36 || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-')
        return false;
    const auto four = [&text](std::size_t at) { return std::uint64_t(qFromLittleEndian<std::uint32_t>(&text[at])); };
    std::uint64_t faults = 0;
    const std::uint32_t first = bytesOfDigits(four(0) | four(4) << 32, faults);
    const std::uint32_t second = bytesOfDigits(four(9) | four(14) << 32, faults);
    const std::uint32_t third = bytesOfDigits(four(19) | four(24) << 32, faults);
    const std::uint32_t fourth = bytesOfDigits(four(28) | four(32) << 32, faults);
    if (faults != 0)
        return false;
    target.data1 = qFromBigEndian(qToLittleEndian(first));
    target.data2 = qFromBigEndian(qToLittleEndian(static_cast<quint16>(second)));
    target.data3 = qFromBigEndian(qToLittleEndian(static_cast<quint16>(second >> 16)));
    qToLittleEndian(third, &target.data4[0]);
    qToLittleEndian(fourth, &target.data4[4]);
    return true;
}

bool Reader::startWhole(QByteArray&& document) {
    // Below this the memory does not matter.
    constexpr qsizetype smallDocument = 64 * 1024;

    m_whole = std::move(document);
    if (m_whole.size() > largestDocument)
        return fail("document too large");
    if (m_whole.size() > smallDocument && nestsTooDeeply(m_whole))
        return fail("nested too deeply");
    m_whole.reserve(m_whole.size() + padding);
    return start({m_whole.constData(), static_cast<std::size_t>(m_whole.size())});
}

// The bytes behind the text are the padding, the first of them 0.
bool Reader::start(std::string_view text) {
    if (text.data() == nullptr)
        return fail("record too long");
    // A little more than needed, so that windows of about the same size share it.
    const std::size_t capacity = text.size() + text.size() / 8;
    if (m_parser.capacity() < text.size() && m_parser.allocate(capacity))
        return fail("not enough memory");
    const auto error = m_parser.iterate(text, text.size() + padding).get(m_document);
    return !error || refuse(error);
}

bool Reader::finish() {
    const bool isAtEnd = m_document.current_location().error() == simdjson::OUT_OF_BOUNDS;
    return isAtEnd || fail("unexpected content behind the document");
}

bool Reader::refuse(simdjson::error_code error) {
    switch (error) {
    case simdjson::EMPTY:
        return fail("empty document");
    case simdjson::UTF8_ERROR:
        return fail("not UTF-8");
    case simdjson::MEMALLOC:
        return fail("not enough memory");
    default:
        return failMalformed();
    }
}

bool Reader::fail(std::string_view expectation) {
    m_fault = {{}, expectation};
    return false;
}

bool Reader::failMalformed() {
    return fail("malformed JSON");
}

bool Reader::failAt(qsizetype index) {
    m_fault.path.prepend('[' + QByteArray::number(index) + ']');
    return false;
}

bool Reader::failAtKey(std::string_view key) {
    m_fault.path.prepend('.' + QByteArray(key.data(), static_cast<qsizetype>(key.size())));
    return false;
}

void Reader::keepFirst(std::optional<FirstFault>& first, std::size_t rank) const {
    if (!first || rank < first->rank)
        first = {rank, m_fault};
}

void Reader::keepFirst(std::optional<FirstFault>& first, std::size_t rank, std::string_view key) {
    failAtKey(key);
    keepFirst(first, rank);
}

QString Reader::error(QStringView place) const {
    QString where = place.toString() + QLatin1String(m_fault.path);
    if (where.startsWith(QLatin1Char('.')))
        where.remove(0, 1);
    const QLatin1String what(m_fault.expectation.data(), static_cast<qsizetype>(m_fault.expectation.size()));
    return where.isEmpty() ? QString(what) : where + QLatin1String(": ") + what;
}

bool Reader::readDocument(QByteArray document, qint64& target) {
    if (!startWhole(std::move(document)))
        return false;
    std::int64_t integer = 0;
    double number = 0;
    auto error = m_document.get_int64().get(integer);
    target = integer;
    if (error && error != simdjson::TRAILING_CONTENT) {
        error = m_document.get_double().get(number);
        if (!error && !reading::toWhole(number, target))
            return fail("expected integer");
    }
    if (error == simdjson::TRAILING_CONTENT)
        return fail("unexpected content behind the document");
    return error ? fail("expected integer") : finish();
}

bool Reader::readCaseDocument(QByteArray document, std::span<const std::string_view> names, std::size_t& index) {
    Object object;
    if (!startWhole(std::move(document)))
        return false;
    if (const auto error = m_document.get_object().get(object))
        return error == simdjson::INCORRECT_TYPE ? fail("expected object") : refuse(error);
    return readCase(object, names, index) && finish();
}

bool Reader::readCase(Object object, std::span<const std::string_view> names, std::size_t& index) {
    int count = 0;
    bool isObject = false;
    index = names.size();
    for (auto each : object) {
        Field field;
        std::optional<std::string_view> escaped;
        if (std::move(each).get(field))
            return failMalformed();
        if (!unescape(field.key(), escaped))
            return false;
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (reading::keyIs(field.key(), names[i]) || escaped == names[i])
                index = i;
        }
        simdjson::ondemand::json_type type{};
        isObject = !field.value().type().get(type) && type == simdjson::ondemand::json_type::object;
        if (!skip(field.value()))
            return false;
        ++count;
    }
    if (count != 1)
        return fail("Invalid number of keys found, expected one.");
    if (index == names.size())
        return fail("unknown case");
    return isObject || fail("expected object") || failAtKey(names[index]);
}

bool Reader::unescape(Value source, std::string_view raw, std::string_view& meant) {
    if (raw.find('\\') != std::string_view::npos)
        return !source.get_string().get(meant) || failMalformed();
    meant = raw;
    return !source.get_raw_json_string().error();
}

bool Reader::makeText(Value source, std::string_view raw, QString& target) {
    std::string_view meant;
    if (!unescape(source, raw, meant))
        return false;
    target = QString::fromUtf8(meant.data(), static_cast<qsizetype>(meant.size()));
    return true;
}

bool Reader::readEscaped(Value source, std::string_view raw, QUuid& target) {
    std::string_view meant;
    if (!unescape(source, raw, meant))
        return false;
    return reading::readUuid(meant, target) || fail("expected UUID");
}

bool Reader::unescape(RawKey key, std::optional<std::string_view>& meant) {
    const char* end = key.raw();
    while (*end != '"' && *end != '\\')
        ++end;
    if (*end == '"')
        return true;
    // Unescaped text is shorter, but the parser writes in strides.
    while (*end != '"')
        end += *end == '\\' ? 2 : 1;
    m_key.resize(static_cast<std::size_t>(end - key.raw()) + simdjson::SIMDJSON_PADDING);
    std::uint8_t* target = m_key.data();
    return !m_parser.unescape(key, target).get(meant.emplace()) || failMalformed();
}

// Passes over a value that no record knows. Everything in it is looked at: the reader below would take any brackets
// that balance.
bool Reader::skip(Value source) {
    using Type = simdjson::ondemand::json_type;

    Type type{};
    if (source.type().get(type))
        return failMalformed();
    if (source.current_depth() > deepestNesting && (type == Type::array || type == Type::object))
        return fail("nested too deeply");
    switch (type) {
    case Type::array: {
        Array array;
        if (source.get_array().get(array))
            return failMalformed();
        for (auto each : array) {
            Value element;
            if (each.get(element))
                return failMalformed();
            if (!skip(element))
                return false;
        }
        return true;
    }
    case Type::object: {
        Object object;
        if (source.get_object().get(object))
            return failMalformed();
        for (auto each : object) {
            Field field;
            std::optional<std::string_view> ignored;
            if (std::move(each).get(field))
                return failMalformed();
            if (!unescape(field.key(), ignored) || !skip(field.value()))
                return false;
        }
        return true;
    }
    case Type::string: {
        std::string_view ignored;
        return !source.get_string().get(ignored) || failMalformed();
    }
    case Type::number:
        return !source.get_double().error() || failMalformed();
    case Type::boolean:
        return !source.get_bool().error() || failMalformed();
    case Type::null:
        return !source.is_null().error() || failMalformed();
    }
    return failMalformed();
}

} // namespace tamsel::json
