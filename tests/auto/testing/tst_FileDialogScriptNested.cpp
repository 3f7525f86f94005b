#include "testing/FileDialogScript.h"

#include "platform/HelpLauncher.h"

#include "RecordingMessageHandler.h"
#include "ScriptedApplication.h"
#include "TestHome.h"

#include <QApplication>
#include <QPointer>
#include <QTemporaryFile>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace scriptedApplication;
using zelmar::testing::FileDialogScript;
using Answer = FileDialogScript::Answer;

namespace {

void addKindRows()
{
    QTest::addColumn<bool>("native");
    QTest::newRow("native") << true;
    QTest::newRow("drawn by Qt") << false;
}

/// Creates a dialog with a Help button.
std::unique_ptr<ExtendedFileDialog> makeDialog(QWidget& window, const std::string& caption)
{
    return std::make_unique<ExtendedFileDialog>(window, caption, root(), joinedFilters, "help.html",
                                                QFileDialog::AcceptOpen);
}

/// Has the Help buttons call `action`.
void onHelp(const std::function<void()>& action)
{
    zelmar::HelpLauncher::getInstance().setHandler([action](const std::string&) {
        const auto copy = action; // The action may replace the handler.
        copy();
        return true;
    });
}

using Action = void (*)(QExtendedFileDialog&);

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_FileDialogScriptNested : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogInADialog_data() { addKindRows(); }
    void dialogInADialog();
    void failureInTheInnerDialog_data() { addKindRows(); }
    void failureInTheInnerDialog();
    void ownerDeleted_data() { addKindRows(); }
    void ownerDeleted();
    void parentDeleted_data() { addKindRows(); }
    void parentDeleted();
    void drawnDialogDeleted();
    void drawnDialogDeletedLater();
    void exceptionFromAButton();
    void runTwice();
    void flowDeletedByItsHandler_data();
    void flowDeletedByItsHandler();
    void dialogOpenedByAHandler_data() { addKindRows(); }
    void dialogOpenedByAHandler();
    void latestScriptWins_data() { addKindRows(); }
    void latestScriptWins();
    void scriptWithinADialog_data() { addKindRows(); }
    void scriptWithinADialog();
    void earlierScriptDestroyedFirst();
    void scriptDestroyedWithinADialog_data() { addKindRows(); }
    void drawnDialogClosedByAnAction_data();
    void drawnDialogClosedByAnAction();
    void scriptDestroyedByAFilter();
    void scriptDestroyedWithinADialog();

private:
    QStringList m_reported;
};

void tst_FileDialogScriptNested::init()
{
    m_reported.clear();
    FileDialogScript::setFailureHandler([this](const QString& text) { m_reported += text; });
    if (QTest::currentDataTag())
        ExtendedFileDialog::setUseNativeFileDialog(QByteArray(QTest::currentDataTag()).startsWith("native"));
}

void tst_FileDialogScriptNested::cleanup()
{
    FileDialogScript::setFailureHandler({});
    zelmar::HelpLauncher::getInstance().setHandler({});
    ExtendedFileDialog::setUseNativeFileDialog(true);
    QCOMPARE(m_reported, QStringList());
}

void tst_FileDialogScriptNested::dialogInADialog()
{
    FileDialogScript script;
    QWidget window;
    Outcome inner;
    onHelp([&] { inner = run(*makeDialog(window, "inner")); });
    script.press("Help").accept(at("/data/inner.dat")).accept(at("/data/outer.csv"), "Tables");
    const Outcome outer = run(*makeDialog(window, "outer"));
    QCOMPARE(script.verify(), QString());
    QCOMPARE(inner.files, QStringList(at("/data/inner.dat")));
    QCOMPARE(outer.files, QStringList(at("/data/outer.csv")));
    QCOMPARE(script.dialogs().at(0).caption, QString("outer"));
    QCOMPARE(script.dialogs().at(1).caption, QString("inner"));
}

void tst_FileDialogScriptNested::failureInTheInnerDialog()
{
    FileDialogScript script;
    QWidget window;
    onHelp([&] { QVERIFY(!run(*makeDialog(window, "inner")).accepted); });
    script.press("Help").accept(at("/data/inner.dat"), "Images").accept(at("/data/outer.dat"));
    QVERIFY(run(*makeDialog(window, "outer")).accepted);
    QVERIFY(script.verify().contains("open dialog \"inner\""));
}

void tst_FileDialogScriptNested::ownerDeleted()
{
    FileDialogScript script;
    QWidget window;
    std::unique_ptr<ExtendedFileDialog> dialog = makeDialog(window, "deleted");
    onHelp([&] { dialog.reset(); });
    script.press("Help").accept(at("/data/next.dat"));
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(run(*makeDialog(window, "next")).files, QStringList(at("/data/next.dat")));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::parentDeleted()
{
    FileDialogScript script;
    auto window = std::make_unique<QWidget>();
    const std::unique_ptr<ExtendedFileDialog> dialog = makeDialog(*window, "orphan");
    onHelp([&] { window.reset(); });
    script.press("Help");
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::drawnDialogDeleted()
{
    FileDialogScript script;
    auto* const dialog = new QExtendedFileDialog(nullptr, "Open", root(), "", "help.html", QFileDialog::AcceptOpen);
    onHelp([dialog] { delete dialog; });
    script.press("Help");
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::drawnDialogDeletedLater()
{
    FileDialogScript script;
    const QPointer<QExtendedFileDialog> dialog =
        new QExtendedFileDialog(nullptr, "Open", root(), "", "", QFileDialog::AcceptOpen);
    QStringList chosen;
    connect(dialog, &QFileDialog::fileSelected, dialog, [&](const QString& file) {
        chosen += file;
        dialog->deleteLater();
    });
    script.accept(at("/data/run1.dat"));
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
    QCOMPARE(chosen, QStringList(at("/data/run1.dat")));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::exceptionFromAButton()
{
    FileDialogScript script;
    QWidget window;
    ExtendedWinFileDialog dialog(window, "Open", root(), "", "", QFileDialog::AcceptOpen, false);
    dialog.addCustomButton("Throw", [] { throw std::runtime_error("thrown"); });
    script.press("Throw").accept(at("/data/run1.dat"));
    QVERIFY_EXCEPTION_THROWN(dialog.exec(), std::runtime_error);
    QCOMPARE(run(dialog).files, QStringList(at("/data/run1.dat")));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::runTwice()
{
    FileDialogScript script;
    QWidget window;
    ExtendedWinFileDialog dialog(window, "Open", root(), "", "", QFileDialog::AcceptOpen, false);
    int second = -1;
    dialog.addCustomButton("Again", [&] { second = dialog.exec(); });
    script.press("Again").accept(at("/data/run1.dat"));
    QVERIFY(run(dialog).accepted);
    QCOMPARE(second, int(QDialog::Rejected));
    QCOMPARE(script.dialogs().size(), std::size_t(1));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptNested::flowDeletedByItsHandler_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("left");
    for (const char* kind : {"native", "drawn by Qt"}) {
        const auto row = [kind](const char* call, const char* left) {
            QTest::newRow(qPrintable(QString("%1: %2").arg(kind, call))) << QString(call) << QString(left);
        };
        row("check", "overwrite: Yes\n  refuse, choose another place: No");
        row("overwrite", "overwrite: Yes\n  refuse, choose another place: No");
        row("unable", "refuse, choose another place: No");
    }
}

void tst_FileDialogScriptNested::flowDeletedByItsHandler()
{
    FileDialogScript script;
    QFETCH(QString, call);
    QFETCH(QString, left);
    QWidget window;
    RecordingMessageHandler::Calls calls;
    auto handler = std::make_unique<RecordingMessageHandler>(calls);
    std::unique_ptr<SaveFileDialog> flow;
    handler->whenChecked = [&](const std::string& name) {
        if (call == "check")
            flow.reset();
        return name;
    };
    handler->whenAsked = [&](const std::string& asked) {
        if (asked == call.toStdString())
            flow.reset();
    };
    flow = std::make_unique<SaveFileDialog>(&window, "Save", root(), "run", joinedFilters, "", std::move(handler));
    script.accept(at("/data/run.dat")).overwrite(Answer::Yes).refuse(Answer::No);
    QVERIFY(!flow->launch());
    QCOMPARE(script.verify(), "The script is not used up. These steps are left:\n  " + left);
}

void tst_FileDialogScriptNested::dialogOpenedByAHandler()
{
    FileDialogScript script;
    QWidget window;
    RecordingMessageHandler::Calls calls;
    auto handler = std::make_unique<RecordingMessageHandler>(calls);
    Outcome inner;
    handler->whenAsked = [&](const std::string&) { inner = run(*makeDialog(window, "inner")); };
    SaveFileDialog flow(&window, "Save", root(), "run", joinedFilters, "", std::move(handler));
    // The file exists, because the answer comes next; the dialog that opens before the question takes its step first.
    script.accept(at("/data/run.dat")).overwrite(Answer::Yes);
    QVERIFY(!flow.launch());
    QVERIFY(!inner.accepted);
    QVERIFY(script.verify().startsWith("The step failed: overwrite: Yes\n"
                                       "It answers a question, but a dialog was opened.\nopen dialog \"inner\""));
}

void tst_FileDialogScriptNested::latestScriptWins()
{
    QWidget window;
    FileDialogScript outer;
    outer.accept(at("/data/outer.dat"));
    {
        FileDialogScript inner;
        inner.accept(at("/data/inner.dat"));
        QCOMPARE(run(*makeDialog(window, "first")).files, QStringList(at("/data/inner.dat")));
        QCOMPARE(inner.verify(), QString());
    }
    QCOMPARE(run(*makeDialog(window, "second")).files, QStringList(at("/data/outer.dat")));
    QCOMPARE(outer.verify(), QString());
    QCOMPARE(outer.dialogs().size(), std::size_t(1));
}

void tst_FileDialogScriptNested::scriptWithinADialog()
{
    FileDialogScript outer;
    QWidget window;
    std::unique_ptr<FileDialogScript> inner;
    onHelp([&] {
        inner = std::make_unique<FileDialogScript>();
        inner->accept(at("/data/inner.dat"));
        QCOMPARE(run(*makeDialog(window, "inner")).files, QStringList(at("/data/inner.dat")));
    });
    outer.press("Help").accept(at("/data/outer.dat"));
    // The dialog goes on with its own script, although the other one is in force by then.
    QCOMPARE(run(*makeDialog(window, "outer")).files, QStringList(at("/data/outer.dat")));
    QCOMPARE(inner->verify(), QString());
    inner.reset();
    QCOMPARE(outer.verify(), QString());
}

void tst_FileDialogScriptNested::earlierScriptDestroyedFirst()
{
    QWidget window;
    auto earlier = std::make_unique<FileDialogScript>();
    FileDialogScript later;
    earlier.reset();
    later.accept(at("/data/run1.dat"));
    QVERIFY(run(*makeDialog(window, "dialog")).accepted);
    QCOMPARE(later.verify(), QString());
}

void tst_FileDialogScriptNested::drawnDialogClosedByAnAction_data()
{
    QTest::addColumn<Action>("action");
    QTest::newRow("close()") << Action([](QExtendedFileDialog& dialog) { dialog.close(); });
    QTest::newRow("hide()") << Action([](QExtendedFileDialog& dialog) { dialog.hide(); });
    QTest::newRow("reject()") << Action([](QExtendedFileDialog& dialog) { dialog.reject(); });
}

void tst_FileDialogScriptNested::drawnDialogClosedByAnAction()
{
    QFETCH(Action, action);
    FileDialogScript script;
    QWidget window;
    QExtendedFileDialog dialog(window, "Open", root(), "", "help.html", QFileDialog::AcceptOpen);
    for (int run = 0; run < 2; ++run) {
        onHelp([&] { action(dialog); });
        script.press("Help").accept(at("/data/next.dat"));
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QVERIFY(scriptedApplication::run(*makeDialog(window, "next")).accepted);
    }
    QCOMPARE(script.verify(), QString());
}

/// Without a script, the dialog would ask a user who is not there whether to replace the file.
void tst_FileDialogScriptNested::scriptDestroyedByAFilter()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    QExtendedFileDialog dialog(nullptr, "Save", root(), joinedFilters, "", QFileDialog::AcceptSave);
    auto script = std::make_unique<FileDialogScript>();
    QObject::connect(&dialog, &QFileDialog::filterSelected, [&] { script.reset(); });
    script->accept(file.fileName(), "Tables");
    QTimer deadline;
    int questions = 0;
    QObject::connect(&deadline, &QTimer::timeout, [&] {
        ++questions;
        QApplication::activeModalWidget()->close();
    });
    deadline.start(500);
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(questions, 0);
    QVERIFY(m_reported.isEmpty());
}

void tst_FileDialogScriptNested::scriptDestroyedWithinADialog()
{
    QWidget window;
    auto script = std::make_unique<FileDialogScript>();
    onHelp([&] { script.reset(); });
    script->press("Help").accept(at("/data/run1.dat"));
    QVERIFY(!run(*makeDialog(window, "dialog")).accepted);
    QCOMPARE(m_reported, QStringList("The script is not used up. These steps are left:\n  accept \""
                                     + at("/data/run1.dat") + "\""));
    m_reported.clear();
}

UI_TEST_MAIN(tst_FileDialogScriptNested)
#include "tst_FileDialogScriptNested.moc"
