#pragma once

#include <QString>

namespace tamsel {

// The shortest decimal text that reads back to the same double, always with a fraction or an exponent: 120.0, 0.1,
// 1e+300. For values that are meant for people and logs. The value must be finite.
QString decimalText(double value);

} // namespace tamsel
