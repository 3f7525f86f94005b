#pragma once

#include "common_ui_qt_export.h"

class QMainWindow;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Returns the application's main window, for example as the parent of a dialog: the first widget in
/// QApplication::topLevelWidgets() that is a QMainWindow and for which isWindow() is true. Returns null as long as no
/// such window has been found.
///
///     QMessageBox::information(zelmar::ui::findMainWindow(false), "Run", "The run is over.");
///
/// The result is cached for the whole process. If `refresh` is false, a cached window is returned without a search,
/// even if it is hidden or other main windows exist. If `refresh` is true, the function searches again.
///
/// Known trap: the cached pointer is never cleared. A search that finds nothing returns the window that was found last,
/// and after that window has been destroyed the returned pointer dangles. An application whose main window may be
/// destroyed while it still shows dialogs must call this function with `refresh` true once the next main window exists,
/// and must not call it in between.
///
/// Kept for existing callers, see docs/compatibility.md: main-window-never-forgotten.
///
/// GUI thread only, with a running QApplication.
COMMON_UI_QT_EXPORT QMainWindow* findMainWindow(bool refresh);

} // namespace ui
} // namespace zelmar
