#include "LiteralNumberRules.h"
#include "TestHome.h"
#include "ui/qt/controls/numbers/intermediateTest.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <random>

namespace {

bool literally(const QString& text, double minimum, double maximum, int decimals)
{
    return literal::intermediateTest(text, {minimum, maximum, decimals});
}

} // namespace

class tst_intermediateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void isTheLiteralTest();
};

void tst_intermediateTest::answers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("passes");

    // clang-format off
    QTest::newRow("first digit of a number in the range") << "1" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("inner digit") << "5" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("digit that none has") << "3" << 104.0 << 112.0 << 2 << false;
    QTest::newRow("more digits than any has") << "1111" << 100.0 << 200.0 << 2 << false;
    QTest::newRow("letters count as 0") << "x" << 100.0 << 200.0 << 2 << true;
    QTest::newRow("and 0 may be no digit of the range") << "x" << 111.0 << 119.0 << 2 << false;
    QTest::newRow("an exponent counts as 0, too") << "2e1" << 111.0 << 119.0 << 2 << false;
    QTest::newRow("only a minus fits a negative range") << "5" << -60.0 << -50.0 << 2 << false;
    QTest::newRow("a minus and a digit of a negative range") << "-5" << -60.0 << -50.0 << 2 << true;
    QTest::newRow("a minus and a digit of no number there") << "-3" << -60.0 << -50.0 << 2 << true;
    QTest::newRow("really of none") << "-3" << -60.0 << -54.0 << 2 << false;
    QTest::newRow("negative number below a positive range") << "-1" << 10.0 << 20.0 << 2 << false;
    QTest::newRow("negative number below a range from 0") << "-1" << 0.0 << 20.0 << 2 << false;
    QTest::newRow("maximum with the integral part -0 is not below zero") << "5" << -3.0 << -0.5 << 2 << false;
    QTest::newRow("-0 with a fraction is only integral when the point ends it") << "-0." << -3.0 << -0.5 << 2 << true;

    QTest::newRow("point at the end: only the integral part counts") << "1." << 10.5 << 20.0 << 2 << true;
    QTest::newRow("point at the end, integral part too long") << "111." << 10.5 << 20.0 << 2 << false;
    QTest::newRow("fraction inside an integer of the range") << "1.99" << 10.0 << 20.0 << 2 << true;
    QTest::newRow("fraction beyond the whole") << "1.999" << 10.0 << 18.0 << 2 << false;
    QTest::newRow("fraction behind the integer of the minimum") << "3.2" << 3.5 << 9.0 << 1 << false;
    QTest::newRow("its digits are somewhere in the fractions there") << "3.5" << 3.55 << 9.0 << 2 << true;
    QTest::newRow("fraction behind the integer of the maximum") << "9.6" << 13.0 << 19.5 << 1 << false;
    QTest::newRow("negative: fraction behind the integer of the maximum") << "-3.2" << -9.0 << -3.5 << 1 << false;
    QTest::newRow("negative: its digits are there") << "-3.5" << -9.0 << -3.55 << 2 << true;
    QTest::newRow("negative: fraction inside an integer") << "-4.99" << -9.0 << -3.5 << 2 << true;
    QTest::newRow("a fraction that is no integer counts as 0") << "3.5e1" << 13.0 << 19.5 << 2 << true;

    QTest::newRow("no integral part, range of one integer") << ".2" << 0.3 << 0.9 << 2 << true;
    QTest::newRow("no integral part, no 0 in the fractions") << ".2" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("no integral part, what is tested is 0 and not the fraction") << ".3" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("plus and point are the same") << "+.2" << 0.31 << 0.39 << 2 << false;
    QTest::newRow("plus and point that pass") << "+.2" << 0.3 << 0.9 << 2 << true;
    QTest::newRow("no integral part, integers next to each other") << ".2" << 0.91 << 1.5 << 2 << true;
    QTest::newRow("no integral part, farther integers") << ".2" << 5.0 << 9.0 << 2 << true;
    QTest::newRow("no integral part, reversed fractions") << ".2" << 5.9 << 5.1 << 1 << false;
    QTest::newRow("no integral part against a negative range") << ".2" << -3.0 << -1.0 << 2 << false;
    QTest::newRow("plus and point against a negative range") << "+.2" << -3.0 << -1.0 << 2 << false;
    QTest::newRow("minus and point against a positive range") << "-.2" << 0.3 << 3.0 << 2 << false;
    QTest::newRow("minus and point against a negative range") << "-.2" << -3.0 << -1.0 << 2 << true;
    QTest::newRow("minus and point, range of one integer") << "-.2" << -0.39 << -0.31 << 2 << false;
    // Both ranges of fractions are the wrong way round then.
    QTest::newRow("minus and point, integers next to each other") << "-.2" << -2.5 << -1.25 << 2 << false;
    QTest::newRow("minus alone before a point and digits is an integral part of 0") << "-0.2" << -3.5 << -1.5 << 1 << false;
    QTest::newRow("point alone") << "." << 5.0 << 9.0 << 2 << true;

    QTest::newRow("no digits: bounds without fraction, whole of 1") << "1.5" << 10.0 << 20.0 << 0 << false;
    QTest::newRow("no digits: 1 is in the whole") << "1.1" << 10.0 << 20.0 << 0 << true;
    QTest::newRow("negative digits: six in the bounds, whole of 1") << "3.5" << 3.55 << 9.0 << -1 << false;
    QTest::newRow("negative digits: at the minimum the bound's six count") << "3.1" << 3.55 << 3.9 << -1 << true;
    QTest::newRow("bounds beyond 64 bits count as 0") << "1" << 1e30 << 2e30 << 8 << false;
    QTest::newRow("and let 0 pass") << "0" << 1e30 << 2e30 << 8 << true;
    QTest::newRow("lower bound beyond 64 bits counts as 0") << "-5" << -1e30 << -1.5 << 8 << false;
    QTest::newRow("most negative integer") << "-9223372036854775808" << -9.3e18 << -9.2e18 << 8 << false;
    QTest::newRow("most negative integer in the range") << "-9223372036854775808" << -9223372036854775808.0 << -9.2e18 << 8 << true;
    QTest::newRow("integer at the end of the exact ones") << "9007199254740991" << 9007199254740991.0 << 9007199254740991.0 << 8 << true;
    QTest::newRow("next to it, as few digits as Qt can") << "9007199254740993" << 9007199254740992.0 << 9007199254740992.0 << -128 << false;
    QTest::newRow("below 20 digits, as few as Qt can") << "-1" << -9.2e18 << -9.1e18 << -128 << true;
    QTest::newRow("20 digits count as 0") << "0" << 1e19 << 2e19 << 8 << true;
    QTest::newRow("infinite range") << "1" << -HUGE_VAL << HUGE_VAL << 8 << false;
    QTest::newRow("infinite range, 0") << "0" << -HUGE_VAL << HUGE_VAL << 8 << true;
    QTest::newRow("a wide range passes what it has no time to look for") << "-777777777" << -5.0 << 9e12 << 8 << true;
    QTest::newRow("empty text counts as 0") << "" << 100.0 << 200.0 << 2 << true;
    // clang-format on
}

void tst_intermediateTest::answers()
{
    QFETCH(QString, text);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(int, decimals);
    QFETCH(bool, passes);
    QCOMPARE(canBecomeNumberInRange(text, minimum, maximum, decimals), passes);
    QCOMPARE(literally(text, minimum, maximum, decimals), passes);
}

void tst_intermediateTest::isTheLiteralTest()
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
        const bool passes = canBecomeNumberInRange(text, minimum, maximum, decimals);
        if (passes != literally(text, minimum, maximum, decimals))
            QFAIL(qPrintable(QStringLiteral("%1 in %2 to %3").arg(text).arg(minimum).arg(maximum)));
        passed += int(passes);
    }
    // Both answers were there to be compared.
    QVERIFY(passed > rounds / 10 && passed < rounds * 9 / 10);
}

CORE_TEST_MAIN(tst_intermediateTest)
#include "tst_intermediateTest.moc"
