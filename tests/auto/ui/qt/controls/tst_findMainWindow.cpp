#include "ui/qt/controls/findMainWindow.h"

#include "TestHome.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTest>

#include <memory>

using zelmar::ui::findMainWindow;

/// The functions run in this order: what was found once is remembered for the whole process.
class tst_findMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullWithoutAnyWindow();
    void nullWithoutAMainWindow();
    void mainWindowsThatAreNoWindowsAreSkipped();
    void findsAMainWindow();
    void remembersIt();
    void findsTheFirstOfQtsList();
    void findsAMainWindowWithAParent();
    void refreshThatFindsNothingForgetsNothing();
    void findsANewOne();
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

void tst_findMainWindow::mainWindowsThatAreNoWindowsAreSkipped()
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

/// Without a look at the windows that are there now.
void tst_findMainWindow::remembersIt()
{
    QWidget plain;
    QMainWindow mainWindow;
    QCOMPARE(findMainWindow(true), &mainWindow);
    mainWindow.setParent(&plain);
    const QMainWindow other;
    QCOMPARE(findMainWindow(false), &mainWindow);
    QCOMPARE(findMainWindow(true), &other);
}

void tst_findMainWindow::findsTheFirstOfQtsList()
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

/// The pointer is to a window that is gone: good for nothing but to be compared.
void tst_findMainWindow::refreshThatFindsNothingForgetsNothing()
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

void tst_findMainWindow::findsANewOne()
{
    const QMainWindow mainWindow;
    QCOMPARE(findMainWindow(true), &mainWindow);
    QCOMPARE(findMainWindow(false), &mainWindow);
}

UI_TEST_MAIN(tst_findMainWindow)
#include "tst_findMainWindow.moc"
