#pragma once

#include "common_ui_qt_export.h"

#include <QtGlobal>

#include <memory>
#include <string>
#include <vector>

class QWidget;
class SaveFileQtDialog;
class SaveFileWinDialog;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

/// A save flow over the system's file dialog or the Qt-drawn one. It shows the dialog again and again until the user
/// has chosen a name that can be written, or has given up. For each name it appends the extension of the selected
/// filter if the name has none, asks before an existing file is replaced, and checks that the file can be written. If
/// the file cannot be written, the user may choose another location.
///
///     SaveFileDialog dialog(&window, "Save run", "", "run1", {"Data files (*.dat)", "Tables (*.csv)"}, 0, "");
///     if (dialog.launch())
///         writers[dialog.selectedWriter()]->write(dialog.selectedFilename());
///
/// The constructor creates a SaveFileWinDialog if ExtendedFileDialog::useNativeFileDialog() returns true at that time,
/// and a SaveFileQtDialog otherwise. This class only forwards to it, so the traps of that class apply.
///
/// Texts and names are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileDialog
{
public:
    /// Creates a flow whose dialog is over `parent`, which may be null. `caption` is the title of the dialog and of all
    /// questions. The dialog starts in the folder `directory` (the default folder if empty) with `defaultFileName`
    /// preselected. `filter` is one name filter in QFileDialog's syntax, or several joined by ";;". A `helpTopic` that
    /// is not empty adds a Help button. A zelmar::DefaultSaveFileMessageHandler words the questions.
    SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                   const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic);

    /// Creates the same flow with questions worded by `messageHandler`, which must not be null.
    SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                   const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic,
                   std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Creates a flow with one name filter for each of the caller's writers. The filter with the index `selectedFilter`
    /// (from 0) is preselected. `filters` must not be empty, and the index must be valid.
    SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                   const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                   const std::string& helpTopic);

    /// Creates the same flow with questions worded by `messageHandler`, which must not be null.
    SaveFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                   const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                   const std::string& helpTopic,
                   std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    virtual ~SaveFileDialog();

    /// Runs the dialog and its questions modally. Returns true if the user has chosen a name that may be written, see
    /// selectedFilename(), and false if the user cancelled or gave up. May be called again: the dialog then opens with
    /// the folder and the selection that it had when it closed.
    ///
    /// The flow and the parent may be deleted while launch() runs: while the dialog or a question is open, and in the
    /// functions of the message handler. launch() then closes the open windows, returns false and does not touch
    /// deleted objects. It also returns false when the application quits, and when the parent was destroyed earlier.
    /// While launch() is running already, a second call does nothing and returns false.
    virtual bool launch();

    /// Returns the chosen name as an absolute path with its extension. Use it only after launch() has returned true:
    /// it is the name of the last round in which the user accepted the dialog, whether or not it may be written.
    std::string selectedFilename() const;

    /// Returns the name filter that is selected in the dialog now, or an empty text once the dialog is destroyed.
    std::string selectedFilter() const;

    /// Returns the index (from 0) of the selected filter in the list of filters, which is the index of the caller's
    /// writer. Returns the first index if filters are equal, and -1 if the selected filter is not in the list or
    /// the dialog is destroyed.
    int selectedWriter() const;

private:
    Q_DISABLE_COPY(SaveFileDialog)

    // Exactly one of the two is set.
    std::unique_ptr<SaveFileQtDialog> m_qtFlow;
    std::unique_ptr<SaveFileWinDialog> m_nativeFlow;
};
