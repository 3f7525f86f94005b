#include "TestHome.h"
#include "ui/qt/controls/numbers/appendShortestText_p.h"

#include <QRandomGenerator>
#include <QVariant>
#include <QtTest>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <limits>

using zelmar::internal::appendShortestText;

namespace {

/// Qt 6 counts characters: it writes an exponent where that text is shorter.
constexpr bool isQt6 = QT_VERSION_MAJOR == 6;

QString shortestText(double value)
{
    QString text;
    appendShortestText(text, value);
    return text;
}

double doubleOfBits(quint64 bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace

class tst_appendShortestText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void texts_data();
    void texts();
    void appends();
    void bounds();
    void anyBits();
    void allMagnitudes();
    void fewDigits();
    void integers();

private:
    /// Returns whether the texts of `value` and of its negative are those of QVariant::toString().
    static bool agreesWithQVariant(double value)
    {
        return shortestText(value) == QVariant(value).toString() && shortestText(-value) == QVariant(-value).toString();
    }

    QRandomGenerator m_random;
};

void tst_appendShortestText::initTestCase()
{
    m_random.seed(20);
}

void tst_appendShortestText::texts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero has no sign") << -0.0 << "0";
    QTest::newRow("integer") << 42.0 << "42";
    QTest::newRow("fraction") << -0.1 << "-0.1";
    QTest::newRow("all digits") << 1.0 / 3 << "0.3333333333333333";
    QTest::newRow("smallest without an exponent") << 0.0001 << (isQt6 ? "1e-04" : "0.0001");
    QTest::newRow("small, with two digits") << 0.00012 << "0.00012";
    QTest::newRow("next below the smallest without an exponent")
        << std::nextafter(0.0001, 0) << "9.999999999999999e-05";
    QTest::newRow("five zeros") << 100000.0 << (isQt6 ? "1e+05" : "100000");
    QTest::newRow("five zeros after two digits") << 1200000.0 << "1200000";
    QTest::newRow("six zeros") << 1000000.0 << "1e+06";
    QTest::newRow("five zeros after many digits") << 12345600000.0 << "12345600000";
    QTest::newRow("six zeros after many digits") << 12345000000.0 << "1.2345e+10";
    QTest::newRow("six zeros before a fraction") << 1000000.5 << "1000000.5";
    QTest::newRow("integer with all digits") << 9007199254740993.0 << "9007199254740992";
    QTest::newRow("integer with more digits than a double holds") << 1e22 / 7 << "1428571428571428700000";
    QTest::newRow("largest fraction") << std::nextafter(4503599627370496.0, 0) << "4503599627370495.5";
    QTest::newRow("smallest double") << 5e-324 << "5e-324";
    QTest::newRow("smallest with all digits") << DBL_MIN << "2.2250738585072014e-308";
    QTest::newRow("largest double") << -DBL_MAX << "-1.7976931348623157e+308";
    QTest::newRow("infinity") << HUGE_VAL << "inf";
    QTest::newRow("negative infinity") << -HUGE_VAL << "-inf";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan";
}

void tst_appendShortestText::texts()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(shortestText(value), text);
    QCOMPARE(QVariant(value).toString(), text);
}

void tst_appendShortestText::appends()
{
    QString text;
    appendShortestText(text, 0.5);
    text += QLatin1Char('\t');
    appendShortestText(text, -1e-7);
    appendShortestText(text, 1e9);
    QCOMPARE(text, QStringLiteral("0.5\t-1e-071e+09"));
}

/// Tests the neighbours of each power of ten and of two, where the notation or the number of digits changes.
void tst_appendShortestText::bounds()
{
    std::vector<double> values;
    for (int exponent = -323; exponent <= 308; ++exponent)
        values.push_back(QByteArray("1e").append(QByteArray::number(exponent)).toDouble());
    for (int exponent = -1074; exponent <= 1023; ++exponent)
        values.push_back(std::ldexp(1.0, exponent));
    for (const double value : values) {
        for (const double neighbour : {std::nextafter(value, 0), value, std::nextafter(value, HUGE_VAL)})
            QVERIFY2(agreesWithQVariant(neighbour), qPrintable(QVariant(neighbour).toString()));
    }
}

void tst_appendShortestText::anyBits()
{
    for (int i = 0; i < 300000; ++i) {
        const double value = doubleOfBits(m_random.generate64());
        QVERIFY2(agreesWithQVariant(value), qPrintable(QVariant(value).toString()));
    }
}

void tst_appendShortestText::allMagnitudes()
{
    for (int i = 0; i < 300000; ++i) {
        const double value = std::pow(10, m_random.generateDouble() * 30 - 10);
        QVERIFY2(agreesWithQVariant(value), qPrintable(QVariant(value).toString()));
    }
}

void tst_appendShortestText::fewDigits()
{
    for (int i = 0; i < 300000; ++i) {
        const double value = m_random.bounded(100000) / std::pow(10, m_random.bounded(12));
        QVERIFY2(agreesWithQVariant(value), qPrintable(QVariant(value).toString()));
    }
}

void tst_appendShortestText::integers()
{
    for (int i = 0; i < 300000; ++i) {
        const double value = std::trunc(std::pow(10, m_random.bounded(12.0))) * std::pow(10, m_random.bounded(9));
        QVERIFY2(agreesWithQVariant(value), qPrintable(QVariant(value).toString()));
    }
}

CORE_TEST_MAIN(tst_appendShortestText)
#include "tst_appendShortestText.moc"
