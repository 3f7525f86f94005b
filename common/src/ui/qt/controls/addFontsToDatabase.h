#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Fonts that an application ships beside itself, made known to it without being installed in the system. They stay
/// until the application ends, and no other program sees them.
///
///     zelmar::ui::addFontsToDatabase(QCoreApplication::applicationDirPath().toStdString() + "/fonts");
///     QApplication::setFont(QFont("Our Sans"));
///
/// Paths are UTF-8 on every platform. Nothing is thrown or returned: what cannot be loaded is a warning on Qt's message
/// logger, "Warning: Failed to load TrueType font from " and the path. Despite these words any kind of font that Qt can
/// load will do.
///
/// GUI thread only, with a running QGuiApplication.

/// Registers the font file `path`.
COMMON_UI_QT_EXPORT void addFontToDatabase(const std::string& path);

/// Registers each file in `directory`, in no certain order, whatever its name. A file that is no font is a warning,
/// too. Sub-directories are not entered and hidden files are left out. A directory that is missing or cannot be read is
/// as good as an empty one, without a warning.
///
/// `directory` stands in the paths as it is: one with a separator at its end yields two in a row, which does no harm.
/// The empty one is a trap: it lists the current directory and looks for these names in the root.
COMMON_UI_QT_EXPORT void addFontsToDatabase(const std::string& directory);

} // namespace ui
} // namespace zelmar
