#pragma once

#include "common_ui_qt_export.h"

class QMainWindow;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// The application's main window: the first QMainWindow that is a window among QApplication::topLevelWidgets(), in
/// their order. Null until one was found. For dialogs that need a parent and are given none.
///
///     QMessageBox::information(zelmar::ui::findMainWindow(false), "Run", "The run is over.");
///
/// The window that was found is remembered for the whole process. With `refresh` false it is returned without another
/// look, even if it is hidden or there are others now; with `refresh` true it is looked for again.
///
/// Known trap: the memory is a plain pointer that is never cleared, on purpose: a search that finds nothing returns the
/// window that was found last. Once that window was destroyed, the pointer points to nothing, and using it is undefined
/// behaviour; it is only good for being compared. An application whose main window may go while dialogs are still shown
/// asks with `refresh` true after another main window is there, and not at all while there is none.
///
/// GUI thread only, with a running QApplication.
COMMON_UI_QT_EXPORT QMainWindow* findMainWindow(bool refresh);

} // namespace ui
} // namespace zelmar
