#include "ui/qt/dialogs/save/SaveFlow_p.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "OrdinaryUser.h"
#include "RecordingMessageHandler.h"
#include "SaveFaults.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <boost/filesystem/operations.hpp>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>
#include <stdexcept>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using zelmar::internal::SaveFlow;

namespace {

using Calls = RecordingMessageHandler::Calls;

/// A dialog without a window that answers with the given rounds.
class ScriptedDialog : public zelmar::internal::SaveDialogInterface
{
public:
    struct Round
    {
        bool accepted;
        QStringList files;
        QString filter;
    };

    bool run() override
    {
        if (m_next == rounds.size())
            qFatal("The dialog is shown once too often");
        const Round& round = rounds[m_next++];
        if (whenShown)
            whenShown();
        return round.accepted;
    }
    void cancelRun() override { ++cancelled; }
    bool canGoOn() override { return goesOn; }
    QWidget* questionParent() override { return parent; }
    QStringList selectedFiles() override { return rounds[m_next - 1].files; }
    QStringList nameFilters() const override { return {}; }
    QString selectedNameFilter() const override { return rounds[m_next - 1].filter; }

    /// Starts again with other rounds.
    void play(std::vector<Round> next)
    {
        rounds = std::move(next);
        m_next = 0;
    }
    std::size_t shown() const { return m_next; }

    std::vector<Round> rounds;
    QWidget* parent = nullptr;
    bool goesOn = true;
    int cancelled = 0;
    std::function<void()> whenShown;

private:
    std::size_t m_next = 0;
};

const QString dataFilter = QStringLiteral("Data files (*.dat)");

void answer(DialogDriver& driver, const char* question, QMessageBox::StandardButton button)
{
    driver.onDialogWhen<QMessageBox>(
        QLatin1String(question), [question](QMessageBox& box) { return box.text() == QLatin1String(question); },
        [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
}

const auto yes = QMessageBox::Yes;
const auto no = QMessageBox::No;
const ScriptedDialog::Round cancelled{false, {}, {}};

} // namespace

class tst_SaveFlow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void cancelledAtOnce();
    void newFile();
    void extensionBeforeTheCheck();
    void noFileAtAll();
    void firstOfSeveralFiles();
    void overwriteYes();
    void overwriteNoThenCancel();
    void overwriteNoDoesNotProbe();
    void overwriteNoThenAnotherName();
    void unableNo();
    void unableYesThenCancel();
    void unableYesThenAnotherPlace();
    void overwriteYesThenUnable();
    void errorNo_data();
    void errorNo();
    void errorYesThenAnotherName();
    void otherExceptionsPass();
    void severalRounds();
    void handlerChecksAnotherName();
    void cancelledRunKeepsTheName();
    void nameIsSetBeforeAnyQuestion();
    void flowDestroyedInTheDialog();
    void dialogDestroyedByTheHandler();
    void dialogThatCannotGoOn();
    void questionBox();
    void escapeIsNo();
    void returnIsNo();
    void parentDestroyedDuringAQuestion();
    void faults_data();
    void faults();
    void allFaultsAreTested();

private:
    void makeFlow(std::unique_ptr<RecordingMessageHandler> handler);
    bool run(std::vector<ScriptedDialog::Round> rounds);
    std::string name() const { return m_flow->selectedFileName(); }
    QString path(const QString& name) const { return m_folders->path(name); }
    ScriptedDialog::Round accept(const QString& name) const { return {true, {path(name)}, dataFilter}; }
    std::string call(const char* operation, const QString& name) const
    {
        return std::string(operation) + " " + path(name).toStdString();
    }

    std::unique_ptr<DialogFolders> m_folders;
    Calls m_calls;
    std::unique_ptr<ScriptedDialog> m_dialog;
    std::unique_ptr<SaveFlow> m_flow;
    RecordingMessageHandler* m_handler = nullptr; ///< owned by the flow
};

void tst_SaveFlow::init()
{
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("old.dat", "contents");
    m_calls.clear();
    m_dialog = std::make_unique<ScriptedDialog>();
    makeFlow(std::make_unique<RecordingMessageHandler>(m_calls));
}

void tst_SaveFlow::makeFlow(std::unique_ptr<RecordingMessageHandler> handler)
{
    m_handler = handler.get();
    m_flow = std::make_unique<SaveFlow>(*m_dialog, u8"S\u00e4ve run", std::move(handler));
}

/// Runs the flow with the given rounds, and fails unless all of them are used.
bool tst_SaveFlow::run(std::vector<ScriptedDialog::Round> rounds)
{
    const std::size_t expected = rounds.size();
    m_dialog->play(std::move(rounds));
    const bool result = m_flow->launch();
    if (m_dialog->shown() != expected)
        qFatal("The dialog is shown once too rarely");
    return result;
}

void tst_SaveFlow::cancelledAtOnce()
{
    QVERIFY(!run({cancelled}));
    QCOMPARE(m_calls, Calls());
    QCOMPARE(name(), std::string());
}

void tst_SaveFlow::newFile()
{
    QVERIFY(run({accept("new.dat")}));
    QCOMPARE(m_calls, Calls{call("check", "new.dat")});
    QCOMPARE(name(), path("new.dat").toStdString());
    QVERIFY(!QFile::exists(path("new.dat")));
}

void tst_SaveFlow::extensionBeforeTheCheck()
{
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({accept("old")}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite"}));
    QCOMPARE(name(), path("old.dat").toStdString());
}

void tst_SaveFlow::noFileAtAll()
{
    QVERIFY(!run({{true, {}, dataFilter}}));
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFlow::firstOfSeveralFiles()
{
    QVERIFY(run({{true, {path("a.dat"), path("old.dat")}, dataFilter}}));
    QCOMPARE(name(), path("a.dat").toStdString());
}

void tst_SaveFlow::overwriteYes()
{
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({accept("old.dat")}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite"}));
}

void tst_SaveFlow::overwriteNoThenCancel()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    QVERIFY(!run({accept("old.dat"), cancelled}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite"}));
}

/// Uses a pipe, because its reader notices when the other end is opened.
void tst_SaveFlow::overwriteNoDoesNotProbe()
{
#ifndef Q_OS_UNIX
    QSKIP(systemLimits::noSpecialFiles);
#else
    const QByteArray pipe = QFile::encodeName(path("pipe.dat"));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    const int reader = ::open(pipe.constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    const auto wasOpened = [reader] {
        pollfd state{reader, POLLIN, 0};
        return ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
    };

    DialogDriver driver;
    answer(driver, "overwrite", no);
    answer(driver, "overwrite", yes);
    bool openedAfterNo = true;
    m_handler->whenChecked = [&](const std::string& name) {
        openedAfterNo = wasOpened();
        return name;
    };
    const ScriptedDialog::Round round = accept("pipe.dat");
    QVERIFY(run({round, round}));
    QVERIFY(!openedAfterNo);
    QVERIFY(wasOpened()); // proves that the test would notice an open end
    ::close(reader);
#endif
}

void tst_SaveFlow::overwriteNoThenAnotherName()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    QVERIFY(run({accept("old.dat"), accept("new")}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite", call("check", "new.dat")}));
    QCOMPARE(name(), path("new.dat").toStdString());
}

void tst_SaveFlow::unableNo()
{
    DialogDriver driver;
    answer(driver, "unable", no);
    QVERIFY(!run({accept("missing/new.dat")}));
    QCOMPARE(m_calls, (Calls{call("check", "missing/new.dat"), "unable"}));
    QCOMPARE(name(), path("missing/new.dat").toStdString());
}

void tst_SaveFlow::unableYesThenCancel()
{
    DialogDriver driver;
    answer(driver, "unable", yes);
    QVERIFY(!run({accept("missing/new.dat"), cancelled}));
    QCOMPARE(m_calls, (Calls{call("check", "missing/new.dat"), "unable"}));
}

void tst_SaveFlow::unableYesThenAnotherPlace()
{
    DialogDriver driver;
    answer(driver, "unable", yes);
    QVERIFY(run({accept("missing/new.dat"), accept("new.dat")}));
    QCOMPARE(m_calls, (Calls{call("check", "missing/new.dat"), "unable", call("check", "new.dat")}));
}

void tst_SaveFlow::overwriteYesThenUnable()
{
    m_folders->addFolder("folder.dat");
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    answer(driver, "unable", no);
    QVERIFY(!run({accept("folder.dat")}));
    QCOMPARE(m_calls, (Calls{call("check", "folder.dat"), "overwrite", "unable"}));
}

void tst_SaveFlow::errorNo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("raisedIn");

    // clang-format off
    QTest::newRow("before the probe") << "old.dat" << "overwrite";
    QTest::newRow("after the probe") << "missing/new.dat" << "unable";
    // clang-format on
}

void tst_SaveFlow::errorNo()
{
    QFETCH(QString, name);
    QFETCH(QString, raisedIn);

    const boost::filesystem::filesystem_error error("disk gone", boost::system::error_code());
    const std::string question = std::string("error ") + error.what();
    m_handler->whenAsked = [&](const std::string& asked) {
        if (asked == raisedIn.toStdString())
            throw error;
    };
    DialogDriver driver;
    answer(driver, question.c_str(), no);
    QVERIFY(!run({accept(name)}));
    QCOMPARE(m_calls, (Calls{call("check", name), raisedIn.toStdString(), question}));
}

void tst_SaveFlow::errorYesThenAnotherName()
{
    const boost::filesystem::filesystem_error error("disk gone", boost::system::error_code());
    const std::string question = std::string("error ") + error.what();
    m_handler->whenAsked = [&](const std::string& asked) {
        if (asked == "overwrite")
            throw error;
    };
    DialogDriver driver;
    answer(driver, question.c_str(), yes);
    QVERIFY(run({accept("old.dat"), accept("new.dat")}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite", question, call("check", "new.dat")}));
}

void tst_SaveFlow::otherExceptionsPass()
{
    m_handler->whenAsked = [](const std::string&) { throw std::runtime_error("not the disk"); };
    QVERIFY_EXCEPTION_THROWN(run({accept("old.dat")}), std::runtime_error);
    // An error that filenameToCheck() throws is not an error of examining the file, and is propagated.
    m_handler->whenChecked = [](const std::string&) -> std::string {
        throw boost::filesystem::filesystem_error("the handler's own", boost::system::error_code());
    };
    QVERIFY_EXCEPTION_THROWN(run({accept("old.dat")}), boost::filesystem::filesystem_error);
}

void tst_SaveFlow::severalRounds()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    answer(driver, "unable", yes);
    answer(driver, "overwrite", no);
    answer(driver, "overwrite", yes);
    QVERIFY(run({accept("old.dat"), accept("missing/new.dat"), accept("old."), {true, {path("old.dat")}, QString()}}));
    QCOMPARE(m_calls, (Calls{call("check", "old.dat"), "overwrite", call("check", "missing/new.dat"), "unable",
                             call("check", "old.dat"), "overwrite", call("check", "old.dat"), "overwrite"}));
    QFile file(path("old.dat"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("contents"));
}

void tst_SaveFlow::handlerChecksAnotherName()
{
    // The other name exists, so that the overwrite question is asked.
    m_handler->whenChecked = [this](const std::string&) { return path("old.dat").toStdString(); };
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({accept("new.dat")}));
    QCOMPARE(name(), path("new.dat").toStdString());

    // The other name does not exist, so that no question is asked although the chosen file exists. The probe tests the
    // chosen file.
    m_handler->whenChecked = [this](const std::string&) { return path("missing/x").toStdString(); };
    QVERIFY(run({accept("old.dat")}));

    m_handler->whenChecked = [this](const std::string&) { return path("none.dat").toStdString(); };
    DialogDriver second;
    answer(second, "unable", no);
    QVERIFY(!run({accept("missing/new.dat")}));
}

void tst_SaveFlow::cancelledRunKeepsTheName()
{
    QVERIFY(run({accept("new.dat")}));
    QVERIFY(!run({cancelled}));
    QCOMPARE(name(), path("new.dat").toStdString());
}

/// The functions of the handler may read the name from the flow.
void tst_SaveFlow::nameIsSetBeforeAnyQuestion()
{
    std::vector<std::string> names;
    m_handler->whenChecked = [&](const std::string& checked) {
        names.push_back(name());
        return checked;
    };
    DialogDriver driver;
    answer(driver, "overwrite", no);
    QVERIFY(run({accept("old"), accept("new")}));
    QCOMPARE(names, (std::vector<std::string>{path("old.dat").toStdString(), path("new.dat").toStdString()}));
}

void tst_SaveFlow::flowDestroyedInTheDialog()
{
    m_dialog->whenShown = [this] { m_flow.reset(); };
    m_dialog->play({accept("new.dat")});
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_dialog->cancelled, 1);
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFlow::dialogDestroyedByTheHandler()
{
    m_handler->whenChecked = [this](const std::string& checked) {
        m_dialog.reset();
        return checked;
    };
    m_dialog->play({accept("old.dat")});
    QVERIFY(!m_flow->launch());
    QCOMPARE(name(), path("old.dat").toStdString());
    QVERIFY(!m_flow->dialog());
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_flow->selectedFilter(), QString());
    QCOMPARE(m_flow->selectedWriter(), -1);
    QCOMPARE(m_calls, Calls{call("check", "old.dat")});
}

void tst_SaveFlow::dialogThatCannotGoOn()
{
    m_dialog->whenShown = [this] { m_dialog->goesOn = false; };
    QVERIFY(!run({accept("new.dat")}));
    QVERIFY(!run({})); // The dialog is not shown.
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFlow::questionBox()
{
    const QString name = systemLimits::noOddNames ? QStringLiteral("&lt;old.dat") : QStringLiteral("<b>old<.dat");
    QWidget window;
    window.show();
    m_dialog->parent = &window;
    m_folders->addFile(name);
    DialogDriver driver;
    driver.onDialog<QMessageBox>("look", [&window](QMessageBox& box) {
        QCOMPARE(box.windowTitle(), QStringLiteral(u"S\u00e4ve run"));
        QCOMPARE(box.text(), QStringLiteral("overwrite"));
        QCOMPARE(box.parentWidget(), &window);
        QCOMPARE(box.icon(), QMessageBox::Question);
        QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
        QCOMPARE(box.textFormat(), Qt::PlainText);
        box.button(QMessageBox::No)->click();
    });
    QVERIFY(!run({accept(name), cancelled}));
    QVERIFY(window.findChildren<QMessageBox*>().isEmpty());
}

void tst_SaveFlow::escapeIsNo()
{
    DialogDriver driver;
    driver.onDialog<QMessageBox>("escape", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    QVERIFY(!run({accept("old.dat"), cancelled}));
}

void tst_SaveFlow::returnIsNo()
{
    DialogDriver driver;
    driver.onDialog<QMessageBox>("return", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QVERIFY(!run({accept("old.dat"), cancelled}));
}

void tst_SaveFlow::parentDestroyedDuringAQuestion()
{
    auto window = std::make_unique<QWidget>();
    window->show();
    m_dialog->parent = window.get();
    DialogDriver driver;
    driver.onDialog<QMessageBox>("destroy", [&](QMessageBox&) {
        m_dialog->parent = nullptr;
        window.reset();
    });
    QVERIFY(!run({accept("old.dat")}));
}

void tst_SaveFlow::faults_data()
{
    addSaveFaultRows();
}

void tst_SaveFlow::faults()
{
    QFETCH(int, fault);
    SaveFaultTrial trial(saveFaults()[std::size_t(fault)], m_folders->path("place"));
    makeFlow(trial.makeHandler());
    DialogDriver driver;
    trial.addAnswers(driver);
    bool accepted = false;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        accepted = run({{true, {trial.chosenName()}, dataFilter}});
    }
    m_flow.reset();
    QCOMPARE(trial.problem(accepted), QString());
}

void tst_SaveFlow::allFaultsAreTested()
{
    if (!whyFaultsAreMissing().isEmpty())
        QSKIP(qPrintable(whyFaultsAreMissing()));
}

UI_TEST_MAIN(tst_SaveFlow)
#include "tst_SaveFlow.moc"
