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

#endif

} // namespace

#ifdef __cpp_lib_to_chars

void appendShortestText(QString& text, double value)
{
    const double magnitude = std::abs(value);
    // Qt takes the shorter notation. Which one that is depends on the digits for large whole numbers only.
    if (magnitude >= 1e-4 && (magnitude < 1e5 || std::trunc(magnitude) != magnitude))
        appendInFormat(text, value, std::chars_format::fixed);
    else if (magnitude > 0 && magnitude < 1e-4)
        appendInFormat(text, value, std::chars_format::scientific);
    else
        appendAsQtDoes(text, value); // also 0, -0, which has no sign there, infinities and what is not a number
}

#else

void appendShortestText(QString& text, double value)
{
    appendAsQtDoes(text, value);
}

#endif
