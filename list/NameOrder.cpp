#include "list/NameOrder.h"

#include <algorithm>

namespace tamsel {

namespace {

bool isDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

// A run of digits at the start of a text.
struct Number {
    explicit Number(QStringView text) {
        while (length < text.size() && isDigit(text.at(length)))
            ++length;
        while (zeros < length && text.at(zeros) == QLatin1Char('0'))
            ++zeros;
        digits = text.sliced(zeros, length - zeros);
    }

    qsizetype length = 0;
    qsizetype zeros = 0;
    QStringView digits; // without leading zeros: the longer one is the larger
};

int compareValues(const Number& a, const Number& b) {
    if (a.digits.size() != b.digits.size())
        return a.digits.size() < b.digits.size() ? -1 : 1;
    return a.digits.compare(b.digits);
}

} // namespace

bool nameComesBefore(QStringView a, QStringView b) {
    // What both begin with decides nothing, except that a number may go on where they part.
    auto same = std::ranges::mismatch(a, b).in1 - a.begin();
    while (same > 0 && isDigit(a.at(same - 1)))
        --same;
    a = a.sliced(same);
    b = b.sliced(same);

    qsizetype zerosDifference = 0; // of the first pair of numbers that differ in zeros only
    while (!a.isEmpty() && !b.isEmpty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const Number first(a);
            const Number second(b);
            if (const int order = compareValues(first, second); order != 0)
                return order < 0;
            if (zerosDifference == 0)
                zerosDifference = first.zeros - second.zeros;
            a = a.sliced(first.length);
            b = b.sliced(second.length);
            continue;
        }
        if (a.front() != b.front())
            return a.front().unicode() < b.front().unicode();
        a = a.sliced(1);
        b = b.sliced(1);
    }
    if (a.isEmpty() && b.isEmpty())
        return zerosDifference < 0;
    return a.isEmpty();
}

} // namespace tamsel
