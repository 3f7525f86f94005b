#include "systemLimits.h"
#include "ui/qt/controls/QScientificSpinBox.h"

#include "BuiltLocales.h"
#include "TestHome.h"
#include "VirtualSlot.h"
#include "sameBits.h"

#include <QApplication>
#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <cfloat>
#include <clocale>
#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>

using zelmar::ui::QScientificSpinBox;

static_assert(!std::is_convertible<QWidget*, QScientificSpinBox>::value, "a parent is no spin box");
static_assert(std::has_virtual_destructor<QScientificSpinBox>::value, "widgets are deleted through their bases");

namespace {

class Hooked : public QScientificSpinBox
{
public:
    void signalIncrementConnected() const override { ++calls; }
    void signalDecrementConnected() const override { ++calls; }
    using QScientificSpinBox::lineEdit;
    mutable int calls = 0;
};

QValidator::State stateOf(const QScientificSpinBox& box, const QString& text)
{
    QString copy = text;
    int position = 0;
    const QValidator::State state = box.validate(copy, position);
    return copy == text ? state : QValidator::Invalid; // the text must not be changed
}

/// Qt's 323 digits after the decimal point do not distinguish all doubles below this number.
const double smallestExact = std::ldexp(1.0, -1020);

} // namespace

class tst_QScientificSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsWithTheRangeOfADouble();
    void hasNoMetaObjectOfItsOwn();
    void keepsTheOrderOfVirtualFunctions();
    void hasADoubleValidator();
    void digitsAreAtMostTwelve_data();
    void digitsAreAtMostTwelve();
    void showsDigitsAsTheyAreSet();
    void showsAPointUnderAnyLocale();
    void readsAmericanEnglishUnderAnyLocale();
    void states_data();
    void states();
    void valueOfWhatIsNotAcceptable();
    void shapeOfPrefixAndSuffix();
    void sharesTheLastAnswer();
    void isNotFixedUp();
    void steps_data();
    void steps();

    void losesBitsOnlyWhereQtDoes();
    void largestNumberMayBeShownAsTooLarge_data();
    void largestNumberMayBeShownAsTooLarge();

private:
    std::unique_ptr<QScientificSpinBox> m_box;
};

void tst_QScientificSpinBox::init()
{
    m_box = std::make_unique<QScientificSpinBox>();
    stateOf(*m_box, QStringLiteral("none of the texts below")); // overwrites the shared validation cache
}

void tst_QScientificSpinBox::cleanup()
{
    m_box.reset();
    QLocale::setDefault(QLocale::c());
}

void tst_QScientificSpinBox::startsWithTheRangeOfADouble()
{
    QCOMPARE(m_box->minimum(), -DBL_MAX);
    QCOMPARE(m_box->maximum(), DBL_MAX);
    QCOMPARE(m_box->value(), 0.0);
    QCOMPARE(m_box->singleStep(), 1.0);
    QCOMPARE(m_box->decimals(), 8);
    QCOMPARE(m_box->text(), QStringLiteral("0"));
    QVERIFY(!m_box->keyboardTracking());
    QVERIFY(m_box->signalIncrement.empty() && m_box->signalDecrement.empty());
    QVERIFY(!m_box->parent());
    QWidget parent;
    const auto* child = new QScientificSpinBox(&parent);
    QCOMPARE(child->parentWidget(), &parent);
}

void tst_QScientificSpinBox::hasNoMetaObjectOfItsOwn()
{
    QCOMPARE(m_box->metaObject(), &QDoubleSpinBox::staticMetaObject);
}

void tst_QScientificSpinBox::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    Hooked hooked;
    const std::size_t first = virtualSlot(&Hooked::signalIncrementConnected);
    QCOMPARE(virtualSlot(&Hooked::signalDecrementConnected), first + 1);
    QVERIFY(first > virtualSlot(&QDoubleSpinBox::textFromValue));
    hooked.signalIncrement.connect([] {});
    hooked.stepBy(1);
    QCOMPARE(hooked.calls, 0);
}

void tst_QScientificSpinBox::hasADoubleValidator()
{
    const Hooked box;
    const auto* validator = qobject_cast<const QDoubleValidator*>(box.lineEdit()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->parent(), &box);
    QCOMPARE(validator->decimals(), 1000);
    QCOMPARE(validator->notation(), QDoubleValidator::ScientificNotation);
}

void tst_QScientificSpinBox::digitsAreAtMostTwelve_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("got");
    QTest::addColumn<QString>("text");

    QTest::newRow("more than twelve") << 20 << 12 << "0.333333333333";
    QTest::newRow("the largest number") << std::numeric_limits<int>::max() << 12 << "0.333333333333";
    QTest::newRow("twelve") << 12 << 12 << "0.333333333333";
    QTest::newRow("three") << 3 << 3 << "0.333";
    QTest::newRow("none is shown as one") << 0 << 0 << "0.3";
    QTest::newRow("fewer than none are six") << -1 << -1 << "0.333333";
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min() << std::numeric_limits<int>::min()
                                         << "0.333333";
}

void tst_QScientificSpinBox::digitsAreAtMostTwelve()
{
    QFETCH(int, set);
    QFETCH(int, got);
    QFETCH(QString, text);
    const double third = 1.0 / 3;
    m_box->setValue(third);
    m_box->setDecimals(set);
    QCOMPARE(m_box->decimals(), got);
    QCOMPARE(m_box->text(), text);
    QVERIFY(sameBits(m_box->value(), third));
}

void tst_QScientificSpinBox::showsDigitsAsTheyAreSet()
{
    m_box->setValue(1234567.0);
    QCOMPARE(m_box->text(), QStringLiteral("1234567"));
    m_box->setValue(123456789.0);
    QCOMPARE(m_box->text(), QStringLiteral("1.2345679E+08"));
    QCOMPARE(m_box->value(), 123456789.0);
    m_box->setPrefix(QStringLiteral("< "));
    m_box->setSuffix(QStringLiteral(" m"));
    m_box->setDecimals(3);
    QCOMPARE(m_box->text(), QStringLiteral("< 1.23E+08 m"));
    QCOMPARE(m_box->textFromValue(1.5e-7), QStringLiteral("1.5E-07"));
}

void tst_QScientificSpinBox::showsAPointUnderAnyLocale()
{
    BuiltLocales locales;
    QVERIFY(locales.enter(QStringLiteral("de_DE")));
    QCOMPARE(QString::fromLatin1(std::localeconv()->decimal_point), QStringLiteral(","));
    m_box->setValue(1.5);
    QCOMPARE(m_box->text(), QStringLiteral("1.5"));
    m_box->setValue(-1.25e-7);
    QCOMPARE(m_box->text(), QStringLiteral("-1.25E-07"));
    QCOMPARE(m_box->valueFromText(QStringLiteral("2.5")), 2.5);
    QCOMPARE(stateOf(*m_box, QStringLiteral("2,5")), QValidator::Intermediate);
}

void tst_QScientificSpinBox::readsAmericanEnglishUnderAnyLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QScientificSpinBox box;
    box.setLocale(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(box.locale().decimalPoint(), QLatin1Char(','));
    box.setValue(1234567.5);
    QCOMPARE(box.text(), QStringLiteral("1234567.5"));
    QCOMPARE(box.valueFromText(QStringLiteral("1,234.5")), 1234.5);
    QCOMPARE(stateOf(box, QStringLiteral("1,5")), QValidator::Intermediate);
    QCOMPARE(stateOf(box, QStringLiteral("1.234,5")), QValidator::Invalid);
}

void tst_QScientificSpinBox::states_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QValidator::State>("state");

    // clang-format off
    QTest::newRow("exponent") << "1e3" << -DBL_MAX << DBL_MAX << QValidator::Acceptable;
    QTest::newRow("negative exponent") << "-2.5E-4" << -DBL_MAX << DBL_MAX << QValidator::Acceptable;
    QTest::newRow("commas elsewhere") << "1,23" << -DBL_MAX << DBL_MAX << QValidator::Intermediate;
    QTest::newRow("commas elsewhere, small range") << "1,23" << -999.0 << 999.0 << QValidator::Invalid;
    QTest::newRow("plus, negative maximum") << "+" << -9.0 << -1.0 << QValidator::Invalid;
    QTest::newRow("minus, positive minimum") << "-" << 1.0 << 9.0 << QValidator::Invalid;
    QTest::newRow("empty") << "" << 1.0 << 9.0 << QValidator::Intermediate;
    QTest::newRow("empty, one number") << "" << 9.0 << 9.0 << QValidator::Invalid;
    QTest::newRow("infinite range") << "1e308" << -HUGE_VAL << HUGE_VAL << QValidator::Acceptable;
    QTest::newRow("out of the range") << "10" << 1.0 << 9.0 << QValidator::Invalid;
    QTest::newRow("may grow into the range") << "1" << 10.0 << 19.0 << QValidator::Intermediate;
    // clang-format on
}

void tst_QScientificSpinBox::states()
{
    QFETCH(QString, text);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QValidator::State, state);
    m_box->setRange(minimum, maximum);
    QCOMPARE(stateOf(*m_box, text), state);
}

void tst_QScientificSpinBox::valueOfWhatIsNotAcceptable()
{
    QCOMPARE(m_box->valueFromText(QStringLiteral("1,23")), -DBL_MAX);
    m_box->setRange(-7, -3);
    QCOMPARE(m_box->valueFromText(QStringLiteral("x")), -3.0);
}

void tst_QScientificSpinBox::shapeOfPrefixAndSuffix()
{
    m_box->setPrefix(QStringLiteral("1 "));
    m_box->setSuffix(QStringLiteral(" e5"));
    m_box->setValue(25);
    QCOMPARE(m_box->text(), QStringLiteral("1 25 e5"));
    QCOMPARE(m_box->valueFromText(m_box->text()), 25.0);
    m_box->setSpecialValueText(QStringLiteral("none"));
    m_box->setValue(-DBL_MAX);
    QCOMPARE(m_box->text(), QStringLiteral("none"));
    QCOMPARE(stateOf(*m_box, QStringLiteral("none")), QValidator::Invalid);
}

void tst_QScientificSpinBox::sharesTheLastAnswer()
{
    QScientificSpinBox narrow;
    narrow.setRange(0, 10);
    QCOMPARE(stateOf(*m_box, QStringLiteral("50")), QValidator::Acceptable);
    QCOMPARE(stateOf(narrow, QStringLiteral("50")), QValidator::Acceptable);
    QCOMPARE(narrow.valueFromText(QStringLiteral("50")), 50.0);
    QCOMPARE(stateOf(narrow, QStringLiteral("51")), QValidator::Invalid);
    QCOMPARE(stateOf(narrow, QStringLiteral("50")), QValidator::Invalid);
    QCOMPARE(stateOf(*m_box, QStringLiteral("50")), QValidator::Invalid);
}

void tst_QScientificSpinBox::isNotFixedUp()
{
    for (const QLocale::Language language : {QLocale::English, QLocale::German}) {
        m_box->setLocale(language);
        QString text = QStringLiteral("1,234.5,6");
        m_box->fixup(text);
        QCOMPARE(text, QStringLiteral("1,234.5,6"));
    }
}

void tst_QScientificSpinBox::steps_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("singleStep");
    QTest::addColumn<int>("steps");
    QTest::addColumn<double>("expected");

    QTest::newRow("one up") << 5.0 << 2.0 << 1 << 7.0;
    QTest::newRow("a page up") << 5.0 << 2.0 << 10 << 25.0;
    QTest::newRow("one down") << 5.0 << 0.25 << -1 << 4.75;
    QTest::newRow("no step") << 5.0 << 2.0 << 0 << 5.0;
    QTest::newRow("added, not scaled by the exponent") << 1e-9 << 1.0 << 1 << 1.0 + 1e-9;
    QTest::newRow("the smallest number of steps") << 0.0 << 1.0 << std::numeric_limits<int>::min() << -2147483648.0;
    QTest::newRow("past the maximum") << DBL_MAX << 1e308 << 2 << DBL_MAX;
    QTest::newRow("past the minimum") << 0.0 << DBL_MAX << -2 << -DBL_MAX;
}

void tst_QScientificSpinBox::steps()
{
    QFETCH(double, value);
    QFETCH(double, singleStep);
    QFETCH(int, steps);
    QFETCH(double, expected);
    m_box->setSingleStep(singleStep);
    m_box->setValue(value);
    m_box->stepBy(steps);
    QCOMPARE(m_box->value(), expected);
}

/// The base class rounds to 323 digits after the decimal point, which also removes the sign of a zero.
void tst_QScientificSpinBox::losesBitsOnlyWhereQtDoes()
{
    m_box->setValue(smallestExact);
    QVERIFY(sameBits(m_box->value(), smallestExact));
    m_box->setValue(DBL_MIN);
    QCOMPARE(QString::number(m_box->value(), 'e', 16), QStringLiteral("2.2250738585072009e-308"));
    m_box->setValue(5e-324);
    QCOMPARE(m_box->value(), 0.0);
    m_box->setValue(-0.0);
    QVERIFY(!std::signbit(m_box->value()));
    m_box->setValue(HUGE_VAL);
    QCOMPARE(m_box->value(), DBL_MAX);
}

void tst_QScientificSpinBox::largestNumberMayBeShownAsTooLarge_data()
{
    QTest::addColumn<int>("digits");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    QTest::newRow("rounded down") << 8 << "1.7976931E+308" << QValidator::Acceptable;
    QTest::newRow("rounded up") << 4 << "1.798E+308" << QValidator::Invalid;
}

/// Rounded to the number of shown digits, the largest double may exceed the range of a double. The value is not
/// changed.
void tst_QScientificSpinBox::largestNumberMayBeShownAsTooLarge()
{
    QFETCH(int, digits);
    QFETCH(QString, text);
    QFETCH(QValidator::State, state);
    m_box->setDecimals(digits);
    m_box->setValue(DBL_MAX);
    QCOMPARE(m_box->text(), text);
    QCOMPARE(stateOf(*m_box, text), state);
    QCOMPARE(m_box->value(), DBL_MAX);
}

UI_TEST_MAIN(tst_QScientificSpinBox)
#include "tst_QScientificSpinBox.moc"
