#pragma once

#include "DialogFolders.h"
#include "ObservedShell.h"
#include "SystemDialogDriver.h"

#include <QDir>
#include <QObject>
#include <QWidget>

#include <memory>

/// What each test of the system's dialog has: some files, the window that the dialog is over, a look inside, and a
/// user.
class SystemDialogTest : public QObject
{
    Q_OBJECT

protected:
    QString path(const QString& name = {}) const { return m_folders->path(name); }
    /// The path as the system writes it.
    QString native(const QString& name) const { return QDir::toNativeSeparators(path(name)); }

    std::unique_ptr<DialogFolders> m_folders; ///< a.dat, b.dat, c.txt, d.csv, and e.dat in the folder "inner"
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<ObservedShell> m_shell;
    std::unique_ptr<SystemDialogDriver> m_driver;

protected Q_SLOTS:
    void init();
    /// Fails the test when the user could not do what was to be done.
    void cleanup();
};
