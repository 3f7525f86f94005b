#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "RecordingMessageHandler.h"
#include "RecordingShell.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using zelmar::ApplicationSettings;
using Calls = RecordingMessageHandler::Calls;

namespace {

const std::string data = "Data files (*.dat)";
const std::vector<std::string> writers{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"};

/// A flow that makes the protected access to its dialog public.
class TestedFlow : public SaveFileWinDialog
{
public:
    using SaveFileWinDialog::dialog;
    using SaveFileWinDialog::SaveFileWinDialog;
};

void answer(DialogDriver& driver, QMessageBox::StandardButton button)
{
    driver.onDialog<QMessageBox>("answer", [button](QMessageBox& box) { box.button(button)->click(); });
}

} // namespace

/// Tests what only the flow over the native dialog does. tst_SaveFileDialog tests what all flows do.
class tst_SaveFileWinDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void setsUpTheDialog();
    void setsUpTheListOfWriters();
    void takesNoFilter();
    void isRejectedByAnythingButAcceptance();
    void asksWithoutAParent();
    void startsAnewWithoutPreparing();
    void leavesTheDialogAlone();
    void goesOnWithoutADialog();
    void savesOverTheBuiltInDialog();

private:
    std::unique_ptr<TestedFlow> makeFlow(const std::string& name = {}, const std::string& helpTopic = {});

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<RecordingShell> m_shell;
    Calls m_calls;
};

void tst_SaveFileWinDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"), "contents");
    m_window = std::make_unique<QWidget>();
    m_shell = std::make_unique<RecordingShell>();
    m_calls.clear();
}

void tst_SaveFileWinDialog::cleanup()
{
    m_window.reset();
    m_shell.reset();
}

std::unique_ptr<TestedFlow> tst_SaveFileWinDialog::makeFlow(const std::string& name, const std::string& helpTopic)
{
    return std::make_unique<TestedFlow>(m_window.get(), "Save run", m_folders->path().toStdString(), name, writers, 1,
                                        helpTopic, std::make_unique<RecordingMessageHandler>(m_calls));
}

void tst_SaveFileWinDialog::setsUpTheDialog()
{
    m_shell->showResult = E_FAIL;
    SaveFileWinDialog flow(m_window.get(), "S\xC3\xA4ve", m_folders->path().toStdString(), "r\xC3\xBCn", data, "topic");
    QVERIFY(!flow.parent());
    QCOMPARE(m_shell->takeCalls(),
             (QStringList{"create save dialog", "AddPushButton 0 &Help", "MakeProminent 0"})); // and no menu
    QVERIFY(!flow.launch());
    const QStringList calls = m_shell->takeCalls();
    for (const QString& call :
         {QString::fromUtf8("SetTitle S\xC3\xA4ve"), "SetFolder " + m_folders->path(),
          QStringLiteral("SetFileTypes [Data files|*.dat]"), QStringLiteral("SetFileTypeIndex 1"),
          QString::fromUtf8("SetFileName r\xC3\xBCn"), QStringLiteral("Show %1").arg(m_window->winId())})
        QVERIFY2(calls.contains(call), qPrintable(call));
    QVERIFY(!(m_shell->options & FOS_OVERWRITEPROMPT)); // the flow asks the question itself
    QCOMPARE(flow.selectedFilename(), std::string());
}

void tst_SaveFileWinDialog::setsUpTheListOfWriters()
{
    m_shell->showResult = E_FAIL;
    const auto flow = makeFlow();
    QCOMPARE(flow->selectedWriter(), 1);
    QCOMPARE(flow->selectedFilter(), writers[1]);
    QCOMPARE(flow->dialog()->nameFilters(), (QStringList{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"}));
    flow->launch();
    QVERIFY(m_shell->takeCalls().contains("SetFileTypes [Data files|*.dat] [Tables|*.csv] [All files|*]"));
}

void tst_SaveFileWinDialog::takesNoFilter()
{
    const SaveFileWinDialog flow(m_window.get(), "", "", "", "", "");
    QCOMPARE(flow.selectedWriter(), -1);
    QCOMPARE(flow.selectedFilter(), std::string());
}

void tst_SaveFileWinDialog::isRejectedByAnythingButAcceptance()
{
    m_shell->results = QStringList{m_folders->path("result")};
    for (const HRESULT result : {HRESULT(HRESULT_FROM_WIN32(ERROR_CANCELLED)), HRESULT(E_FAIL), HRESULT(S_FALSE)}) {
        m_shell->showResult = result;
        QVERIFY(!makeFlow()->launch());
    }
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFileWinDialog::asksWithoutAParent()
{
    m_window.reset();
    m_shell->results = QStringList{m_folders->path("old.dat")};
    const auto flow = makeFlow();
    QWidget nobody;
    QWidget* parent = &nobody;
    DialogDriver driver;
    driver.onDialog<QMessageBox>("look", [&](QMessageBox& box) {
        parent = box.parentWidget();
        box.button(QMessageBox::Yes)->click();
    });
    QVERIFY(flow->launch());
    QVERIFY(!parent);
    QVERIFY(m_shell->takeCalls().contains("Show 0"));
}

void tst_SaveFileWinDialog::startsAnewWithoutPreparing()
{
    const auto flow = makeFlow();
    m_shell->results = QStringList{m_folders->path("first")};
    QVERIFY(flow->launch());
    m_shell->takeCalls();
    m_shell->results = QStringList{m_folders->path("second")};
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), m_folders->path("second.csv"));
    QVERIFY(!m_shell->takeCalls().contains("SetTitle Save run"));
}

/// The dialog outlives the flow, so that pointers of a derived class to it stay valid.
void tst_SaveFileWinDialog::leavesTheDialogAlone()
{
    auto flow = makeFlow();
    ExtendedWinFileDialog* const dialog = flow->dialog();
    QCOMPARE(m_shell->liveObjects, 1);
    flow.reset();
    QCOMPARE(m_shell->liveObjects, 1);
    QCOMPARE(dialog->nameFilters().size(), 3);
    delete dialog; // so that the leak checker needs no exception for this test
    QCOMPARE(m_shell->liveObjects, 0);
}

void tst_SaveFileWinDialog::goesOnWithoutADialog()
{
    m_shell->failAt = 1;
    const auto flow = makeFlow("name");
    QVERIFY(!flow->launch());
    QCOMPARE(flow->selectedWriter(), 1);
}

void tst_SaveFileWinDialog::savesOverTheBuiltInDialog()
{
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP(systemLimits::nativeDialogIsTheSystems);
    m_shell.reset();
    const auto flow = makeFlow("run", "topic");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick another type, and accept", [](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Save run"));
        QCOMPARE(fileNameEdit(dialog).text(), QString("run"));
        pickFilter(dialog, 0);
        QCOMPARE(fileNameEdit(dialog).text(), QString("run.dat"));
        acceptName(dialog, "old");
    });
    answer(driver, QMessageBox::No);
    driver.onDialog<QFileDialog>("take another name", [](QFileDialog& dialog) {
        QCOMPARE(fileTypeCombo(dialog).currentIndex(), 0);
        acceptName(dialog, "old");
    });
    answer(driver, QMessageBox::Yes);
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), m_folders->path("old.dat"));
    QCOMPARE(flow->selectedWriter(), 0);
    QCOMPARE(m_calls.size(), std::size_t(4)); // the check and the question, twice each
}

UI_TEST_MAIN(tst_SaveFileWinDialog)
#include "tst_SaveFileWinDialog.moc"
