#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "DialogDriver.h"
#include "OrdinaryUser.h"
#include "RecordingMessageHandler.h"
#include "SystemDialogTest.h"
#include "TestHome.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <memory>

using Calls = RecordingMessageHandler::Calls;

namespace {

// Wine's dialog itself appends the extension of a type's first pattern. The first pattern of the second and the third
// type has no extension, so that only the flow can append one.
const std::vector<std::string> writers{"Data files (*.dat)", "Runs (* *.run)", "Tables (* *.csv)"};

} // namespace

/// Tests the save flow and its questions over the system's dialog. The dialog itself must not ask about overwriting:
/// the driver would report that the dialog waits for an answer.
class tst_SystemSaveFlow : public SystemDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void appendsTheExtension_data();
    void appendsTheExtension();
    void appendsTheExtensionOfThePickedType();
    void startsAsTold();
    void asksBeforeOverwriting();
    void comesBackAfterNo();
    void asksOverTheParent();
    void asksWhereItCannotWrite_data();
    void asksWhereItCannotWrite();
    void refusesAPlaceThatIsNotThere();
    void refusesAFileThatIsInUse();
    void isCancelled_data();
    void isCancelled();
    void isLaunchedAgain();
    void runsBehindTheFacade();

private:
    template <typename Flow>
    std::unique_ptr<Flow> makeFlow(const std::string& name = {}, const std::string& helpTopic = {});

    void accept(const QString& name);
    void answer(const QString& question, QMessageBox::StandardButton button);

    std::unique_ptr<DialogDriver> m_questions;
    Calls m_calls;
};

void tst_SystemSaveFlow::init()
{
    SystemDialogTest::init();
    m_questions = std::make_unique<DialogDriver>();
    m_calls.clear();
}

void tst_SystemSaveFlow::cleanup()
{
    m_questions.reset();
    SystemDialogTest::cleanup();
}

template <typename Flow>
std::unique_ptr<Flow> tst_SystemSaveFlow::makeFlow(const std::string& name, const std::string& helpTopic)
{
    return std::make_unique<Flow>(m_window.get(), "Save run", path().toStdString(), name, writers, 1, helpTopic,
                                  std::make_unique<RecordingMessageHandler>(m_calls));
}

void tst_SystemSaveFlow::accept(const QString& name)
{
    m_driver->inDialog("accept " + name, [name](const SystemDialog& shown) { shown.acceptName(name); });
}

void tst_SystemSaveFlow::answer(const QString& question, QMessageBox::StandardButton button)
{
    m_questions->onDialogWhen<QMessageBox>(
        "answer " + question, [question](QMessageBox& box) { return box.text() == question; },
        [button](QMessageBox& box) { box.button(button)->click(); });
}

void tst_SystemSaveFlow::appendsTheExtension_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("appended");
    QTest::newRow("no extension") << "new"
                                  << "new.run";
    QTest::newRow("not ASCII") << QString::fromUtf8("n\xC3\xA4u \xE2\x82\xAC")
                               << QString::fromUtf8("n\xC3\xA4u \xE2\x82\xAC.run");
    QTest::newRow("below the folder") << "inner\\new"
                                      << "inner/new.run";
    QTest::newRow("that of the type") << "new.run" << QString();
    QTest::newRow("another extension") << "new.csv" << QString();
}

/// A path to which the flow appends an extension gets slashes. Any other path keeps the system's backslashes.
void tst_SystemSaveFlow::appendsTheExtension()
{
    QFETCH(QString, typed);
    QFETCH(QString, appended);
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept(typed);
    QVERIFY(flow->launch());
    const QString saved = appended.isNull() ? native(typed) : path(appended);
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), saved);
    QCOMPARE(m_calls, (Calls{"check " + flow->selectedFilename()}));
    QVERIFY(!QFile::exists(saved)); // the probe leaves no file behind
}

void tst_SystemSaveFlow::appendsTheExtensionOfThePickedType()
{
    const auto flow = makeFlow<SaveFileWinDialog>();
    m_driver->inDialog("pick a type", [](const SystemDialog& shown) { shown.pickFileType(2); });
    m_driver->inDialogWhen(
        "accept", [&flow](const SystemDialog&) { return flow->selectedWriter() == 2; },
        [](const SystemDialog& shown) { shown.acceptName("new"); });
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), path("new.csv"));
    QCOMPARE(flow->selectedWriter(), 2);
    QCOMPARE(flow->selectedFilter(), writers[2]);
}

void tst_SystemSaveFlow::startsAsTold()
{
    const auto flow = makeFlow<SaveFileWinDialog>("r\xC3\xBCn", "topic");
    QStringList seen;
    QStringList types;
    m_driver->inDialog("look, and cancel", [&](const SystemDialog& shown) {
        seen = QStringList{shown.title(), shown.fileName(), m_shell->folder(), shown.isShown("&Help") ? "help" : ""};
        types = shown.fileTypes();
        shown.cancel();
    });
    QVERIFY(!flow->launch());
    QCOMPARE(seen, (QStringList{"Save run", QString::fromUtf8("r\xC3\xBCn"), path(), "help"}));
    QCOMPARE(types, (QStringList{"Data files", "Runs", "Tables"}));
}

void tst_SystemSaveFlow::asksBeforeOverwriting()
{
    m_folders->addFile("old.run", "contents");
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("old"); // without its extension the name does not exist, so the system does not ask
    answer("overwrite", QMessageBox::Yes);
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), path("old.run"));
    QCOMPARE(m_calls, (Calls{"check " + flow->selectedFilename(), "overwrite"}));
    QFile file(path("old.run"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("contents"));
}

void tst_SystemSaveFlow::comesBackAfterNo()
{
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("a.dat");
    answer("overwrite", QMessageBox::No);
    accept("b.dat");
    answer("overwrite", QMessageBox::No);
    accept("new");
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), path("new.run"));
    QCOMPARE(m_calls.size(), std::size_t(5)); // three checks, two questions
    QCOMPARE(m_shell->made, 1);               // one dialog, shown three times
    QCOMPARE(m_shell->advised.size(), std::size_t(3));
}

void tst_SystemSaveFlow::asksOverTheParent()
{
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("a.dat");
    QWidget* parent = nullptr;
    QString title;
    m_questions->onDialog<QMessageBox>("look", [&](QMessageBox& box) {
        parent = box.parentWidget();
        title = box.windowTitle();
        box.button(QMessageBox::Yes)->click();
    });
    QVERIFY(flow->launch());
    QCOMPARE(parent, m_window.get());
    QCOMPARE(title, QString("Save run"));
    QVERIFY(IsWindowEnabled(reinterpret_cast<HWND>(m_window->winId())));
}

void tst_SystemSaveFlow::asksWhereItCannotWrite_data()
{
    QTest::addColumn<bool>("triesAgain");
    QTest::newRow("another try") << true;
    QTest::newRow("no other try") << false;
}

void tst_SystemSaveFlow::asksWhereItCannotWrite()
{
    QFETCH(bool, triesAgain);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    m_folders->addFolder("locked");
    m_folders->setReadOnly("locked", true);
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("locked\\run");
    answer("unable", triesAgain ? QMessageBox::Yes : QMessageBox::No);
    if (triesAgain)
        accept(native("run"));
    const bool launched = flow->launch();
    m_folders->setReadOnly("locked", false); // so that the folder can be removed
    QCOMPARE(launched, triesAgain);
    QCOMPARE(m_calls.size(),
             std::size_t(triesAgain ? 3 : 2)); // each check, and the message that the file cannot be written
    if (triesAgain)
        QCOMPARE(QString::fromStdString(flow->selectedFilename()), path("run.run"));
}

void tst_SystemSaveFlow::refusesAPlaceThatIsNotThere()
{
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("missing\\new");
    answer("unable", QMessageBox::No);
    QVERIFY(!flow->launch());
    QCOMPARE(m_calls.size(), std::size_t(2));
    QVERIFY(!QFile::exists(path("missing")));
}

void tst_SystemSaveFlow::refusesAFileThatIsInUse()
{
    HANDLE holder =
        CreateFileW(native("a.dat").toStdWString().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(holder != INVALID_HANDLE_VALUE);
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("a.dat");
    answer("overwrite", QMessageBox::Yes);
    answer("unable", QMessageBox::No);
    const bool launched = flow->launch();
    CloseHandle(holder);
    QVERIFY(!launched);
}

void tst_SystemSaveFlow::isCancelled_data()
{
    QTest::addColumn<bool>("afterQuestion");
    QTest::newRow("at once") << false;
    QTest::newRow("after a question") << true;
}

void tst_SystemSaveFlow::isCancelled()
{
    QFETCH(bool, afterQuestion);
    const auto flow = makeFlow<SaveFileWinDialog>();
    if (afterQuestion) {
        accept("a.dat");
        answer("overwrite", QMessageBox::No);
    }
    m_driver->inDialog("cancel", [](const SystemDialog& shown) {
        shown.typeName("new");
        shown.cancel();
    });
    QVERIFY(!flow->launch());
    QCOMPARE(m_calls.size(), std::size_t(afterQuestion ? 2 : 0));
}

void tst_SystemSaveFlow::isLaunchedAgain()
{
    const auto flow = makeFlow<SaveFileWinDialog>();
    accept("first");
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), path("first.run"));
    accept("second.txt");
    QVERIFY(flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), native("second.txt"));
    m_driver->inDialog("cancel", [](const SystemDialog& shown) { shown.cancel(); });
    QVERIFY(!flow->launch());
    QCOMPARE(QString::fromStdString(flow->selectedFilename()), native("second.txt"));
}

void tst_SystemSaveFlow::runsBehindTheFacade()
{
    const auto dialog = makeFlow<SaveFileDialog>("a.dat");
    m_driver->inDialog("pick a type", [](const SystemDialog& shown) { shown.pickFileType(2); });
    m_driver->inDialogWhen(
        "pick the first again", [&dialog](const SystemDialog&) { return dialog->selectedWriter() == 2; },
        [](const SystemDialog& shown) { shown.pickFileType(0); });
    m_driver->inDialogWhen(
        "accept a.dat", [&dialog](const SystemDialog&) { return dialog->selectedWriter() == 0; },
        [](const SystemDialog& shown) { shown.acceptName("a.dat"); });
    answer("overwrite", QMessageBox::No);
    accept("new.dat");
    QVERIFY(dialog->launch());
    QCOMPARE(QString::fromStdString(dialog->selectedFilename()), native("new.dat"));
    QCOMPARE(dialog->selectedFilter(), writers[0]);
    QCOMPARE(m_calls.size(), std::size_t(3));
    QCOMPARE(m_shell->made, 1);
}

UI_TEST_MAIN(tst_SystemSaveFlow)
#include "tst_SystemSaveFlow.moc"
