#pragma once

#include "common_ui_qt_export.h"

#include <string>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

// Functions that register fonts shipped with the application, so that it can use them without installing them in the
// system. The fonts stay registered until the application ends. Other programs do not see them.
//
//     zelmar::ui::addFontsToDatabase(QCoreApplication::applicationDirPath().toStdString() + "/fonts");
//     QApplication::setFont(QFont("Our Sans"));
//
// Paths are UTF-8 on every platform. For a file that cannot be loaded, the functions log the warning "Warning: Failed
// to load TrueType font from <path>" through Qt's message logger; they return no result and throw nothing. Despite its
// wording they load every font format that Qt supports.
//
// GUI thread only, with a running QGuiApplication.

/// Registers the font file `path` (UTF-8). Logs a warning if it cannot be loaded.
COMMON_UI_QT_EXPORT void addFontToDatabase(const std::string& path);

/// Registers every file in `directory` (UTF-8), in unspecified order. Subdirectories and hidden files are ignored. If
/// the directory does not exist or cannot be read, the function does nothing and logs nothing.
///
/// Files are not filtered by name, so a file that is not a font causes a warning.
///
/// Kept for existing callers, see docs/compatibility.md: every-file-is-tried-as-font.
///
/// The path of a file is `directory`, a separator and the file name. A `directory` that ends with a separator yields
/// two separators in a row, which is harmless.
///
/// Kept for existing callers, see docs/compatibility.md: doubled-font-separator.
///
/// Known trap: an empty `directory` lists the current directory, but its files are then looked for in the root
/// directory.
COMMON_UI_QT_EXPORT void addFontsToDatabase(const std::string& directory);

} // namespace ui
} // namespace zelmar
