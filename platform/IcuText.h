#pragma once

#include <QString>

#include <unicode/unistr.h>

// Texts on their way to ICU and back.
namespace tamsel {

inline icu::UnicodeString toIcu(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

inline QString fromIcu(const icu::UnicodeString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
}

} // namespace tamsel
