#pragma once

#include "DialogFolders.h"
#include "ObservedShell.h"
#include "SystemDialogDriver.h"

#include <QDir>
#include <QObject>
#include <QWidget>

#include <memory>

/// The base class of the tests of the system's dialog. Provides some files, a parent window, an observed shell and a
/// driver that plays the user.
class SystemDialogTest : public QObject
{
    Q_OBJECT

protected:
    QString path(const QString& name = {}) const { return m_folders->path(name); }
    /// Returns the path in the system's own form, with backslashes.
    QString native(const QString& name) const { return QDir::toNativeSeparators(path(name)); }

    std::unique_ptr<DialogFolders> m_folders; ///< a.dat, b.dat, c.txt, d.csv, and e.dat in the folder "inner"
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<ObservedShell> m_shell;
    std::unique_ptr<SystemDialogDriver> m_driver;

protected Q_SLOTS:
    void init();
    /// Fails the test when the driver could not take all of its steps.
    void cleanup();

private:
    bool showWindow();
};
