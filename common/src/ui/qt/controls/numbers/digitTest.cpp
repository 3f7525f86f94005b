#include "ui/qt/controls/numbers/digitTest.h"

#include "ui/qt/controls/numbers/powerOfTen.h"

#include <QVarLengthArray>

namespace {

constexpr quint64 candidatesLookedAt = 500000;

/// Of the decimal digits of the greatest magnitude, 2^63.
constexpr int mostDigits = 19;

/// From the most significant one; a single 0 for 0.
using Digits = QVarLengthArray<int, mostDigits + 1>;

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

/// A number that is written down digit by digit, and how much of the wanted digits it has by then.
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

    /// Appends `count` digits, `filler` wherever there is room for it beside the digits that are still missing.
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

/// Among the numbers that have the wanted digits, finds the nearest one to a bound.
class NearestNumber
{
public:
    NearestNumber(const Digits& wanted, Direction direction)
        : m_wanted(wanted)
        , m_step(int(direction))
        , m_filler(direction == Direction::Down ? 9 : 0)
    {
    }

    /// `bound` itself, or the next one in the direction. 0 is not looked for: its digit is no part of another
    /// number's beginning.
    std::optional<quint64> from(quint64 bound) const
    {
        for (;;) {
            const Digits digits = digitsOf(bound);
            if (const auto found = ofSameLength(digits))
                return found;
            if (digits.size() == (m_step < 0 ? 1 : mostDigits))
                return std::nullopt;
            bound = quint64(m_step < 0 ? powerOfTen(digits.size() - 1) - 1 : powerOfTen(digits.size()));
        }
    }

private:
    /// The more of the bound's digits stay, the nearer is the number.
    std::optional<quint64> ofSameLength(const Digits& bound) const
    {
        const GrowingNumber whole = beginningOf(bound, bound.size());
        if (whole.missing() == 0)
            return whole.value();
        for (int kept = bound.size() - 1; kept >= 0; --kept) {
            const int room = bound.size() - kept - 1;
            if (const auto found = behind(beginningOf(bound, kept), bound[kept], room, kept == 0 ? 1 : 0))
                return found;
        }
        return std::nullopt;
    }

    GrowingNumber beginningOf(const Digits& bound, int length) const
    {
        GrowingNumber number(m_wanted);
        for (int i = 0; i < length; ++i)
            number.append(bound[i]);
        return number;
    }

    /// The nearest number that starts with `beginning`, goes on with another digit than `refused`, at least `lowest`,
    /// and has `room` digits behind it.
    std::optional<quint64> behind(const GrowingNumber& beginning, int refused, int room, int lowest) const
    {
        for (int digit = refused + m_step; digit >= lowest && digit <= 9; digit += m_step) {
            GrowingNumber number = beginning;
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

std::optional<qint64> numberWithDigits(qint64 number, qint64 low, qint64 high)
{
    if (low <= number && number <= high)
        return number;
    if (high < low)
        return std::nullopt;
    const bool isBounded = quint64(high) - quint64(low) >= candidatesLookedAt;
    const qint64 lowest = isBounded ? high - qint64(candidatesLookedAt - 1) : low;
    if (const auto found = highestWithDigits(digitsOf(magnitudeOf(number)), lowest, high))
        return found;
    // The last candidate that is looked at counts as one too many already.
    if (quint64(high) - quint64(low) >= candidatesLookedAt - 1)
        return number;
    return std::nullopt;
}
