#pragma once

#include "PrivateBus.h"
#include "StepQueue.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <vector>

/// A desktop portal on a private bus, which records the requests and answers them as the test says.
///
///     PrivateBus bus;
///     RecordingPortal portal(bus);
///     portal.onRequest("choose", [&] { portal.accept({"/data/a.dat"}); });
///     ... // show a native dialog
///     QCOMPARE(portal.requests().back().title, QString("Open"));
///
/// Each step is taken in the event loop, after the portal has replied to a call. The end of the portal fails the test
/// if a step is left, or if a request came for which there was none.
class RecordingPortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")

public:
    struct Request
    {
        QString method;
        QString parentWindow;
        QString title;
        QVariantMap options;
        QString path;
    };

    /// The ways in which the portal handles calls: it replies with the path of the request, with a path of its own
    /// choice like an older portal, with an error, or not at all, or it answers the request before it replies.
    enum class Conduct { Replies, ChoosesPath, RepliesWithError, DoesNotReply, AnswersAtOnce };

    explicit RecordingPortal(const PrivateBus& bus);
    ~RecordingPortal() override;

    Conduct conduct = Conduct::Replies;

    /// Performs `action` for the next request.
    void onRequest(const QString& name, std::function<void()> action);

    /// Answers the latest request: the user has accepted the dialog and chosen `files`.
    void accept(const QStringList& files, QVariantMap results = {});
    /// Answers the latest request with a code of the portal and results.
    void respond(uint code, const QVariantMap& results = {});
    /// Replies to the latest call, which has had no reply.
    void replyLate();
    /// Leaves the bus.
    void leave();

    const std::vector<Request>& requests() const { return m_requests; }
    /// Returns the paths of the requests that were closed by their caller.
    const QStringList& closed() const { return m_closed; }
    void recordClose(const QString& path) { m_closed += path; }

public Q_SLOTS:
    QDBusObjectPath OpenFile(const QString& parentWindow, const QString& title, const QVariantMap& options);
    QDBusObjectPath SaveFile(const QString& parentWindow, const QString& title, const QVariantMap& options);

private:
    QDBusObjectPath take(Request request);
    void takeStep();

    QDBusConnection m_bus;
    QDBusMessage m_call; ///< the latest one
    StepQueue<std::function<void()>> m_steps;
    std::vector<Request> m_requests;
    std::vector<std::unique_ptr<QObject>> m_requestObjects;
    QStringList m_closed;
};

/// A request of a RecordingPortal, which its caller may close.
class RecordedRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    RecordedRequest(RecordingPortal& portal, const QString& path)
        : m_portal(portal)
        , m_path(path)
    {
    }

public Q_SLOTS:
    void Close() { m_portal.recordClose(m_path); }

private:
    RecordingPortal& m_portal;
    const QString m_path;
};
