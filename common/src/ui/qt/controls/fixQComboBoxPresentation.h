#pragma once

#include "common_ui_qt_export.h"

class QComboBox;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A hook for corrections to how combo boxes look on a platform. On purpose it does nothing now: no Qt that the library
/// is built with needs any. Applications call it for each of their combo boxes, and get a correction without being
/// changed, or compiled anew, if one is needed again.
COMMON_UI_QT_EXPORT void fixQComboBoxPresentation(QComboBox& box);

} // namespace ui
} // namespace zelmar
