#include "systemLimits.h"
#include "ui/qt/controls/ElidedTextUtil_p.h"

#include "TestHome.h"
#include "VirtualSlot.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QTest>
#include <QWidget>

#include <type_traits>

static_assert(std::has_virtual_destructor<ElidedTextUtil>::value, "derived classes are deleted through this class");
static_assert(sizeof(ElidedTextUtil) == sizeof(void*), "no state");

namespace {

const QString text = QStringLiteral("/measurements/2024/run 17/flow.csv");
const QString other = QStringLiteral("the application's");

/// A widget that counts the changes of its tool tip.
class Watched : public QWidget
{
public:
    int changes = 0;

protected:
    bool event(QEvent* event) override
    {
        changes += int(event->type() == QEvent::ToolTipChange);
        return QWidget::event(event);
    }
};

} // namespace

class tst_ElidedTextUtil : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheOrderOfVirtualFunctions();
    void updatesTheToolTip_data();
    void updatesTheToolTip();
    void measuresTheShownText();
    void measuresInTheWidgetsFont();
    void setsNothingWithoutAChange();
};

void tst_ElidedTextUtil::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    // The destructor occupies two slots in the ABI of the supported compilers.
    QCOMPARE(virtualSlot(&ElidedTextUtil::updateToolTip), std::size_t(2));
}

void tst_ElidedTextUtil::updatesTheToolTip_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("missingPixels");
    QTest::addColumn<QString>("after");

    QTest::newRow("fits to the pixel") << QString() << 0 << QString();
    QTest::newRow("one pixel too wide") << QString() << 1 << text;
    QTest::newRow("no width at all") << QString() << 10000 << text;
    QTest::newRow("fits again") << text << 0 << QString();
    QTest::newRow("fits again with spare width") << text << -100 << QString();
    QTest::newRow("still does not fit") << text << 1 << text;
    QTest::newRow("tool tip of the application, fits") << other << 0 << other;
    QTest::newRow("tool tip of the application, does not fit") << other << 1 << other;
    QTest::newRow("tool tip differs in a blank") << text + QLatin1Char(' ') << 1 << text + QLatin1Char(' ');
    QTest::newRow("tool tip differs in case") << text.toUpper() << 0 << text.toUpper();
}

void tst_ElidedTextUtil::updatesTheToolTip()
{
    QFETCH(QString, before);
    QFETCH(int, missingPixels);
    QFETCH(QString, after);
    QWidget widget;
    widget.setToolTip(before);
    ElidedTextUtil().updateToolTip(&widget, widget.fontMetrics().horizontalAdvance(text) - missingPixels, text, text);
    QCOMPARE(widget.toolTip(), after);
}

void tst_ElidedTextUtil::measuresTheShownText()
{
    QWidget widget;
    const QString shown = text.left(5);
    const int width = widget.fontMetrics().horizontalAdvance(shown);
    ElidedTextUtil().updateToolTip(&widget, width, shown, text);
    QCOMPARE(widget.toolTip(), QString());
    ElidedTextUtil().updateToolTip(&widget, width - 1, shown, text);
    QCOMPARE(widget.toolTip(), text);
    ElidedTextUtil().updateToolTip(&widget, width, shown, text);
    QCOMPARE(widget.toolTip(), QString());
}

void tst_ElidedTextUtil::measuresInTheWidgetsFont()
{
    QWidget widget;
    const int width = widget.fontMetrics().horizontalAdvance(text);
    QFont font = widget.font();
    font.setPixelSize(3 * QFontInfo(font).pixelSize());
    widget.setFont(font);
    ElidedTextUtil().updateToolTip(&widget, width, text, text);
    QCOMPARE(widget.toolTip(), text);
}

void tst_ElidedTextUtil::setsNothingWithoutAChange()
{
    Watched widget;
    for (int i = 0; i < 3; ++i)
        ElidedTextUtil().updateToolTip(&widget, 100000, text, text);
    QCOMPARE(widget.changes, 0);
    for (int i = 0; i < 3; ++i)
        ElidedTextUtil().updateToolTip(&widget, 1, text, text);
    QCOMPARE(widget.changes, 1);
}

UI_TEST_MAIN(tst_ElidedTextUtil)
#include "tst_ElidedTextUtil.moc"
