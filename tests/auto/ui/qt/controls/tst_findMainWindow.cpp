#include "ui/qt/controls/findMainWindow.h"

#include "TestHome.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTest>

#include <memory>

using zelmar::ui::findMainWindow;

/// The order of the functions matters, because the found window is cached for the whole process.
class tst_findMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullWithoutAnyWindow();
    void nullWithoutAMainWindow();
    void skipsMainWindowsThatAreNoWindows();
    void findsAMainWindow();
    void cachesTheWindow();
    void findsTheFirstTopLevelWidget();
    void findsAMainWindowWithAParent();
    void failedRefreshKeepsTheCachedWindow();
    void findsANewMainWindow();
};

void tst_findMainWindow::nullWithoutAnyWindow()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QVERIFY(!findMainWindow(false));
    QVERIFY(!findMainWindow(true));
}

void tst_findMainWindow::nullWithoutAMainWindow()
{
    const QWidget plain;
    const QDialog dialog;
    QVERIFY(!findMainWindow(false));
    QVERIFY(!findMainWindow(true));
}

void tst_findMainWindow::skipsMainWindowsThatAreNoWindows()
{
    QWidget plain;
    auto* embedded = new QMainWindow;
    embedded->setParent(&plain);
    QVERIFY(!embedded->isWindow());
    QVERIFY(!findMainWindow(false));
    QVERIFY(!findMainWindow(true));
}

void tst_findMainWindow::findsAMainWindow()
{
    const QWidget plain;
    QMainWindow mainWindow;
    QCOMPARE(findMainWindow(false), &mainWindow);
    QCOMPARE(findMainWindow(false), &mainWindow);
    QCOMPARE(findMainWindow(true), &mainWindow);
}

/// A call without refresh does not search the current windows.
void tst_findMainWindow::cachesTheWindow()
{
    QWidget plain;
    QMainWindow mainWindow;
    QCOMPARE(findMainWindow(true), &mainWindow);
    mainWindow.setParent(&plain);
    const QMainWindow other;
    QCOMPARE(findMainWindow(false), &mainWindow);
    QCOMPARE(findMainWindow(true), &other);
}

void tst_findMainWindow::findsTheFirstTopLevelWidget()
{
    const QMainWindow mainWindows[20];
    const auto widgets = QApplication::topLevelWidgets();
    QCOMPARE(widgets.size(), 20);
    QCOMPARE(findMainWindow(true), widgets.first());
}

void tst_findMainWindow::findsAMainWindowWithAParent()
{
    QWidget plain;
    auto* mainWindow = new QMainWindow(&plain);
    QVERIFY(mainWindow->isWindow());
    QCOMPARE(findMainWindow(true), mainWindow);
}

/// The pointer dangles after the window is destroyed, so the test only compares it.
void tst_findMainWindow::failedRefreshKeepsTheCachedWindow()
{
    auto mainWindow = std::make_unique<QMainWindow>();
    const QMainWindow* last = mainWindow.get();
    QCOMPARE(findMainWindow(true), mainWindow.get());
    mainWindow.reset();
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QCOMPARE(findMainWindow(true), last);
    QCOMPARE(findMainWindow(false), last);
    const QDialog dialog;
    QCOMPARE(findMainWindow(true), last);
}

void tst_findMainWindow::findsANewMainWindow()
{
    const QMainWindow mainWindow;
    QCOMPARE(findMainWindow(true), &mainWindow);
    QCOMPARE(findMainWindow(false), &mainWindow);
}

UI_TEST_MAIN(tst_findMainWindow)
#include "tst_findMainWindow.moc"
