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

/// The save flow of SaveFileQtDialog, run on the system's own file dialog: it appends the extension of the chosen
/// filter to a name without one, asks before an existing file is replaced, and proves that the place can be written.
///
///     SaveFileWinDialog dialog(window, "Save run", "", "run1", {"Data files (*.dat)", "Tables (*.csv)"}, 0, "");
///     if (dialog.launch())
///         writers[dialog.selectedWriter()]->write(dialog.selectedFilename());
///
/// Applications that leave the kind of dialog to the user's platform take SaveFileDialog.
///
/// Known traps:
/// - the traps of SaveFileQtDialog: the caller's write may still fail, and filters should name one extension each;
/// - the system's dialog stays allocated when this object goes, on purpose: nothing else owns it, and a derived class
///   may have handed it out. An application that saves now and then does not notice;
/// - the questions have the parent widget as theirs: the system's dialog has closed by then, and is no widget.
///
/// Texts and names are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT SaveFileWinDialog : public QObject
{
public:
    /// A dialog over `parent` (null for none) with the title `caption`, which is the title of all questions too, in
    /// the folder `directory` (empty: the default folder), with `defaultFileName` preselected and one `filter` in
    /// QFileDialog's syntax, or several joined by ";;". A `helpTopic` that is not empty adds a Help button. The
    /// questions are worded by a zelmar::DefaultSaveFileMessageHandler.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic);

    /// The same with questions worded by `messageHandler`, which must not be null.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::string& filter, const std::string& helpTopic,
                      std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// A dialog with one filter for each of the caller's writers; the one at `selectedFilter` (from 0) is preselected.
    /// There must be one at least, and `selectedFilter` must be the index of one.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                      const std::string& helpTopic);

    /// The same with questions worded by `messageHandler`, which must not be null.
    SaveFileWinDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                      const std::string& defaultFileName, const std::vector<std::string>& filters, int selectedFilter,
                      const std::string& helpTopic,
                      std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> messageHandler);

    /// Destroys the message handler, and leaves the file dialog alone.
    ~SaveFileWinDialog() override;

    /// Runs the dialog and its questions modally. True when there is a name that may be written, see
    /// selectedFilename(); false when the user cancelled or gave up. May be called again: the dialog comes back with
    /// the folder and the selection that it was left with.
    virtual bool launch();

    /// The chosen name, absolute, with its extension. Only to be used after launch() has returned true; later it is
    /// the name of the last round in which the dialog was accepted.
    std::string selectedFilename() const;

    /// The filter that is selected in the dialog now.
    std::string selectedFilter() const;

    /// The index (from 0) of that filter in the list of filters, and so of the caller's writer; -1 when it is not in
    /// the list. Of equal filters, the first.
    int selectedWriter() const;

protected:
    /// The file dialog, for a derived class to adjust before launch().
    ExtendedWinFileDialog* dialog();

private:
    class Impl;

    Q_DISABLE_COPY(SaveFileWinDialog)

    std::unique_ptr<Impl> m_impl;
};
