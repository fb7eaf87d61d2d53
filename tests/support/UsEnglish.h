#pragma once

#include <unicode/locid.h>

namespace tamsel::test {

// Texts in one language, whatever this machine's is. Before the first of them, as formatters are made once.
inline void speakUsEnglish() {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale::getUS(), status);
}

} // namespace tamsel::test
