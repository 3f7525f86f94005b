#pragma once

#include "internal_export_p.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <utility>

class QDBusConnection;
class QDBusMessage;
class QDBusPendingCallWatcher;

namespace zelmar::internal {

struct PortalQuestion;

/// One request to the desktop portal to let the user choose files. Waits for the user in a local event loop, so that
/// the application stays responsive.
///
/// The portal must answer the call within a second. The user may take any time.
class COMMON_UI_QT_INTERNAL_EXPORT PortalRequest : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        Answered,  ///< The user has accepted the dialog.
        Cancelled, ///< The user or close() has closed the dialog, or the portal has gone.
        NotShown   ///< No portal has shown a dialog, or the session has no bus.
    };

    PortalRequest();
    /// Closes the portal's dialog if it is open.
    ~PortalRequest() override;
    Q_DISABLE_COPY(PortalRequest)

    /// Asks the portal and waits for the outcome. Cancels the request when the application quits. May be called only
    /// once.
    Outcome ask(const PortalQuestion& question);

    /// Closes the portal's dialog. A running ask() then returns Cancelled.
    void close();

    /// Returns the results after the outcome Answered.
    const QVariantMap& results() const { return m_results; }

private Q_SLOTS:
    void takeResponse(uint code, const QVariantMap& results, const QDBusMessage& message);
    void losePortal();

private:
    void call(const PortalQuestion& question);
    void takeReply();
    void listen();
    void end(uint code, const QVariantMap& results);
    void stopWaitingForReply();
    void sendClose();
    void closeWhenReplied(QDBusPendingCallWatcher& reply);
    void finish(Outcome outcome);

    std::unique_ptr<QDBusConnection> m_bus;                       ///< null without a session bus
    QString m_path;                                               ///< the path of the request
    QDBusPendingCallWatcher* m_reply = nullptr;                   ///< null unless the portal owes the reply to the call
    QMap<QString, std::pair<uint, QVariantMap>> m_otherResponses; ///< the responses to requests at other paths
    QEventLoop m_loop;
    QElapsedTimer m_sinceReply;
    QVariantMap m_results;
    std::optional<Outcome> m_outcome;
    bool m_isOpen = false; ///< whether the portal may be showing a dialog for this request
};

} // namespace zelmar::internal
