#include "ui/qt/controls/numbers/scientificText_p.h"

#include <array>
#include <cfenv>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace zelmar::internal {

namespace {

/// The length of the longest text of a double in fixed notation: sign, "0", decimal point and all digits of the
/// smallest number.
constexpr std::size_t longestText = 3 + DBL_MANT_DIG - DBL_MIN_EXP;
static_assert(longestText == 1077, "double must be IEEE 754 binary64");

using Buffer = std::array<char, longestText>;

/// Returns whether printf() writes `character` in a number, INF or NAN. Excludes the decimal point.
bool isPartOfNumber(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') || character == '-'
           || character == '+';
}

/// Formats by snprintf(), which respects the rounding mode, and replaces the locale's decimal point.
QString printedText(double value, int digits)
{
    Buffer buffer;
    std::snprintf(buffer.data(), buffer.size(), "%.*G", digits, value);

    // Other bytes belong to the decimal point, which may have several. It is not looked up by localeconv(), because
    // this thread may print in another locale. Microsoft's C library appends the kind of a NAN in parentheses.
    char* end = buffer.data();
    for (const char* byte = buffer.data(); *byte != '\0' && *byte != '('; ++byte) {
        if (isPartOfNumber(*byte))
            *end++ = *byte;
        else if (end == buffer.data() || end[-1] != '.')
            *end++ = '.';
    }
    return QString::fromLatin1(buffer.data(), int(end - buffer.data()));
}

#ifdef __cpp_lib_to_chars

/// Formats by std::to_chars(), which takes a fraction of the time because it uses neither a format string nor a locale.
QString convertedText(double value, int digits)
{
    Buffer buffer;
    const int precision = digits < 0 ? 6 : digits;
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, precision);
    for (char* character = buffer.data(); character != result.ptr; ++character) {
        if (*character >= 'a')
            *character = char(*character - 'a' + 'A');
    }
    return QString::fromLatin1(buffer.data(), int(result.ptr - buffer.data()));
}

/// Returns whether only the C library's text is right: std::to_chars() ignores the rounding mode, and C libraries
/// differ in whether they write the sign of a NaN.
bool isUpToLibrary(double value)
{
    return std::isnan(value) || std::fegetround() != FE_TONEAREST;
}

#endif

} // namespace

QString scientificText(double value, int digits)
{
#ifdef __cpp_lib_to_chars
    if (!isUpToLibrary(value))
        return convertedText(value, digits);
#endif
    return printedText(value, digits);
}

} // namespace zelmar::internal
