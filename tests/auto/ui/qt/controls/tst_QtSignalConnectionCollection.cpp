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
static_assert(!std::is_move_constructible<QtSignalConnectionCollection>::value, "an owner stays where it is");
static_assert(!std::is_copy_assignable<QtSignalConnectionCollection>::value, "each connection has one owner");
static_assert(!std::is_move_assignable<QtSignalConnectionCollection>::value, "an owner stays where it is");
static_assert(sizeof(QtSignalConnectionCollection) == sizeof(void*), "the handles are on the heap");
static_assert(!std::has_virtual_destructor<QtSignalConnectionCollection>::value, "nothing to derive from");

namespace {

/// Says something, and writes down which of its connections were cut.
class Sender : public QObject
{
    Q_OBJECT

public:
    QStringList cut;

Q_SIGNALS:
    void first();
    void second();
    void third();

protected:
    void disconnectNotify(const QMetaMethod& signal) override { cut += QString::fromLatin1(signal.name()); }
};

} // namespace

class tst_QtSignalConnectionCollection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDoesNothing();
    void cutsItsConnectionsWhenItDies();
    void cutsFromTheFirstToTheLast();
    void leavesOtherConnections();
    void endsMayDieBefore();
    void handlesMayBeInvalidOrTwice();
    void diesInASlotOfItsOwn();
    void queuedCallsStillArrive();
};

void tst_QtSignalConnectionCollection::emptyDoesNothing()
{
    const QtSignalConnectionCollection empty;
}

void tst_QtSignalConnectionCollection::cutsItsConnectionsWhenItDies()
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

void tst_QtSignalConnectionCollection::cutsFromTheFirstToTheLast()
{
    Sender sender;
    {
        QtSignalConnectionCollection connections;
        connections.add(connect(&sender, &Sender::second, this, [] {}));
        connections.add(connect(&sender, &Sender::third, this, [] {}));
        connections.add(connect(&sender, &Sender::first, this, [] {}));
        QCOMPARE(sender.cut, QStringList());
    }
    QCOMPARE(sender.cut, QStringList({QStringLiteral("second"), QStringLiteral("third"), QStringLiteral("first")}));
}

void tst_QtSignalConnectionCollection::leavesOtherConnections()
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

void tst_QtSignalConnectionCollection::endsMayDieBefore()
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

void tst_QtSignalConnectionCollection::handlesMayBeInvalidOrTwice()
{
    Sender sender;
    int heard = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(QMetaObject::Connection());
        const auto connection = connect(&sender, &Sender::first, this, [&heard] { ++heard; });
        connections.add(connection);
        connections.add(connection);
        const auto cutBefore = connect(&sender, &Sender::second, this, [&heard] { ++heard; });
        connections.add(cutBefore);
        QVERIFY(disconnect(cutBefore));
    }
    Q_EMIT sender.first();
    QCOMPARE(heard, 0);
    QCOMPARE(sender.cut, QStringList({QStringLiteral("second"), QStringLiteral("first")}));
}

/// The slot that runs has what it captured until it returns; those behind it are not called.
void tst_QtSignalConnectionCollection::diesInASlotOfItsOwn()
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
    connections->add(connect(&sender, &Sender::first, this, [&heard] { heard += QStringLiteral("behind"); }));
    connect(&sender, &Sender::first, this, [&heard] { heard += QStringLiteral("another's"); });

    Q_EMIT sender.first();
    QCOMPARE(heard, QStringList({QStringLiteral("before"), QStringLiteral("captured"), QStringLiteral("another's")}));
    QVERIFY(!connections);
    QCOMPARE(watched.use_count(), 1L);
    heard.clear();
    Q_EMIT sender.first();
    QCOMPARE(heard, QStringList({QStringLiteral("another's")}));
}

/// What the header says of queued connections.
void tst_QtSignalConnectionCollection::queuedCallsStillArrive()
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
