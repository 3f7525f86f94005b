#pragma once

#include "common_ui_qt_export.h"

#include <QDir>
#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>

class ExtendedWinFileDialog;
class QExtendedFileDialog;
class QWidget;

/// A file dialog that is either the system's or the one that Qt draws, behind one interface. A process-wide switch
/// determines the kind when the object is created. The kind of an object never changes.
///
///     ExtendedFileDialog dialog(window, "Open", "", "Data (*.dat);;All files (*)", "", QFileDialog::AcceptOpen);
///     dialog.setFileMode(QFileDialog::ExistingFiles);
///     if (dialog.exec() == QDialog::Accepted)
///         open(dialog.selectedFiles());
///
/// Each function does what the function of QFileDialog with the same name does. Features of only one kind are in
/// ExtendedWinFileDialog (buttons and check boxes) and QExtendedFileDialog (sidebar, geometry and typed patterns).
///
/// Known traps:
/// - If setFileMode() is not called, an open dialog that Qt draws accepts one existing file, and the system's dialog
///   accepts any name.
/// - The system's dialog takes title, filters, folder and file name at the first exec(). Later changes do not reach it.
///   Kept for existing callers, see docs/compatibility.md: prepared-once.
/// - selectFile() drops the folder of the path in the system's dialog. Set the folder with setDirectory().
///   Kept for existing callers, see docs/compatibility.md: folder-of-name-dropped.
///
/// Texts are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT ExtendedFileDialog
{
public:
    /// Creates a dialog over `parent`, which it may outlive, with the title `caption`. The dialog starts in the folder
    /// `directory` (the default folder if empty). `filter` contains name filters in QFileDialog's syntax, joined by
    /// ";;". A `helpTopic` that is not empty adds a Help button, which passes the topic to zelmar::HelpLauncher.
    ExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                       const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    virtual ~ExtendedFileDialog();

    /// Runs the dialog modally and returns QDialog::Accepted or QDialog::Rejected.
    ///
    /// This object and the parent may be deleted while exec() runs, in any callback of the dialog and in any slot that
    /// is connected to its signals. The window then closes, and exec() returns QDialog::Rejected and does not touch
    /// deleted objects. If this object is deleted, the Qt-drawn dialog is deleted at the end of the run. While exec()
    /// is running already, a second call does nothing and returns QDialog::Rejected.
    int exec();

    /// Returns the chosen files. If the user has not chosen any, returns an empty list or the preselected files.
    QStringList selectedFiles() const;

    /// Returns the folder that the dialog shows or has shown last. No signal reports its changes.
    QDir directory() const;
    void setDirectory(const QString& directory);
    void selectFile(const QString& path);
    void setFileMode(QFileDialog::FileMode mode);
    QStringList nameFilters() const;
    void setNameFilters(const QStringList& filters);
    void selectNameFilter(const QString& filter);
    QString selectedNameFilter() const;

    /// Sets whether the dialog accepts an existing file for saving without a question. Initially false.
    void setDontConfirmOverwrite(bool on);

    /// Sets whether the Qt-drawn dialog lists only folders. Has no effect on the system's dialog. To let the user
    /// choose a folder, set the file mode QFileDialog::Directory, which both kinds support.
    ///
    /// Kept for existing callers, see docs/compatibility.md: directories-only-ignored.
    void setShowDirectoriesOnly(bool on);

    /// Returns or sets whether dialogs that are created from now on are the system's. Initially true. The switch also
    /// applies to SaveFileDialog and LaunchFileDialog(), and never to a dialog that exists already.
    static bool useNativeFileDialog();
    static void setUseNativeFileDialog(bool on);

private:
    Q_DISABLE_COPY(ExtendedFileDialog)

    // Exactly one of the two is set.
    std::unique_ptr<QExtendedFileDialog> m_qtDialog;
    std::unique_ptr<ExtendedWinFileDialog> m_winDialog;

    static bool m_useNativeFileDialog;
};
