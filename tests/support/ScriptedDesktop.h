#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// A desktop that draws file dialogs itself, in place of the one that the test runs on. While this object lives, Qt
/// hands it every file dialog that it would hand to a desktop; nothing is on the screen, and the test takes the part of
/// both the desktop and its user. One at a time; made after the application object.
///
///     ScriptedDesktop desktop;
///     desktop.onShow("choose a file", [&] {
///         desktop.choose({"/data/a.dat"});
///         desktop.accept();
///     });
///     ... // run the dialog
///
/// One step is taken each time that a dialog is shown, inside its event loop. A dialog that is shown more often than
/// there are steps, or is not closed in time after the last one, is rejected. The end of the desktop fails the test
/// unless every step was taken, and no dialog was left open or shown once more.
class ScriptedDesktop
{
public:
    ScriptedDesktop();
    ~ScriptedDesktop();
    ScriptedDesktop(const ScriptedDesktop&) = delete;
    ScriptedDesktop& operator=(const ScriptedDesktop&) = delete;

    void onShow(const QString& name, std::function<void()> action);
    /// A step that leaves it to the program to close the dialog.
    void onShowDoNothing();

    // In what desktops differ.

    /// Whether dialogs can be shown. If not, Qt draws them after all.
    bool showsDialogs = true;
    /// Whether a dialog emits filterSelected() also for what the program selects: while it is being shown for each
    /// filter up to that one, and later for that one.
    bool tellsOfFiltersOnTheWay = false;
    /// Whether selectedFiles() names what the program has selected, or only what the user has chosen.
    bool tellsOfPreselection = true;
    /// Whether a folder that the program sets is told with directoryEntered(), too.
    bool tellsOfEveryFolder = false;

    // What a dialog was asked.

    /// The options that Qt has handed over with the last dialog shown.
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

    /// The calls of all dialogs in order: "show", "hide", "setDirectory /data", "selectFile /data/a.dat",
    /// "selectNameFilter Data (*.dat)".
    QStringList takeCalls();
    /// How many dialogs there are, shown or not.
    int dialogs() const;
    /// Whether the desktop's window is there.
    bool isShown() const;

    // What the user does in the dialog that was made last.

    void enterFolder(const QString& path);
    void pickFilter(int index);
    /// Selects files, without accepting them.
    void choose(const QStringList& paths);
    /// The window stays until Qt hides it.
    void accept();
    /// The desktop closes its window first, as those do that run in a process of their own.
    void closeAndAccept();
    void reject();

private:
    class Theme;
    class Dialog;
    class Script;

    std::unique_ptr<Script> m_script;
    std::unique_ptr<Theme> m_theme;
};
