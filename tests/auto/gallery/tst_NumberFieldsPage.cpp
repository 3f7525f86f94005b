#include "pages/NumberFieldsPage.h"

#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"

#include "Keyboard.h"
#include "TestHome.h"

#include <QCheckBox>
#include <QtTest>

using gallery::NumberFieldsPage;
using zelmar::ui::IntegralSpinBox;
using zelmar::ui::QScientificSpinBox;

/// Types and steps in the fields of the page.
class tst_NumberFieldsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsThatAreTakenOverBeginAtTheTypedNumber();
};

void tst_NumberFieldsPage::stepsThatAreTakenOverBeginAtTheTypedNumber()
{
    NumberFieldsPage page;
    page.show();
    page.findChild<QCheckBox*>()->setChecked(true);
    const auto typeAndStep = [](QAbstractSpinBox& field, const QString& number, Qt::Key step) {
        takeKeyboardFocus(field);
        field.selectAll();
        QTest::keyClicks(&field, number);
        QTest::keyClick(&field, step);
    };

    auto& number = *page.findChild<QScientificSpinBox*>();
    typeAndStep(number, "5", Qt::Key_Up);
    QCOMPARE(number.value(), 50.0);
    typeAndStep(number, "40", Qt::Key_Down);
    QCOMPARE(number.value(), 4.0);

    auto& integer = *page.findChild<IntegralSpinBox*>();
    typeAndStep(integer, "7", Qt::Key_Up);
    QCOMPARE(integer.value(), 14);
    typeAndStep(integer, "6", Qt::Key_Down);
    QCOMPARE(integer.value(), 3);
}

UI_TEST_MAIN(tst_NumberFieldsPage)
#include "tst_NumberFieldsPage.moc"
