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

/// The system's own file dialog, with operations shaped like QFileDialog's, and with buttons, check boxes and a menu on
/// the accept button that the application adds.
///
///     ExtendedWinFileDialog dialog(window, "Import", folder, "Data (*.dat);;Tables (*.csv)", "import.html",
///                                  QFileDialog::AcceptOpen, false);
///     dialog.addCustomCheckBox("&Preview", preview); // a boost::shared_ptr<zelmar::PropertyAbstract<bool>>
///     dialog.addCustomButton("&Columns ...", [&] { chooseColumns(); });
///     if (dialog.exec() == QDialog::Accepted)
///         import(dialog.selectedFiles());
///
/// On Windows it is the common item dialog. Elsewhere it is the desktop's own dialog as long as nothing was added to
/// it, and one drawn by Qt, with what was added in it, otherwise. A help topic adds a Help button.
///
/// Folder, file type and check boxes follow the user while the dialog is open: directory(), currentFilterIndex() and
/// the properties of the check boxes change, and tell so, within exec(). The actions of the buttons run there, too; the
/// dialog stays open. What an action or an observer throws comes out of exec(), except on Windows, where nothing may be
/// thrown through the system's dialog.
///
/// Known traps:
/// - title, file mode, folder, filters, selected filter and file name reach the dialog at the first exec(). Changing
///   them between two showings changes what the operations here answer, and not the dialog;
/// - when the user picks another file type while saving, the extension of the typed name is replaced: "data.csv"
///   becomes "data.txt" under "Text (*.txt)", "data" under "All files (*)", and "data.png *.jpg" under "Images (*.png
///   *.jpg)". Give a save dialog filters with one pattern;
/// - where there is no dialog, because the thread is in a multithreaded apartment or the system makes none, exec() is
///   QDialog::Rejected and everything else goes on without it.
///
/// Texts are UTF-8. GUI thread only, on which the single-threaded apartment is entered for the life of the object.
class COMMON_UI_QT_EXPORT ExtendedWinFileDialog
{
public:
    /// A dialog over `parent`, which must outlive it. `directory` is the start folder: an existing folder, or an
    /// existing file whose folder is meant; anything else leaves the choice to the system. `filter` are filters in
    /// QFileDialog's syntax, joined by ";;". A `helpTopic` that is not empty adds a Help button, which hands it to
    /// zelmar::HelpLauncher. With `useAcceptButtonMenu` the accept button gets a menu; see addAcceptButtonOption().
    ExtendedWinFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                          const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode,
                          bool useAcceptButtonMenu);

    /// The same for a parent that may be null: the dialog then is a window of its own.
    ExtendedWinFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                          const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode,
                          bool useAcceptButtonMenu);

    /// Deletes the handles of all controls.
    virtual ~ExtendedWinFileDialog();

    /// Shows the dialog and waits for it. QDialog::Rejected when the user cancelled, and when showing it failed. The
    /// dialog may be shown again.
    QDialog::DialogCode exec();

    /// Preselects the file name at the end of `path`; its folder is left out on purpose, see setDirectory().
    void selectFile(const QString& path);

    /// What was chosen, as the system writes paths: with backslashes on Windows. Empty when nothing was.
    QStringList selectedFiles();

    /// What may be chosen; QFileDialog::AnyFile at first. QFileDialog::DirectoryOnly counts as AnyFile on purpose.
    void setFileMode(QFileDialog::FileMode mode);

    /// The folder last shown; before that the start folder. The current folder when there is none.
    QDir directory() const;
    void setDirectory(const QString& directory);

    /// The filters, as they were given.
    QStringList nameFilters() const;
    void setNameFilters(const QStringList& filters);

    /// Selects the first filter that is equal to `filter`; one that is not in the list selects none.
    void selectNameFilter(const QString& filter);

    /// The selected filter, as the user has left it. Empty when none is selected.
    QString selectedNameFilter() const;

    /// Adds a button, with `&` before its mnemonic in `label`; clicked, it calls `onClick`, which must not be empty.
    /// The handle stands for the button: show, hide, enable or disable it, before or while the dialog is open, and so
    /// the button. It is never seen itself, and belongs to this object.
    QWidget* addCustomButton(const std::string& label, boost::function<void()> onClick);

    /// Adds a check box that starts as `checked`, which must not be null, and sets it whenever the user toggles the
    /// box. The other way round it follows nothing. Handle as above.
    QWidget* addCustomCheckBox(const std::string& label, boost::shared_ptr<zelmar::PropertyAbstract<bool>> checked);

    /// Adds an item to the menu on the accept button, which must have been asked for at construction. Accepting the
    /// dialog by this item makes selectedAcceptMenuOption() `value`. Handle as above, until
    /// clearAcceptMenuOptions().
    QWidget* addAcceptButtonOption(const std::string& label, int value);

    /// Removes all items from the menu on the accept button, and deletes their handles.
    void clearAcceptMenuOptions();

    /// The value of the item that was selected when the dialog was last closed: the first item unless the user picked
    /// another. 255 before anything was read.
    int selectedAcceptMenuOption() const;

    /// Lets the dialog accept an existing file for saving without a question. Off at first.
    void setDontConfirmOverwrite(bool on);

    /// Does nothing, on purpose: the system's dialog shows files where it shows them. For folders set the file mode
    /// QFileDialog::Directory.
    void setShowDirectoriesOnly(bool on);

    /// The number of the selected filter, from 1; 0 for none. To be observed while the dialog is open.
    boost::shared_ptr<zelmar::PropertyAbstract<int>> currentFilterIndex() const;

    /// The parent given at construction.
    QWidget* parent();

    /// Closes the open dialog, from an action of one of its buttons for example; exec() then is QDialog::Accepted, and
    /// selectedFiles() is empty.
    void close();

private:
    class Impl;

    Q_DISABLE_COPY(ExtendedWinFileDialog)

    Impl* m_impl; // owned
};
