#include "PrivateBus.h"

#include <QFile>

namespace {

const char addressVariable[] = "DBUS_SESSION_BUS_ADDRESS";
const int deadline = 15000; // milliseconds

const char configuration[] = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
    "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1/bus</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
    : m_addressBefore(qgetenv(addressVariable))
{
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QFile file(runtimeFolder + QStringLiteral("/bus.conf"));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QString::fromLatin1(configuration).arg(runtimeFolder).toUtf8());
    file.close();
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + file.fileName(),
                                                   QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(deadline)) {
    }
    if (m_daemon.readLine().isEmpty())
        return;
    // Omits the identifier of the bus, because the D-Bus library reads the address once, and later tests have other
    // buses.
    m_address = QStringLiteral("unix:path=%1/bus").arg(runtimeFolder);
    qputenv(addressVariable, m_address.toUtf8());
}

PrivateBus::~PrivateBus()
{
    stop();
    if (m_addressBefore.isEmpty())
        qunsetenv(addressVariable);
    else
        qputenv(addressVariable, m_addressBefore);
}

void PrivateBus::stop()
{
    m_daemon.terminate();
    if (!m_daemon.waitForFinished(deadline))
        m_daemon.kill();
}
