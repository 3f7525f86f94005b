#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "takenOverSteps.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

// Compares the selection after a step with that of Qt's own spin boxes, in the same window and with the same events.

using zelmar::ui::IntegralSpinBox;
using zelmar::ui::QScientificSpinBox;

namespace {

using Setting = std::function<void(QAbstractSpinBox&)>;
using Action = std::function<void(QAbstractSpinBox&)>;

/// A selection as distances from both ends of the text, which do not depend on the value.
struct Selection
{
    bool isThere;
    int before;
    int behind;
    bool cursorIsInFront;
};

bool operator==(const Selection& left, const Selection& right)
{
    return left.isThere == right.isThere && left.before == right.before && left.behind == right.behind
           && left.cursorIsInFront == right.cursorIsInFront;
}

char* toString(const Selection& selection)
{
    return QTest::toString(QStringLiteral("selected %1, %2 before, %3 behind, cursor in front %4")
                               .arg(selection.isThere)
                               .arg(selection.before)
                               .arg(selection.behind)
                               .arg(selection.cursorIsInFront));
}

QLineEdit& editOf(const QAbstractSpinBox& box)
{
    return *box.findChild<QLineEdit*>();
}

Selection selectionOf(const QAbstractSpinBox& box)
{
    const QLineEdit& edit = editOf(box);
    if (!edit.hasSelectedText())
        return {false, 0, 0, false};
    const int behind = edit.displayText().size() - edit.selectionEnd();
    return {true, edit.selectionStart(), behind, edit.cursorPosition() == edit.selectionStart()};
}

template <typename Slot>
void onChange(QAbstractSpinBox& box, Slot slot)
{
    if (auto* const integral = qobject_cast<QSpinBox*>(&box))
        QObject::connect(integral, QOverload<int>::of(&QSpinBox::valueChanged), integral, slot);
    else
        QObject::connect(static_cast<QDoubleSpinBox*>(&box), QOverload<double>::of(&QDoubleSpinBox::valueChanged), &box,
                         slot);
}

/// Returns the signal of `box` for a step up.
boost::signals2::signal<void()>& incrementOf(QAbstractSpinBox& box)
{
    if (auto* const integral = dynamic_cast<IntegralSpinBox*>(&box))
        return integral->signalIncrement;
    return dynamic_cast<QScientificSpinBox&>(box).signalIncrement;
}

/// Clicks the upper arrow with the left mouse button.
void clickUpperArrow(QAbstractSpinBox& box)
{
    QStyleOptionSpinBox option;
    option.initFrom(&box);
    option.subControls = QStyle::SC_All;
    option.frame = box.hasFrame();
    const QRect arrow = box.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &box);
    QVERIFY(arrow.isValid());
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, arrow.center());
}

Action key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return [=](QAbstractSpinBox& box) { QTest::keyClick(&box, key, modifiers); };
}

Setting sets(const char* name, const QVariant& value)
{
    return [=](QAbstractSpinBox& box) { QVERIFY(box.setProperty(name, value)); };
}

/// Returns named functions that set up a field before the step.
std::vector<std::pair<const char*, Setting>> settings()
{
    return {
        {"plain", [](QAbstractSpinBox&) {}},
        {"prefix", sets("prefix", QStringLiteral("about "))},
        {"suffix", sets("suffix", QStringLiteral(" mm"))},
        {"prefix and suffix",
         [](QAbstractSpinBox& box) {
             sets("prefix", QStringLiteral("-> "))(box);
             sets("suffix", QStringLiteral(" 1/s"))(box);
         }},
        {"special text with prefix and suffix",
         [](QAbstractSpinBox& box) {
             sets("prefix", QStringLiteral("<"))(box);
             sets("suffix", QStringLiteral(">"))(box);
             box.setSpecialValueText(QStringLiteral("none"));
             sets("value", 1)(box);
         }},
        {"at the minimum", sets("value", 0)},
        {"at the maximum", sets("value", 99)},
        {"next to the maximum", sets("value", 95)},
        {"at the maximum, wrapping",
         [](QAbstractSpinBox& box) {
             box.setWrapping(true);
             sets("value", 99)(box);
         }},
        {"no step that leads elsewhere", sets("singleStep", 0)},
        {"read-only", [](QAbstractSpinBox& box) { box.setReadOnly(true); }},
        {"disabled", [](QAbstractSpinBox& box) { box.setEnabled(false); }},
        {"no focus", [](QAbstractSpinBox& box) { box.clearFocus(); }},
        {"no arrows", [](QAbstractSpinBox& box) { box.setButtonSymbols(QAbstractSpinBox::NoButtons); }},
        {"hidden", [](QAbstractSpinBox& box) { box.hide(); }},
        {"digits that are not committed", [](QAbstractSpinBox& box) { QTest::keyClicks(&box, QStringLiteral("7")); }},
        {"emptied", [](QAbstractSpinBox& box) { box.clear(); }},
        {"two digits, one of them selected",
         [](QAbstractSpinBox& box) {
             sets("value", 42)(box);
             editOf(box).setSelection(0, 1);
         }},
    };
}

struct NamedAction
{
    const char* name;
    bool goesUp;
    Action act;
};

/// Returns all user actions that make a step.
std::vector<NamedAction> actions()
{
    return {
        {"Up", true, key(Qt::Key_Up)},
        {"Down", false, key(Qt::Key_Down)},
        {"Page Up", true, key(Qt::Key_PageUp)},
        {"Page Down", false, key(Qt::Key_PageDown)},
        {"Ctrl+Up", true, key(Qt::Key_Up, Qt::ControlModifier)},
        {"wheel up", true, [](QAbstractSpinBox& box) { turnWheel(box, 1); }},
        {"wheel down", false, [](QAbstractSpinBox& box) { turnWheel(box, -1); }},
        {"arrow", true, clickUpperArrow},
        {"stepUp()", true, [](QAbstractSpinBox& box) { box.stepUp(); }},
        {"stepDown()", false, [](QAbstractSpinBox& box) { box.stepDown(); }},
        {"no step", false, [](QAbstractSpinBox& box) { box.stepBy(0); }},
    };
}

} // namespace

Q_DECLARE_METATYPE(Setting)

class tst_steps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void selectTheNumber_data();
    void selectTheNumber();
    void nextDigitReplacesTheNumber_data();
    void nextDigitReplacesTheNumber();
    void selectNothingWhenTakenOver_data() { nextDigitReplacesTheNumber_data(); }
    void selectNothingWhenTakenOver();
    void slotsMayDoAnythingMeanwhile_data();
    void slotsMayDoAnythingMeanwhile();
    void slotMayTakeStepsOverMeanwhile_data() { nextDigitReplacesTheNumber_data(); }
    void slotMayTakeStepsOverMeanwhile();
    void slotMayDeleteTheFieldMeanwhile_data();
    void slotMayDeleteTheFieldMeanwhile();
    void whoTakesOverMayDeleteTheField_data() { slotMayDeleteTheFieldMeanwhile_data(); }
    void whoTakesOverMayDeleteTheField();

private:
    struct Pair
    {
        QAbstractSpinBox* ours;
        QAbstractSpinBox* peer;
    };

    QAbstractSpinBox& added(QAbstractSpinBox* box);
    Pair pairOf(bool isIntegral);

    std::unique_ptr<QWidget> m_window;
};

/// Shows one window for all test functions, because activating a window takes a while.
void tst_steps::initTestCase()
{
    m_window = std::make_unique<QWidget>();
    new QVBoxLayout(m_window.get());
    m_window->show();
    takeKeyboardFocus(*m_window);
}

void tst_steps::cleanup()
{
    qDeleteAll(m_window->findChildren<QAbstractSpinBox*>());
}

void tst_steps::cleanupTestCase()
{
    m_window.reset();
}

/// Adds `box` to the window with the range 0 to 99, the value 5 and keyboard tracking off, and shows it.
QAbstractSpinBox& tst_steps::added(QAbstractSpinBox* box)
{
    m_window->layout()->addWidget(box);
    for (const auto& setting : {sets("minimum", 0), sets("maximum", 99), sets("value", 5)})
        setting(*box);
    box->setKeyboardTracking(false);
    box->show();
    return *box;
}

tst_steps::Pair tst_steps::pairOf(bool isIntegral)
{
    if (isIntegral)
        return {&added(new IntegralSpinBox(nullptr)), &added(new QSpinBox)};
    auto* const peer = new QDoubleSpinBox;
    peer->setDecimals(0);
    return {&added(new QScientificSpinBox), &added(peer)};
}

void tst_steps::selectTheNumber_data()
{
    QTest::addColumn<bool>("isIntegral");
    QTest::addColumn<Setting>("setting");
    QTest::addColumn<Action>("action");

    for (const bool isIntegral : {true, false}) {
        for (const auto& setting : settings()) {
            for (const auto& action : actions())
                QTest::addRow("%s, %s, %s", isIntegral ? "integral" : "scientific", setting.first, action.name)
                    << isIntegral << setting.second << action.act;
        }
    }
}

void tst_steps::selectTheNumber()
{
    QFETCH(bool, isIntegral);
    QFETCH(Setting, setting);
    QFETCH(Action, action);
    const Pair pair = pairOf(isIntegral);
    std::vector<Selection> selections;
    for (QAbstractSpinBox* box : {pair.ours, pair.peer}) {
        takeKeyboardFocus(*box); // clears the selection of the other box
        editOf(*box).end(false);
        setting(*box);
        action(*box);
        if (QTest::currentTestFailed())
            return;
        selections.push_back(selectionOf(*box));
    }
    QCOMPARE(selections[0], selections[1]);
}

void tst_steps::nextDigitReplacesTheNumber_data()
{
    QTest::addColumn<bool>("isIntegral");
    QTest::newRow("integral") << true;
    QTest::newRow("scientific") << false;
}

void tst_steps::nextDigitReplacesTheNumber()
{
    QFETCH(bool, isIntegral);
    QAbstractSpinBox& box = *pairOf(isIntegral).ours;
    box.setProperty("suffix", QStringLiteral(" mm"));
    takeKeyboardFocus(box);
    QTest::keyClick(&box, Qt::Key_Up);
    QTest::keyClick(&box, Qt::Key_PageUp);
    QCOMPARE(box.text(), QStringLiteral("16 mm"));
    QTest::keyClicks(&box, QStringLiteral("3"));
    QCOMPARE(box.text(), QStringLiteral("3 mm"));
}

/// If a slot takes the step over, the selection is what setValue() in this slot leaves.
void tst_steps::selectNothingWhenTakenOver()
{
    QFETCH(bool, isIntegral);
    const Pair pair = pairOf(isIntegral);
    const auto selectOneDigit = [](QAbstractSpinBox& box) {
        takeKeyboardFocus(box);
        box.setProperty("value", 34);
        editOf(box).setSelection(0, 1);
    };
    selectOneDigit(*pair.peer);
    pair.peer->setProperty("value", 57);
    const Selection afterSetting = selectionOf(*pair.peer);

    selectOneDigit(*pair.ours);
    const Selection before = selectionOf(*pair.ours);
    incrementOf(*pair.ours).connect([] {});
    for (const auto& action : actions()) {
        if (action.goesUp)
            action.act(*pair.ours);
        QCOMPARE(selectionOf(*pair.ours), before);
    }
    incrementOf(*pair.ours).connect([&] { pair.ours->setProperty("value", 57); });
    QTest::keyClick(pair.ours, Qt::Key_Up);
    QCOMPARE(pair.ours->text(), QStringLiteral("57"));
    QCOMPARE(selectionOf(*pair.ours), afterSetting);
}

void tst_steps::slotsMayDoAnythingMeanwhile_data()
{
    QTest::addColumn<bool>("isIntegral");
    QTest::addColumn<Action>("slot");

    const std::pair<const char*, Action> slotActions[] = {
        {"sets another value", [](QAbstractSpinBox& box) { box.setProperty("value", 70); }},
        {"sets the value back", [](QAbstractSpinBox& box) { box.setProperty("value", 5); }},
        {"leaves the value out of the range", [](QAbstractSpinBox& box) { box.setProperty("minimum", 50); }},
        {"leaves one value", [](QAbstractSpinBox& box) { box.setProperty("maximum", 0); }},
        {"makes the value the special one",
         [](QAbstractSpinBox& box) {
             box.setSpecialValueText(QStringLiteral("none"));
             box.setProperty("minimum", 6);
         }},
        {"sets a suffix", [](QAbstractSpinBox& box) { box.setProperty("suffix", QStringLiteral(" mm")); }},
        {"steps on", [](QAbstractSpinBox& box) { box.property("value") == 6 ? box.stepUp() : void(); }},
        {"selects a part", [](QAbstractSpinBox& box) { editOf(box).setSelection(0, 1); }},
        {"empties", [](QAbstractSpinBox& box) { box.clear(); }},
        {"disables", [](QAbstractSpinBox& box) { box.setEnabled(false); }},
        {"makes read-only", [](QAbstractSpinBox& box) { box.setReadOnly(true); }},
        {"hides", [](QAbstractSpinBox& box) { box.hide(); }},
        {"moves the focus away", [](QAbstractSpinBox& box) { box.clearFocus(); }},
    };
    for (const bool isIntegral : {true, false}) {
        for (const auto& slot : slotActions)
            QTest::addRow("%s, %s", isIntegral ? "integral" : "scientific", slot.first) << isIntegral << slot.second;
    }
}

void tst_steps::slotsMayDoAnythingMeanwhile()
{
    QFETCH(bool, isIntegral);
    QFETCH(Action, slot);
    const Pair pair = pairOf(isIntegral);
    std::vector<Selection> selections;
    for (QAbstractSpinBox* box : {pair.ours, pair.peer}) {
        takeKeyboardFocus(*box);
        editOf(*box).end(false);
        int heard = 0;
        onChange(*box, [&heard, &slot, box] {
            if (++heard <= 2)
                slot(*box);
        });
        QTest::keyClick(box, Qt::Key_Up);
        QVERIFY(heard > 0);
        selections.push_back(selectionOf(*box));
    }
    QCOMPARE(pair.ours->text(), pair.peer->text());
    QCOMPARE(pair.ours->property("value").toInt(), pair.peer->property("value").toInt());
    QCOMPARE(selections[0], selections[1]);
}

/// A slot that connects itself during a step does not undo that step.
void tst_steps::slotMayTakeStepsOverMeanwhile()
{
    QFETCH(bool, isIntegral);
    const Pair pair = pairOf(isIntegral);
    takeKeyboardFocus(*pair.ours);
    int takenOver = 0;
    onChange(*pair.ours, [&] { incrementOf(*pair.ours).connect([&] { ++takenOver; }); });
    QTest::keyClick(pair.ours, Qt::Key_Up);
    QCOMPARE(takenOver, 0);
    QCOMPARE(editOf(*pair.ours).selectedText(), QStringLiteral("6"));
    QTest::keyClick(pair.ours, Qt::Key_Up);
    QCOMPARE(takenOver, 1);
    QCOMPARE(pair.ours->text(), QStringLiteral("6"));
}

void tst_steps::slotMayDeleteTheFieldMeanwhile_data()
{
    QTest::addColumn<bool>("isIntegral");
    QTest::addColumn<Action>("action");

    // Keys and arrows are excluded, because Qt's handlers use the field after the step.
    const std::pair<const char*, Action> actions[] = {
        {"wheel", [](QAbstractSpinBox& box) { turnWheel(box, 1); }},
        {"stepUp()", [](QAbstractSpinBox& box) { box.stepUp(); }},
        {"stepBy()", [](QAbstractSpinBox& box) { box.stepBy(10); }},
    };
    for (const bool isIntegral : {true, false}) {
        for (const auto& action : actions)
            QTest::addRow("%s, %s", isIntegral ? "integral" : "scientific", action.first)
                << isIntegral << action.second;
    }
}

void tst_steps::slotMayDeleteTheFieldMeanwhile()
{
    QFETCH(bool, isIntegral);
    QFETCH(Action, action);
    const QPointer<QAbstractSpinBox> box = pairOf(isIntegral).ours;
    onChange(*box, [&] { delete box; });
    action(*box);
    QVERIFY(!box);
}

/// Also tests signals that still hold disconnected slots.
void tst_steps::whoTakesOverMayDeleteTheField()
{
    QFETCH(bool, isIntegral);
    QFETCH(Action, action);
    const QPointer<QAbstractSpinBox> box = pairOf(isIntegral).ours;
    boost::signals2::signal<void()>& increment = incrementOf(*box);
    boost::signals2::connection gone[] = {increment.connect([] {}), increment.connect([] {}), increment.connect([] {})};
    increment.connect([&] { delete box; });
    for (boost::signals2::connection& connection : gone)
        connection.disconnect();
    action(*box);
    QVERIFY(!box);
}

UI_TEST_MAIN(tst_steps)
#include "tst_steps.moc"
