#include "BuiltLocales.h"
#include "TestHome.h"
#include "ui/qt/controls/numbers/scientificText_p.h"

#include <QtTest>

#include <array>
#include <cfenv>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

using namespace zelmar::internal;

namespace {

/// The plain way, which is the standard that the text is held to. In the C locale.
QString printed(double value, int digits)
{
    std::array<char, 2000> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%.*G", digits, value);
    return QString::fromLatin1(buffer.data()).section(QLatin1Char('('), 0, 0); // Microsoft's NAN(IND)
}

/// Numbers of all kinds, the same ones in each run.
class RandomNumbers
{
public:
    double any() { return withBits(m_bits()); }
    double subnormal() { return withBits(m_bits() & 0x800FFFFFFFFFFFFF); }

    /// Many of them lie in the middle between two decimal numbers.
    double binaryFraction() { return std::ldexp(double(below(2000001)) - 1000000, below(60) - 45); }

    /// Next to a number with few decimal digits, or as near to it as there is one.
    double nearDecimal()
    {
        const double decimal = double(below(20000000) - 10000000) / std::pow(10.0, below(30) - 8);
        const double directions[] = {-HUGE_VAL, decimal, HUGE_VAL};
        return std::nextafter(decimal, directions[below(3)]);
    }

    int below(int end) { return int(m_bits() % quint64(end)); }

private:
    static double withBits(quint64 bits)
    {
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    std::mt19937_64 m_bits;
};

/// Rounds in another way for the life of the object.
class RoundingMode
{
public:
    explicit RoundingMode(int mode) { std::fesetround(mode); }
    ~RoundingMode() { std::fesetround(FE_TONEAREST); }
    RoundingMode(const RoundingMode&) = delete;
    RoundingMode& operator=(const RoundingMode&) = delete;
};

} // namespace

class tst_scientificText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void isWhatIsPrinted();
    void isWhatIsPrintedInEveryRoundingMode_data();
    void isWhatIsPrintedInEveryRoundingMode();
    void hasAPointUnderAnyLocale_data();
    void hasAPointUnderAnyLocale();
};

void tst_scientificText::texts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("text");

    // clang-format off
    QTest::newRow("zero") << 0.0 << 8 << "0";
    QTest::newRow("negative zero") << -0.0 << 8 << "-0";
    QTest::newRow("integer") << 1234567.0 << 8 << "1234567";
    QTest::newRow("as many digits as there are") << 12345678.0 << 8 << "12345678";
    QTest::newRow("one more digit") << 123456789.0 << 8 << "1.2345679E+08";
    QTest::newRow("trailing zeros are left out") << 1.5e-7 << 8 << "1.5E-07";
    QTest::newRow("smallest plain number") << 0.0001 << 8 << "0.0001";
    QTest::newRow("largest number below it") << 0.00001 << 8 << "1E-05";
    QTest::newRow("negative") << -2.5e-4 << 8 << "-0.00025";
    QTest::newRow("three digits of exponent") << 1e100 << 8 << "1E+100";
    QTest::newRow("largest double") << DBL_MAX << 8 << "1.7976931E+308";
    QTest::newRow("smallest double") << 5e-324 << 8 << "4.9406565E-324";
    QTest::newRow("twelve digits") << M_PI << 12 << "3.14159265359";
    QTest::newRow("one digit") << M_PI << 1 << "3";
    QTest::newRow("no digit counts as one") << 31.4 << 0 << "3E+01";
    QTest::newRow("negative digits count as six") << M_PI << -1 << "3.14159";
    QTest::newRow("most negative digits, too") << M_PI << std::numeric_limits<int>::min() << "3.14159";
    QTest::newRow("more digits than asked of it") << 0.1 << 1000 << "0.1000000000000000055511151231257827021181583404541015625";
    QTest::newRow("the largest number of digits") << 0.375 << std::numeric_limits<int>::max() << "0.375";
    QTest::newRow("infinity") << HUGE_VAL << 8 << "INF";
    QTest::newRow("negative infinity") << -HUGE_VAL << 8 << "-INF";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 8 << "NAN";
    QTest::newRow("in the middle, the even digit is below") << 0.125 << 2 << "0.12";
    QTest::newRow("in the middle, the even digit is above") << 0.375 << 2 << "0.38";
    QTest::newRow("rounded up to one more digit") << 9.9996 << 4 << "10";
    QTest::newRow("rounded up to an exponent") << 99999.5 << 5 << "1E+05";
    QTest::newRow("rounded up to none") << 0.000099999 << 4 << "0.0001";
    // clang-format on
}

void tst_scientificText::texts()
{
    QFETCH(double, value);
    QFETCH(int, digits);
    QFETCH(QString, text);
    QCOMPARE(scientificText(value, digits), text);
}

void tst_scientificText::isWhatIsPrinted()
{
    QCOMPARE(std::localeconv()->decimal_point, ".");
    RandomNumbers random;
    for (int round = 0; round < 20000; ++round) {
        for (const double value : {random.any(), random.binaryFraction(), random.nearDecimal(), random.subnormal()}) {
            const int digits = round % 100 == 0 ? random.below(1200) : random.below(16) - 2;
            const QString text = scientificText(value, digits);
            const QString expected = printed(value, digits);
            if (text != expected) // faster than to compare in any case
                QCOMPARE(text, expected);
        }
    }
}

void tst_scientificText::isWhatIsPrintedInEveryRoundingMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("shown");
    QTest::newRow("to the nearest") << FE_TONEAREST << "0.66666667";
    QTest::newRow("up") << FE_UPWARD << "0.66666667";
    QTest::newRow("down") << FE_DOWNWARD << "0.66666666";
    QTest::newRow("towards zero") << FE_TOWARDZERO << "0.66666666";
}

void tst_scientificText::isWhatIsPrintedInEveryRoundingMode()
{
    QFETCH(int, mode);
    QFETCH(QString, shown);
    RandomNumbers random;
    const double twoThirds = 2.0 / 3;
    const RoundingMode rounding(mode);
    const QString text = scientificText(twoThirds, 8);
#ifdef Q_OS_WIN // whose C library may do as it likes
    Q_UNUSED(shown)
    QCOMPARE(text, printed(twoThirds, 8));
#else
    QCOMPARE(text, shown);
#endif
    for (int round = 0; round < 1000; ++round) {
        const double value = random.any();
        QCOMPARE(scientificText(value, 8), printed(value, 8));
    }
}

void tst_scientificText::hasAPointUnderAnyLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("printed");
    QTest::newRow("comma") << "de_DE"
                           << "1,5";
#ifndef Q_OS_WIN // whose C library has points of one byte only
    QTest::newRow("a point of two bytes") << "ps_AF"
                                          << QString::fromUtf8("1\xD9\xAB"
                                                               "5");
#endif
}

void tst_scientificText::hasAPointUnderAnyLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, printed);
    BuiltLocales locales;
    QVERIFY(locales.enter(locale));
    // The locale is what this test says it is.
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.*G", 8, 1.5);
    QCOMPARE(QString::fromUtf8(buffer), printed);

    for (const int mode : {FE_TONEAREST, FE_UPWARD}) {
        const RoundingMode rounding(mode);
        QCOMPARE(scientificText(1.5, 8), QStringLiteral("1.5"));
        QCOMPARE(scientificText(std::ldexp(-1, -16), 12), QStringLiteral("-1.52587890625E-05"));
        QCOMPARE(scientificText(1234567.0, 8), QStringLiteral("1234567"));
        QCOMPARE(scientificText(HUGE_VAL, 8), QStringLiteral("INF"));
    }
}

CORE_TEST_MAIN(tst_scientificText)
#include "tst_scientificText.moc"
