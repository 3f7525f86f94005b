#include "ui/qt/dialogs/SaveLoop_p.h"

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

#include <stdexcept>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using Calls = RecordingMessageHandler::Calls;

/// A dialog without a window that answers with the given rounds.
class ScriptedDialog : public SaveLoopDialog
{
public:
    struct Round
    {
        bool accepted;
        QStringList files;
        QString filter;
    };

    explicit ScriptedDialog(std::vector<Round> rounds)
        : m_rounds(std::move(rounds))
    {
    }

    bool run() override
    {
        if (m_next == m_rounds.size())
            qFatal("The dialog is shown once too often");
        return m_rounds[m_next++].accepted;
    }
    QStringList selectedFiles() const override { return m_rounds[m_next - 1].files; }
    QString selectedNameFilter() const override { return m_rounds[m_next - 1].filter; }
    QWidget* questionParent() const override { return parent; }

    std::size_t shown() const { return m_next; }

    QWidget* parent = nullptr;

private:
    std::vector<Round> m_rounds;
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

class tst_SaveLoop : public QObject
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
    void questionBox();
    void escapeIsNo();
    void returnIsNo();
    void parentDestroyedDuringAQuestion();
    void faults_data();
    void faults();
    void allFaultsAreTested();

private:
    bool run(std::vector<ScriptedDialog::Round> rounds, DialogDriver* driver = nullptr);
    QString path(const QString& name) const { return m_folders->path(name); }
    std::string call(const char* operation, const QString& name) const
    {
        return std::string(operation) + " " + path(name).toStdString();
    }

    std::unique_ptr<DialogFolders> m_folders;
    Calls m_calls;
    std::unique_ptr<RecordingMessageHandler> m_handler;
    std::string m_name;
};

void tst_SaveLoop::init()
{
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"), "contents");
    m_calls.clear();
    m_handler = std::make_unique<RecordingMessageHandler>(m_calls);
    m_name.clear();
}

/// Runs the loop with the given rounds, and fails unless all of them are used.
bool tst_SaveLoop::run(std::vector<ScriptedDialog::Round> rounds, DialogDriver* driver)
{
    const std::size_t expected = rounds.size();
    ScriptedDialog dialog(std::move(rounds));
    const bool result = SaveLoop(dialog, *m_handler, "Save run", m_name).run();
    if (dialog.shown() != expected)
        qFatal("The dialog is shown once too rarely");
    if (driver && !driver->finished())
        qFatal("%s", qPrintable(driver->problem()));
    return result;
}

void tst_SaveLoop::cancelledAtOnce()
{
    QVERIFY(!run({cancelled}));
    QCOMPARE(m_calls, Calls());
    QCOMPARE(m_name, std::string());
}

void tst_SaveLoop::newFile()
{
    QVERIFY(run({{true, {path(QStringLiteral("new.dat"))}, dataFilter}}));
    QCOMPARE(m_calls, Calls{call("check", QStringLiteral("new.dat"))});
    QCOMPARE(m_name, path(QStringLiteral("new.dat")).toStdString());
    QVERIFY(!QFile::exists(path(QStringLiteral("new.dat"))));
}

void tst_SaveLoop::extensionBeforeTheCheck()
{
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({{true, {path(QStringLiteral("old"))}, dataFilter}}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("old.dat")), "overwrite"}));
    QCOMPARE(m_name, path(QStringLiteral("old.dat")).toStdString());
}

void tst_SaveLoop::noFileAtAll()
{
    QVERIFY(!run({{true, {}, dataFilter}}));
    QCOMPARE(m_calls, Calls());
}

void tst_SaveLoop::firstOfSeveralFiles()
{
    QVERIFY(run({{true, {path(QStringLiteral("a.dat")), path(QStringLiteral("old.dat"))}, dataFilter}}));
    QCOMPARE(m_name, path(QStringLiteral("a.dat")).toStdString());
}

void tst_SaveLoop::overwriteYes()
{
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("old.dat")), "overwrite"}));
}

void tst_SaveLoop::overwriteNoThenCancel()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    QVERIFY(!run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}, cancelled}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("old.dat")), "overwrite"}));
}

/// Uses a pipe, because its reader notices when the other end is opened.
void tst_SaveLoop::overwriteNoDoesNotProbe()
{
#ifndef Q_OS_UNIX
    QSKIP(systemLimits::noSpecialFiles);
#else
    const QByteArray pipe = QFile::encodeName(path(QStringLiteral("pipe.dat")));
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
    const ScriptedDialog::Round round{true, {path(QStringLiteral("pipe.dat"))}, dataFilter};
    QVERIFY(run({round, round}, &driver));
    QVERIFY(!openedAfterNo);
    QVERIFY(wasOpened()); // proves that the test would notice an open end
    ::close(reader);
#endif
}

void tst_SaveLoop::overwriteNoThenAnotherName()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    QVERIFY(
        run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}, {true, {path(QStringLiteral("new"))}, dataFilter}},
            &driver));
    QCOMPARE(m_calls,
             (Calls{call("check", QStringLiteral("old.dat")), "overwrite", call("check", QStringLiteral("new.dat"))}));
    QCOMPARE(m_name, path(QStringLiteral("new.dat")).toStdString());
}

void tst_SaveLoop::unableNo()
{
    DialogDriver driver;
    answer(driver, "unable", no);
    QVERIFY(!run({{true, {path(QStringLiteral("missing/new.dat"))}, dataFilter}}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("missing/new.dat")), "unable"}));
}

void tst_SaveLoop::unableYesThenCancel()
{
    DialogDriver driver;
    answer(driver, "unable", yes);
    QVERIFY(!run({{true, {path(QStringLiteral("missing/new.dat"))}, dataFilter}, cancelled}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("missing/new.dat")), "unable"}));
}

void tst_SaveLoop::unableYesThenAnotherPlace()
{
    DialogDriver driver;
    answer(driver, "unable", yes);
    QVERIFY(run({{true, {path(QStringLiteral("missing/new.dat"))}, dataFilter},
                 {true, {path(QStringLiteral("new.dat"))}, dataFilter}},
                &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("missing/new.dat")), "unable",
                             call("check", QStringLiteral("new.dat"))}));
}

void tst_SaveLoop::overwriteYesThenUnable()
{
    m_folders->addFolder(QStringLiteral("folder.dat"));
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    answer(driver, "unable", no);
    QVERIFY(!run({{true, {path(QStringLiteral("folder.dat"))}, dataFilter}}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("folder.dat")), "overwrite", "unable"}));
}

void tst_SaveLoop::errorNo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("raisedIn");

    // clang-format off
    QTest::newRow("before the probe") << "old.dat" << "overwrite";
    QTest::newRow("after the probe") << "missing/new.dat" << "unable";
    // clang-format on
}

void tst_SaveLoop::errorNo()
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
    QVERIFY(!run({{true, {path(name)}, dataFilter}}, &driver));
    QCOMPARE(m_calls, (Calls{call("check", name), raisedIn.toStdString(), question}));
}

void tst_SaveLoop::errorYesThenAnotherName()
{
    const boost::filesystem::filesystem_error error("disk gone", boost::system::error_code());
    const std::string question = std::string("error ") + error.what();
    m_handler->whenAsked = [&](const std::string& asked) {
        if (asked == "overwrite")
            throw error;
    };
    DialogDriver driver;
    answer(driver, question.c_str(), yes);
    QVERIFY(run(
        {{true, {path(QStringLiteral("old.dat"))}, dataFilter}, {true, {path(QStringLiteral("new.dat"))}, dataFilter}},
        &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("old.dat")), "overwrite", question,
                             call("check", QStringLiteral("new.dat"))}));
}

void tst_SaveLoop::otherExceptionsPass()
{
    m_handler->whenAsked = [](const std::string&) { throw std::runtime_error("not the disk"); };
    QVERIFY_EXCEPTION_THROWN(run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}}), std::runtime_error);
    // An error that filenameToCheck() throws is not an error of examining the file, and is propagated.
    m_handler->whenChecked = [](const std::string&) -> std::string {
        throw boost::filesystem::filesystem_error("the handler's own", boost::system::error_code());
    };
    QVERIFY_EXCEPTION_THROWN(run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}}),
                             boost::filesystem::filesystem_error);
}

void tst_SaveLoop::severalRounds()
{
    DialogDriver driver;
    answer(driver, "overwrite", no);
    answer(driver, "unable", yes);
    answer(driver, "overwrite", no);
    answer(driver, "overwrite", yes);
    QVERIFY(run({{true, {path(QStringLiteral("old.dat"))}, dataFilter},
                 {true, {path(QStringLiteral("missing/new.dat"))}, dataFilter},
                 {true, {path(QStringLiteral("old."))}, dataFilter},
                 {true, {path(QStringLiteral("old.dat"))}, QString()}},
                &driver));
    QCOMPARE(m_calls, (Calls{call("check", QStringLiteral("old.dat")), "overwrite",
                             call("check", QStringLiteral("missing/new.dat")), "unable",
                             call("check", QStringLiteral("old.dat")), "overwrite",
                             call("check", QStringLiteral("old.dat")), "overwrite"}));
    QFile file(path(QStringLiteral("old.dat")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("contents"));
}

void tst_SaveLoop::handlerChecksAnotherName()
{
    // The other name exists, so that the overwrite question is asked.
    m_handler->whenChecked = [this](const std::string&) { return path(QStringLiteral("old.dat")).toStdString(); };
    DialogDriver driver;
    answer(driver, "overwrite", yes);
    QVERIFY(run({{true, {path(QStringLiteral("new.dat"))}, dataFilter}}, &driver));
    QCOMPARE(m_name, path(QStringLiteral("new.dat")).toStdString());

    // The other name does not exist, so that no question is asked although the chosen file exists. The probe tests the
    // chosen file.
    m_handler->whenChecked = [this](const std::string&) { return path(QStringLiteral("missing/x")).toStdString(); };
    QVERIFY(run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}}));

    m_handler->whenChecked = [this](const std::string&) { return path(QStringLiteral("none.dat")).toStdString(); };
    DialogDriver second;
    answer(second, "unable", no);
    QVERIFY(!run({{true, {path(QStringLiteral("missing/new.dat"))}, dataFilter}}, &second));
}

void tst_SaveLoop::cancelledRunKeepsTheName()
{
    QVERIFY(run({{true, {path(QStringLiteral("new.dat"))}, dataFilter}}));
    QVERIFY(!run({cancelled}));
    QCOMPARE(m_name, path(QStringLiteral("new.dat")).toStdString());
}

void tst_SaveLoop::questionBox()
{
    const QString name = systemLimits::noOddNames ? QStringLiteral("&lt;old.dat") : QStringLiteral("<b>old<.dat");
    QWidget window;
    window.show();
    ScriptedDialog dialog({{true, {path(name)}, dataFilter}, cancelled});
    dialog.parent = &window;
    m_folders->addFile(name);
    zelmar::SaveFileMessageHandlerInterface& handler = *m_handler;
    DialogDriver driver;
    driver.onDialog<QMessageBox>("look", [&window](QMessageBox& box) {
        QCOMPARE(box.windowTitle(), QStringLiteral(u"S\u00e4ve"));
        QCOMPARE(box.text(), QStringLiteral("overwrite"));
        QCOMPARE(box.parentWidget(), &window);
        QCOMPARE(box.icon(), QMessageBox::Question);
        QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
        QCOMPARE(box.textFormat(), Qt::PlainText);
        box.button(QMessageBox::No)->click();
    });
    QVERIFY(!SaveLoop(dialog, handler, u8"S\u00e4ve", m_name).run());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QVERIFY(window.findChildren<QMessageBox*>().isEmpty());
}

void tst_SaveLoop::escapeIsNo()
{
    DialogDriver driver;
    driver.onDialog<QMessageBox>("escape", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    QVERIFY(!run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}, cancelled}, &driver));
}

void tst_SaveLoop::returnIsNo()
{
    DialogDriver driver;
    driver.onDialog<QMessageBox>("return", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QVERIFY(!run({{true, {path(QStringLiteral("old.dat"))}, dataFilter}, cancelled}, &driver));
}

void tst_SaveLoop::parentDestroyedDuringAQuestion()
{
    auto window = std::make_unique<QWidget>();
    window->show();
    ScriptedDialog dialog({{true, {path(QStringLiteral("old.dat"))}, dataFilter}, cancelled});
    dialog.parent = window.get();
    DialogDriver driver;
    driver.onDialog<QMessageBox>("destroy", [&](QMessageBox&) {
        dialog.parent = nullptr;
        window.reset();
    });
    QVERIFY(!SaveLoop(dialog, *m_handler, "Save", m_name).run());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
}

void tst_SaveLoop::faults_data()
{
    addSaveFaultRows();
}

void tst_SaveLoop::faults()
{
    QFETCH(int, fault);
    SaveFaultTrial trial(saveFaults()[std::size_t(fault)], m_folders->path(QStringLiteral("place")));
    m_handler = trial.makeHandler();
    DialogDriver driver;
    trial.addAnswers(driver);
    bool accepted = false;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        accepted = run({{true, {trial.chosenName()}, dataFilter}}, &driver);
    }
    QCOMPARE(trial.problem(accepted), QString());
}

void tst_SaveLoop::allFaultsAreTested()
{
    if (!whyFaultsAreMissing().isEmpty())
        QSKIP(qPrintable(whyFaultsAreMissing()));
}

UI_TEST_MAIN(tst_SaveLoop)
#include "tst_SaveLoop.moc"
