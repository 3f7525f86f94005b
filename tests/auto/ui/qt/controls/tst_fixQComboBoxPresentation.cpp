#include "ui/qt/controls/fixQComboBoxPresentation.h"

#include "TestHome.h"

#include <QApplication>
#include <QComboBox>
#include <QDebug>
#include <QMetaProperty>
#include <QTest>

using zelmar::ui::fixQComboBoxPresentation;

namespace {

/// Returns the class name, the object name and all property values of `object` and, recursively, of its children.
QStringList state(const QObject& object)
{
    QStringList lines{QString::fromLatin1(object.metaObject()->className()) + object.objectName()};
    for (int i = 0; i < object.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object.metaObject()->property(i);
        QString value;
        QDebug(&value) << property.read(&object);
        lines += QString::fromLatin1(property.name()) + value;
    }
    for (const QObject* child : object.children())
        lines += state(*child);
    return lines;
}

/// An event filter that counts the events of an object.
class EventCount : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override
    {
        ++count;
        return false;
    }
    int count = 0;
};

} // namespace

class tst_fixQComboBoxPresentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesNothing_data();
    void changesNothing();
};

void tst_fixQComboBoxPresentation::changesNothing_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<int>("items");

    QTest::newRow("empty and hidden") << false << false << 0;
    QTest::newRow("shown with items") << false << true << 3;
    QTest::newRow("editable with items") << true << true << 3;
}

void tst_fixQComboBoxPresentation::changesNothing()
{
    QFETCH(bool, editable);
    QFETCH(bool, shown);
    QFETCH(int, items);
    QComboBox box;
    box.setEditable(editable);
    for (int i = 0; i < items; ++i)
        box.addItem(QString::number(i), i);
    if (shown) {
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
    }
    int signalCount = 0;
    const auto count = [&signalCount] { ++signalCount; };
    connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), count);
    connect(&box, &QComboBox::currentTextChanged, count);
    connect(&box, &QComboBox::editTextChanged, count);
    connect(box.model(), &QAbstractItemModel::dataChanged, count);
    connect(box.model(), &QAbstractItemModel::layoutChanged, count);

    // The test does not call view(), because that creates the view, which is a change as well.
    const QStringList before = state(box);
    EventCount events;
    QCoreApplication::sendPostedEvents(&box, QEvent::UpdateRequest);
    box.installEventFilter(&events);
    fixQComboBoxPresentation(box);
    QCoreApplication::sendPostedEvents(&box, QEvent::UpdateRequest);
    QCOMPARE(events.count, 0);
    QCOMPARE(signalCount, 0);
    box.removeEventFilter(&events);
    QCOMPARE(state(box), before);
}

UI_TEST_MAIN(tst_fixQComboBoxPresentation)
#include "tst_fixQComboBoxPresentation.moc"
