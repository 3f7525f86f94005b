#include "ui/qt/controls/numbers/appendShortestText.h"

#include <QLatin1String>
#include <QLocale>

#include <array>
#include <charconv>
#include <cmath>

namespace {

void appendAsQtDoes(QString& text, double value)
{
    text += QString::number(value, 'g', QLocale::FloatingPointShortest);
}

#ifdef __cpp_lib_to_chars

void appendInFormat(QString& text, double value, std::chars_format format)
{
    std::array<char, 32> buffer; // sign, "0.000", 17 digits; or sign, 17 digits, point, exponent
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    text += QLatin1String(buffer.data(), result.ptr);
}

/// Whether the notation without an exponent is surely the shorter one, which Qt takes: below, small numbers have one;
/// above, whole numbers that end with many zeros, and perhaps those that have more digits than a double keeps.
bool isWrittenOut(double magnitude)
{
    constexpr double firstWithGaps = 9007199254740992.0; // 2^53
    if (magnitude < 1e5)
        return magnitude >= 1e-4;
    return magnitude < firstWithGaps
           && (std::trunc(magnitude) != magnitude || static_cast<qint64>(magnitude) % 1000000 != 0);
}

#endif

} // namespace

#ifdef __cpp_lib_to_chars

void appendShortestText(QString& text, double value)
{
    const double magnitude = std::abs(value);
    if (isWrittenOut(magnitude))
        appendInFormat(text, value, std::chars_format::fixed);
    else if (magnitude == 0)
        text += QLatin1Char('0'); // -0 has no sign there
    else if (magnitude < 1e-4)
        appendInFormat(text, value, std::chars_format::scientific);
    else
        appendAsQtDoes(text, value); // also infinities and what is not a number
}

#else

void appendShortestText(QString& text, double value)
{
    appendAsQtDoes(text, value);
}

#endif
