#include "ui/qt/controls/numbers/canTextGrowIntoRange_p.h"

#include "ui/qt/controls/numbers/exactIntegers_p.h"
#include "ui/qt/controls/numbers/growDigitsIntoRange_p.h"
#include "ui/qt/controls/numbers/powerOfTen_p.h"

#include <cmath>

namespace zelmar::internal {

namespace {

constexpr QLatin1Char decimalPoint('.');

/// A magnitude whose integral part always has more digits than fit into a qint64.
constexpr double beyond64Bits = 1e19;

/// The integral part and the fraction of a number in fixed notation. A part that does not fit into 64 bits is 0.
struct Parts
{
    qint64 integral;
    qint64 fraction;
};

/// Returns whether the parts of a bound are known without formatting it, which is the slowest step. Most bounds are
/// such integers.
bool isSmallInteger(double number)
{
    return std::fabs(number) < exactIntegers && number == std::trunc(number);
}

Parts partsOf(double bound, int decimals)
{
    if (std::fabs(bound) >= beyond64Bits)
        return {0, 0};
    if (isSmallInteger(bound))
        return {qint64(bound), 0};
    const QString text = QString::number(bound, 'f', decimals);
    const int point = text.indexOf(decimalPoint);
    return {text.left(point).toLongLong(), point < 0 ? 0 : text.mid(point + 1).toLongLong()};
}

/// A test whether texts can become numbers in one range.
class RangeTest
{
public:
    RangeTest(double minimum, double maximum, int decimals)
        : m_minimum(partsOf(minimum, decimals))
        , m_maximum(partsOf(maximum, decimals))
        , m_fractionLimit(powerOfTen(decimals))
        , m_isNegative(maximum < 0)
    {
    }

    bool canGrow(const QString& text) const
    {
        const int point = text.indexOf(decimalPoint);
        if (point == 0 || (point == 1 && text.startsWith(QLatin1Char('+'))))
            return !m_isNegative && canFractionGrow();
        if (point == 1 && text.startsWith(QLatin1Char('-')))
            return m_isNegative && canFractionGrow();
        const auto match = integralMatch(text, text.left(point).toLongLong());
        if (!match || point < 0 || point == text.size() - 1)
            return match.has_value();
        return canFractionGrow(*match, text.mid(point + 1).toLongLong());
    }

private:
    /// Returns the integer in the range that the integral part of `text` can become.
    std::optional<qint64> integralMatch(const QString& text, qint64 integral) const
    {
        if (integral < 0 && m_minimum.integral >= 0)
            return std::nullopt;
        if (m_maximum.integral < 0 && !text.startsWith(QLatin1Char('-')))
            return std::nullopt;
        return growDigitsIntoRange(integral, m_minimum.integral, m_maximum.integral);
    }

    /// Tests the fraction that follows an integral part which can become `match`. The fraction of a bound limits it
    /// only if `match` is the integral part of that bound.
    bool canFractionGrow(qint64 match, qint64 fraction) const
    {
        const qint64 minimumFraction = match == m_minimum.integral ? m_minimum.fraction : firstFraction();
        const qint64 maximumFraction = match == m_maximum.integral ? m_maximum.fraction : lastFraction();
        return canFractionGrowBetween(fraction, minimumFraction, maximumFraction);
    }

    /// Tests a text with a fraction but no integral part. The digit 0 is tested instead of the fraction.
    bool canFractionGrow() const
    {
        // Compatibility: intermediate-value-estimate
        if (m_minimum.integral == m_maximum.integral)
            return canFractionGrowBetween(0, m_minimum.fraction, m_maximum.fraction);
        if (integralPartsDifferByOne())
            return growDigitsIntoRange(0, m_minimum.fraction, m_isNegative ? 0 : m_fractionLimit).has_value()
                   || growDigitsIntoRange(0, m_isNegative ? m_fractionLimit : 0, m_maximum.fraction).has_value();
        return growDigitsIntoRange(0, 0, m_fractionLimit).has_value();
    }

    /// Tests a fraction against the fractions of both bounds. Fractions have no sign, so in a negative range the
    /// minimum has the greater one.
    bool canFractionGrowBetween(qint64 fraction, qint64 minimumFraction, qint64 maximumFraction) const
    {
        return m_isNegative ? growDigitsIntoRange(fraction, maximumFraction, minimumFraction).has_value()
                            : growDigitsIntoRange(fraction, minimumFraction, maximumFraction).has_value();
    }

    bool integralPartsDifferByOne() const
    {
        const qint64 low = qMin(m_minimum.integral, m_maximum.integral);
        const qint64 high = qMax(m_minimum.integral, m_maximum.integral);
        return quint64(high) - quint64(low) == 1;
    }

    /// The first and the last fraction that may follow an integer within the range, in ascending order of the number.
    qint64 firstFraction() const { return m_isNegative ? m_fractionLimit : 0; }
    qint64 lastFraction() const { return m_isNegative ? 0 : m_fractionLimit; }

    Parts m_minimum;
    Parts m_maximum;
    qint64 m_fractionLimit; ///< 10 to the power of the decimals: the upper limit of every fraction
    bool m_isNegative;
};

} // namespace

bool canTextGrowIntoRange(const QString& text, double minimum, double maximum, int decimals)
{
    return RangeTest(minimum, maximum, decimals).canGrow(text);
}

} // namespace zelmar::internal
