#include "testing/FileDialogScript.h"

#include "property/Property.h"

#include "ScriptedApplication.h"
#include "TestHome.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryFile>
#include <QtTest>

#include <functional>
#include <stdexcept>

using namespace scriptedApplication;
using zelmar::testing::FileDialogScript;
using Answer = FileDialogScript::Answer;

namespace {

/// Starts this program again with this argument, to see how the default handler ends it.
const char useNoHandler[] = "--use-no-handler";

using Steps = std::function<void(FileDialogScript&)>;

void addKindRows()
{
    QTest::addColumn<bool>("native");
    QTest::newRow("native") << true;
    QTest::newRow("drawn by Qt") << false;
}

/// Opens with a dialog of the current kind.
Outcome open()
{
    return openWith<ExtendedFileDialog>(root());
}

/// A dialog whose derived class accepts nothing.
class StubbornDialog : public QExtendedFileDialog
{
public:
    using QExtendedFileDialog::QExtendedFileDialog;

protected:
    void accept() override {}
    void reject() override {}
};

} // namespace
Q_DECLARE_METATYPE(Steps)

class tst_FileDialogScriptFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void noStepForADialog_data() { addKindRows(); }
    void noStepForADialog();
    void noStepForAQuestion_data() { addKindRows(); }
    void noStepForAQuestion();
    void wrongStepForAQuestion_data() { addKindRows(); }
    void wrongStepForAQuestion();
    void wrongStepForADialog_data() { addKindRows(); }
    void wrongStepForADialog();
    void stepsAreLeft();
    void stepsThatTheDialogDoesNotOffer_data();
    void stepsThatTheDialogDoesNotOffer();
    void controlsThatCannotBeUsed_data();
    void controlsThatCannotBeUsed();
    void skipsTheDialogOfAFailedStep();
    void missingFile_data() { addKindRows(); }
    void missingFile();
    void filesThatQtCannotReturn();
    void patternInADialogDrawnByQt();
    void dialogThatDoesNotAccept();
    void nativeDialogBeforeTheScript();
    void nativeDialogAfterTheScript();
    void verifyForgets();
    void reportsWhenDestroyed();
    void reportsWhileUnwinding();
    void printsWhileUnwinding();
    void abortsWithoutAHandler();

private:
    QStringList m_reported;
};

void tst_FileDialogScriptFailures::init()
{
    m_reported.clear();
    FileDialogScript::setFailureHandler([this](const QString& text) { m_reported += text; });
    if (QTest::currentDataTag())
        ExtendedFileDialog::setUseNativeFileDialog(QByteArray(QTest::currentDataTag()) == "native");
}

void tst_FileDialogScriptFailures::cleanup()
{
    FileDialogScript::setFailureHandler({});
    ExtendedFileDialog::setUseNativeFileDialog(true);
    QCOMPARE(m_reported, QStringList());
}

void tst_FileDialogScriptFailures::noStepForADialog()
{
    QFETCH(bool, native);
    FileDialogScript script;
    QVERIFY(!open().accepted);
    const QString expected = QString("The script has no step left for a dialog:\n"
                                     "open dialog \"Open run\" for an existing file, %1\n"
                                     "  folder \"%2\"\n"
                                     "  name \"\"\n"
                                     "  name filter \"Data files (*.dat)\", selected\n"
                                     "  name filter \"Tables (*.csv)\"\n"
                                     "  button \"Help\"")
                                 .arg(native ? "native" : "drawn by Qt", QDir::rootPath());
    QCOMPARE(script.verify(), expected);
    QCOMPARE(script.dialogs().size(), std::size_t(1));
}

void tst_FileDialogScriptFailures::noStepForAQuestion()
{
    // The file exists by the file system, and the script has not expected that.
    QTemporaryFile existing(QDir::tempPath() + "/XXXXXX.dat");
    QVERIFY(existing.open());
    FileDialogScript script;
    script.useFileSystem();
    script.accept(existing.fileName());
    QVERIFY(!saveWith<SaveFileDialog>(root()).accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.startsWith("The script has no step left for a question:\n"
                                "question whether to overwrite, \"Save run\": \""),
             qPrintable(failure));
    QCOMPARE(script.questions().size(), std::size_t(1));
}

void tst_FileDialogScriptFailures::wrongStepForAQuestion()
{
    FileDialogScript script;
    script.useFileSystem();
    script.accept(at("/no/such/folder/run.dat")).overwrite(Answer::Yes);
    QVERIFY(!saveWith<SaveFileDialog>(root()).accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.startsWith("The next step of the script is: overwrite: Yes\n"
                                "but this is asked:\n"
                                "question whether to choose another place, \"Save run\": \""),
             qPrintable(failure));
    QVERIFY2(failure.endsWith("The script is not used up. These steps are left:\n  overwrite: Yes"),
             qPrintable(failure));
}

void tst_FileDialogScriptFailures::wrongStepForADialog()
{
    FileDialogScript script;
    script.overwrite(Answer::No).accept(at("/data/run1.dat")).cancel();
    QVERIFY(!open().accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.startsWith("The step failed: overwrite: No\n"
                                "It answers a question, but a dialog was opened.\n"
                                "open dialog \"Open run\""),
             qPrintable(failure));
    QVERIFY2(failure.endsWith("These steps are left:\n  cancel"), qPrintable(failure));
}

void tst_FileDialogScriptFailures::stepsAreLeft()
{
    FileDialogScript script;
    script.press("A").tick("B").tick("C", false).pick("D").accept("/data/run 1.csv", "Tables");
    script.acceptSeveral({"a", "b"}).cancel().overwrite(Answer::No).refuse(Answer::Yes);
    QCOMPARE(script.verify(), QString("The script is not used up. These steps are left:\n"
                                      "  press \"A\"\n"
                                      "  tick \"B\"\n"
                                      "  untick \"C\"\n"
                                      "  pick \"D\"\n"
                                      "  accept \"/data/run 1.csv\" with \"Tables\"\n"
                                      "  accept \"a\", \"b\"\n"
                                      "  cancel\n"
                                      "  overwrite: No\n"
                                      "  refuse, choose another place: Yes"));
}

void tst_FileDialogScriptFailures::stepsThatTheDialogDoesNotOffer_data()
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<Steps>("addSteps");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const Steps& steps, const char* reason) {
        QTest::newRow(qPrintable(QString("native: %1").arg(name))) << true << steps << QString(reason);
        QTest::newRow(qPrintable(QString("drawn by Qt: %1").arg(name))) << false << steps << QString(reason);
    };
    row(
        "a missing filter", [](FileDialogScript& script) { script.accept("/data/run1.dat", "Images (*.png)"); },
        "accept \"/data/run1.dat\" with \"Images (*.png)\"\nThe dialog does not have this name filter.");
    row(
        "several files",
        [](FileDialogScript& script) {
            script.acceptSeveral({"/data/a", "/data/b"});
        },
        "accept \"/data/a\", \"/data/b\"\nThe dialog is for one file.");
    row(
        "no file", [](FileDialogScript& script) { script.acceptSeveral({}); },
        "accept \nA dialog cannot be accepted without a name.");
    row(
        "an empty name", [](FileDialogScript& script) { script.accept(""); },
        "accept \"\"\nA dialog cannot be accepted without a name.");
    row(
        "a missing button", [](FileDialogScript& script) { script.press("Columns").cancel(); },
        "press \"Columns\"\nThe dialog does not have this control.");
    row(
        "a missing check box", [](FileDialogScript& script) { script.tick("Help").cancel(); },
        "tick \"Help\"\nThe dialog does not have this control.");
    row(
        "a missing menu entry", [](FileDialogScript& script) { script.pick("Help").cancel(); },
        "pick \"Help\"\nThe dialog does not have this control.");
}

void tst_FileDialogScriptFailures::stepsThatTheDialogDoesNotOffer()
{
    QFETCH(bool, native);
    QFETCH(Steps, addSteps);
    QFETCH(QString, reason);
    ExtendedFileDialog::setUseNativeFileDialog(native);
    FileDialogScript script;
    addSteps(script);
    QVERIFY(!open().accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.startsWith("The step failed: " + reason + "\nopen dialog \"Open run\""), qPrintable(failure));
    QVERIFY2(failure.endsWith("\n  button \"Help\""), qPrintable(failure)); // no step is left
}

void tst_FileDialogScriptFailures::controlsThatCannotBeUsed_data()
{
    QTest::addColumn<Steps>("addSteps");
    QTest::addColumn<QString>("control");
    const auto row = [](const char* name, const Steps& steps, const char* control) {
        QTest::newRow(name) << steps << QString(control);
    };
    row(
        "disabled button", [](FileDialogScript& script) { script.press("Columns"); }, "button \"Columns\", disabled");
    row(
        "hidden box", [](FileDialogScript& script) { script.tick("Preview"); }, "check box \"Preview\", hidden");
    row(
        "disabled entry", [](FileDialogScript& script) { script.pick("Copy"); }, "menu entry \"Copy\", disabled");
}

void tst_FileDialogScriptFailures::controlsThatCannotBeUsed()
{
    QFETCH(Steps, addSteps);
    QFETCH(QString, control);
    FileDialogScript script;
    addSteps(script);
    script.cancel();
    QWidget window;
    ExtendedWinFileDialog dialog(window, "Open", root(), "", "", QFileDialog::AcceptOpen, true);
    int presses = 0;
    dialog.addCustomButton("Columns", [&presses] { ++presses; })->setEnabled(false);
    dialog.addCustomCheckBox("Preview", boost::make_shared<zelmar::Property<bool>>(false))->hide();
    dialog.addAcceptButtonOption("Copy", 1)->setEnabled(false);
    QVERIFY(!run(dialog).accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.contains("The user cannot use this control: " + control), qPrintable(failure));
    QCOMPARE(presses, 0);
}

void tst_FileDialogScriptFailures::skipsTheDialogOfAFailedStep()
{
    FileDialogScript script;
    script.press("Columns").press("Rows").accept(at("/data/a.dat")).overwrite(Answer::No);
    script.accept(at("/data/b.dat"));
    QVERIFY(!open().accepted);
    QCOMPARE(open().files, QStringList(at("/data/b.dat")));
    QCOMPARE(script.verify().count("The step failed"), 1);
}

void tst_FileDialogScriptFailures::missingFile()
{
    FileDialogScript script;
    script.useFileSystem();
    script.accept(at("/no/such/file.dat")).accept(QCoreApplication::applicationFilePath());
    QVERIFY(!open().accepted);
    QVERIFY(open().accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.contains("\n" + at("/no/such/file.dat") + " does not exist.\n"), qPrintable(failure));
    QCOMPARE(failure.count("The step failed"), 1);
}

void tst_FileDialogScriptFailures::filesThatQtCannotReturn()
{
    FileDialogScript script;
    script.acceptSeveral({at("/data/a \"quoted\" name"), at("/data/b")});
    QExtendedFileDialog dialog(nullptr, "Open", root(), "", "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    QVERIFY(!run(dialog).accepted);
    const QString failure = script.verify();
    QVERIFY2(failure.contains("A dialog that Qt draws cannot return these files."), qPrintable(failure));
}

void tst_FileDialogScriptFailures::patternInADialogDrawnByQt()
{
    FileDialogScript script;
    script.accept(at("/data/run*"));
    QExtendedFileDialog dialog(nullptr, "Open", root(), "", "", QFileDialog::AcceptOpen);
    QVERIFY(!run(dialog).accepted);
    QVERIFY(script.verify().contains("The dialog stays open, because it does not accept the files."));
}

void tst_FileDialogScriptFailures::dialogThatDoesNotAccept()
{
    FileDialogScript script;
    script.accept(at("/data/run1.dat")).cancel();
    StubbornDialog dialog(nullptr, "Open", root(), "", "", QFileDialog::AcceptOpen);
    QVERIFY(!run(dialog).accepted);
    QVERIFY(script.verify().contains("The dialog stays open, because it does not accept the files."));
}

void tst_FileDialogScriptFailures::nativeDialogBeforeTheScript()
{
    QWidget window;
    ExtendedWinFileDialog dialog(window, "Open", root(), "", "", QFileDialog::AcceptOpen, false);
    FileDialogScript script;
    QVERIFY(!run(dialog).accepted);
    QCOMPARE(script.verify(),
             QString("A native dialog was created before the script, which therefore cannot answer it."));
}

void tst_FileDialogScriptFailures::nativeDialogAfterTheScript()
{
    QWidget window;
    std::unique_ptr<ExtendedWinFileDialog> dialog;
    {
        const FileDialogScript script;
        dialog =
            std::make_unique<ExtendedWinFileDialog>(window, "Open", root(), "", "", QFileDialog::AcceptOpen, false);
    }
    QCOMPARE(m_reported, QStringList());
    QVERIFY(!run(*dialog).accepted);
    QCOMPARE(m_reported.size(), 1);
    QVERIFY(m_reported.takeFirst().startsWith("No script exists any more for this dialog:\nopen dialog \"Open\""));
}

void tst_FileDialogScriptFailures::verifyForgets()
{
    FileDialogScript script;
    open();
    script.cancel();
    QVERIFY(!script.verify().isEmpty());
    QCOMPARE(script.verify(), QString());
    script.accept(at("/data/run1.dat"));
    QVERIFY(open().accepted);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScriptFailures::reportsWhenDestroyed()
{
    {
        FileDialogScript script;
        script.cancel();
    }
    QCOMPARE(m_reported, QStringList("The script is not used up. These steps are left:\n  cancel"));
    m_reported.clear();
    {
        FileDialogScript script;
        open();
    }
    QCOMPARE(m_reported.size(), 1);
    m_reported.clear();
}

void tst_FileDialogScriptFailures::reportsWhileUnwinding()
{
    try {
        FileDialogScript script;
        script.cancel();
        throw std::runtime_error("the test has failed");
    } catch (const std::runtime_error&) {
        QCOMPARE(m_reported.size(), 1);
    }
    m_reported.clear();
}

void tst_FileDialogScriptFailures::printsWhileUnwinding()
{
    FileDialogScript::setFailureHandler({});
    QTest::ignoreMessage(QtCriticalMsg, "The script is not used up. These steps are left:\n  cancel");
    try {
        FileDialogScript script;
        script.cancel();
        throw std::runtime_error("the test has failed");
    } catch (const std::runtime_error&) {
    }
}

void tst_FileDialogScriptFailures::abortsWithoutAHandler()
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_FORCE_STDERR_LOGGING", "1"); // Windows has a log of its own.
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(), {useNoHandler});
    QVERIFY(process.waitForFinished(60000));
    QVERIFY(process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0);
    const QString output = QString::fromLocal8Bit(process.readAll());
    QVERIFY2(output.contains("The script has no step left for a dialog:"), qPrintable(output));
    QVERIFY2(!output.contains("still running"), qPrintable(output));
}

int main(int argc, char* argv[])
{
    const TestHome home;
    const QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(useNoHandler)) {
        {
            const FileDialogScript script;
            open();
        }
        qInfo("still running");
        return 0;
    }
    tst_FileDialogScriptFailures test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_FileDialogScriptFailures.moc"
