#pragma once

#include "common_ui_qt_export.h"

#include <QFileDialog>
#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <string>

class QComboBox;
class QLineEdit;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace internal {
class FolderReadTracker;
}
} // namespace zelmar

/// A file dialog that Qt draws on every platform. It adds the following to QFileDialog:
///
/// - A pattern typed as a file name ("run*.dat") filters the list. Only a "*" makes a pattern: a name with "?" is the
///   name of a file.
/// - A Help button is optional.
/// - Size and position are stored and restored, also after a restart of the program. When the dialog is shown for the
///   first time, it adds the desktop, the documents and the home folder of the user to the sidebar.
/// - A wait cursor is shown while a folder is being read. While the dialog waits for the user, the cursor is an arrow
///   even if the program has set a busy cursor.
///
///     QExtendedFileDialog dialog(window, "Open run", "", "Data files (*.dat);;All files (*)", "files/open.html",
///                                QFileDialog::AcceptOpen);
///     if (dialog.exec() == QDialog::Accepted)
///         load(dialog.selectedFiles().first());
///
/// Known traps:
/// - show() and exec() restore the geometry and the filters and add the default places to the sidebar, but
///   QDialog::open() does not. show() shadows QWidget::show(), so call it on a QExtendedFileDialog and not through a
///   QWidget pointer.
/// - QFileDialog::setAcceptMode() removes the Help button until the next show() or exec(). QFileDialog::setOptions()
///   replaces all options, which must still include QFileDialog::DontUseNativeDialog.
/// - All Qt programs of the user share the sidebar: Qt writes it to one file when a dialog closes.
/// - The parent owns the dialog and deletes it. A dialog on the stack must therefore be destroyed before its parent.
///   Use ExtendedFileDialog if the parent may be destroyed first.
/// - The Help button has the mnemonic Alt+H unless another label uses it when the dialog is shown. It then has another
///   letter of its text, or no mnemonic.
/// - In open mode Qt enables the Open button only for the names of existing files. A pattern is entered with Return.
///
/// Texts are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT QExtendedFileDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// Creates a dialog without caption, filter and Help button that starts in the default folder. All dialogs that are
    /// created in this way store their geometry under the empty key until setGeometryPersistenceKey() is called.
    ///
    /// Kept for existing callers, see docs/compatibility.md: empty-geometry-key.
    ///
    /// All constructors set the file mode to ExistingFile for AcceptOpen and to AnyFile for AcceptSave. The caller may
    /// change it afterwards.
    QExtendedFileDialog(QWidget& parent, QFileDialog::AcceptMode mode);

    /// Creates a dialog over `parent` with the title `caption` that starts in the folder `directory` (the default
    /// folder if empty). `filter` contains name filters in QFileDialog's syntax, joined by ";;"; if it is empty, all
    /// files are listed. A `helpTopic` that is not empty adds a Help button, which passes the topic to
    /// zelmar::HelpLauncher. The geometry is stored under the key "QExtendedFileDialog/Geometry".
    QExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                        const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    /// Creates the same dialog over a parent that may be null. Without a parent the dialog is an independent window
    /// that the caller owns.
    QExtendedFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                        const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    ~QExtendedFileDialog() override;

    /// Sets whether a typed name is checked before it is accepted. Without the checks any name without a "*" is
    /// accepted unchanged: a missing file is accepted, an existing file is not asked about, and a folder is not
    /// entered. This is for callers that make their own checks. Initially true.
    void performSelectedFileValidation(bool on);

    /// Sets the size with which the dialog is shown if no geometry is stored yet, in device-independent pixels. If the
    /// width or the height is below 1, which is the initial state, QFileDialog determines the size.
    void setDefaultSize(QSize size);

    /// Sets the key of zelmar::ApplicationSettings under which size and position are stored, from the next show() or
    /// exec() on. Dialogs with different geometries need different keys. If nothing is stored under the key yet, the
    /// next show() or exec() adds the default places to the sidebar.
    void setGeometryPersistenceKey(std::string key);

    /// Sets whether QFileDialog accepts an existing file for saving without a question. Initially false.
    void setDontConfirmOverwrite(bool on);

    /// Returns the chosen files like QFileDialog, except that double quotes are part of a file name if the file-name
    /// box contains a single name. If a file is saved, the text always is a single name. If several files may be
    /// chosen, it is one if it does not start with a quoted name, and either has an odd number of double quotes or is
    /// the name of an existing file. Otherwise it is one unless it starts with a quoted name and no file of that name
    /// exists.
    ///
    /// Shadows a function that is not virtual. Called through a QFileDialog pointer, QFileDialog's function splits the
    /// name at the quotes.
    QStringList selectedFiles() const;

    /// Returns selectedFiles() as URLs. Shadows QFileDialog's function in the same way.
    QList<QUrl> selectedUrls() const;

    /// Sets whether only folders are listed. Initially false. Does not change the file mode: set QFileDialog::Directory
    /// to let the user choose a folder.
    void setShowDirectoriesOnly(bool on);

public Q_SLOTS:
    /// Shows the dialog without waiting for it. Stores the geometry immediately and not when the dialog closes.
    ///
    /// Kept for existing callers, see docs/compatibility.md: geometry-saved-when-shown.
    void show();

    /// Runs the dialog modally and returns QDialog::Accepted or QDialog::Rejected. The cursor is an arrow meanwhile,
    /// whatever cursor the program has set. Stores the geometry when the dialog closes.
    ///
    /// The dialog may be run again. Each run starts with the name filters that the caller has set last, without the
    /// pattern that was typed in the previous run. A filter that was selected since stays selected.
    ///
    /// The dialog may be deleted while exec() runs, also by its parent. Its window and the questions over it then
    /// close, and exec() returns QDialog::Rejected. A slot that is connected to a signal of QFileDialog or QDialog must
    /// use deleteLater(), because Qt accesses the dialog after the slot returns. When the application quits, the window
    /// closes and exec() returns QDialog::Rejected. While exec() is running already, a second call does nothing and
    /// returns QDialog::Rejected.
    int exec() override;

protected Q_SLOTS:
    /// Turns a typed name that contains a "*" into a temporary name filter. Accepts any other name with the checks of
    /// QFileDialog::accept(), or without them after performSelectedFileValidation(false).
    void accept() override;

private Q_SLOTS:
    void restoreFilters();
    void revertModifiedFilterAndSelect(QString filter); // NOLINT(performance-unnecessary-value-param)
    void launchHelp();
    void onDirectoryLoaded(const QString& path);
    void onRootPathChanged(const QString& newPath);

private:
    void init(QFileDialog::AcceptMode mode);
    void prepareToBeSeen();
    void prepareToRun();
    void setHelpAction();

    // These classes own dialogs and may have to end a run that is in progress.
    friend class ExtendedFileDialog;
    friend class SaveFileQtDialog;
    static void endRun(QExtendedFileDialog* dialog);
    void cancelRun();
    void cancelRunAndDelete();
    enum class Outlives { Always, WhileRunning };
    void outliveParent(Outlives outlives);
    void releaseFileNameEdit();

    void saveSizeAndPosition();
    void restoreSizeAndPosition();
    void addSidebarUrls();

    void applyTypedPattern(const QString& pattern);
    void listWhatMatches(const QString& pattern);
    bool temporaryFilterInForce() const;
    bool isTemporaryFilter(const QString& filter) const;
    QString currentNameFilter() const;
    void replaceNameFilters(const QStringList& filters, const QString& selected);

    void showWaitCursor();
    void restoreCursor();
    void restoreCursorUnlessReading();

    QLineEdit* m_fileNameEdit = nullptr;
    QComboBox* m_fileTypeCombo = nullptr;
    QStringList m_originalNameFilters;
    QString m_modifiedNameFilter;
    bool m_performSelectedFileValidation = true;
    bool m_waitCursorShown = false;
    bool m_running = false; // true while exec() runs
    bool m_runCancelled = false;
    bool m_deleteAfterRun = false;
    std::string m_helpTopic;
    std::string m_geometryPersistenceKey;
    QSize m_defaultSize;
    zelmar::internal::FolderReadTracker* m_folderReadTracker = nullptr;
};
