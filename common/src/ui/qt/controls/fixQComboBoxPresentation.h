#pragma once

#include "common_ui_qt_export.h"

class QComboBox;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Does nothing. A hook for corrections to the appearance of combo boxes, of which the supported versions of Qt need
/// none. An application that calls it for each of its combo boxes receives such a correction with a newer library,
/// without being recompiled.
///
/// Kept for existing callers, see docs/compatibility.md: combo-box-hook-does-nothing.
COMMON_UI_QT_EXPORT void fixQComboBoxPresentation(QComboBox& box);

} // namespace ui
} // namespace zelmar
