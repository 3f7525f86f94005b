#include "ui/qt/controls/QScientificSpinBox.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "sameBits.h"
#include "takenOverSteps.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using zelmar::ui::QScientificSpinBox;

namespace {

/// The way in which the user ends editing.
enum class End { Return, FocusLoss };

} // namespace

Q_DECLARE_METATYPE(End)

class tst_QScientificSpinBoxKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typing_data();
    void typing();
    void typingUnderEveryLocale_data();
    void typingUnderEveryLocale();
    void refusesKeys_data();
    void refusesKeys();
    void deletes();
    void pastes_data();
    void pastes();
    void takesNothingThatIsNotAcceptable_data();
    void takesNothingThatIsNotAcceptable();
    void tellsOnceAndAtTheEnd_data();
    void tellsOnceAndAtTheEnd();
    void commaTakenOutIsNoNumberYet();
    void keepsEveryBitWhenNothingIsTyped();
    void returnCommitsTheShownText();
    void keysStep();
    void stepsAreTakenOver();
    void oneDirectionIsTakenOver();
    void nothingIsEmittedAtABound();
    void stepsStartFromTheCommittedValue();
    void digitsDoNotDisturbTyping();

private:
    void type(const QString& text);
    void end(End how);

    std::unique_ptr<QWidget> m_window;
    QScientificSpinBox* m_box = nullptr;
    QWidget* m_other = nullptr;
};

void tst_QScientificSpinBoxKeyboard::init()
{
    m_window = std::make_unique<QWidget>();
    m_box = new QScientificSpinBox;
    m_other = new QScientificSpinBox;
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_box);
    layout->addWidget(m_other);
    m_window->show();
    takeKeyboardFocus(*m_box);
    QVERIFY(m_box->hasFocus());
    m_box->valueFromText(QStringLiteral("none of the texts below")); // overwrites the shared validation cache
}

void tst_QScientificSpinBoxKeyboard::cleanup()
{
    m_window.reset();
    QLocale::setDefault(QLocale::c());
}

/// Replaces the text by single key presses.
void tst_QScientificSpinBoxKeyboard::type(const QString& text)
{
    m_box->selectAll();
    QTest::keyClicks(m_box, text);
}

void tst_QScientificSpinBoxKeyboard::end(End how)
{
    if (how == End::Return)
        QTest::keyClick(m_box, Qt::Key_Return);
    else
        takeKeyboardFocus(*m_other);
    QVERIFY(how == End::Return || !m_box->hasFocus());
}

void tst_QScientificSpinBoxKeyboard::typing_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");

    // clang-format off
    QTest::newRow("integer") << "42" << -1e9 << 1e9 << 42.0;
    QTest::newRow("fraction") << "-0.25" << -1e9 << 1e9 << -0.25;
    QTest::newRow("no integral part") << ".5" << -1e9 << 1e9 << 0.5;
    QTest::newRow("exponent") << "1e3" << -1e9 << 1e9 << 1000.0;
    QTest::newRow("negative exponent") << "-2.5E-4" << -1e9 << 1e9 << -2.5e-4;
    QTest::newRow("positive exponent") << "1e+6" << -1e9 << 1e9 << 1e6;
    QTest::newRow("groups") << "1,234,567.5" << -1e9 << 1e9 << 1234567.5;
    QTest::newRow("beginning below the range") << "150" << 100.0 << 200.0 << 150.0;
    QTest::newRow("beginning above the range") << "15e-4" << 0.001 << 0.002 << 0.0015;
    QTest::newRow("beginning that only an exponent helps") << "1.5e20" << 1e20 << 2e20 << 1.5e20;
    QTest::newRow("a second point is refused") << "1..5" << -1e9 << 1e9 << 1.5;
    // clang-format on
}

void tst_QScientificSpinBoxKeyboard::typing()
{
    QFETCH(QString, keys);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    m_box->setRange(minimum, maximum);
    for (const char* suffix : {"", " m/s", "e"}) {
        for (const char* prefix : {"", "v = "}) {
            m_box->setPrefix(QString::fromLatin1(prefix));
            m_box->setSuffix(QString::fromLatin1(suffix));
            m_box->setValue(minimum);
            type(keys);
            end(End::Return);
            QCOMPARE(m_box->value(), value);
            QCOMPARE(m_box->text(), m_box->prefix() + m_box->textFromValue(value) + m_box->suffix());
        }
    }
}

void tst_QScientificSpinBoxKeyboard::typingUnderEveryLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("decimal comma") << QLocale(QLocale::German, QLocale::Germany);
    QTest::newRow("group separator that is a quote") << QLocale(QLocale::German, QLocale::Switzerland);
    QTest::newRow("group separator that is a blank") << QLocale(QLocale::French, QLocale::France);
    QTest::newRow("digits of another script") << QLocale(QLocale::Arabic, QLocale::Egypt);
    QTest::newRow("exponent of another script") << QLocale(QLocale::Swedish, QLocale::Sweden);
}

void tst_QScientificSpinBoxKeyboard::typingUnderEveryLocale()
{
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    m_box->setLocale(locale);
    m_box->setSuffix(QStringLiteral(" mm"));
    const QSignalSpy changes(m_box, SIGNAL(valueChanged(double)));
    type(QStringLiteral("1,234.5e-2"));
    end(End::Return);
    QCOMPARE(m_box->value(), 12.345);
    type(QStringLiteral("1,23"));
    QCOMPARE(m_box->text(), QStringLiteral("1,23 mm"));
    end(End::Return);
    QCOMPARE(m_box->value(), 12.345);
    // "0.5" is not read as 5, as it is in a locale with "." as group separator.
    m_box->setRange(10, 20);
    type(QStringLiteral("0.5"));
    end(End::FocusLoss);
    QCOMPARE(m_box->value(), 12.345);
    QCOMPARE(m_box->text(), QStringLiteral("12.345 mm"));
    QCOMPARE(changes.count(), 1);
}

void tst_QScientificSpinBoxKeyboard::refusesKeys_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << "1x2y"
                             << "12";
    QTest::newRow("second exponent") << "1e2e"
                                     << "1e2";
    QTest::newRow("comma first") << ",5"
                                 << "5";
    QTest::newRow("two commas") << "1,,2"
                                << "1,2";
    QTest::newRow("comma behind the point") << "1.2,3"
                                            << "1.23";
    QTest::newRow("blank inside") << "1 x2"
                                  << "1 ";
    QTest::newRow("two signs") << "--1"
                               << "-1";
}

void tst_QScientificSpinBoxKeyboard::refusesKeys()
{
    QFETCH(QString, keys);
    QFETCH(QString, text);
    type(keys);
    QCOMPARE(m_box->text(), text);
}

void tst_QScientificSpinBoxKeyboard::deletes()
{
    m_box->setSuffix(QStringLiteral(" K"));
    m_box->setValue(273.15);
    m_box->selectAll();
    QTest::keyClick(m_box, Qt::Key_Delete);
    QCOMPARE(m_box->text(), QStringLiteral(" K"));
    end(End::Return);
    QCOMPARE(m_box->value(), 273.15);
    QCOMPARE(m_box->text(), QStringLiteral("273.15 K"));

    type(QStringLiteral("1e5"));
    QTest::keyClick(m_box, Qt::Key_Backspace);
    QCOMPARE(m_box->text(), QStringLiteral("1e K"));
    QTest::keyClick(m_box, Qt::Key_Backspace);
    end(End::Return);
    QCOMPARE(m_box->value(), 1.0);
}

void tst_QScientificSpinBoxKeyboard::pastes_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<double>("value");
    QTest::newRow("number") << "-1.5e-7" << -1.5e-7;
    QTest::newRow("number with blanks around it") << "  12 " << 12.0;
    QTest::newRow("groups") << "1,234.5" << 1234.5;
    QTest::newRow("typographic minus") << QStringLiteral(u"\u22122.5") << -2.5;
    QTest::newRow("decimal comma is not taken") << "1,23" << 7.0;
    QTest::newRow("decimal comma behind groups is refused") << "1.234,5" << 7.0;
    QTest::newRow("words are refused") << "about 5" << 7.0;
    QTest::newRow("too large a number is not taken") << "1e400" << 7.0;
    QTest::newRow("nan is not taken") << "nan" << 7.0;
}

void tst_QScientificSpinBoxKeyboard::pastes()
{
    QFETCH(QString, pasted);
    QFETCH(double, value);
    m_box->setValue(7);
    m_box->selectAll();
    QApplication::clipboard()->setText(pasted);
    QTest::keyClick(m_box, Qt::Key_V, Qt::ControlModifier);
    end(End::Return);
    QCOMPARE(m_box->value(), value);
    QCOMPARE(m_box->text(), m_box->textFromValue(value));
}

void tst_QScientificSpinBoxKeyboard::takesNothingThatIsNotAcceptable_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<End>("how");

    for (const End how : {End::Return, End::FocusLoss}) {
        const char* const name = how == End::Return ? "Return" : "focus loss";
        for (const char* keys : {"1,23", " 1,23 ", "1,2,3.5", "-", "1e", "1e-", "5000", "99,", "."})
            QTest::addRow("\"%s\", %s", keys, name) << QString() << QString::fromLatin1(keys) << how;
        QTest::addRow("with a prefix, %s", name) << QStringLiteral("$") << QStringLiteral("1,23") << how;
    }
}

/// A text that is not acceptable stays until editing ends. The value does not change, and no signal is emitted.
void tst_QScientificSpinBoxKeyboard::takesNothingThatIsNotAcceptable()
{
    QFETCH(QString, prefix);
    QFETCH(QString, keys);
    QFETCH(End, how);
    m_box->setPrefix(prefix);
    m_box->setRange(-2000, 2000);
    m_box->setValue(12.5);
    const QSignalSpy changes(m_box, SIGNAL(valueChanged(double)));
    type(keys);
    QCOMPARE(m_box->text(), prefix + keys);
    end(how);
    QCOMPARE(m_box->value(), 12.5);
    QCOMPARE(m_box->text(), prefix + QStringLiteral("12.5"));
    QCOMPARE(changes.count(), 0);
}

void tst_QScientificSpinBoxKeyboard::tellsOnceAndAtTheEnd_data()
{
    QTest::addColumn<End>("how");
    QTest::newRow("Return") << End::Return;
    QTest::newRow("focus loss") << End::FocusLoss;
}

void tst_QScientificSpinBoxKeyboard::tellsOnceAndAtTheEnd()
{
    QFETCH(End, how);
    const QSignalSpy changes(m_box, SIGNAL(valueChanged(double)));
    const QSignalSpy ends(m_box, SIGNAL(editingFinished()));
    type(QStringLiteral("12.5"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_box->value(), 0.0);
    end(how);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toDouble(), 12.5);
    QCOMPARE(ends.count(), 1);
}

/// The shared validation cache stores the text without commas. The same digits without a comma therefore get the same
/// result, until another text has been validated.
void tst_QScientificSpinBoxKeyboard::commaTakenOutIsNoNumberYet()
{
    type(QStringLiteral("1,23"));
    QTest::keyClick(m_box, Qt::Key_Left);
    QTest::keyClick(m_box, Qt::Key_Left);
    QTest::keyClick(m_box, Qt::Key_Backspace);
    QCOMPARE(m_box->text(), QStringLiteral("123"));
    end(End::Return);
    QCOMPARE(m_box->value(), 0.0);

    type(QStringLiteral("123"));
    end(End::Return);
    QCOMPARE(m_box->value(), 123.0);
}

void tst_QScientificSpinBoxKeyboard::keepsEveryBitWhenNothingIsTyped()
{
    const QSignalSpy changes(m_box, SIGNAL(valueChanged(double)));
    int values = 0;
    for (const double value : {1.0 / 3, -123456789.123, 1e-300 / 7, 1.7976931348623157e308}) {
        m_box->setValue(value);
        ++values;
        takeKeyboardFocus(*m_other);
        QVERIFY(!m_box->hasFocus());
        takeKeyboardFocus(*m_box);
        QVERIFY(sameBits(m_box->value(), value));
        QCOMPARE(changes.count(), values);
    }
}

void tst_QScientificSpinBoxKeyboard::returnCommitsTheShownText()
{
    m_box->setValue(1.0 / 3);
    QTest::keyClick(m_box, Qt::Key_Return);
    QCOMPARE(m_box->value(), 0.33333333);
    // The shown number exceeds the range of a double, so it cannot be committed.
    m_box->setDecimals(4);
    m_box->setValue(m_box->maximum());
    QTest::keyClick(m_box, Qt::Key_Return);
    QCOMPARE(m_box->value(), m_box->maximum());
}

void tst_QScientificSpinBoxKeyboard::keysStep()
{
    m_box->setSingleStep(0.5);
    m_box->setValue(10);
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 10.5);
    QTest::keyClick(m_box, Qt::Key_PageUp);
    QCOMPARE(m_box->value(), 15.5);
    QTest::keyClick(m_box, Qt::Key_Down);
    QTest::keyClick(m_box, Qt::Key_PageDown);
    QCOMPARE(m_box->value(), 10.0);
    turnWheel(*m_box, 1);
    QCOMPARE(m_box->value(), 10.5);
    turnWheel(*m_box, -3);
    QCOMPARE(m_box->value(), 9.0);
    QCOMPARE(m_box->text(), QStringLiteral("9"));
}

void tst_QScientificSpinBoxKeyboard::stepsAreTakenOver()
{
    m_box->setValue(50);
    checkTakenOverSteps(*m_box);
}

void tst_QScientificSpinBoxKeyboard::oneDirectionIsTakenOver()
{
    m_box->setValue(50);
    checkOneDirectionTakenOver(*m_box);
}

void tst_QScientificSpinBoxKeyboard::nothingIsEmittedAtABound()
{
    m_box->setRange(0, 10);
    m_box->setValue(10);
    checkNoStepTakenOverAtABound(*m_box);
}

void tst_QScientificSpinBoxKeyboard::stepsStartFromTheCommittedValue()
{
    m_box->setValue(50);
    type(QStringLiteral("7"));
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 51.0);

    m_box->signalIncrement.connect([this] {
        m_box->interpretText();
        m_box->setValue(m_box->value() * 10);
    });
    type(QStringLiteral("7"));
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 70.0);
}

void tst_QScientificSpinBoxKeyboard::digitsDoNotDisturbTyping()
{
    type(QStringLiteral("1.2345"));
    m_box->setDecimals(2);
    QCOMPARE(m_box->text(), QStringLiteral("1.2345"));
    end(End::Return);
    QCOMPARE(m_box->value(), 1.2345);
    QCOMPARE(m_box->text(), QStringLiteral("1.2"));
}

UI_TEST_MAIN(tst_QScientificSpinBoxKeyboard)
#include "tst_QScientificSpinBoxKeyboard.moc"
