#include "ui/qt/controls/numbers/growDigitsIntoRange_p.h"

#include "ui/qt/controls/numbers/powerOfTen_p.h"

#include <QVarLengthArray>

namespace zelmar::internal {

namespace {

constexpr quint64 maxCandidates = 500000;

/// The number of decimal digits of 2^63, the greatest magnitude of a qint64.
constexpr int maxDigits = 19;

/// The decimal digits of a number, most significant first. The number 0 has the single digit 0.
using Digits = QVarLengthArray<int, maxDigits + 1>;

Digits digitsOf(quint64 number)
{
    Digits reversed;
    do {
        reversed.append(int(number % 10));
        number /= 10;
    } while (number > 0);
    Digits digits;
    for (int i = reversed.size() - 1; i >= 0; --i)
        digits.append(reversed[i]);
    return digits;
}

quint64 magnitudeOf(qint64 number)
{
    return number < 0 ? 0 - quint64(number) : quint64(number);
}

qint64 negated(quint64 magnitude)
{
    return qint64(0 - magnitude);
}

/// A number that is built digit by digit and counts how many of the wanted digits it contains as a subsequence so far.
class GrowingNumber
{
public:
    explicit GrowingNumber(const Digits& wanted)
        : m_wanted(&wanted)
    {
    }

    void append(int digit)
    {
        m_value = m_value * 10 + quint64(digit);
        if (missing() > 0 && digit == next())
            ++m_found;
    }

    /// Appends `count` digits: `filler` as long as enough positions remain for the missing digits, then those digits.
    void fill(int count, int filler)
    {
        for (; count > 0; --count)
            append(missing() < count ? filler : next());
    }

    int missing() const { return m_wanted->size() - m_found; }
    quint64 value() const { return m_value; }

private:
    int next() const { return (*m_wanted)[m_found]; }

    const Digits* m_wanted;
    int m_found = 0;
    quint64 m_value = 0;
};

enum class Direction { Down = -1, Up = 1 };

/// A search for the number that contains the wanted digits as a subsequence and is nearest to a bound.
class NearestNumber
{
public:
    NearestNumber(const Digits& wanted, Direction direction)
        : m_wanted(wanted)
        , m_step(int(direction))
        , m_filler(direction == Direction::Down ? 9 : 0)
    {
    }

    /// Returns `bound` if it contains the wanted digits, otherwise the next number in the search direction that does.
    /// Any number other than `bound` is at least 1, because its first digit is not 0.
    std::optional<quint64> from(quint64 bound) const
    {
        for (;;) {
            const Digits digits = digitsOf(bound);
            if (const auto found = withSameLength(digits))
                return found;
            if (digits.size() == (m_step < 0 ? 1 : maxDigits))
                return std::nullopt;
            bound = quint64(m_step < 0 ? powerOfTen(digits.size() - 1) - 1 : powerOfTen(digits.size()));
        }
    }

private:
    /// Returns the nearest match that has as many digits as `bound`. The more leading digits a number shares with the
    /// bound, the nearer it is, so the longest shared prefix is tried first.
    std::optional<quint64> withSameLength(const Digits& bound) const
    {
        const GrowingNumber whole = prefixOf(bound, bound.size());
        if (whole.missing() == 0)
            return whole.value();
        for (int kept = bound.size() - 1; kept >= 0; --kept) {
            const int room = bound.size() - kept - 1;
            if (const auto found = withPrefix(prefixOf(bound, kept), bound[kept], room, kept == 0 ? 1 : 0))
                return found;
        }
        return std::nullopt;
    }

    GrowingNumber prefixOf(const Digits& bound, int length) const
    {
        GrowingNumber number(m_wanted);
        for (int i = 0; i < length; ++i)
            number.append(bound[i]);
        return number;
    }

    /// Returns the nearest match that starts with `prefix`, continues with a digit that is beyond `refused` in the
    /// search direction and not below `lowest`, and ends with `room` more digits.
    std::optional<quint64> withPrefix(const GrowingNumber& prefix, int refused, int room, int lowest) const
    {
        for (int digit = refused + m_step; digit >= lowest && digit <= 9; digit += m_step) {
            GrowingNumber number = prefix;
            number.append(digit);
            if (number.missing() <= room) {
                number.fill(room, m_filler);
                return number.value();
            }
        }
        return std::nullopt;
    }

    const Digits& m_wanted;
    int m_step;
    int m_filler;
};

/// Returns the highest number from `low` to `high` that contains the digits `wanted` as a subsequence.
std::optional<qint64> highestWithDigits(const Digits& wanted, qint64 low, qint64 high)
{
    if (high >= 0) {
        const auto found = NearestNumber(wanted, Direction::Down).from(quint64(high));
        if (found && *found >= quint64(qMax<qint64>(low, 0)))
            return qint64(*found);
    }
    if (low < 0) {
        const auto found = NearestNumber(wanted, Direction::Up).from(high < 0 ? magnitudeOf(high) : 1);
        if (found && *found <= magnitudeOf(low))
            return negated(*found);
    }
    return std::nullopt;
}

} // namespace

std::optional<qint64> growDigitsIntoRange(qint64 number, qint64 low, qint64 high)
{
    if (low <= number && number <= high)
        return number;
    if (high < low)
        return std::nullopt;
    const bool isBounded = quint64(high) - quint64(low) >= maxCandidates;
    const qint64 lowest = isBounded ? high - qint64(maxCandidates - 1) : low;
    if (const auto found = highestWithDigits(digitsOf(magnitudeOf(number)), lowest, high))
        return found;
    // A search that fails at its last permitted candidate counts as cut short, even if the range ends there.
    if (quint64(high) - quint64(low) >= maxCandidates - 1)
        return number;
    return std::nullopt;
}

} // namespace zelmar::internal
