#include "LifetimeTest.h"

#include "TestHome.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

namespace {

struct Question
{
    const char* text;     ///< the beginning of the text in the box
    const char* function; ///< the function of the handler that words the question
    const char* fileName;
    bool examiningFails;
};

const Question overwriteQuestion{"overwrite", "okToOverwriteMessage", "old.dat", false};
const Question unableQuestion{"unable", "unableToOverwriteMessage", "missing/new.dat", false};
const Question errorQuestion{"error", "systemAccessError", "old.dat", true};
const Question noQuestion{"none", "filenameToCheck", "new.dat", false};

} // namespace
Q_DECLARE_METATYPE(const Question*)

/// Destroys objects while a save flow asks a question or calls its message handler.
class tst_SaveFlowLifetime : public LifetimeTest
{
    Q_OBJECT

private Q_SLOTS:
    void duringAFlowsQuestion_data();
    void duringAFlowsQuestion();
    void inAHandlersFunction_data();
    void inAHandlersFunction();
    void flowWithoutItsParentRunsNoMore_data() { addDialogBackendRows(); }
    void flowWithoutItsParentRunsNoMore();
};

static void addFlowRows(const std::vector<const Question*>& questions)
{
    addLifetimeColumns();
    QTest::addColumn<const Question*>("question");
    for (const DialogBackend kind : dialogBackends())
        for (const RunnerKind runner : {RunnerKind::FlowFacade, RunnerKind::Flow})
            for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &dialogOnly,
                                          &dialogAndRunner, &application})
                for (const Question* question : questions)
                    if (!victim->dialog || runner == RunnerKind::Flow)
                        QTest::addRow("%s %s, %s: %s", nameOf(kind), nameOf(runner), question->function, victim->name)
                            << kind << runner << victim << question;
}

void tst_SaveFlowLifetime::duringAFlowsQuestion_data()
{
    addFlowRows({&overwriteQuestion, &unableQuestion, &errorQuestion});
}

void tst_SaveFlowLifetime::duringAFlowsQuestion()
{
    QFETCH(const Question*, question);
    m_examiningFails = question->examiningFails;
    makeRunnerOfTheRow();
    choose(question->fileName);
    const QString text = question->text;
    m_driver->onDialogWhen<QMessageBox>(
        "strike", [text](QMessageBox& box) { return box.text().startsWith(text); }, [this](QMessageBox&) { strike(); });
    // The question of a native flow is a child of the parent. Without the dialog it stays open until it is answered.
    const bool staysOpen = m_victims->dialog && !m_victims->runnerLast && m_kind != DialogBackend::QtDrawn;
    if (staysOpen) {
        m_driver->onDialog<QMessageBox>("answer", [this](QMessageBox& box) {
            m_shownAfterwards.clear();
            box.button(QMessageBox::Yes)->click();
        });
    }
    runAndCompare();
}

void tst_SaveFlowLifetime::inAHandlersFunction_data()
{
    addFlowRows({&noQuestion, &overwriteQuestion, &unableQuestion, &errorQuestion});
}

void tst_SaveFlowLifetime::inAHandlersFunction()
{
    QFETCH(const Victims*, victims);
    QFETCH(const Question*, question);
    if (victims->application && question == &noQuestion)
        QSKIP("Nothing is waited for: the flow comes to its end before the application does");
    m_examiningFails = question->examiningFails;
    const QString function = question->function;
    m_handlerListener = [this, function](const QString& call) {
        if (call == function)
            strike();
    };
    makeRunnerOfTheRow();
    choose(question->fileName);
    runAndCompare();
}

void tst_SaveFlowLifetime::flowWithoutItsParentRunsNoMore()
{
    QFETCH(DialogBackend, kind);
    m_kind = kind;
    m_runnerKind = RunnerKind::FlowFacade;
    makeRunner();
    m_parent.reset();
    if (RecordingShell* const shell = m_switch->shell())
        shell->results = QStringList{m_folders->path("new.dat")}; // would be accepted if the dialog opened
    QVERIFY(!m_runner->run());
}

UI_TEST_MAIN(tst_SaveFlowLifetime)
#include "tst_SaveFlowLifetime.moc"
