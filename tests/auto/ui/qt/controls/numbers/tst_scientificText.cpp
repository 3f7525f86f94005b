#include "BuiltLocales.h"
#include "TestHome.h"
#include "ui/qt/controls/numbers/scientificText.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <limits>

class tst_scientificText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
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
    QTest::newRow("infinity") << HUGE_VAL << 8 << "INF";
    QTest::newRow("negative infinity") << -HUGE_VAL << 8 << "-INF";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 8 << "NAN";
    // clang-format on
}

void tst_scientificText::texts()
{
    QFETCH(double, value);
    QFETCH(int, digits);
    QFETCH(QString, text);
    QCOMPARE(scientificText(value, digits), text);
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

    QCOMPARE(scientificText(1.5, 8), QStringLiteral("1.5"));
    QCOMPARE(scientificText(-1.25e-7, 8), QStringLiteral("-1.25E-07"));
    QCOMPARE(scientificText(1234567.0, 8), QStringLiteral("1234567"));
    QCOMPARE(scientificText(HUGE_VAL, 8), QStringLiteral("INF"));
}

CORE_TEST_MAIN(tst_scientificText)
#include "tst_scientificText.moc"
