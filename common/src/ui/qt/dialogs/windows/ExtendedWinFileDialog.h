#pragma once

#include "common_ui_qt_export.h"
#include "property/PropertyAbstract.h"

#include <boost/function/function0.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>

#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <string>

class QWidget;

/// A file dialog of the operating system behind an interface shaped like QFileDialog's. The application can add
/// buttons, check boxes, and a drop-down menu on the accept button.
///
///     ExtendedWinFileDialog dialog(window, "Import", folder, "Data (*.dat);;Tables (*.csv)", "import.html",
///                                  QFileDialog::AcceptOpen, false);
///     dialog.addCustomCheckBox("&Preview", hasPreview); // a boost::shared_ptr<zelmar::PropertyAbstract<bool>>
///     dialog.addCustomButton("&Columns ...", [&] { chooseColumns(); });
///     if (dialog.exec() == QDialog::Accepted)
///         import(dialog.selectedFiles());
///
/// On Windows the class shows the common item dialog. Elsewhere it shows that of the desktop portal where the desktop
/// or a sandbox calls for it (see zelmar::ui::setPortalUse() and docs/portals.md) and the portal can show what was
/// asked for. Otherwise it shows the desktop's own dialog as long as the application has added no controls and given no
/// help topic, and else a dialog that Qt draws with the controls in it.
///
/// While the dialog is open, directory(), currentFilterIndex() and the properties of the check boxes follow the user.
/// The filter index and the properties notify their observers; changes of the folder are not signalled. Button actions
/// and observers run within exec(), and the dialog stays open meanwhile. An exception that one of them throws closes
/// the dialog and leaves exec(); on Windows they must not throw, because no exception may pass through the system's
/// dialog. With a portal's dialog all of this happens when the user accepts it.
///
/// Known traps:
/// - The dialog receives title, file mode, folder, filters, selected filter and file name at the first exec(). Setters
///   called later change what the getters return, but not the dialog.
///   Kept for existing callers, see docs/compatibility.md: prepared-once.
/// - When the user picks another file type while saving, the dialog replaces the extension of the typed name:
///   "data.csv" becomes "data.txt" under "Text (*.txt)", "data" under "All files (*)", and "data.png *.jpg" under
///   "Images (*.png *.jpg)". Give a save dialog filters with one pattern each.
///   Kept for existing callers, see docs/compatibility.md: greedy-extension.
/// - A dialog that Qt draws opens in its default size each time. It remembers no size, neither for the next exec() nor
///   for the next start of the program.
/// - If the thread is in a multithreaded apartment, or the system cannot create the dialog, exec() returns
///   QDialog::Rejected, and all other functions work without a dialog.
///
/// Strings are UTF-8. Use on the GUI thread only; the object enters the single-threaded apartment of that thread for
/// its lifetime.
class COMMON_UI_QT_EXPORT ExtendedWinFileDialog
{
public:
    /// Creates a dialog whose parent window is `parent`. The dialog may outlive `parent` and then has none. `directory`
    /// is the folder in which the dialog starts: an existing folder, or an existing file, which stands for its folder;
    /// otherwise the system chooses. `filter` holds name filters in QFileDialog's syntax, joined by ";;". A non-empty
    /// `helpTopic` adds a Help button that passes the topic to zelmar::HelpLauncher. `useAcceptButtonMenu` adds a menu
    /// to the accept button; see addAcceptButtonOption().
    ExtendedWinFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                          const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode,
                          bool useAcceptButtonMenu);

    /// Creates the same dialog for a parent that may be null. Without a parent the dialog is an independent window.
    ExtendedWinFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                          const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode,
                          bool useAcceptButtonMenu);

    /// Deletes the handles of all controls. Ends a running exec(), see there.
    virtual ~ExtendedWinFileDialog();

    /// Shows the dialog modally and waits until it is closed. Returns QDialog::Rejected when the user cancels and when
    /// the dialog cannot be shown. May be called again after it has returned; a call while it runs does nothing and
    /// returns QDialog::Rejected.
    ///
    /// The dialog and its parent may be deleted while exec() runs, also by a button action, by an observer of a
    /// property or by the help handler. The window then closes, exec() returns QDialog::Rejected without touching a
    /// deleted object, and event sinks that the shell still holds do nothing. An exception that an action throws after
    /// it has deleted the dialog still leaves exec(). When the application quits, a dialog that Qt draws closes; a
    /// dialog of the system waits for its user.
    QDialog::DialogCode exec();

    /// Preselects the file name at the end of `path` and drops the folder; use setDirectory() for the folder.
    ///
    /// Kept for existing callers, see docs/compatibility.md: folder-of-name-dropped.
    void selectFile(const QString& path);

    /// Returns the chosen paths in the system's own form, on Windows with backslashes. Empty when nothing was chosen.
    QStringList selectedFiles();

    /// Sets what the user may choose; QFileDialog::AnyFile by default. Qt 5's QFileDialog::DirectoryOnly counts as
    /// AnyFile.
    ///
    /// Kept for existing callers, see docs/compatibility.md: directory-only-is-any-file.
    void setFileMode(QFileDialog::FileMode mode);

    /// Returns the folder that the dialog showed last, or before the first exec() the folder in which it starts.
    /// Without either, returns the current folder of the process. No signal reports a change.
    QDir directory() const;
    void setDirectory(const QString& directory);

    /// Returns the name filters exactly as they were set.
    QStringList nameFilters() const;
    void setNameFilters(const QStringList& filters);

    /// Selects the first name filter that equals `filter`. Selects none when the list does not contain it.
    void selectNameFilter(const QString& filter);

    /// Returns the selected name filter, which follows the user's choice. Empty when none is selected.
    QString selectedNameFilter() const;

    /// Adds a push button; `&` in `label` precedes its mnemonic. A click calls `onClick`, which must not be empty.
    ///
    /// Returns a handle for the button. Showing, hiding, enabling or disabling the handle does the same to the button,
    /// before or while the dialog is open. The handle itself is never visible. This object owns it.
    ///
    /// Kept for existing callers, see docs/compatibility.md: empty-action-throws.
    QWidget* addCustomButton(const std::string& label, boost::function<void()> onClick);

    /// Adds a check box that is initially checked if the value of `checked`, which must not be null, is true. Sets the
    /// property whenever the user toggles the box; later changes of the property do not affect the box. Returns a
    /// handle as addCustomButton() does.
    QWidget* addCustomCheckBox(const std::string& label, boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked);

    /// Adds an item to the menu of the accept button, which the constructor must have been asked for. When the user
    /// accepts the dialog through this item, selectedAcceptMenuOption() returns `value`. Returns a handle as
    /// addCustomButton() does; it is valid until clearAcceptMenuOptions().
    QWidget* addAcceptButtonOption(const std::string& label, int value);

    /// Removes all items from the menu of the accept button and deletes their handles.
    ///
    /// Kept for existing callers, see docs/compatibility.md: cleared-menu-keeps-values.
    void clearAcceptMenuOptions();

    /// Returns the value of the menu item that was selected when the dialog closed last. That is the first item unless
    /// the user picked another one. Returns 255 until an item has been read for the first time.
    ///
    /// Kept for existing callers, see docs/compatibility.md: option-255.
    int selectedAcceptMenuOption() const;

    /// Sets whether a save dialog accepts an existing file without asking; false by default.
    void setDontConfirmOverwrite(bool on);

    /// Does nothing, because the system's dialog cannot hide files. To let the user choose a folder, set the file mode
    /// QFileDialog::Directory.
    ///
    /// Kept for existing callers, see docs/compatibility.md: directories-only-ignored.
    void setShowDirectoriesOnly(bool on);

    /// Returns the observable index of the selected name filter, counted from 1; 0 means none. Changes while the dialog
    /// is open when the user picks another file type.
    boost::shared_ptr<zelmar::PropertyAbstract<int>> currentFilterIndex() const;

    /// Returns the parent that was given to the constructor, or null once it has been destroyed.
    QWidget* parent();

    /// Closes the open dialog, for example from the action of one of its buttons. exec() then returns
    /// QDialog::Accepted, and selectedFiles() is empty.
    void close();

private:
    class COMMON_UI_QT_NO_EXPORT Impl;
    friend class SaveFileWinDialog; // must end the run of its dialog when it is destroyed

    Q_DISABLE_COPY(ExtendedWinFileDialog)

    Impl* m_impl; // owned
};
