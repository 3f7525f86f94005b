#include "LiteralNumberRules.h"
#include "TestHome.h"
#include "ui/qt/controls/numbers/canTextGrowIntoRange_p.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <random>

using zelmar::internal::canTextGrowIntoRange;

namespace {

bool literally(const QString& text, double minimum, double maximum, int decimals)
{
    return literal::intermediateTest(text, {minimum, maximum, decimals});
}

} // namespace

class tst_canTextGrowIntoRange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void agreesWithTheLiteralRules();
};

void tst_canTextGrowIntoRange::answers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("passes");

    // clang-format off
    QTest::newRow("first digit of a number in the range") << "1" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("inner digit") << "5" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("digit that no number of the range has") << "3" << 104.0 << 112.0 << 2 << false;
    QTest::newRow("more digits than any number of the range has") << "1111" << 100.0 << 200.0 << 2 << false;
    QTest::newRow("letters count as 0") << "x" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("letters count as 0, which no number of the range has") << "x" << 111.0 << 119.0 << 2 << false;
    QTest::newRow("a number with an exponent counts as 0") << "2e1" << 111.0 << 119.0 << 2 << false;
    QTest::newRow("negative range needs a minus") << "5" << -60.0 << -50.0 << 2 << false;
    QTest::newRow("minus and a digit of a negative range") << "-5" << -60.0 << -50.0 << 2 << true;
    QTest::newRow("minus and a digit of one number of a negative range") << "-3" << -60.0 << -50.0 << 2 << true;
    QTest::newRow("minus and a digit that no number of the range has") << "-3" << -60.0 << -54.0 << 2 << false;
    QTest::newRow("negative number below a positive range") << "-1" << 10.0 << 20.0 << 2 << false;
    QTest::newRow("negative number below a range from 0") << "-1" << 0.0 << 20.0 << 2 << false;
    QTest::newRow("maximum with the integral part -0 is not below zero") << "5" << -3.0 << -0.5 << 2 << false;
    QTest::newRow("-0 with a fraction is only integral when the point ends it") << "-0." << -3.0 << -0.5 << 2 << true;

    QTest::newRow("point at the end: only the integral part counts") << "1." << 10.5 << 20.0 << 2 << true;
    QTest::newRow("point at the end, integral part too long") << "111." << 10.5 << 20.0 << 2 << false;
    QTest::newRow("fraction after an integral part within the range") << "1.99" << 10.0 << 20.0 << 2 << true;
    QTest::newRow("fraction with more digits than the decimals") << "1.999" << 10.0 << 18.0 << 2 << false;
    QTest::newRow("fraction after the integral part of the minimum") << "3.2" << 3.5 << 9.0 << 1 << false;
    QTest::newRow("fraction after the integral part of the minimum, digits found") << "3.5" << 3.55 << 9.0 << 2 << true;
    QTest::newRow("fraction after the integral part of the maximum") << "9.6" << 13.0 << 19.5 << 1 << false;
    QTest::newRow("negative: fraction after the integral part of the maximum") << "-3.2" << -9.0 << -3.5 << 1 << false;
    QTest::newRow("negative: fraction after the integral part of the maximum, digits found") << "-3.5" << -9.0 << -3.55 << 2 << true;
    QTest::newRow("negative: fraction after an integral part within the range") << "-4.99" << -9.0 << -3.5 << 2 << true;
    QTest::newRow("a fraction with an exponent counts as 0") << "3.5e1" << 13.0 << 19.5 << 2 << true;

    QTest::newRow("no integral part, bounds with the same integral part") << ".2" << 0.3 << 0.9 << 2 << true;
    QTest::newRow("no integral part, fractions without a 0") << ".2" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("no integral part: 0 is tested instead of the fraction") << ".3" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("plus and point count as no integral part") << "+.2" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("plus and point that pass") << "+.2" << 0.3 << 0.9 << 2 << true;
    QTest::newRow("no integral part, integral parts of the bounds differ by 1") << ".2" << 0.91 << 1.5 << 2 << true;
    QTest::newRow("no integral part, integral parts of the bounds differ by more") << ".2" << 5.0 << 9.0 << 2 << true;
    QTest::newRow("no integral part, reversed fractions") << ".2" << 5.9 << 5.1 << 1 << false;
    QTest::newRow("no integral part against a negative range") << ".2" << -3.0 << -1.0 << 2 << false;
    QTest::newRow("plus and point against a negative range") << "+.2" << -3.0 << -1.0 << 2 << false;
    QTest::newRow("minus and point against a positive range") << "-.2" << 0.3 << 3.0 << 2 << false;
    QTest::newRow("minus and point against a negative range") << "-.2" << -3.0 << -1.0 << 2 << true;
    QTest::newRow("minus and point, bounds with the same integral part") << "-.2" << -0.39 << -0.31 << 2 << false;
    // Both ranges of fractions are reversed in this case.
    QTest::newRow("minus and point, integral parts of the bounds differ by 1") << "-.2" << -2.5 << -1.25 << 2 << false;
    QTest::newRow("minus, 0 and point have a zero before the point") << "-0.2" << -3.5 << -1.5 << 1 << false;
    QTest::newRow("point alone") << "." << 5.0 << 9.0 << 2 << true;

    QTest::newRow("no decimals: bounds without fraction, fractions up to 1") << "1.5" << 10.0 << 20.0 << 0 << false;
    QTest::newRow("no decimals: 1 is the highest fraction") << "1.1" << 10.0 << 20.0 << 0 << true;
    QTest::newRow("negative decimals: bounds with six, fractions up to 1") << "3.5" << 3.55 << 9.0 << -1 << false;
    QTest::newRow("negative decimals: six at the minimum") << "3.1" << 3.55 << 3.9 << -1 << true;
    QTest::newRow("bounds beyond 64 bits count as 0") << "1" << 1e30 << 2e30 << 8 << false;
    QTest::newRow("bounds beyond 64 bits count as 0, text is 0") << "0" << 1e30 << 2e30 << 8 << true;
    QTest::newRow("lower bound beyond 64 bits counts as 0") << "-5" << -1e30 << -1.5 << 8 << false;
    QTest::newRow("most negative integer") << "-9223372036854775808" << -9.3e18 << -9.2e18 << 8 << false;
    QTest::newRow("most negative integer in the range") << "-9223372036854775808" << -9223372036854775808.0 << -9.2e18 << 8 << true;
    QTest::newRow("highest integer that is formatted without rounding") << "9007199254740991" << 9007199254740991.0 << 9007199254740991.0 << 8 << true;
    QTest::newRow("next integer, shortest notation") << "9007199254740993" << 9007199254740992.0 << 9007199254740992.0 << -128 << false;
    QTest::newRow("below 20 digits, shortest notation") << "-1" << -9.2e18 << -9.1e18 << -128 << true;
    QTest::newRow("20 digits count as 0") << "0" << 1e19 << 2e19 << 8 << true;
    QTest::newRow("infinite range") << "1" << -HUGE_VAL << HUGE_VAL << 8 << false;
    QTest::newRow("infinite range, 0") << "0" << -HUGE_VAL << HUGE_VAL << 8 << true;
    QTest::newRow("a wide range accepts what the search does not reach") << "-777777777" << -5.0 << 9e12 << 8 << true;
    QTest::newRow("empty text counts as 0") << "" << 100.0 << 200.0 << 2 << true;
    // clang-format on
}

void tst_canTextGrowIntoRange::answers()
{
    QFETCH(QString, text);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(int, decimals);
    QFETCH(bool, passes);
    QCOMPARE(canTextGrowIntoRange(text, minimum, maximum, decimals), passes);
    QCOMPARE(literally(text, minimum, maximum, decimals), passes);
}

void tst_canTextGrowIntoRange::agreesWithTheLiteralRules()
{
    std::mt19937 engine(7);
    const auto pick = [&engine](int below) { return int(std::uniform_int_distribution<int>(0, below - 1)(engine)); };
    const char* const pieces[] = {"0", "1", "3", "7", "9", "12", ".", "-", "+", "e"};
    const double units[] = {0.01, 0.125, 1, 7, 100, 1e5, 1e15, 1e25};
    int passed = 0;
    const int rounds = 100000;
    for (int round = 0; round < rounds; ++round) {
        QString text;
        for (int i = pick(6); i >= 0; --i)
            text += QLatin1String(pieces[pick(10)]);
        const double minimum = (pick(200) - 100) * units[pick(8)];
        const double maximum = pick(20) == 0 ? minimum - 1 : minimum + pick(100) * units[pick(4)];
        const int decimals = pick(16) - 3;
        const bool passes = canTextGrowIntoRange(text, minimum, maximum, decimals);
        if (passes != literally(text, minimum, maximum, decimals))
            QFAIL(qPrintable(QStringLiteral("%1 in %2 to %3").arg(text).arg(minimum).arg(maximum)));
        passed += int(passes);
    }
    // Ensures that both answers occurred.
    QVERIFY(passed > rounds / 10 && passed < rounds * 9 / 10);
}

CORE_TEST_MAIN(tst_canTextGrowIntoRange)
#include "tst_canTextGrowIntoRange.moc"
