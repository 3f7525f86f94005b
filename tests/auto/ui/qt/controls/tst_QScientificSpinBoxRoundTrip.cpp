#include "ui/qt/controls/QScientificSpinBox.h"

#include "TestHome.h"
#include "sameBits.h"

#include <QApplication>
#include <QFocusEvent>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

using zelmar::ui::QScientificSpinBox;

namespace {

/// Returns the number of digits before the exponent, without leading zeros.
int significantDigits(const QString& text)
{
    QString digits = text.section(QLatin1Char('E'), 0, 0);
    digits.remove(QLatin1Char('-')).remove(QLatin1Char('.'));
    while (digits.startsWith(QLatin1Char('0')))
        digits.remove(0, 1);
    return digits.size();
}

/// Returns the double nearest to `number` rounded to `digits` significant digits, computed by the C library alone.
double rounded(double number, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*e", digits - 1, number);
    return std::strtod(text, nullptr);
}

/// A generator of finite doubles that are all equally probable.
class RandomDoubles
{
public:
    explicit RandomDoubles(quint64 seed)
        : m_engine(seed)
    {
    }

    double next()
    {
        for (;;) {
            const quint64 bits = m_engine();
            double number = 0;
            std::memcpy(&number, &bits, sizeof number);
            if (std::isfinite(number))
                return number;
        }
    }

private:
    std::mt19937_64 m_engine;
};

/// Qt's 323 digits after the decimal point do not distinguish all doubles below this number.
const double smallestExact = std::ldexp(1.0, -1020);

const int numbersPerDigits = 83334;

} // namespace

/// Tests 1,000,000 doubles of all magnitudes.
class tst_QScientificSpinBoxRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsEveryBit_data();
    void keepsEveryBit();
    void keepsEveryBitWhenTheFocusPasses();
};

void tst_QScientificSpinBoxRoundTrip::keepsEveryBit_data()
{
    QTest::addColumn<int>("digits");
    for (int digits = 1; digits <= 12; ++digits)
        QTest::addRow("shown with %d digits", digits) << digits;
}

void tst_QScientificSpinBoxRoundTrip::keepsEveryBit()
{
    QFETCH(int, digits);
    RandomDoubles random(quint64(20240612 + digits));
    QScientificSpinBox box;
    box.setDecimals(digits);
    int exact = 0;
    for (int round = 0; round < numbersPerDigits; ++round) {
        const double number = random.next();
        box.setValue(number);
        if (std::fabs(number) >= smallestExact) {
            ++exact;
            if (!sameBits(box.value(), number))
                QFAIL(qPrintable(QStringLiteral("%1 is not kept").arg(number, 0, 'e', 17)));
        }
        const QString text = box.text();
        if (significantDigits(text) > digits)
            QFAIL(qPrintable(QStringLiteral("%1 has too many digits").arg(text)));
        // Next to the largest double, rounding may exceed the range of a double.
        const double nearest = rounded(box.value(), digits);
        if (std::isfinite(nearest) && !sameBits(box.valueFromText(text), nearest))
            QFAIL(qPrintable(QStringLiteral("%1 is not read as %2").arg(text).arg(nearest, 0, 'e', 17)));
    }
    QVERIFY(exact > numbersPerDigits * 99 / 100);
}

void tst_QScientificSpinBoxRoundTrip::keepsEveryBitWhenTheFocusPasses()
{
    RandomDoubles random(4711);
    QScientificSpinBox box;
    box.show();
    const QSignalSpy changes(&box, SIGNAL(valueChanged(double)));
    for (int round = 1; round <= 10000; ++round) {
        box.setValue(random.next());
        const double before = box.value();
        QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &in);
        QApplication::sendEvent(&box, &out);
        QVERIFY(sameBits(box.value(), before));
        QCOMPARE(changes.count(), round);
    }
}

UI_TEST_MAIN(tst_QScientificSpinBoxRoundTrip)
#include "tst_QScientificSpinBoxRoundTrip.moc"
