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

/// A file dialog of either kind behind one interface: the system's own, or the one that Qt draws. Which one it is, is
/// decided by a process-wide switch when the object is made, and stays so.
///
///     ExtendedFileDialog dialog(window, "Open", "", "Data (*.dat);;All files (*)", "", QFileDialog::AcceptOpen);
///     dialog.setFileMode(QFileDialog::ExistingFiles);
///     if (dialog.exec() == QDialog::Accepted)
///         open(dialog.selectedFiles());
///
/// Each operation is that of QFileDialog with the same name. What only one kind has (buttons and check boxes of the
/// system's dialog; sidebar, geometry and typed patterns of Qt's) is in ExtendedWinFileDialog and QExtendedFileDialog.
///
/// Known traps:
/// - without a call of setFileMode(), the Qt-drawn dialog opens existing files only, and the system's one any name;
/// - the system's dialog takes title, filters, folder and file name at the first exec(); later changes do not reach it;
/// - selectFile() gives the system's dialog the name at the end of the path only: set the folder with setDirectory().
///
/// Texts are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT ExtendedFileDialog
{
public:
    /// A dialog over `parent`, which must outlive it, with the title `caption`, in the folder `directory` (empty: the
    /// default folder), with name filters in QFileDialog's syntax, joined by ";;". A `helpTopic` that is not empty adds
    /// a Help button, which hands it to zelmar::HelpLauncher.
    ExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                       const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    virtual ~ExtendedFileDialog();

    /// Shows the dialog and waits for it: QDialog::Accepted or QDialog::Rejected.
    int exec();

    /// What was chosen. Empty, or what is preselected, when nothing was.
    QStringList selectedFiles() const;

    QDir directory() const;
    void setDirectory(const QString& directory);
    void selectFile(const QString& path);
    void setFileMode(QFileDialog::FileMode mode);
    QStringList nameFilters() const;
    void setNameFilters(const QStringList& filters);
    void selectNameFilter(const QString& filter);
    QString selectedNameFilter() const;

    /// Lets the dialog accept an existing file for saving without a question. Off at first.
    void setDontConfirmOverwrite(bool on);

    /// Shows folders only, in the Qt-drawn dialog. The system's dialog ignores it on purpose: for folders set the file
    /// mode QFileDialog::Directory, which both kinds know.
    void setShowDirectoriesOnly(bool on);

    /// Whether dialogs made from now on are the system's own; true at first. Counts for SaveFileDialog and
    /// LaunchFileDialog(), too, and never for a dialog that is there already.
    static bool useNativeFileDialog();
    static void setUseNativeFileDialog(bool on);

private:
    Q_DISABLE_COPY(ExtendedFileDialog)

    std::unique_ptr<QExtendedFileDialog> m_qtDialog;
    std::unique_ptr<ExtendedWinFileDialog> m_winDialog; // one of the two is there

    static bool m_useNativeFileDialog;
};
