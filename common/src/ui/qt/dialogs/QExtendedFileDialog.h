#pragma once

#include "common_ui_qt_export.h"

#include <QFileDialog>
#include <QSize>
#include <QString>
#include <QStringList>

#include <string>

class FolderReadTracker;
class QComboBox;
class QLineEdit;

/// A file dialog that Qt draws on every platform, with what users of data-heavy programs miss in QFileDialog:
///
/// - a pattern typed as file name ("run*.dat") filters the list instead of being refused;
/// - an optional Help button;
/// - size and position are kept from run to run, also of the program, and a user's first dialog has the desktop,
///   the documents and the home folder in its sidebar;
/// - a wait cursor while a folder is being read, and never a busy cursor of the program over a dialog that waits for
///   its user.
///
///     QExtendedFileDialog dialog(window, "Open run", "", "Data files (*.dat);;All files (*)", "files/open.html",
///                                QFileDialog::AcceptOpen);
///     if (dialog.exec() == QDialog::Accepted)
///         load(dialog.selectedFiles().first());
///
/// Known traps:
/// - show() and QDialog::open() are not the same here: show() and exec() restore geometry and filters and fill the
///   sidebar, open() does not. show() shadows QWidget::show(), so call it on a QExtendedFileDialog and not through a
///   QWidget pointer.
/// - QFileDialog::setAcceptMode() and setOptions() change what the constructors have set up: an accept mode set later
///   takes the Help button away until the next show() or exec(), and options set as a whole must keep
///   QFileDialog::DontUseNativeDialog.
/// - Sidebar places are shared by every Qt program of the user: Qt keeps them in one file when a dialog closes.
///
/// Texts are UTF-8. GUI thread only.
class COMMON_UI_QT_EXPORT QExtendedFileDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// A dialog without caption, filter and Help button, in the default folder. Its geometry is kept under the empty
    /// key, which all dialogs of this kind share until setGeometryPersistenceKey() is called; this is deliberate.
    ///
    /// For AcceptOpen the file mode is ExistingFile, for AcceptSave it is AnyFile; it may be changed afterwards.
    QExtendedFileDialog(QWidget& parent, QFileDialog::AcceptMode mode);

    /// A dialog over `parent` with a title, the folder that it starts in (empty: the default folder), name filters in
    /// QFileDialog's syntax joined by ";;" (empty: all files), and, where `helpTopic` is not empty, a Help button that
    /// hands the topic to zelmar::HelpLauncher. Its geometry is kept under "QExtendedFileDialog/Geometry".
    QExtendedFileDialog(QWidget& parent, const std::string& caption, const std::string& directory,
                        const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    /// The same over a parent that may be null: the dialog is then a window of its own, and the caller's to delete.
    QExtendedFileDialog(QWidget* parent, const std::string& caption, const std::string& directory,
                        const std::string& filter, const std::string& helpTopic, QFileDialog::AcceptMode mode);

    ~QExtendedFileDialog() override;

    /// With false, any name that holds no "*" is accepted as it is: no test that it exists, no question before
    /// overwriting, no descent into a typed folder. For callers that make their own checks. Initially true.
    void performSelectedFileValidation(bool on);

    /// The size that the dialog has when it is shown and no geometry is kept yet, in device-independent pixels. A
    /// size with a side below 1 stands for none, and leaves the size to QFileDialog; that is so initially.
    void setDefaultSize(QSize size);

    /// Keeps size and position under `key` of zelmar::ApplicationSettings, from the next show() or exec() on. Dialogs
    /// that are to keep different geometries need different keys. Where nothing is kept under the key yet, the next
    /// show() or exec() adds the default places to the sidebar.
    void setGeometryPersistenceKey(std::string key);

    /// Whether QFileDialog's question before overwriting is left out when saving. Initially false.
    void setDontConfirmOverwrite(bool on);

    /// Whether only folders are listed. The file mode is not changed: set QFileDialog::Directory to have one chosen.
    void setShowDirectoriesOnly(bool on);

public Q_SLOTS:
    /// Shows the dialog without waiting for it. The geometry is kept right away and not on closing: nobody is there to
    /// tell when a dialog shown in this way is done with.
    void show();

    /// Runs the dialog modally, under an arrow cursor whatever cursor the program has set, and returns
    /// QDialog::Accepted or QDialog::Rejected. It may be run again: each run starts with the caller's name filters, as
    /// they were set last, and not with a pattern typed in the run before; a filter that was selected since stays
    /// selected. The geometry is kept when the dialog closes.
    int exec() override;

protected Q_SLOTS:
    /// Turns a name with a "*" in it into a temporary name filter, and accepts any other.
    void accept() override;

private Q_SLOTS:
    void restoreFilters();
    void revertModifiedFilterAndSelect(QString filter); // NOLINT(performance-unnecessary-value-param)
    void launchHelp();
    void onDirectoryLoaded(const QString& path);
    void onRootPathChanged(const QString& newPath);

private:
    void init(QFileDialog::AcceptMode mode);
    void prepareToRun();
    void setHelpAction();

    void saveSizeAndPosition();
    void restoreSizeAndPosition();
    void addSidebarUrls();

    void applyTypedPattern(const QString& pattern);
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
    std::string m_helpTopic;
    std::string m_geometryPersistenceKey;
    QSize m_defaultSize;
    FolderReadTracker* m_folderReadTracker = nullptr;
};
