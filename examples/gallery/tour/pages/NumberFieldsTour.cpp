#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"

#include "Keyboard.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using zelmar::ui::IntegralSpinBox;
using zelmar::ui::QScientificSpinBox;

namespace gallery {

namespace {

void type(QScientificSpinBox& number, const QString& text)
{
    takeKeyboardFocus(number);
    number.selectAll();
    QTest::keyClicks(&number, text);
}

} // namespace

void tourNumberFields(GalleryPage& page, Tour& tour)
{
    auto& number = widgetOfLabel<QScientificSpinBox>(page, QStringLiteral("Double"));
    auto& integer = widgetOfLabel<IntegralSpinBox>(page, QStringLiteral("Integer"));
    const auto& state = widgetOfLabel<QLabel>(page, QStringLiteral("Its text is"));
    widgetOfLabel<QLineEdit>(page, QStringLiteral("Suffix")).setText(QStringLiteral(" mol/s"));
    widgetOfLabel<IntegralSpinBox>(page, QStringLiteral("Digits shown")).setValue(4);
    tour.expect(number.text() == QStringLiteral("0.3333 mol/s"), QStringLiteral("four digits are shown"));
    tour.log(QStringLiteral("value: ") + widgetOfLabel<QLabel>(page, QStringLiteral("Its value is")).text());

    type(number, QStringLiteral("1.5e-7"));
    tour.log(number.text() + QStringLiteral(": ") + state.text());
    QTest::keyClick(&number, Qt::Key_Return);
    tour.expect(number.value() == 1.5e-7, QStringLiteral("Return takes a number"));

    type(number, QStringLiteral("1,23"));
    tour.log(number.text() + QStringLiteral(": ") + state.text());
    tour.takePicture(QStringLiteral("comma"));
    QTest::keyClick(&number, Qt::Key_Return);
    tour.expect(number.value() == 1.5e-7, QStringLiteral("Return does not take a decimal comma"));

    page.findChild<QCheckBox*>()->setChecked(true); // steps are taken over
    QTest::keyClick(&number, Qt::Key_Up);
    takeKeyboardFocus(integer);
    QTest::keyClick(&integer, Qt::Key_PageUp);
    tour.log(QStringLiteral("after steps of one's own: %1 and %2").arg(number.text(), integer.text()));
    tour.takePicture();
}

} // namespace gallery
