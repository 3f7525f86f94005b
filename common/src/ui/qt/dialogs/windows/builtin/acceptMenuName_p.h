#pragma once

#include "ui/qt/dialogs/windows/builtin/dialogOptions_p.h"

#include <QString>

namespace zelmar::internal {

/// Returns the name of the accept button's menu for the tool tip of its arrow, for assistive technology and for a
/// portal.
QString acceptMenuName(DialogKind kind);

} // namespace zelmar::internal
