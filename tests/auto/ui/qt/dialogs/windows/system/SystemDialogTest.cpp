#include "SystemDialogTest.h"

#include "Keyboard.h"

#include <QApplication>
#include <QtTest>

void SystemDialogTest::init()
{
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.txt", "d.csv", "inner/e.dat"})
        m_folders->addFile(name, "contents");
    m_window = std::make_unique<QWidget>();
    m_window->show();
    // Asks again: the window before may have been destroyed under a dialog, whereupon no window gets the focus by
    // itself.
    // QWidget::isActiveWindow() asks the system, which activates the window before Qt learns of it.
    const auto isReady = [this] { return hasKeyboard(*m_window) && QApplication::activeWindow() == m_window.get(); };
    QVERIFY(QTest::qWaitFor(isReady, 15000));
    m_shell = std::make_unique<ObservedShell>();
    m_driver = std::make_unique<SystemDialogDriver>();
}

void SystemDialogTest::cleanup()
{
    m_driver.reset();
    m_shell.reset();
    m_window.reset();
    m_folders.reset();
}
