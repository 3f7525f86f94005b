#include "ui/qt/controls/numbers/scientificText.h"

#include <array>
#include <cfloat>
#include <cstdio>

namespace {

/// The longest text of a double in fixed notation: sign, "0", point, and all digits of the smallest number.
constexpr std::size_t longestText = 3 + DBL_MANT_DIG - DBL_MIN_EXP;
static_assert(longestText == 1077, "a double is the IEEE one");

/// What printf() writes for a number or for INF and NAN, the decimal point apart.
bool isPartOfNumber(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') || character == '-'
           || character == '+';
}

} // namespace

QString scientificText(double value, int digits)
{
    std::array<char, longestText> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%.*G", digits, value);

    // What is no part of a number is the point, of one byte or several: the locale that localeconv() tells of need not
    // be the one that this thread prints with. Microsoft's C library says in brackets which NAN it is.
    char* end = buffer.data();
    for (const char* byte = buffer.data(); *byte != '\0' && *byte != '('; ++byte) {
        if (isPartOfNumber(*byte))
            *end++ = *byte;
        else if (end == buffer.data() || end[-1] != '.')
            *end++ = '.';
    }
    return QString::fromLatin1(buffer.data(), int(end - buffer.data()));
}
