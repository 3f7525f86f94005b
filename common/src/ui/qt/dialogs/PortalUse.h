#pragma once

#include "common_ui_qt_export.h"

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A setting that determines when the native dialogs of Linux and other Unix desktops ask the desktop portal to show
/// the system's own dialog.
enum class PortalUse {
    /// The portal shows the dialog if the application runs in a sandbox (Flatpak, Snap) or in a desktop session that
    /// names its desktop (XDG_CURRENT_DESKTOP), and if Qt draws on X11 or Wayland.
    Automatic,
    /// The library shows its own dialog.
    Never,
    /// The portal shows the dialog in every session that has a portal.
    Always
};

/// Sets when the portal shows native dialogs; PortalUse::Automatic by default. Applies to dialogs that are shown later.
///
///     zelmar::ui::setPortalUse(zelmar::ui::PortalUse::Never);
///
/// With every setting the library shows its own dialog where a portal cannot show what the application has asked for,
/// and where no portal answers within a second. Which dialog shows what is listed in docs/portals.md.
///
/// Has no effect on Windows and on dialogs that Qt draws. GUI thread only.
COMMON_UI_QT_EXPORT void setPortalUse(PortalUse use);

/// Returns when the portal shows native dialogs.
COMMON_UI_QT_EXPORT PortalUse portalUse();

} // namespace ui
} // namespace zelmar
