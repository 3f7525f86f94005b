#include "SystemDialogTest.h"

#include "Keyboard.h"

#include <QApplication>
#include <QtTest>

void SystemDialogTest::init()
{
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.txt", "d.csv", "inner/e.dat"})
        m_folders->addFile(name, "contents");
    QVERIFY(showWindow() || showWindow() || showWindow());
    m_shell = std::make_unique<ObservedShell>();
    m_driver = std::make_unique<SystemDialogDriver>();
}

/// Shows a window and returns whether it has the keyboard. If the window before was destroyed under a dialog, the
/// system may activate this one without a message to Qt, which another window gets.
bool SystemDialogTest::showWindow()
{
    m_window = std::make_unique<QWidget>();
    m_window->show();
    // Asks again: no window may get the focus by itself.
    // QWidget::isActiveWindow() asks the system, which activates the window before Qt learns of it.
    const auto isReady = [this] { return hasKeyboard(*m_window) && QApplication::activeWindow() == m_window.get(); };
    return QTest::qWaitFor(isReady, 10000);
}

void SystemDialogTest::cleanup()
{
    m_driver.reset();
    m_shell.reset();
    m_window.reset();
    m_folders.reset();
}
