#include "platform/DeviceLanguage.h"

#include <QtGlobal>

#include <unicode/locid.h>
#include <unicode/ures.h>

#include <memory>

namespace tamsel {

void adoptDeviceLanguage() {
    // To ICU an empty variable names a language without a name; it should say as little as one that is not there.
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (qEnvironmentVariableIsSet(variable) && qEnvironmentVariableIsEmpty(variable))
            qunsetenv(variable);
    }
    // Without a language of its own ICU has texts for machines: "M03 2024".
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UResourceBundle, decltype(&ures_close)> texts(
        ures_open(nullptr, icu::Locale::getDefault().getName(), &status), ures_close);
    if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) {
        status = U_ZERO_ERROR;
        icu::Locale::setDefault(icu::Locale::getUS(), status);
    }
}

} // namespace tamsel
