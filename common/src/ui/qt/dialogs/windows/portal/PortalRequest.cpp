#include "ui/qt/dialogs/windows/portal/PortalRequest_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"
#include "ui/qt/dialogs/windows/portal/portalBus_p.h"
#include "ui/qt/dialogs/windows/portal/portalMarshalling_p.h"
#include "ui/qt/dialogs/windows/portal/portalOptions_p.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QRandomGenerator>
#include <QTimer>

#include <utility>

namespace zelmar::internal {

namespace {

const int replyDeadline = 1000; // milliseconds

/// A portal without a back end ends the dialog at once. No user closes a dialog within this time.
const qint64 shortestDialog = 300; // milliseconds

const QString& service()
{
    static const QString name = QStringLiteral("org.freedesktop.portal.Desktop");
    return name;
}

const QString& requestInterface()
{
    static const QString name = QStringLiteral("org.freedesktop.portal.Request");
    return name;
}

void registerTypes()
{
    static const bool done = [] {
        qDBusRegisterMetaType<PortalFilterRule>();
        qDBusRegisterMetaType<QList<PortalFilterRule>>();
        qDBusRegisterMetaType<PortalFilter>();
        qDBusRegisterMetaType<QList<PortalFilter>>();
        qDBusRegisterMetaType<PortalPair>();
        qDBusRegisterMetaType<QList<PortalPair>>();
        qDBusRegisterMetaType<PortalChoice>();
        qDBusRegisterMetaType<QList<PortalChoice>>();
        return true;
    }();
    Q_UNUSED(done)
}

QString makeToken()
{
    return QStringLiteral("common_ui_qt_%1").arg(QRandomGenerator::global()->generate64(), 0, 36);
}

/// Returns the object path of a request. It must be known before the call, because the response may arrive before the
/// reply.
QString requestPath(const QDBusConnection& bus, const QString& token)
{
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

void closeRequest(const QDBusConnection& bus, const QString& path)
{
    bus.asyncCall(QDBusMessage::createMethodCall(service(), path, requestInterface(), QStringLiteral("Close")));
}

} // namespace

PortalRequest::PortalRequest()
{
    registerTypes();
    if (const std::optional<QDBusConnection> bus = portalBus())
        m_bus = std::make_unique<QDBusConnection>(*bus);
}

PortalRequest::~PortalRequest()
{
    sendClose();
}

PortalRequest::Outcome PortalRequest::ask(const PortalQuestion& question)
{
    if (!m_bus)
        return Outcome::NotShown;
    const QDBusServiceWatcher watcher(service(), *m_bus, QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalRequest::losePortal);
    m_bus->connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                   QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                   SLOT(losePortal()));
    call(question);
    if (!m_outcome)
        m_loop.exec(QEventLoop::DialogExec);
    if (!m_outcome) // The application quits.
        close();
    return *m_outcome;
}

void PortalRequest::close()
{
    sendClose();
    finish(Outcome::Cancelled);
}

void PortalRequest::call(const PortalQuestion& question)
{
    const QString token = makeToken();
    m_path = requestPath(*m_bus, token);
    listen();
    QDBusMessage message =
        QDBusMessage::createMethodCall(service(), QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.FileChooser"), portalMethod(question));
    message << question.parentWindow << question.title << portalOptions(question, token);
    m_isOpen = true;
    m_reply = new QDBusPendingCallWatcher(m_bus->asyncCall(message), this);
    connect(m_reply, &QDBusPendingCallWatcher::finished, this, &PortalRequest::takeReply);
    QTimer::singleShot(replyDeadline, this, [this] { stopWaitingForReply(); });
}

/// Takes the portal's reply to the call, which names the path of the request.
void PortalRequest::takeReply()
{
    const QDBusPendingReply<QDBusObjectPath> path = *m_reply;
    m_reply->deleteLater();
    m_reply = nullptr;
    if (path.isError()) {
        m_isOpen = false;
        finish(Outcome::NotShown);
        return;
    }
    m_sinceReply.start();
    m_path = path.value().path(); // Older portals choose the path themselves.
    const auto response = m_otherResponses.constFind(m_path);
    if (response != m_otherResponses.constEnd())
        end(response->first, response->second);
}

/// Subscribes to the portal's answers. The portal sends only those to requests of this process.
void PortalRequest::listen()
{
    m_bus->connect(service(), QString(), requestInterface(), QStringLiteral("Response"), this,
                   SLOT(takeResponse(uint, QVariantMap, QDBusMessage)));
}

void PortalRequest::stopWaitingForReply()
{
    if (m_sinceReply.isValid() || m_outcome)
        return;
    sendClose();
    finish(Outcome::NotShown);
}

void PortalRequest::takeResponse(uint code, const QVariantMap& results, const QDBusMessage& message)
{
    if (message.path() == m_path)
        end(code, results);
    else
        m_otherResponses.insert(message.path(), {code, results});
}

/// Ends the request with the portal's answer, which may come too late.
void PortalRequest::end(uint code, const QVariantMap& results)
{
    if (m_outcome)
        return;
    m_isOpen = false;
    if (code == 0) {
        m_results = results;
        finish(Outcome::Answered);
        return;
    }
    const bool atOnce = !m_sinceReply.isValid() || m_sinceReply.elapsed() < shortestDialog;
    finish(code != 1 && atOnce ? Outcome::NotShown : Outcome::Cancelled);
}

/// Ends the request because the portal or the connection to the bus has gone.
void PortalRequest::losePortal()
{
    m_isOpen = false;
    finish(m_sinceReply.isValid() ? Outcome::Cancelled : Outcome::NotShown);
}

void PortalRequest::sendClose()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    closeRequest(*m_bus, m_path);
    if (m_reply)
        closeWhenReplied(*std::exchange(m_reply, nullptr));
}

/// Closes the request once more when the portal replies, because it may have missed the first call. The watcher
/// outlives this object.
void PortalRequest::closeWhenReplied(QDBusPendingCallWatcher& reply)
{
    reply.disconnect(this);
    reply.setParent(QCoreApplication::instance());
    connect(&reply, &QDBusPendingCallWatcher::finished, [bus = *m_bus](QDBusPendingCallWatcher* late) {
        const QDBusPendingReply<QDBusObjectPath> path = *late;
        if (path.isValid())
            closeRequest(bus, path.value().path());
        late->deleteLater();
    });
}

void PortalRequest::finish(Outcome outcome)
{
    if (m_outcome)
        return;
    m_outcome = outcome;
    m_loop.quit();
}

} // namespace zelmar::internal
