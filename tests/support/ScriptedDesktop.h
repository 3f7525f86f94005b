#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// A replacement for the desktop, which draws file dialogs itself. During its lifetime Qt passes it every file dialog
/// that it would pass to the desktop. Nothing appears on the screen, and the test acts as the desktop and its user.
/// Only one may exist at a time, and the application object must exist before it.
///
///     ScriptedDesktop desktop;
///     desktop.onShow("choose a file", [&] {
///         desktop.choose({"/data/a.dat"});
///         desktop.accept();
///     });
///     ... // run the dialog
///
/// One step is taken each time that a dialog is shown, inside its event loop. A dialog that is shown more often than
/// there are steps, or that is not closed in time after the last one, is rejected. The destructor fails the test unless
/// every step was taken and no dialog was left open or shown once more.
class ScriptedDesktop
{
public:
    ScriptedDesktop();
    ~ScriptedDesktop();
    ScriptedDesktop(const ScriptedDesktop&) = delete;
    ScriptedDesktop& operator=(const ScriptedDesktop&) = delete;

    void onShow(const QString& name, std::function<void()> action);
    /// Adds a step that does nothing, because the program closes the dialog itself.
    void onShowDoNothing();

    // Differences between desktops.

    /// True if the desktop can show dialogs. Otherwise Qt draws them.
    bool showsDialogs = true;
    /// True if a dialog emits filterSelected() also for a filter that the program selects: while it is being shown, for
    /// each filter up to that one, and later for that one.
    bool reportsFiltersOnTheWay = false;
    /// True if selectedFiles() contains what the program has selected, and not only what the user has chosen.
    bool reportsPreselection = true;
    /// True if a dialog emits directoryEntered() also for a folder that the program sets.
    bool reportsEveryFolder = false;

    // The latest request.

    /// The options that Qt has passed with the dialog that was shown last.
    struct Request
    {
        QString title;
        bool saving = false;
        int fileMode = -1; ///< as a QFileDialog::FileMode
        int options = -1;  ///< as QFileDialog::Options
        QStringList nameFilters;
        QString nameFilter;
        QString folder;
        QStringList files;
        QString defaultSuffix;
        QString acceptLabel;
        QString fileNameLabel;
    };
    Request request;

    /// Returns and clears the calls of all dialogs in order: "show", "hide", "setDirectory /data", "selectFile
    /// /data/a.dat", "selectNameFilter Data (*.dat)".
    QStringList takeCalls();
    /// Returns the number of existing dialogs, shown or not.
    int dialogs() const;
    /// Returns whether the desktop's window is visible.
    bool isShown() const;

    // Actions of the user in the dialog that was created last.

    void enterFolder(const QString& path);
    void pickFilter(int index);
    /// Selects files without accepting the dialog.
    void choose(const QStringList& paths);
    /// Accepts the dialog. Its window stays until Qt hides it.
    void accept();
    /// Closes the window and then accepts the dialog, as a desktop does whose dialogs run in a process of their own.
    void closeAndAccept();
    void reject();

private:
    class Theme;
    class Dialog;
    class Script;

    std::unique_ptr<Script> m_script;
    std::unique_ptr<Theme> m_theme;
};
