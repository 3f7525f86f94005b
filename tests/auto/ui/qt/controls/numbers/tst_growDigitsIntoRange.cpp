#include "LiteralNumberRules.h"
#include "TestHome.h"
#include "ui/qt/controls/numbers/growDigitsIntoRange_p.h"

#include <QtTest>

#include <limits>
#include <random>

using zelmar::internal::growDigitsIntoRange;

namespace {

constexpr qint64 lowest = std::numeric_limits<qint64>::min();
constexpr qint64 highest = std::numeric_limits<qint64>::max();

std::optional<qint64> walked(qint64 number, qint64 low, qint64 high)
{
    qint64 match = 0;
    return literal::digitTest(number, low, high, match) ? std::make_optional(match) : std::nullopt;
}

QByteArray shown(const std::optional<qint64>& match)
{
    return match ? QByteArray::number(*match) : "none";
}

/// Compares the library's function with the walk through all candidates, and counts the comparisons.
class Comparison
{
public:
    void operator()(qint64 number, qint64 low, qint64 high)
    {
        ++triples;
        const auto expected = walked(number, low, high);
        const auto actual = growDigitsIntoRange(number, low, high);
        if (expected == actual)
            return;
        if (++m_differences == 1)
            m_first = QByteArray::number(number) + " in " + QByteArray::number(low) + " to " + QByteArray::number(high)
                      + ": " + shown(actual) + " instead of " + shown(expected);
    }

    QByteArray problem() const { return m_first; }

    int triples = 0;

private:
    int m_differences = 0;
    QByteArray m_first;
};

class Randomness
{
public:
    qint64 between(qint64 low, qint64 high) { return std::uniform_int_distribution<qint64>(low, high)(m_engine); }

    /// Returns a number of 1 to 63 bits with either sign.
    qint64 anyNumber()
    {
        const auto magnitude = qint64(m_engine() >> between(1, 63));
        return between(0, 1) == 0 ? magnitude : -magnitude;
    }

    /// Returns a number made of some digits of `number`, sometimes with an additional random digit.
    qint64 someDigitsOf(qint64 number)
    {
        QByteArray digits;
        for (const char digit : QByteArray::number(number)) {
            if (digit != '-' && between(0, 2) > 0 && digits.size() < 18)
                digits += digit;
        }
        if (between(0, 9) == 0)
            digits.insert(int(between(0, digits.size())), char('0' + between(0, 9)));
        return digits.toLongLong() * (between(0, 1) == 0 ? 1 : -1);
    }

private:
    std::mt19937_64 m_engine{20240611};
};

qint64 powerOfTen(int exponent)
{
    qint64 power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

qint64 sumWithin(qint64 number, qint64 distance)
{
    qint64 sum = 0;
    if (__builtin_add_overflow(number, distance, &sum))
        return distance < 0 ? lowest : highest;
    return sum;
}

} // namespace

/// The oracle is a walk through all candidates.
class tst_growDigitsIntoRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownAnswers_data();
    void knownAnswers();
    void allSmallRanges();
    void aroundPowersOfTen();
    void digitsOfNumbersInTheRange();
    void endOfTheSearch_data();
    void endOfTheSearch();
    void longSearches();
};

void tst_growDigitsIntoRange::knownAnswers_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<qint64>("low");
    QTest::addColumn<qint64>("high");
    QTest::addColumn<QByteArray>("match");

    // clang-format off
    QTest::newRow("in the range") << qint64(5) << qint64(1) << qint64(9) << QByteArray("5");
    QTest::newRow("at the lower bound") << qint64(1) << qint64(1) << qint64(9) << QByteArray("1");
    QTest::newRow("at the upper bound") << qint64(9) << qint64(1) << qint64(9) << QByteArray("9");
    QTest::newRow("the highest candidate is taken") << qint64(1) << qint64(10) << qint64(219) << QByteArray("219");
    QTest::newRow("digits need not be adjacent") << qint64(12) << qint64(1000) << qint64(1042) << QByteArray("1042");
    QTest::newRow("digits must keep their order") << qint64(21) << qint64(1000) << qint64(1019) << QByteArray("none");
    QTest::newRow("each digit counts once") << qint64(11) << qint64(102) << qint64(109) << QByteArray("none");
    QTest::newRow("more digits than the range") << qint64(1234) << qint64(1) << qint64(999) << QByteArray("none");
    QTest::newRow("the sign does not count") << qint64(7) << qint64(-80) << qint64(-60) << QByteArray("-67");
    QTest::newRow("the sign of the number does not count either") << qint64(-7) << qint64(60) << qint64(80) << QByteArray("79");
    QTest::newRow("downwards through zero") << qint64(77) << qint64(-100) << qint64(50) << QByteArray("-77");
    QTest::newRow("zero is a digit") << qint64(0) << qint64(5) << qint64(35) << QByteArray("30");
    QTest::newRow("no leading zeros") << qint64(0) << qint64(1) << qint64(9) << QByteArray("none");
    QTest::newRow("reversed range") << qint64(5) << qint64(9) << qint64(1) << QByteArray("none");
    QTest::newRow("reversed range with the number between") << qint64(5) << qint64(6) << qint64(4) << QByteArray("none");
    QTest::newRow("a range of one") << qint64(4) << qint64(345) << qint64(345) << QByteArray("345");
    QTest::newRow("most negative number") << lowest << qint64(0) << qint64(9) << QByteArray("none");
    QTest::newRow("most negative number found by its digits")
        << qint64(-223372036854775808) << lowest << lowest << QByteArray("-9223372036854775808");
    QTest::newRow("full range, number within") << lowest << lowest << highest << QByteArray("-9223372036854775808");
    QTest::newRow("match near the highest number")
        << qint64(-56) << qint64(0) << highest << QByteArray("9223372036854775806");
    QTest::newRow("as many digits as the bound, but above it") << qint64(99) << qint64(0) << qint64(98) << QByteArray("none");
    QTest::newRow("match with fewer digits than the upper bound")
        << qint64(-999) << qint64(100) << qint64(1009) << QByteArray("999");
    // clang-format on
}

void tst_growDigitsIntoRange::knownAnswers()
{
    QFETCH(qint64, number);
    QFETCH(qint64, low);
    QFETCH(qint64, high);
    QFETCH(QByteArray, match);
    QCOMPARE(shown(growDigitsIntoRange(number, low, high)), match);
    QCOMPARE(shown(walked(number, low, high)), match);
}

void tst_growDigitsIntoRange::allSmallRanges()
{
    Comparison compare;
    for (qint64 low = -45; low <= 45; ++low) {
        for (qint64 high = -45; high <= 45; ++high) {
            for (qint64 number = -120; number <= 120; ++number)
                compare(number, low, high);
        }
    }
    QVERIFY2(compare.problem().isEmpty(), compare.problem());
    QCOMPARE(compare.triples, 91 * 91 * 241);
}

void tst_growDigitsIntoRange::aroundPowersOfTen()
{
    Comparison compare;
    Randomness random;
    for (int round = 0; round < 20000; ++round) {
        for (int exponent = 0; exponent <= 18; ++exponent) {
            const qint64 sign = random.between(0, 1) == 0 ? 1 : -1;
            const qint64 low = sign * powerOfTen(exponent) + random.between(-150, 150);
            const qint64 high = low + random.between(-5, 300);
            compare(random.between(0, 1) == 0 ? random.anyNumber() : random.someDigitsOf(high), low, high);
        }
    }
    QVERIFY2(compare.problem().isEmpty(), compare.problem());
    QCOMPARE(compare.triples, 20000 * 19);
}

/// Uses wide ranges with a match near the upper bound, so that the oracle finds it quickly.
void tst_growDigitsIntoRange::digitsOfNumbersInTheRange()
{
    Comparison compare;
    Randomness random;
    for (int round = 0; round < 400000; ++round) {
        const qint64 high = round % 1000 == 0 ? highest : random.anyNumber();
        const qint64 low = sumWithin(high, -random.between(0, 5000));
        compare(random.someDigitsOf(sumWithin(high, -random.between(0, 400))), low, high);
    }
    QVERIFY2(compare.problem().isEmpty(), compare.problem());
    QCOMPARE(compare.triples, 400000);
}

void tst_growDigitsIntoRange::endOfTheSearch_data()
{
    QTest::addColumn<qint64>("number");
    QTest::addColumn<qint64>("low");
    QTest::addColumn<qint64>("high");
    QTest::addColumn<QByteArray>("match");

    // clang-format off
    QTest::newRow("499,999 candidates fail")
        << qint64(-7777777) << qint64(1) << qint64(499999) << QByteArray("none");
    QTest::newRow("500,000 candidates fail")
        << qint64(-7777777) << qint64(1) << qint64(500000) << QByteArray("-7777777");
    QTest::newRow("a range of 5,000,000 is not searched to its end") << qint64(-7777777) << qint64(1) << qint64(5000000) << QByteArray("-7777777");
    QTest::newRow("the 500,000th candidate matches")
        << qint64(-600000) << qint64(1) << qint64(1099999) << QByteArray("600000");
    QTest::newRow("the 500,001st candidate is not tried")
        << qint64(-600000) << qint64(1) << qint64(1100000) << QByteArray("-600000");
    QTest::newRow("the 500,000th candidate matches and is the last one")
        << qint64(-600000) << qint64(600000) << qint64(1099999) << QByteArray("600000");
    QTest::newRow("below zero, the 500,000th")
        << qint64(500000) << qint64(-800000) << qint64(-1) << QByteArray("-500000");
    QTest::newRow("below zero, the 500,001st")
        << qint64(500001) << qint64(-800000) << qint64(-1) << QByteArray("500001");
    QTest::newRow("through zero, the 500,000th")
        << qint64(499899) << qint64(-800000) << qint64(100) << QByteArray("-499899");
    QTest::newRow("through zero, the 500,001st")
        << qint64(499900) << qint64(-800000) << qint64(100) << QByteArray("499900");
    QTest::newRow("the search ends at the most negative number")
        << qint64(7777777777777777777) << lowest << lowest + 499998 << QByteArray("none");
    // clang-format on
}

void tst_growDigitsIntoRange::endOfTheSearch()
{
    knownAnswers();
}

void tst_growDigitsIntoRange::longSearches()
{
    Comparison compare;
    Randomness random;
    for (int round = 0; round < 300; ++round) {
        const qint64 high = random.anyNumber();
        const qint64 low = sumWithin(high, -499990 - random.between(0, 20));
        compare(random.someDigitsOf(sumWithin(high, -random.between(499980, 500010))), low, high);
        compare(random.anyNumber(), sumWithin(high, -random.between(0, highest)), high);
    }
    QVERIFY2(compare.problem().isEmpty(), compare.problem());
}

CORE_TEST_MAIN(tst_growDigitsIntoRange)
#include "tst_growDigitsIntoRange.moc"
