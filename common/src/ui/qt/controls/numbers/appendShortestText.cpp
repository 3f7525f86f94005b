#include "ui/qt/controls/numbers/appendShortestText_p.h"

#include "ui/qt/controls/numbers/exactIntegers_p.h"

#include <QLatin1String>
#include <QLocale>

#include <array>
#include <charconv>
#include <cmath>

namespace zelmar::internal {

namespace {

void appendAsQtDoes(QString& text, double value)
{
    text += QString::number(value, 'g', QLocale::FloatingPointShortest);
}

#ifdef __cpp_lib_to_chars

void appendInFormat(QString& text, double value, std::chars_format format)
{
    std::array<char, 32> buffer; // holds a sign, "0.000" and 17 digits, or a sign, 17 digits, a point and an exponent
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    text += QLatin1String(buffer.data(), result.ptr);
}

/// Returns whether Qt 5 and Qt 6 certainly write the number without an exponent. Qt uses the shorter notation, which is
/// the one with an exponent for numbers below 1e-4 and for integers that end with many zeros. Near these limits the
/// versions of Qt differ. From 2^53 on an integer may have more digits than a double holds, so nothing is certain.
bool isSurelyFixedNotation(double magnitude)
{
    if (magnitude < 1e5)
        return magnitude >= 1e-3;
    return magnitude < exactIntegers
           && (std::trunc(magnitude) != magnitude || static_cast<qint64>(magnitude) % 100000 != 0);
}

#endif

} // namespace

#ifdef __cpp_lib_to_chars

void appendShortestText(QString& text, double value)
{
    const double magnitude = std::abs(value);
    if (isSurelyFixedNotation(magnitude))
        appendInFormat(text, value, std::chars_format::fixed);
    else if (magnitude == 0)
        text += QLatin1Char('0'); // Qt writes no sign for -0
    else if (magnitude < 1e-4)
        appendInFormat(text, value, std::chars_format::scientific);
    else
        appendAsQtDoes(text, value); // includes infinities and NaN
}

#else

void appendShortestText(QString& text, double value)
{
    appendAsQtDoes(text, value);
}

#endif

} // namespace zelmar::internal
