#include "systemLimits.h"
#include "ui/qt/controls/CopyHandlerAbstract.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "VirtualSlot.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <type_traits>

using zelmar::ui::CopyHandlerAbstract;

static_assert(std::is_base_of<QObject, CopyHandlerAbstract>::value, "the watched object owns the handler");
static_assert(std::is_abstract<CopyHandlerAbstract>::value, "a derived class implements what is copied");
static_assert(!std::is_constructible<CopyHandlerAbstract, QObject*>::value, "the watched object cannot be null");

namespace {

/// A handler that counts the calls and performs an action in each.
class Recorder : public CopyHandlerAbstract
{
public:
    using CopyHandlerAbstract::CopyHandlerAbstract;

    void copyToClipboard() override
    {
        ++calls;
        if (action)
            action(); // may delete this
    }

    /// Returns the slot of the last virtual function of QObject, which is protected.
    static std::size_t lastSlotOfQObject() { return virtualSlot(&Recorder::disconnectNotify); }

    int calls = 0;
    std::function<void()> action;
};

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt;
}

/// A widget that records the key presses that reach it, except those of modifiers.
class KeyWidget : public QWidget
{
public:
    KeyWidget() { setFocusPolicy(Qt::StrongFocus); }

    QList<QKeySequence> pressed;
    int released = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (!isModifier(event->key()))
            pressed += QKeySequence(int(event->modifiers()) | event->key());
        QWidget::keyPressEvent(event);
    }
    void keyReleaseEvent(QKeyEvent* event) override { released += isModifier(event->key()) ? 0 : 1; }
};

void press(QWidget& widget, const QKeySequence& keys)
{
    QTest::keySequence(widget.window()->windowHandle(), keys);
}

} // namespace

class tst_CopyHandlerAbstract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void belongsToTheWatchedObject();
    void copiesWithTheCopyKeys_data();
    void copiesWithTheCopyKeys();
    void letsOtherKeysPass_data();
    void letsOtherKeysPass();
    void letsOtherEventsPass_data();
    void letsOtherEventsPass();
    void ignoresTheWatchedArgument();
    void watchesAnObjectThatIsNoWidget();
    void stopsWatchingWhenDestroyed();
    void isDeletedWithTheWatchedObject();
    void isDeletedInTheCopy();
    void watchedObjectIsDeletedInTheCopy();
    void lastHandlerReceivesTheKeys();
    void shortcutsComeFirst();
    void isASlot();
    void keepsTheOrderOfVirtualFunctions();

private:
    std::unique_ptr<QWidget> m_window;
    KeyWidget* m_widget = nullptr;
    Recorder* m_handler = nullptr;
};

void tst_CopyHandlerAbstract::init()
{
    m_window = std::make_unique<QWidget>();
    m_widget = new KeyWidget;
    auto* layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_widget);
    m_window->resize(200, 100);
    m_window->show();
    takeKeyboardFocus(*m_widget);
    QVERIFY(m_widget->hasFocus());
    m_handler = new Recorder(*m_widget);
}

void tst_CopyHandlerAbstract::cleanup()
{
    m_window.reset();
}

void tst_CopyHandlerAbstract::belongsToTheWatchedObject()
{
    QCOMPARE(m_handler->parent(), m_widget);
    QCOMPARE(m_handler->calls, 0);
}

void tst_CopyHandlerAbstract::copiesWithTheCopyKeys_data()
{
    QTest::addColumn<QKeySequence>("keys");
    const QList<QKeySequence> bindings = QKeySequence::keyBindings(QKeySequence::Copy);
    QVERIFY(bindings.contains(QKeySequence(int(Qt::CTRL) | Qt::Key_C)));
    for (const QKeySequence& keys : bindings)
        QTest::newRow(qPrintable(keys.toString())) << keys;
}

void tst_CopyHandlerAbstract::copiesWithTheCopyKeys()
{
    QFETCH(QKeySequence, keys);
    press(*m_widget, keys);
    QCOMPARE(m_handler->calls, 1);
    QVERIFY(m_widget->pressed.isEmpty());
    QCOMPARE(m_widget->released, 1);
    press(*m_widget, keys);
    QCOMPARE(m_handler->calls, 2);
}

void tst_CopyHandlerAbstract::letsOtherKeysPass_data()
{
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("C alone") << QKeySequence(Qt::Key_C);
    QTest::newRow("Ctrl+Shift+C") << QKeySequence(int(Qt::CTRL) | int(Qt::SHIFT) | Qt::Key_C);
    QTest::newRow("Alt+C") << QKeySequence(int(Qt::ALT) | Qt::Key_C);
    QTest::newRow("Ctrl+V") << QKeySequence(int(Qt::CTRL) | Qt::Key_V);
    QTest::newRow("Ctrl+X") << QKeySequence(int(Qt::CTRL) | Qt::Key_X);
    QTest::newRow("Insert") << QKeySequence(Qt::Key_Insert);
    QTest::newRow("Down") << QKeySequence(Qt::Key_Down);
    QTest::newRow("Return") << QKeySequence(Qt::Key_Return);
}

void tst_CopyHandlerAbstract::letsOtherKeysPass()
{
    QFETCH(QKeySequence, keys);
    press(*m_widget, keys);
    QCOMPARE(m_handler->calls, 0);
    QCOMPARE(m_widget->pressed, QList<QKeySequence>{keys});
    QCOMPARE(m_widget->released, 1);
}

void tst_CopyHandlerAbstract::letsOtherEventsPass_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("release") << QEvent::KeyRelease;
    QTest::newRow("shortcut override") << QEvent::ShortcutOverride;
}

/// Sends other events of the Copy keys. An accepted shortcut override would disable the application's own shortcuts.
void tst_CopyHandlerAbstract::letsOtherEventsPass()
{
    QFETCH(QEvent::Type, type);
    QKeyEvent event(type, Qt::Key_C, Qt::ControlModifier);
    event.ignore();
    QVERIFY(!m_handler->eventFilter(m_widget, &event));
    QVERIFY(!event.isAccepted());
    QCOMPARE(m_handler->calls, 0);
}

void tst_CopyHandlerAbstract::ignoresTheWatchedArgument()
{
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(m_handler->eventFilter(nullptr, &copy));
    QVERIFY(m_handler->eventFilter(this, &copy));
    QCOMPARE(m_handler->calls, 2);
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!m_handler->eventFilter(nullptr, &paste));
    QCOMPARE(m_handler->calls, 2);
}

void tst_CopyHandlerAbstract::watchesAnObjectThatIsNoWidget()
{
    QObject object;
    const auto* handler = new Recorder(object);
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QCoreApplication::sendEvent(&object, &copy));
    QCOMPARE(handler->calls, 1);
}

void tst_CopyHandlerAbstract::stopsWatchingWhenDestroyed()
{
    delete static_cast<QObject*>(m_handler);
    press(*m_widget, QKeySequence::Copy);
    QCOMPARE(m_widget->pressed.size(), 1);
}

void tst_CopyHandlerAbstract::isDeletedWithTheWatchedObject()
{
    const QPointer<Recorder> handler = m_handler;
    delete m_widget;
    QVERIFY(!handler);
}

void tst_CopyHandlerAbstract::isDeletedInTheCopy()
{
    const QPointer<Recorder> handler = m_handler;
    m_handler->action = [this] { delete m_handler; };
    press(*m_widget, QKeySequence::Copy);
    QVERIFY(!handler);
    QVERIFY(m_widget->pressed.isEmpty());
}

void tst_CopyHandlerAbstract::watchedObjectIsDeletedInTheCopy()
{
    const QPointer<Recorder> handler = m_handler;
    m_handler->action = [this] { delete m_widget; };
    press(*m_widget, QKeySequence::Copy);
    QVERIFY(!handler);
}

void tst_CopyHandlerAbstract::lastHandlerReceivesTheKeys()
{
    const auto* other = new Recorder(*m_widget);
    press(*m_widget, QKeySequence::Copy);
    QCOMPARE(other->calls, 1);
    QCOMPARE(m_handler->calls, 0);
}

void tst_CopyHandlerAbstract::shortcutsComeFirst()
{
    int triggered = 0;
    QAction action;
    action.setShortcut(QKeySequence::Copy);
    connect(&action, &QAction::triggered, this, [&triggered] { ++triggered; });
    m_window->addAction(&action);
    press(*m_widget, QKeySequence::Copy);
    QCOMPARE(triggered, 1);
    QCOMPARE(m_handler->calls, 0);

    connect(&action, SIGNAL(triggered()), m_handler, SLOT(copyToClipboard()));
    press(*m_widget, QKeySequence::Copy);
    QCOMPARE(m_handler->calls, 1);
}

void tst_CopyHandlerAbstract::isASlot()
{
    const QMetaObject& metaObject = CopyHandlerAbstract::staticMetaObject;
    QCOMPARE(metaObject.className(), "zelmar::ui::CopyHandlerAbstract");
    QCOMPARE(metaObject.methodCount() - metaObject.methodOffset(), 1);
    const QMetaMethod method = metaObject.method(metaObject.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("copyToClipboard()"));
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
    QCOMPARE(method.access(), QMetaMethod::Public);
    QVERIFY(QMetaObject::invokeMethod(m_handler, "copyToClipboard"));
    QCOMPARE(m_handler->calls, 1);
}

void tst_CopyHandlerAbstract::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    QCOMPARE(virtualSlot(&CopyHandlerAbstract::copyToClipboard), Recorder::lastSlotOfQObject() + 1);
    QCOMPARE(virtualSlot(&CopyHandlerAbstract::eventFilter), virtualSlot(&QObject::eventFilter));
}

UI_TEST_MAIN(tst_CopyHandlerAbstract)
#include "tst_CopyHandlerAbstract.moc"
