#include "ui/qt/controls/QtSignalConnectionCollection.h"

#include "TestHome.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QStringList>
#include <QTest>

#include <memory>
#include <type_traits>

using zelmar::ui::QtSignalConnectionCollection;

static_assert(!std::is_copy_constructible<QtSignalConnectionCollection>::value, "each connection has one owner");
static_assert(!std::is_move_constructible<QtSignalConnectionCollection>::value, "a collection is not moved");
static_assert(!std::is_copy_assignable<QtSignalConnectionCollection>::value, "each connection has one owner");
static_assert(!std::is_move_assignable<QtSignalConnectionCollection>::value, "a collection is not moved");
static_assert(sizeof(QtSignalConnectionCollection) == sizeof(void*), "the only member is a pointer to the handles");
static_assert(!std::has_virtual_destructor<QtSignalConnectionCollection>::value, "the class is no base class");

namespace {

/// A sender that records which of its signals were disconnected.
class Sender : public QObject
{
    Q_OBJECT

public:
    QStringList disconnected;

Q_SIGNALS:
    void first();
    void second();
    void third();

protected:
    void disconnectNotify(const QMetaMethod& signal) override { disconnected += QString::fromLatin1(signal.name()); }
};

} // namespace

class tst_QtSignalConnectionCollection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDoesNothing();
    void disconnectsWhenDestroyed();
    void disconnectsInTheOrderOfAdding();
    void keepsOtherConnections();
    void sendersAndReceiversMayBeDestroyedBefore();
    void handlesMayBeInvalidOrDuplicate();
    void mayBeDestroyedInOneOfItsSlots();
    void queuedCallsAreStillDelivered();
};

void tst_QtSignalConnectionCollection::emptyDoesNothing()
{
    const QtSignalConnectionCollection empty;
}

void tst_QtSignalConnectionCollection::disconnectsWhenDestroyed()
{
    Sender sender;
    int heard = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(&sender, &Sender::first, this, [&heard] { heard += 1; }));
        connections.add(connect(&sender, &Sender::second, [&heard] { heard += 10; }));
        Q_EMIT sender.first();
        Q_EMIT sender.second();
        QCOMPARE(heard, 11);
    }
    Q_EMIT sender.first();
    Q_EMIT sender.second();
    QCOMPARE(heard, 11);
}

void tst_QtSignalConnectionCollection::disconnectsInTheOrderOfAdding()
{
    Sender sender;
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(&sender, &Sender::second, this, [] {}));
        connections.add(connect(&sender, &Sender::third, this, [] {}));
        connections.add(connect(&sender, &Sender::first, this, [] {}));
        QCOMPARE(sender.disconnected, QStringList());
    }
    QCOMPARE(sender.disconnected,
             QStringList({QStringLiteral("second"), QStringLiteral("third"), QStringLiteral("first")}));
}

void tst_QtSignalConnectionCollection::keepsOtherConnections()
{
    Sender sender;
    int heard = 0;
    const auto slot = [&heard] { ++heard; };
    connect(&sender, &Sender::first, this, slot);
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(&sender, &Sender::first, this, slot));
        Q_EMIT sender.first();
        QCOMPARE(heard, 2);
    }
    Q_EMIT sender.first();
    QCOMPARE(heard, 3);
}

void tst_QtSignalConnectionCollection::sendersAndReceiversMayBeDestroyedBefore()
{
    auto deadSender = std::make_unique<Sender>();
    auto deadReceiver = std::make_unique<QObject>();
    Sender sender;
    int heard = 0;
    const auto slot = [&heard] { ++heard; };
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(deadSender.get(), &Sender::first, this, slot));
        connections.add(connect(&sender, &Sender::first, deadReceiver.get(), slot));
        connections.add(connect(&sender, &Sender::second, this, slot));
        deadSender.reset();
        deadReceiver.reset();
        Q_EMIT sender.first();
        QCOMPARE(heard, 0);
        Q_EMIT sender.second();
        QCOMPARE(heard, 1);
    }
    Q_EMIT sender.second();
    QCOMPARE(heard, 1);
}

void tst_QtSignalConnectionCollection::handlesMayBeInvalidOrDuplicate()
{
    Sender sender;
    int heard = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(QMetaObject::Connection());
        const auto connection = connect(&sender, &Sender::first, this, [&heard] { ++heard; });
        connections.add(connection);
        connections.add(connection);
        const auto disconnectedBefore = connect(&sender, &Sender::second, this, [&heard] { ++heard; });
        connections.add(disconnectedBefore);
        QVERIFY(disconnect(disconnectedBefore));
    }
    Q_EMIT sender.first();
    QCOMPARE(heard, 0);
    QCOMPARE(sender.disconnected, QStringList({QStringLiteral("second"), QStringLiteral("first")}));
}

/// The captures of the running slot stay valid until it returns. The remaining slots are not called.
void tst_QtSignalConnectionCollection::mayBeDestroyedInOneOfItsSlots()
{
    Sender sender;
    QStringList heard;
    auto connections = std::make_unique<QtSignalConnectionCollection>();
    const auto captured = std::make_shared<QString>(QStringLiteral("captured"));
    const std::weak_ptr<QString> watched = captured;
    connections->add(connect(&sender, &Sender::first, this, [&heard] { heard += QStringLiteral("before"); }));
    connections->add(connect(&sender, &Sender::first, this, [&heard, &connections, captured] {
        connections.reset();
        heard += *captured;
    }));
    connections->add(connect(&sender, &Sender::first, this, [&heard] { heard += QStringLiteral("after"); }));
    connect(&sender, &Sender::first, this, [&heard] { heard += QStringLiteral("another's"); });

    Q_EMIT sender.first();
    QCOMPARE(heard, QStringList({QStringLiteral("before"), QStringLiteral("captured"), QStringLiteral("another's")}));
    QVERIFY(!connections);
    QCOMPARE(watched.use_count(), 1L);
    heard.clear();
    Q_EMIT sender.first();
    QCOMPARE(heard, QStringList({QStringLiteral("another's")}));
}

/// A signal that was emitted before the collection was destroyed is delivered, a later one is not.
void tst_QtSignalConnectionCollection::queuedCallsAreStillDelivered()
{
    Sender sender;
    int heard = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(
            &sender, &Sender::first, this, [&heard] { ++heard; }, Qt::QueuedConnection));
        Q_EMIT sender.first();
    }
    Q_EMIT sender.first();
    QCOMPARE(heard, 0);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(heard, 1);
}

CORE_TEST_MAIN(tst_QtSignalConnectionCollection)
#include "tst_QtSignalConnectionCollection.moc"
