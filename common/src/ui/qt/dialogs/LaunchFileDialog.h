#pragma once

#include "common_ui_qt_export.h"

#include <string>
#include <vector>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Asks for a file in one call, with the system's file dialog or the Qt-drawn one as ExtendedFileDialog says, over the
/// application's active window.
///
///     std::vector<std::string> files;
///     int format = -1;
///     if (zelmar::ui::LaunchFileDialog(files, format, "Open table", {"Tables (*.csv)", "All files (*)"},
///                                      {lastFile}, false, false, 0))
///         open(files.front(), format);
///
/// `selectedFiles` and `selectedFilterIndex` are set when the user accepts, to the chosen files in the dialog's order
/// and to the index (from 0) in `nameFilters` of the filter that is selected in the end, -1 when that is none of them.
/// When the user cancels, which is the result false, both stay as they are.
///
/// `caption`: the title. `nameFilters`: in QFileDialog's syntax, one an entry; one at least. `initialFiles`: what is
/// preselected; the folder of the first entry is where the dialog opens, a relative one being relative to the current
/// directory of the process. May be empty. `save`: a dialog for saving. `multipleFiles`: several existing files may be
/// chosen; this comes before `save`. `initialFilterIndex`: the filter to start with, from 0; any other number leaves it
/// at the first.
///
/// Known traps:
/// - a filter is selected after the file, and may change its extension; in a dialog for saving whose first filter has a
///   "*.*" in it, it is selected before, and the name stays as it is;
/// - several initial files go into the dialog as one quoted text, of which the system's dialog keeps what is behind
///   the last slash: there they are preselected only when they are names in the current directory of the process.
///
/// Texts are UTF-8. There must be an active window; without one the dialog belongs to none. GUI thread only.
COMMON_UI_QT_EXPORT bool LaunchFileDialog(std::vector<std::string>& selectedFiles, int& selectedFilterIndex,
                                          const std::string& caption, const std::vector<std::string>& nameFilters,
                                          const std::vector<std::string>& initialFiles, bool save, bool multipleFiles,
                                          int initialFilterIndex);

} // namespace ui
} // namespace zelmar
