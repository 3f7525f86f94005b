#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/PortalUse.h"

#include <QString>

namespace zelmar::internal {

/// The properties of the environment that decide on the use of a portal.
struct PortalSurroundings
{
    QString platform;       ///< the name of Qt's platform plugin
    QString desktop;        ///< the name of the desktop, or an empty text
    bool sandboxed = false; ///< whether the application runs in a sandbox
};

/// Returns the surroundings of this process.
COMMON_UI_QT_INTERNAL_EXPORT PortalSurroundings portalSurroundings();

/// Returns whether a portal is to show native dialogs.
COMMON_UI_QT_INTERNAL_EXPORT bool callsForPortal(ui::PortalUse use, const PortalSurroundings& surroundings);

} // namespace zelmar::internal
