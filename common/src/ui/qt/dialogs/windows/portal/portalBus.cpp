#include "ui/qt/dialogs/windows/portal/portalBus_p.h"

#include <QFileInfo>
#include <QString>

namespace zelmar::internal {

namespace {

/// Returns whether the session has a bus. The library for D-Bus would start one otherwise.
bool sessionHasBus()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtimeFolder.isEmpty() && QFileInfo::exists(runtimeFolder + QStringLiteral("/bus"));
}

} // namespace

std::optional<QDBusConnection> portalBus()
{
    if (!sessionHasBus())
        return std::nullopt;
    const QString name = QStringLiteral("common_ui_qt_portal");
    const QDBusConnection known(name);
    if (known.isConnected())
        return known;
    QDBusConnection::disconnectFromBus(name);
    const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    return bus.isConnected() ? std::optional<QDBusConnection>(bus) : std::nullopt;
}

} // namespace zelmar::internal
