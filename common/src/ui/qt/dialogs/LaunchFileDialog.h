#pragma once

#include "common_ui_qt_export.h"

#include <string>
#include <vector>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Asks for one or several files with a modal dialog over the application's active window, and returns whether the user
/// accepted. ExtendedFileDialog::useNativeFileDialog() determines whether the dialog is the system's or drawn by Qt.
///
///     std::vector<std::string> files;
///     int format = -1;
///     if (zelmar::ui::LaunchFileDialog(files, format, "Open table", {"Tables (*.csv)", "All files (*)"},
///                                      {lastFile}, false, false, 0))
///         open(files.front(), format);
///
/// - `selectedFiles` receives the chosen files in the dialog's order.
/// - `selectedFilterIndex` receives the index (from 0) in `nameFilters` of the filter that was selected in the end, or
///   -1 if it is not among them. The first of several equal filters counts. If the user has replaced a filter by a
///   typed pattern, this is the index of that filter.
/// - `caption` is the title of the dialog.
/// - `nameFilters` contains at least one entry, each of which is one non-empty filter in QFileDialog's syntax.
/// - `initialFiles` are preselected. The dialog opens in the folder of the first entry; a relative path is relative to
///   the current directory of the process. May be empty.
/// - `save` selects a save dialog instead of an open dialog.
/// - `multipleFiles` lets the user choose several existing files.
/// - `initialFilterIndex` is the index (from 0) of the filter that is preselected. Any other value leaves the first one
///   selected.
///
/// Returns false if the user cancels. Also returns false, after the dialog has closed, if the active window is
/// destroyed meanwhile or the application quits. `selectedFiles` and `selectedFilterIndex` are then not changed.
///
/// Known traps:
/// - With both `multipleFiles` and `save` the dialog is a save dialog that accepts only existing files.
///   Kept for existing callers, see docs/compatibility.md: several-files-win-over-saving.
/// - The filter is selected after the file and may change the extension of the preselected name. In a save dialog whose
///   first filter contains "*.*", it is selected before the file, and the name stays unchanged.
///   Kept for existing callers, see docs/compatibility.md: filter-before-file.
/// - Several initial files are passed to the dialog as one quoted text, of which the system's dialog keeps only what
///   follows the last slash. They are preselected there only if they are names without a folder.
///
/// All texts are UTF-8. If the application has no active window, the dialog has no parent. GUI thread only.
COMMON_UI_QT_EXPORT bool LaunchFileDialog(std::vector<std::string>& selectedFiles, int& selectedFilterIndex,
                                          const std::string& caption, const std::vector<std::string>& nameFilters,
                                          const std::vector<std::string>& initialFiles, bool save, bool multipleFiles,
                                          int initialFilterIndex);

} // namespace ui
} // namespace zelmar
