#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

/// A session bus of the test's own, in the runtime folder of its TestHome. It is the session bus of the process during
/// its lifetime, and starts no services.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Returns the address, or an empty text if the bus has not started.
    const QString& address() const { return m_address; }

    /// Ends the bus, so that its clients are disconnected.
    void stop();

private:
    const QByteArray m_addressBefore;
    QProcess m_daemon;
    QString m_address;
};
