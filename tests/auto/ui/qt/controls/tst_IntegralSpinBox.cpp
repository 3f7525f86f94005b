#include "systemLimits.h"
#include "ui/qt/controls/IntegralSpinBox.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "VirtualSlot.h"
#include "takenOverSteps.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <limits>
#include <type_traits>

using zelmar::ui::IntegralSpinBox;

static_assert(!std::is_default_constructible<IntegralSpinBox>::value, "the parent is always named");
static_assert(!std::is_convertible<QWidget*, IntegralSpinBox>::value, "a parent is no spin box");
static_assert(std::has_virtual_destructor<IntegralSpinBox>::value, "widgets are deleted through their bases");

namespace {

/// A spin box that overrides the hooks, to test their position and that they are never called.
class Hooked : public IntegralSpinBox
{
public:
    using IntegralSpinBox::IntegralSpinBox;
    void signalIncrementConnected() const override { ++calls; }
    void signalDecrementConnected() const override { ++calls; }
    mutable int calls = 0;
};

} // namespace

class tst_IntegralSpinBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsAsASpinBox();
    void hasNoMetaObjectOfItsOwn();
    void keepsTheOrderOfVirtualFunctions();
    void steps_data();
    void steps();
    void stepsAreTakenOver();
    void oneDirectionIsTakenOver();
    void nothingIsEmittedAtABound();
    void slotsMaySetTheValueAndDisconnect();
    void keysStep();
    void valueIsCommittedAtTheEnd();
    void stepsStartFromTheCommittedValue();
    void slotsGoWithIt();

private:
    std::unique_ptr<QWidget> m_window;
    IntegralSpinBox* m_box = nullptr;
    QSpinBox* m_other = nullptr;
};

void tst_IntegralSpinBox::init()
{
    m_window = std::make_unique<QWidget>();
    m_box = new IntegralSpinBox(m_window.get());
    m_other = new QSpinBox;
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_box);
    layout->addWidget(m_other);
    m_window->show();
    takeKeyboardFocus(*m_box);
    QVERIFY(m_box->hasFocus());
}

void tst_IntegralSpinBox::cleanup()
{
    m_window.reset();
}

void tst_IntegralSpinBox::startsAsASpinBox()
{
    const QSpinBox plain;
    QVERIFY(!m_box->keyboardTracking());
    QCOMPARE(m_box->minimum(), plain.minimum());
    QCOMPARE(m_box->maximum(), plain.maximum());
    QCOMPARE(m_box->singleStep(), plain.singleStep());
    QCOMPARE(m_box->value(), plain.value());
    QVERIFY(m_box->signalIncrement.empty() && m_box->signalDecrement.empty());
    QCOMPARE(m_box->parentWidget(), m_window.get());
}

void tst_IntegralSpinBox::hasNoMetaObjectOfItsOwn()
{
    QCOMPARE(m_box->metaObject(), &QSpinBox::staticMetaObject);
}

void tst_IntegralSpinBox::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    Hooked hooked(nullptr);
    const std::size_t first = virtualSlot(&Hooked::signalIncrementConnected);
    QCOMPARE(virtualSlot(&Hooked::signalDecrementConnected), first + 1);
    QVERIFY(first > virtualSlot(&QSpinBox::stepBy));
    hooked.signalIncrement.connect([] {});
    hooked.signalDecrement.connect([] {});
    hooked.stepBy(1);
    hooked.stepBy(-1);
    QCOMPARE(hooked.calls, 0);
}

void tst_IntegralSpinBox::steps_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("singleStep");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("expected");

    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    // clang-format off
    QTest::newRow("one up") << 0 << 99 << 5 << 2 << 1 << 7;
    QTest::newRow("one down") << 0 << 99 << 5 << 2 << -1 << 3;
    QTest::newRow("a page up") << 0 << 99 << 5 << 2 << 10 << 25;
    QTest::newRow("no step") << 0 << 99 << 5 << 2 << 0 << 5;
    QTest::newRow("past the maximum") << 0 << 99 << 95 << 1 << 10 << 99;
    QTest::newRow("past the minimum") << 0 << 99 << 5 << 1 << -10 << 0;
    QTest::newRow("past the largest int") << least << most << most - 1 << 1 << 10 << most;
    QTest::newRow("past the smallest int") << least << most << least + 1 << 1 << -10 << least;
    QTest::newRow("the largest product") << least << most << 0 << most << most << most;
    QTest::newRow("the smallest product") << least << most << 0 << most << least << least;
    QTest::newRow("from end to end") << least << most << least << most << 2 << most - 1;
    // clang-format on
}

/// Tests each row with wrapping off and on.
void tst_IntegralSpinBox::steps()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(int, singleStep);
    QFETCH(int, steps);
    QFETCH(int, expected);
    m_box->setRange(minimum, maximum);
    m_box->setSingleStep(singleStep);
    for (const bool wrapping : {false, true}) {
        m_box->setWrapping(wrapping);
        m_box->setValue(value);
        m_box->stepBy(steps);
        QCOMPARE(m_box->value(), expected);
    }
}

void tst_IntegralSpinBox::stepsAreTakenOver()
{
    m_box->setValue(50);
    checkTakenOverSteps(*m_box);
}

void tst_IntegralSpinBox::oneDirectionIsTakenOver()
{
    m_box->setValue(50);
    checkOneDirectionTakenOver(*m_box);
}

void tst_IntegralSpinBox::nothingIsEmittedAtABound()
{
    m_box->setValue(99);
    checkNoStepTakenOverAtABound(*m_box);
}

void tst_IntegralSpinBox::slotsMaySetTheValueAndDisconnect()
{
    boost::signals2::connection connection;
    connection = m_box->signalIncrement.connect([&] {
        m_box->setValue(m_box->value() * 2);
        connection.disconnect();
    });
    m_box->setValue(21);
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 42);
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 43);
}

void tst_IntegralSpinBox::keysStep()
{
    m_box->setValue(50);
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 51);
    QTest::keyClick(m_box, Qt::Key_PageUp);
    QCOMPARE(m_box->value(), 61);
    QTest::keyClick(m_box, Qt::Key_Down);
    QCOMPARE(m_box->value(), 60);
    QTest::keyClick(m_box, Qt::Key_PageDown);
    QCOMPARE(m_box->value(), 50);
    turnWheel(*m_box, 1);
    QCOMPARE(m_box->value(), 51);
    turnWheel(*m_box, -2);
    QCOMPARE(m_box->value(), 49);
    m_box->setWrapping(true);
    m_box->setValue(95);
    QTest::keyClick(m_box, Qt::Key_PageUp);
    QCOMPARE(m_box->value(), 99);
}

void tst_IntegralSpinBox::valueIsCommittedAtTheEnd()
{
    const QSignalSpy changes(m_box, SIGNAL(valueChanged(int)));
    m_box->selectAll();
    QTest::keyClicks(m_box, QStringLiteral("42"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_box->value(), 0);
    QTest::keyClick(m_box, Qt::Key_Return);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(m_box->value(), 42);

    m_box->selectAll();
    QTest::keyClicks(m_box, QStringLiteral("7"));
    takeKeyboardFocus(*m_other);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(m_box->value(), 7);
}

void tst_IntegralSpinBox::stepsStartFromTheCommittedValue()
{
    m_box->setValue(50);
    m_box->selectAll();
    QTest::keyClicks(m_box, QStringLiteral("7"));
    QTest::keyClick(m_box, Qt::Key_Up);
    QCOMPARE(m_box->value(), 51);
    QCOMPARE(m_box->text(), QStringLiteral("51"));
}

void tst_IntegralSpinBox::slotsGoWithIt()
{
    const auto token = std::make_shared<int>(0);
    auto* box = new IntegralSpinBox(m_window.get());
    box->signalIncrement.connect([token] {});
    box->signalDecrement.connect([token] {});
    QCOMPARE(token.use_count(), 3L);
    delete static_cast<QObject*>(box);
    QCOMPARE(token.use_count(), 1L);
}

UI_TEST_MAIN(tst_IntegralSpinBox)
#include "tst_IntegralSpinBox.moc"
