#pragma once

#include "common_ui_qt_export.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

class ExtendedWinFileDialog;
class QWidget;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

/// A save flow like SaveFileQtDialog, run on the file dialog of the operating system. It appends the extension of the
/// selected filter to a name without an extension, asks before the caller would overwrite an existing file, and checks
/// that the file can be written.
///
///     SaveFileWinDialog dialog(&window, "Save run", "", "run1", {"Data files (*.dat)", "Tables (*.csv)"}, 0, "");
///     if (dialog.launch())
///         writers[dialog.selectedWriter()]->write(dialog.selectedFilename());
///
/// Applications that run on several platforms use SaveFileDialog.
///
/// Known traps:
/// - The traps of SaveFileQtDialog apply: writing may still fail, and each filter should name exactly one extension.
/// - The file dialog stays allocated when this object is destroyed, because a derived class may have handed it out. An
///   application that saves now and then does not notice.
///   Kept for existing callers, see docs/compatibility.md: native-dialog-outlives-the-flow.
/// - The questions have the parent widget as their parent. The file dialog is not a widget, and has already closed.
///
/// Strings are UTF-8. Use on the GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileWinDialog : public QObject
{
public:
    /// Creates a save flow over `parent`, which may be null. `caption` is the title of the dialog and of all questions.
    /// The dialog starts in `directory`, or in the default folder if that is empty, with `defaultFileName` preselected.
    /// `filter` holds one name filter in QFileDialog's syntax, or several joined by ";;". A non-empty `helpTopic` adds
    /// a Help button. A zelmar::DefaultSaveFileMessageHandler words the questions.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic);

    /// Creates the same flow with `messageHandler`, which must not be null, to word the questions.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic,
                      std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Creates a flow with one name filter for each of the caller's writers. `filters` must not be empty, and
    /// `selectedFilter` must be a valid index (from 0) into it; it is the filter that is preselected.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                      const std::string& helpTopic);

    /// Creates the same flow with `messageHandler`, which must not be null, to word the questions.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                      const std::string& helpTopic,
                      std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Destroys the message handler, but not the file dialog. Ends a running launch(), see there.
    ~SaveFileWinDialog() override;

    /// Runs the file dialog and the questions modally. Returns true when selectedFilename() may be written, and false
    /// when the user cancels or gives up. May be called again; the dialog then starts with the folder and the selection
    /// that it had when it closed.
    ///
    /// The flow and its parent may be deleted while launch() runs: while the dialog or a question is open, and by the
    /// functions of the message handler. The open window then closes, and launch() returns false without touching a
    /// deleted object. launch() also returns false when the application quits, when the parent was destroyed before the
    /// call, and, without doing anything, when it is running already.
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

protected:
    /// Returns the file dialog, which a derived class may configure before launch(). Returns null after somebody has
    /// deleted the dialog that a derived class handed out; launch() then returns false.
    ExtendedWinFileDialog* dialog();

private:
    class COMMON_UI_QT_NO_EXPORT Impl;

    Q_DISABLE_COPY(SaveFileWinDialog)

    std::unique_ptr<Impl> m_impl;
};
