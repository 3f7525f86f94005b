#include "RecordingPortal.h"

#include <QDBusError>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace {

const QString connectionName = QStringLiteral("recording portal");
const QString serviceName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString objectPath = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace

RecordingPortal::RecordingPortal(const PrivateBus& bus)
    : m_bus(QDBusConnection::connectToBus(bus.address(), connectionName))
    , m_steps(0)
{
    if (!m_bus.registerObject(objectPath, this, QDBusConnection::ExportAllSlots) || !m_bus.registerService(serviceName))
        m_steps.fail(m_bus.lastError().message());
}

RecordingPortal::~RecordingPortal()
{
    leave();
    QDBusConnection::disconnectFromBus(connectionName);
}

void RecordingPortal::onRequest(const QString& name, std::function<void()> action)
{
    m_steps.add(name, std::move(action));
}

void RecordingPortal::accept(const QStringList& files, QVariantMap results)
{
    QStringList locations;
    for (const QString& file : files)
        locations += QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    results.insert(QStringLiteral("uris"), locations);
    respond(0, results);
}

void RecordingPortal::respond(uint code, const QVariantMap& results)
{
    QDBusMessage response = QDBusMessage::createSignal(
        m_requests.back().path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    response << code << results;
    m_bus.send(response);
}

void RecordingPortal::replyLate()
{
    m_bus.send(m_call.createReply(QVariant::fromValue(QDBusObjectPath(m_requests.back().path))));
}

void RecordingPortal::leave()
{
    m_bus.unregisterService(serviceName);
}

QDBusObjectPath RecordingPortal::OpenFile(const QString& parentWindow, const QString& title, const QVariantMap& options)
{
    return take({QStringLiteral("OpenFile"), parentWindow, title, options, {}});
}

QDBusObjectPath RecordingPortal::SaveFile(const QString& parentWindow, const QString& title, const QVariantMap& options)
{
    return take({QStringLiteral("SaveFile"), parentWindow, title, options, {}});
}

QDBusObjectPath RecordingPortal::take(Request request)
{
    m_call = message();
    const QString sender = message().service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    const QString token = conduct == Conduct::ChoosesPath
                              ? QStringLiteral("t%1").arg(m_requests.size())
                              : request.options.value(QStringLiteral("handle_token")).toString();
    request.path = objectPath + QStringLiteral("/request/%1/%2").arg(sender, token);
    m_requestObjects.push_back(std::make_unique<RecordedRequest>(*this, request.path));
    m_bus.registerObject(request.path, m_requestObjects.back().get(), QDBusConnection::ExportAllSlots);
    m_requests.push_back(std::move(request));

    if (conduct == Conduct::RepliesWithError)
        sendErrorReply(QDBusError::NotSupported, QStringLiteral("no dialogs here"));
    if (conduct == Conduct::DoesNotReply)
        setDelayedReply(true);
    if (conduct == Conduct::AnswersAtOnce)
        takeStep();
    else
        QTimer::singleShot(0, this, [this] { takeStep(); });
    return QDBusObjectPath(m_requests.back().path);
}

void RecordingPortal::takeStep()
{
    if (!m_steps.isEmpty()) {
        m_steps.takeNext()();
        return;
    }
    m_steps.fail(QStringLiteral("a request for which there is no step"));
    respond(1);
}
