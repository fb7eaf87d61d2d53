#include "platform/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tamsel {

QString decimalText(double value) {
    std::array<char, 32> buffer{};
    const double size = std::abs(value);
    const bool isPlain = size == 0 || (size >= 1e-4 && size < 0x1p53);
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    const std::string_view digits(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    QString text = QString::fromLatin1(digits.data(), static_cast<qsizetype>(digits.size()));
    if (digits.find_first_not_of("-0123456789") == std::string_view::npos)
        text += QLatin1String(".0");
    return text;
}

} // namespace tamsel
