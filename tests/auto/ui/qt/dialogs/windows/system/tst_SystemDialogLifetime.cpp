#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "SystemDialogTest.h"
#include "TestHome.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>
#include <QtTest>

#include <memory>

using namespace zelmar::internal;

namespace {

const auto nothing = [] {};

/// Runs `step` in a new thread, which is in no apartment. Both threads run event loops: windows of one thread send
/// messages to those of the other, and a driver needs timers.
void onFreshThread(const std::function<void()>& step)
{
    QThread thread;
    QObject onThread;
    onThread.moveToThread(&thread);
    const auto takeStep = [&] {
        step();
        thread.quit();
    };
    QObject::connect(&thread, &QThread::started, &onThread, takeStep, Qt::QueuedConnection); // when its event loop runs
    QEventLoop loop;
    QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);
    thread.start();
    loop.exec();
    thread.wait();
}

/// Leaves the single-threaded apartment as often as the thread has entered it. Returns this number.
int leaveApartment()
{
    int entries = 0;
    while (CoInitializeEx(nullptr, COINIT_MULTITHREADED) == RPC_E_CHANGED_MODE) {
        CoUninitialize();
        ++entries;
    }
    CoUninitialize();
    return entries;
}

/// Returns the number of apartment entries that each showing leaves behind: Wine's dialog enters once and does not
/// leave.
int entriesOfShowing()
{
    return isWine() ? 1 : 0;
}

} // namespace

/// Tests that the class releases everything that it acquires from the system.
class tst_SystemDialogLifetime : public SystemDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void givesReferencesBack_data();
    void givesReferencesBack();
    void givesReferencesBackAfterOthersLookedIn();
    void advisesForEachShowing();
    void keepsNoReferenceOfAControl();
    void goesWhileItRuns_data();
    void goesWhileItRuns();
    void leavesTheApartment_data();
    void leavesTheApartment();
    void staysOutOfTheOtherApartment_data();
    void staysOutOfTheOtherApartment();
    void leavesTheApartmentOfOthersAlone();

private:
    std::unique_ptr<ExtendedWinFileDialog> makeDialog(QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen) const;
};

std::unique_ptr<ExtendedWinFileDialog> tst_SystemDialogLifetime::makeDialog(QFileDialog::AcceptMode mode) const
{
    return std::make_unique<ExtendedWinFileDialog>(*m_window, "Lifetime", path().toStdString(),
                                                   "Data (*.dat);;Text (*.txt)", "topic", mode, true);
}

void tst_SystemDialogLifetime::givesReferencesBack_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("acceptMode");
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::addColumn<QString>("typed");
    QTest::newRow("open") << QFileDialog::AcceptOpen << QFileDialog::ExistingFile << "a.dat";
    QTest::newRow("open several") << QFileDialog::AcceptOpen << QFileDialog::ExistingFiles << "\"a.dat\" \"b.dat\"";
    QTest::newRow("choose a folder") << QFileDialog::AcceptOpen << QFileDialog::Directory << "inner";
    QTest::newRow("save") << QFileDialog::AcceptSave << QFileDialog::AnyFile << "new.dat";
    QTest::newRow("cancelled") << QFileDialog::AcceptOpen << QFileDialog::ExistingFile << QString();
}

/// Calls every operation, while the user causes every event that the class handles.
void tst_SystemDialogLifetime::givesReferencesBack()
{
    QFETCH(QFileDialog::AcceptMode, acceptMode);
    QFETCH(QFileDialog::FileMode, mode);
    QFETCH(QString, typed);
    auto dialog = makeDialog(acceptMode);
    QCOMPARE(m_shell->references(), ULONG(1));
    dialog->setFileMode(mode);
    const auto checked = boost::make_shared<zelmar::Property<bool>>(false);
    dialog->addCustomCheckBox("Box", checked)->setEnabled(true);
    dialog->addAcceptButtonOption("Old", 1)->hide();
    dialog->clearAcceptMenuOptions();
    dialog->addAcceptButtonOption("First", 1);
    int clicked = 0;
    QWidget* const button = dialog->addCustomButton("Button", [&clicked] { ++clicked; });
    m_driver->inDialog("click the box", [](const SystemDialog& shown) { shown.click("Box"); });
    m_driver->inDialogWhen(
        "click the button", [&checked](const SystemDialog&) { return checked->value(); },
        [](const SystemDialog& shown) { shown.click("Button"); });
    m_driver->inDialogWhen(
        "pick another type", [&clicked](const SystemDialog&) { return clicked == 1; },
        [button](const SystemDialog& shown) {
            button->hide();
            shown.typeName("name.dat");
            shown.pickFileType(1);
        });
    m_driver->inDialogWhen(
        "end", [&dialog](const SystemDialog&) { return dialog->currentFilterIndex()->value() == 2; },
        [&typed](const SystemDialog& shown) { typed.isNull() ? shown.cancel() : shown.acceptName(typed); });
    QCOMPARE(dialog->exec(), typed.isNull() ? QDialog::Rejected : QDialog::Accepted);
    QCOMPARE(dialog->selectedFiles().isEmpty(), typed.isNull());
    QCOMPARE(m_shell->references(), ULONG(1));
    dialog.reset();
    QCOMPARE(m_shell->made, 1);
    QCOMPARE(m_shell->gone, 1);
    QCOMPARE(m_shell->systemReferences, ULONG(0));
    QCOMPARE(m_shell->unadvised, m_shell->advised);
    QCOMPARE(m_shell->releaseAdvised(), ULONG(0));
}

/// Proves that the counts are meaningful: references of the test itself appear in them.
void tst_SystemDialogLifetime::givesReferencesBackAfterOthersLookedIn()
{
    auto dialog = makeDialog();
    ComPtr<IFileDialog> front = m_shell->dialog();
    auto behind = queryFor<IFileDialogCustomize>(IID_IFileDialogCustomize, m_shell->dialog());
    QVERIFY(behind);
    QCOMPARE(m_shell->references(), ULONG(2));
    dialog.reset();
    QCOMPARE(m_shell->gone, 0);
    front.reset();
    QCOMPARE(m_shell->gone, 1);
    QCOMPARE(m_shell->systemReferences, ULONG(1));
}

void tst_SystemDialogLifetime::advisesForEachShowing()
{
    auto dialog = makeDialog();
    QVERIFY(m_shell->advised.empty());
    for (std::size_t showings = 1; showings <= 3; ++showings) {
        std::size_t advisedWhileOpen = 0;
        std::size_t unadvisedWhileOpen = 0;
        m_driver->inDialog("look, and cancel", [&](const SystemDialog& shown) {
            advisedWhileOpen = m_shell->advised.size();
            unadvisedWhileOpen = m_shell->unadvised.size();
            shown.cancel();
        });
        QCOMPARE(dialog->exec(), QDialog::Rejected);
        QCOMPARE(advisedWhileOpen, showings);
        QCOMPARE(unadvisedWhileOpen, showings - 1);
        QCOMPARE(m_shell->unadvised, m_shell->advised);
    }
    QCOMPARE(m_shell->releaseAdvised(), ULONG(0)); // every handler is destroyed, not only the last one
}

/// The handle of a control borrows the dialog: it changes no reference count.
void tst_SystemDialogLifetime::keepsNoReferenceOfAControl()
{
    auto dialog = makeDialog();
    for (int i = 0; i < 50; ++i) {
        QWidget* const handle = dialog->addCustomButton("Button", nothing);
        handle->hide();
        handle->show();
        handle->setEnabled(false);
    }
    QCOMPARE(m_shell->references(), ULONG(1));
    dialog.reset();
    QCOMPARE(m_shell->gone, 1);
    QCOMPARE(m_shell->systemReferences, ULONG(0));
}

void tst_SystemDialogLifetime::goesWhileItRuns_data()
{
    QTest::addColumn<bool>("parentGoes");
    QTest::addColumn<bool>("inButton");
    QTest::newRow("the object, while the dialog is open") << false << false;
    QTest::newRow("the parent, while the dialog is open") << true << false;
    QTest::newRow("the object, in the action of a button") << false << true;
    QTest::newRow("the parent, in the action of a button") << true << true;
}

/// The dialog must close: the driver would report it if it stayed open.
void tst_SystemDialogLifetime::goesWhileItRuns()
{
    QFETCH(bool, parentGoes);
    QFETCH(bool, inButton);
    auto dialog = makeDialog();
    int strikes = 0;
    const auto strike = [&] {
        ++strikes;
        parentGoes ? m_window.reset() : dialog.reset();
    };
    dialog->addCustomButton("Strike", strike);
    m_driver->inDialog("strike", [&](const SystemDialog& shown) { inButton ? shown.click("Strike") : strike(); });
    QCOMPARE(dialog->exec(), QDialog::Rejected);
    QCOMPARE(strikes, 1);
    dialog.reset();
    QCOMPARE(m_shell->gone, 1);
    QCOMPARE(m_shell->systemReferences, ULONG(0));
    QCOMPARE(m_shell->unadvised, m_shell->advised);
    QCOMPARE(m_shell->releaseAdvised(), ULONG(0));
}

void tst_SystemDialogLifetime::leavesTheApartment_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    QTest::addColumn<bool>("shown");
    QTest::newRow("open, not shown") << QFileDialog::AcceptOpen << false;
    QTest::newRow("open, shown") << QFileDialog::AcceptOpen << true;
    QTest::newRow("save, shown") << QFileDialog::AcceptSave << true;
}

void tst_SystemDialogLifetime::leavesTheApartment()
{
    QFETCH(QFileDialog::AcceptMode, mode);
    QFETCH(bool, shown);
    int before = -1;
    HRESULT entered = E_FAIL;
    int result = -1;
    QStringList files;
    QString problem;
    int after = -1;
    m_shell.reset(); // belongs to the apartment of the test's thread
    onFreshThread([&] {
        before = leaveApartment();
        {
            ExtendedWinFileDialog dialog(nullptr, "Lifetime", path().toStdString(), "", "", mode, false);
            entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            CoUninitialize();
            if (shown) {
                SystemDialogDriver driver;
                driver.inDialog("accept", [](const SystemDialog& open) { open.acceptName("new.dat"); });
                result = dialog.exec();
                files = dialog.selectedFiles();
                problem = driver.problem();
            }
        }
        after = leaveApartment();
    });
    QCOMPARE(before, 0);
    QCOMPARE(entered, S_FALSE); // the dialog had entered the apartment
    QCOMPARE(problem, QString());
    QCOMPARE(result, shown ? int(QDialog::Accepted) : -1);
    QCOMPARE(files, shown ? QStringList{native("new.dat")} : QStringList());
    QCOMPARE(after, shown ? entriesOfShowing() : 0);
}

void tst_SystemDialogLifetime::staysOutOfTheOtherApartment_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    QTest::newRow("open") << QFileDialog::AcceptOpen;
    QTest::newRow("save") << QFileDialog::AcceptSave;
}

/// The dialog cannot enter the thread's multithreaded apartment, but leaves it once at its end.
void tst_SystemDialogLifetime::staysOutOfTheOtherApartment()
{
    QFETCH(QFileDialog::AcceptMode, mode);
    int result = -1;
    QStringList files{"none read"};
    HRESULT stillIn = E_FAIL;
    HRESULT afterwards = E_FAIL;
    m_shell.reset();
    onFreshThread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            ExtendedWinFileDialog dialog(nullptr, "Lifetime", path().toStdString(), "Data (*.dat)", "", mode, true);
            SystemDialogDriver driver; // closes a dialog, which must not appear
            result = dialog.exec();
            files = dialog.selectedFiles();
            dialog.close();
            stillIn = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            CoUninitialize();
        }
        afterwards = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        CoUninitialize();
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(files, QStringList());
    QCOMPARE(stillIn, S_FALSE);
    QCOMPARE(afterwards, S_OK);
}

void tst_SystemDialogLifetime::leavesTheApartmentOfOthersAlone()
{
    HRESULT stillIn = E_FAIL;
    int after = -1;
    m_shell.reset();
    onFreshThread([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        ExtendedWinFileDialog(nullptr, "Lifetime", "", "", "", QFileDialog::AcceptOpen, false);
        stillIn = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        CoUninitialize();
        CoUninitialize();
        after = leaveApartment();
    });
    QCOMPARE(stillIn, S_FALSE);
    QCOMPARE(after, 0);
}

UI_TEST_MAIN(tst_SystemDialogLifetime)
#include "tst_SystemDialogLifetime.moc"
