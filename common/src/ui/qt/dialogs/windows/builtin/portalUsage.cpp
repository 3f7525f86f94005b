#include "ui/qt/dialogs/windows/builtin/portalUsage_p.h"

#include <QFileInfo>
#include <QGuiApplication>

namespace zelmar::internal {

using ui::PortalUse;

PortalSurroundings portalSurroundings()
{
    // Flatpak creates the file, and Snap sets the variable.
    const bool sandboxed = QFileInfo::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP");
    return {QGuiApplication::platformName(), qEnvironmentVariable("XDG_CURRENT_DESKTOP"), sandboxed};
}

bool callsForPortal(PortalUse use, const PortalSurroundings& surroundings)
{
    if (use != PortalUse::Automatic)
        return use == PortalUse::Always;
    const bool onScreen =
        surroundings.platform == QLatin1String("xcb") || surroundings.platform.startsWith(QLatin1String("wayland"));
    return onScreen && (surroundings.sandboxed || !surroundings.desktop.isEmpty());
}

} // namespace zelmar::internal
