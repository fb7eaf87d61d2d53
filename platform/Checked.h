#pragma once

#include "platform/FatalError.h"

#include <QtGlobal>

namespace tamsel {

// Whole-number arithmetic that stops the program instead of wrapping around.

inline qint64 checkedAdd(qint64 a, qint64 b) {
    qint64 sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        trap();
    return sum;
}

inline qint64 checkedSubtract(qint64 a, qint64 b) {
    qint64 difference = 0;
    if (__builtin_sub_overflow(a, b, &difference))
        trap();
    return difference;
}

inline qint64 checkedMultiply(qint64 a, qint64 b) {
    qint64 product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        trap();
    return product;
}

// Truncates toward zero; stops the program for a value that is not finite or does not fit.
inline qint64 checkedTruncate(double value) {
    // 2^63 is the first double above the range; its negative is in it.
    if (!(value >= -9223372036854775808.0 && value < 9223372036854775808.0))
        trap();
    return static_cast<qint64>(value);
}

} // namespace tamsel
