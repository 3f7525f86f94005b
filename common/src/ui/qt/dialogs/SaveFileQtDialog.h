#pragma once

#include "common_ui_qt_export.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

class QExtendedFileDialog;
class QWidget;

namespace zelmar {
class SaveFileMessageHandlerInterface;
}

/// A save flow over the Qt-drawn file dialog. It shows the dialog again and again until the user has chosen a name that
/// can be written, or has given up. For each name it appends the extension of the selected filter if the name has none,
/// asks before an existing file is replaced, and checks that the file can be written. If the file cannot be written,
/// the user may choose another location.
///
///     SaveFileQtDialog dialog(&window, "Save run", "", "run1", {"Data files (*.dat)", "Tables (*.csv)"}, 0, "");
///     if (dialog.launch())
///         writers[dialog.selectedWriter()]->write(dialog.selectedFilename());
///
/// Known traps:
/// - The caller writes the file, which may still fail. The flow does not check for free space on the disk.
/// - The parent widget owns the file dialog and deletes it, not this object. Without a parent the file dialog is never
///   freed.
///   Kept for existing callers, see docs/compatibility.md: native-dialog-outlives-the-flow.
/// - The last pattern of a filter gives the extension: under "Images (*.png *.jpg)" the name "run" becomes "run.jpg",
///   and under "All files (*.*)" it becomes "run.".
///   Kept for existing callers, see docs/compatibility.md: last-pattern-gives-the-extension.
/// - A filter without a "." gives an extension, too: under "All files (*)" the name "run" becomes "run.Allfiles". Use
///   filters that name an extension.
///   Kept for existing callers, see docs/compatibility.md: extension-of-the-whole-filter.
/// - A "." anywhere in the path counts as the start of an extension, so that "/data/v1.2/run" stays as it is. So do
///   ".run", and "run.txt" under "Data files (*.dat)".
///   Kept for existing callers, see docs/compatibility.md: dot-in-a-folder-counts.
/// - A typed pattern becomes the selected filter and gives the extension: after "run*" was typed under "Tables (*.csv)"
///   the name "foo" becomes "foo.Tablesrun", and after "run*.csv" it becomes "foo.csv".
///
/// Texts and names are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileQtDialog : public QObject
{
public:
    /// Creates a flow whose dialog is over `parent`, which may be null. `caption` is the title of the dialog and of all
    /// questions. The dialog starts in the folder `directory` (the default folder if empty) with `defaultFileName`
    /// preselected. `filter` is one name filter in QFileDialog's syntax, or several joined by ";;". A `helpTopic` that
    /// is not empty adds a Help button. A zelmar::DefaultSaveFileMessageHandler words the questions.
    SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                     const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic);

    /// Creates the same flow with questions worded by `messageHandler`, which must not be null.
    SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                     const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic,
                     std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Creates a flow with one name filter for each of the caller's writers. The filter with the index `selectedFilter`
    /// (from 0) is preselected. `filters` must not be empty, and the index must be valid.
    SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                     const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                     const std::string& helpTopic);

    /// Creates the same flow with questions worded by `messageHandler`, which must not be null.
    SaveFileQtDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                     const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                     const std::string& helpTopic,
                     std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Destroys the message handler. The parent widget deletes the file dialog.
    ~SaveFileQtDialog() override;

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

protected:
    /// Returns the file dialog, so that a derived class can adjust it before launch(). Null once the parent has
    /// destroyed it.
    QExtendedFileDialog* dialog();

private:
    class COMMON_UI_QT_NO_EXPORT Impl;

    Q_DISABLE_COPY(SaveFileQtDialog)

    std::unique_ptr<Impl> m_impl;
};
