#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"

#include <optional>

namespace zelmar::internal {

class ControlModel;
struct FileDialogRequest;

/// Returns the question by which a portal shows the dialog of `request`, or nothing if the dialog has a part that no
/// portal can show: a push button, a disabled control, a label of the file-name box, a default extension, or folders to
/// save in.
///
/// Each visible check button becomes a choice without values, and the menu of the accept button one with a value for
/// each visible item. A menu with a single visible item gives the accept button its text. The ids are those of the
/// controls and items, in decimal digits.
COMMON_UI_QT_INTERNAL_EXPORT std::optional<PortalQuestion> portalQuestion(const FileDialogRequest& request,
                                                                          const ControlModel& controls);

} // namespace zelmar::internal
