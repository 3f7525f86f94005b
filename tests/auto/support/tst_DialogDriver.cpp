#include "DialogDriver.h"

#include "TestHome.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

constexpr int shortDeadline = 100; // milliseconds

/// Announces that the driver of this test function fails it. If the driver does not, the announcement itself fails the
/// test.
void expectFailure()
{
    QEXPECT_FAIL("", "the driver fails the test", Continue);
}

} // namespace

/// Tests that a driver takes its steps in order, and that it fails the test function if it cannot.
class tst_DialogDriver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void takesItsStepsInOrder();
    void takesStepsInsideAStep();
    void failsForAStepThatIsLeft();
    void failsForAStepThatIsLate();
    void failsForADialogThatStaysOpen();
    void failsInCleanup();

private:
    std::unique_ptr<DialogDriver> m_driver;
};

void tst_DialogDriver::cleanup()
{
    if (m_driver)
        expectFailure();
    m_driver.reset();
}

void tst_DialogDriver::takesItsStepsInOrder()
{
    QStringList taken;
    bool isReady = false;
    QDialog dialog;
    DialogDriver driver;
    QVERIFY(driver.finished());
    driver.onDialog<QDialog>("first", [&](QDialog& shown) {
        QCOMPARE(&shown, &dialog);
        taken += "first";
        QTimer::singleShot(50, &dialog, [&isReady] { isReady = true; });
    });
    driver.onDialogWhen<QDialog>(
        "second", [&isReady](QDialog&) { return isReady; },
        [&](QDialog& shown) {
            taken += "second";
            shown.accept();
        });
    QVERIFY(!driver.finished());
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(driver.finished());
    QCOMPARE(taken, (QStringList{"first", "second"}));
}

/// A step may open the dialog for which the next step waits.
void tst_DialogDriver::takesStepsInsideAStep()
{
    int answer = QMessageBox::NoButton;
    QDialog dialog;
    DialogDriver driver;
    driver.onDialog<QDialog>("ask", [&answer](QDialog& shown) {
        QMessageBox question(QMessageBox::Question, "", "?", QMessageBox::Yes | QMessageBox::No, &shown);
        answer = question.exec();
        shown.accept();
    });
    driver.onDialog<QMessageBox>("answer", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(answer, int(QMessageBox::Yes));
}

void tst_DialogDriver::failsForAStepThatIsLeft()
{
    DialogDriver driver;
    driver.onDialog<QDialog>("never", [](QDialog&) {});
    QCOMPARE(driver.problem(), QString("the step \"never\" was never due"));
    expectFailure();
}

/// The dialogs are closed, and no later step is taken.
void tst_DialogDriver::failsForAStepThatIsLate()
{
    QDialog dialog;
    DialogDriver driver(shortDeadline);
    driver.onDialog<QMessageBox>("answer", [](QMessageBox&) { QFAIL("the dialog is no message box"); });
    driver.onDialog<QDialog>("accept", [](QDialog& shown) { shown.accept(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(driver.problem(), QString("the step \"answer\" was not due in time; open: QDialog"));
    expectFailure();
}

void tst_DialogDriver::failsForADialogThatStaysOpen()
{
    QDialog dialog;
    DialogDriver driver(shortDeadline);
    driver.onDialog<QDialog>("look", [](QDialog&) {});
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(driver.problem(), QString("open after the last step: QDialog"));
    expectFailure();
}

/// The driver of a test object fails the function whose cleanup destroys it.
void tst_DialogDriver::failsInCleanup()
{
    m_driver = std::make_unique<DialogDriver>();
    m_driver->onDialog<QDialog>("never", [](QDialog&) {});
}

UI_TEST_MAIN(tst_DialogDriver)
#include "tst_DialogDriver.moc"
