#include "ui/qt/controls/numbers/intermediateTest.h"

#include "ui/qt/controls/numbers/digitTest.h"
#include "ui/qt/controls/numbers/powerOfTen.h"

#include <cmath>

namespace {

constexpr QLatin1Char decimalPoint('.');

/// Below it a double is an integer of 64 bits however it is written down, also with as few digits as Qt can.
constexpr double exactIntegers = 9007199254740992.0;

/// An integer with more digits than 64 bits have, in any case.
constexpr double beyond64Bits = 1e19;

/// A number in fixed notation, cut at its point. What is no integer of 64 bits is 0.
struct Parts
{
    qint64 integral;
    qint64 fraction;
};

/// Bounds are mostly such numbers, and writing them down is most of the work.
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
    return {text.leftRef(point).toLongLong(), point < 0 ? 0 : text.midRef(point + 1).toLongLong()};
}

class RangeTest
{
public:
    RangeTest(double minimum, double maximum, int decimals)
        : m_minimum(partsOf(minimum, decimals))
        , m_maximum(partsOf(maximum, decimals))
        , m_whole(powerOfTen(decimals))
        , m_isNegative(maximum < 0)
    {
    }

    bool passes(const QString& text) const
    {
        const int point = text.indexOf(decimalPoint);
        if (point == 0 || (point == 1 && text.startsWith(QLatin1Char('+'))))
            return !m_isNegative && fractionPasses();
        if (point == 1 && text.startsWith(QLatin1Char('-')))
            return m_isNegative && fractionPasses();
        const auto match = matchOf(text, text.leftRef(point).toLongLong());
        if (!match || point < 0 || point == text.size() - 1)
            return match.has_value();
        return fractionPasses(*match, text.midRef(point + 1).toLongLong());
    }

private:
    /// The integer in the range that the integral part of `text` is taken for.
    std::optional<qint64> matchOf(const QString& text, qint64 integral) const
    {
        if (integral < 0 && m_minimum.integral >= 0)
            return std::nullopt;
        if (m_maximum.integral < 0 && !text.startsWith(QLatin1Char('-')))
            return std::nullopt;
        return numberWithDigits(integral, m_minimum.integral, m_maximum.integral);
    }

    /// The fraction behind an integral part that is taken for `match`: bound by the range's own fractions only where
    /// the integral parts are the same.
    bool fractionPasses(qint64 match, qint64 fraction) const
    {
        const qint64 ofMinimum = match == m_minimum.integral ? m_minimum.fraction : startOfInteger();
        const qint64 ofMaximum = match == m_maximum.integral ? m_maximum.fraction : endOfInteger();
        return isBetween(fraction, ofMinimum, ofMaximum);
    }

    /// A fraction without an integral part. What is tested is 0 and not the fraction: texts that were let through in
    /// this way always are.
    bool fractionPasses() const
    {
        if (m_minimum.integral == m_maximum.integral)
            return isBetween(0, m_minimum.fraction, m_maximum.fraction);
        if (integralPartsAreNeighbours())
            return numberWithDigits(0, m_minimum.fraction, m_isNegative ? 0 : m_whole).has_value()
                   || numberWithDigits(0, m_isNegative ? m_whole : 0, m_maximum.fraction).has_value();
        return numberWithDigits(0, 0, m_whole).has_value();
    }

    /// Fractions have no sign: below zero the range's lower bound has the greater one.
    bool isBetween(qint64 fraction, qint64 ofMinimum, qint64 ofMaximum) const
    {
        return m_isNegative ? numberWithDigits(fraction, ofMaximum, ofMinimum).has_value()
                            : numberWithDigits(fraction, ofMinimum, ofMaximum).has_value();
    }

    bool integralPartsAreNeighbours() const
    {
        const qint64 low = qMin(m_minimum.integral, m_maximum.integral);
        const qint64 high = qMax(m_minimum.integral, m_maximum.integral);
        return quint64(high) - quint64(low) == 1;
    }

    /// The first and the last fraction behind an integer inside the range, in the order of the range.
    qint64 startOfInteger() const { return m_isNegative ? m_whole : 0; }
    qint64 endOfInteger() const { return m_isNegative ? 0 : m_whole; }

    Parts m_minimum;
    Parts m_maximum;
    qint64 m_whole; ///< what would be a fraction of 1
    bool m_isNegative;
};

} // namespace

bool canBecomeNumberInRange(const QString& text, double minimum, double maximum, int decimals)
{
    return RangeTest(minimum, maximum, decimals).passes(text);
}
