#include "ui/qt/dialogs/windows/portal/PortalRequest_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"

#include "RecordingPortal.h"
#include "TestHome.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace zelmar::internal;
using Conduct = RecordingPortal::Conduct;
using Outcome = PortalRequest::Outcome;

Q_DECLARE_METATYPE(RecordingPortal::Conduct)

/// Tests one request against a portal that behaves in every way it may, and in some it may not.
class tst_PortalRequest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void transmitsTheQuestion();
    void answered_data();
    void answered();
    void cancelledByTheUser();
    void endedAtOnce_data();
    void endedAtOnce();
    void endedLater();
    void errorReply();
    void noReply();
    void lateReply();
    void closedWhileOpen();
    void closedBeforeTheReply();
    void answerAfterClose();
    void portalLeaves();
    void busStops();
    void noPortal();
    void noBus();
    void nextBus();
    void answersOfOthersAreIgnored();
    void quit();

private:
    void closeSoon(PortalRequest& request);

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<RecordingPortal> m_portal;
};

void tst_PortalRequest::init()
{
    m_bus = std::make_unique<PrivateBus>();
    QVERIFY(!m_bus->address().isEmpty());
    m_portal = std::make_unique<RecordingPortal>(*m_bus);
}

void tst_PortalRequest::cleanup()
{
    m_portal.reset();
    m_bus.reset();
}

void tst_PortalRequest::transmitsTheQuestion()
{
    PortalQuestion question;
    question.kind = PortalQuestion::Kind::SaveFile;
    question.parentWindow = QStringLiteral("x11:2a");
    question.title = QStringLiteral("T\u00eftle");
    question.acceptLabel = QStringLiteral("_Keep");
    question.filters = {{QStringLiteral("Data"), {{0, QStringLiteral("*.dat")}}}};
    question.folder = QStringLiteral("/data");
    question.name = QStringLiteral("run.dat");
    question.choices = {{QStringLiteral("1"),
                         QStringLiteral("Encoding"),
                         {{QStringLiteral("u"), QStringLiteral("UTF-8")}},
                         QStringLiteral("u")}};
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QCOMPARE(PortalRequest().ask(question), Outcome::Cancelled);

    const RecordingPortal::Request& request = m_portal->requests().back();
    QCOMPARE(request.method, QStringLiteral("SaveFile"));
    QCOMPARE(request.parentWindow, QStringLiteral("x11:2a"));
    QCOMPARE(request.title, QStringLiteral("T\u00eftle"));
    QCOMPARE(request.options.keys(), (QStringList{"accept_label", "choices", "current_filter", "current_folder",
                                                  "current_name", "filters", "handle_token", "modal"}));
    const auto signatureOf = [&request](const char* key) {
        return request.options.value(QLatin1String(key)).value<QDBusArgument>().currentSignature();
    };
    QCOMPARE(signatureOf("filters"), QStringLiteral("a(sa(us))"));
    QCOMPARE(signatureOf("current_filter"), QStringLiteral("(sa(us))"));
    QCOMPARE(signatureOf("choices"), QStringLiteral("a(ssa(ss)s)"));
    QCOMPARE(request.options.value("current_folder").toByteArray(), QByteArray("/data", 6));
    QVERIFY(qdbus_cast<QList<PortalFilter>>(request.options.value("filters")) == question.filters);
    QVERIFY(qdbus_cast<PortalFilter>(request.options.value("current_filter")) == question.filters[0]);
    QVERIFY(qdbus_cast<QList<PortalChoice>>(request.options.value("choices")) == question.choices);
}

void tst_PortalRequest::answered_data()
{
    QTest::addColumn<RecordingPortal::Conduct>("conduct");
    QTest::newRow("after the reply") << Conduct::Replies;
    QTest::newRow("at the path that the portal has chosen") << Conduct::ChoosesPath;
    QTest::newRow("before the reply") << Conduct::AnswersAtOnce;
}

void tst_PortalRequest::answered()
{
    QFETCH(RecordingPortal::Conduct, conduct);
    m_portal->conduct = conduct;
    for (const char* file : {"/a", "/b"}) {
        m_portal->onRequest("accept", [this, file] { m_portal->accept({QLatin1String(file)}); });
        PortalRequest request;
        QCOMPARE(request.ask({}), Outcome::Answered);
        QCOMPARE(request.results().value("uris").toStringList(), QStringList{QLatin1String("file://") + file});
    }
    QVERIFY(m_portal->requests()[0].path != m_portal->requests()[1].path);
    QVERIFY(m_portal->closed().isEmpty());
}

void tst_PortalRequest::cancelledByTheUser()
{
    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled);
    QVERIFY(m_portal->closed().isEmpty());
}

void tst_PortalRequest::endedAtOnce_data()
{
    QTest::addColumn<RecordingPortal::Conduct>("conduct");
    QTest::newRow("after the reply") << Conduct::Replies;
    QTest::newRow("before the reply") << Conduct::AnswersAtOnce;
}

/// A portal without a back end does so. No user has seen a dialog.
void tst_PortalRequest::endedAtOnce()
{
    QFETCH(RecordingPortal::Conduct, conduct);
    m_portal->conduct = conduct;
    m_portal->onRequest("end", [this] { m_portal->respond(2); });
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
}

/// A user who closes the window of a dialog ends the request in the same way, but not at once.
void tst_PortalRequest::endedLater()
{
    m_portal->onRequest("end", [this] { QTimer::singleShot(800, m_portal.get(), [this] { m_portal->respond(2); }); });
    QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled);
}

void tst_PortalRequest::errorReply()
{
    m_portal->conduct = Conduct::RepliesWithError;
    m_portal->onRequest("nothing", [] {});
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
    QVERIFY(m_portal->closed().isEmpty());
}

/// Waits for about a second while the event loop runs, and closes the request in case the portal opens it after all.
void tst_PortalRequest::noReply()
{
    m_portal->conduct = Conduct::DoesNotReply;
    m_portal->onRequest("nothing", [] {});
    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, [&ticks] { ++ticks; });
    ticker.start(10);
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
    QVERIFY(ticks > 10);
    QTRY_VERIFY(m_portal->closed().contains(m_portal->requests().back().path));
}

/// The portal shows its dialog after the caller has given up. The dialog must not stay.
void tst_PortalRequest::lateReply()
{
    m_portal->conduct = Conduct::DoesNotReply;
    m_portal->onRequest("nothing", [] {});
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
    QTRY_COMPARE(m_portal->closed().size(), 1);
    m_portal->replyLate();
    QTRY_COMPARE(m_portal->closed().size(), 2);
}

void tst_PortalRequest::closeSoon(PortalRequest& request)
{
    QTimer::singleShot(0, &request, [&request] { request.close(); });
}

void tst_PortalRequest::closedWhileOpen()
{
    PortalRequest request;
    m_portal->onRequest("close", [this, &request] { closeSoon(request); });
    QCOMPARE(request.ask({}), Outcome::Cancelled);
    QTRY_VERIFY(m_portal->closed().contains(m_portal->requests().back().path));
}

void tst_PortalRequest::closedBeforeTheReply()
{
    m_portal->conduct = Conduct::DoesNotReply;
    {
        PortalRequest request;
        m_portal->onRequest("close", [this, &request] { closeSoon(request); });
        QCOMPARE(request.ask({}), Outcome::Cancelled);
    }
    QTRY_COMPARE(m_portal->closed().size(), 1);
    m_portal->replyLate();
    QTRY_COMPARE(m_portal->closed().size(), 2);
}

void tst_PortalRequest::answerAfterClose()
{
    PortalRequest request;
    m_portal->onRequest("close", [this, &request] { closeSoon(request); });
    QCOMPARE(request.ask({}), Outcome::Cancelled);
    QTRY_VERIFY(!m_portal->closed().isEmpty());
    m_portal->accept({QStringLiteral("/a")});

    m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
    QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled); // After the answer to the first request has arrived.
    QVERIFY(request.results().isEmpty());
}

void tst_PortalRequest::portalLeaves()
{
    m_portal->onRequest("leave", [this] { m_portal->leave(); });
    QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled);
}

void tst_PortalRequest::busStops()
{
    m_portal->onRequest("stop", [this] {
        // The bus delivers in order: after an answer of its own, the portal's reply has arrived, too.
        const QDBusConnection client(QStringLiteral("common_ui_qt_portal"));
        QVERIFY(client.interface()->isServiceRegistered(client.baseService()));
        m_bus->stop();
    });
    QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled);
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
}

void tst_PortalRequest::noPortal()
{
    m_portal->leave();
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
}

void tst_PortalRequest::noBus()
{
    m_portal.reset();
    m_bus.reset();
    QVERIFY(qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"));
    QCOMPARE(PortalRequest().ask({}), Outcome::NotShown);
}

/// The process connects again after the bus of its session was replaced.
void tst_PortalRequest::nextBus()
{
    for (int i = 0; i < 2; ++i) {
        m_portal->onRequest("cancel", [this] { m_portal->respond(1); });
        QCOMPARE(PortalRequest().ask({}), Outcome::Cancelled);
        cleanup();
        init();
    }
}

/// A program that is not the portal sends an answer.
void tst_PortalRequest::answersOfOthersAreIgnored()
{
    m_portal->onRequest("forge, cancel", [this] {
        QDBusConnection other = QDBusConnection::connectToBus(m_bus->address(), QStringLiteral("another program"));
        QDBusMessage forged =
            QDBusMessage::createSignal(m_portal->requests().back().path,
                                       QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        forged << 0U << QVariantMap{{"uris", QStringList{"file:///forged"}}};
        QVERIFY(other.send(forged));
        other.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                                  QStringLiteral("/org/freedesktop/DBus"),
                                                  QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        QDBusConnection::disconnectFromBus(QStringLiteral("another program"));
        m_portal->respond(1);
    });
    PortalRequest request;
    QCOMPARE(request.ask({}), Outcome::Cancelled);
    QVERIFY(request.results().isEmpty());
}

void tst_PortalRequest::quit()
{
    m_portal->onRequest("quit", [] { QCoreApplication::quit(); });
    Outcome outcome = Outcome::Answered;
    QTimer::singleShot(0, this, [&outcome] { outcome = PortalRequest().ask({}); });
    QCoreApplication::exec();
    QCOMPARE(outcome, Outcome::Cancelled);
    QTRY_VERIFY(m_portal->closed().contains(m_portal->requests().back().path));
}

CORE_TEST_MAIN(tst_PortalRequest)
#include "tst_PortalRequest.moc"
