#include "testing/FileDialogScript.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "property/Property.h"

#include "IgnoreMessages.h"
#include "ScriptedApplication.h"
#include "TestHome.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <type_traits>

using namespace scriptedApplication;
using zelmar::testing::FileDialogScript;
using zelmar::testing::ShownControl;
using zelmar::testing::ShownFileDialog;
using zelmar::testing::ShownQuestion;
using Answer = FileDialogScript::Answer;

static_assert(!std::is_copy_constructible<FileDialogScript>::value, "two scripts cannot share their steps");
namespace {

using EntryPoint = std::function<Outcome(const std::string& folder)>;

} // namespace
Q_DECLARE_METATYPE(EntryPoint)

namespace {

/// Adds a row for one entry point, and for facades one for each kind of dialog.
void addRow(const char* name, bool native, const EntryPoint& enter)
{
    QTest::newRow(name) << native << enter;
}

void addFacadeRows(const char* name, const EntryPoint& enter)
{
    addRow(qPrintable(QString("%1, native").arg(name)), true, enter);
    addRow(qPrintable(QString("%1, drawn by Qt").arg(name)), false, enter);
}

void addColumns()
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<EntryPoint>("enter");
}

/// Adds the dialogs that the application creates itself, with help.
void addRowsWithHelp()
{
    addColumns();
    addFacadeRows("ExtendedFileDialog", [](const std::string& folder) { return openWith<ExtendedFileDialog>(folder); });
    addRow("QExtendedFileDialog", false,
           [](const std::string& folder) { return openWith<QExtendedFileDialog>(folder); });
    addRow("ExtendedWinFileDialog", true,
           [](const std::string& folder) { return openWith<ExtendedWinFileDialog>(folder, false); });
}

void addOpenRows()
{
    addRowsWithHelp();
    addFacadeRows("LaunchFileDialog", [](const std::string& folder) { return launch(folder, false); });
}

void addSaveRows()
{
    addColumns();
    addFacadeRows("SaveFileDialog", saveWith<SaveFileDialog>);
    addRow("SaveFileQtDialog", false, saveWith<SaveFileQtDialog>);
    addRow("SaveFileWinDialog", true, saveWith<SaveFileWinDialog>);
}

void addKindRows()
{
    QTest::addColumn<bool>("native");
    QTest::newRow("native") << true;
    QTest::newRow("drawn by Qt") << false;
}

} // namespace

class tst_FileDialogScript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opens_data() { addOpenRows(); }
    void opens();
    void cancels_data() { addOpenRows(); }
    void cancels();
    void saves_data() { addSaveRows(); }
    void saves();
    void givesUpSaving_data() { addSaveRows(); }
    void givesUpSaving();
    void choosesAnotherNameAfterNo_data() { addSaveRows(); }
    void choosesAnotherNameAfterNo();
    void overwrites_data() { addSaveRows(); }
    void overwrites();
    void refusesAPlace_data() { addSaveRows(); }
    void refusesAPlace();
    void refusesAnExistingFile_data() { addSaveRows(); }
    void refusesAnExistingFile();
    void asksTheFileSystem_data() { addSaveRows(); }
    void asksTheFileSystem();
    void recordsOpenDialogs_data() { addOpenRows(); }
    void recordsOpenDialogs();
    void recordsSaveDialogs_data() { addSaveRows(); }
    void recordsSaveDialogs();
    void recordsFoldersAndOverwriting_data() { addKindRows(); }
    void recordsFoldersAndOverwriting();
    void choosesSeveral_data() { addKindRows(); }
    void choosesSeveral();
    void choosesAFolder_data() { addKindRows(); }
    void choosesAFolder();
    void takesNamesInTheShownFolder_data() { addKindRows(); }
    void takesNamesInTheShownFolder();
    void selectsByDescription_data() { addKindRows(); }
    void tellsOfTheFolderItEnters();
    void selectsByDescription();
    void pressesHelp_data() { addRowsWithHelp(); }
    void pressesHelp();
    void usesControls();
    void picksNothingFromAMenu();
    void recordsControls();
    void closedByTheApplication();
    void emitsSignals();
    void runsAgain_data() { addKindRows(); }
    void runsAgain();
    void followsTheUserWhileOpen();
    void leavesSettingsAlone_data() { addKindRows(); }
    void leavesSettingsAlone();
    void leavesFilesAlone_data() { addSaveRows(); }
    void leavesFilesAlone();
    void givesThePlaceBack();
    void doesNotEndTheApplication();

private:
    QTemporaryDir m_scratch;
    QString m_folder; ///< exists
    std::string folder() const { return m_folder.toStdString(); }
};

void tst_FileDialogScript::init()
{
    m_folder = QFileInfo(m_scratch.path()).canonicalFilePath() + "/runs";
    QVERIFY(QDir().mkpath(m_folder));
    FileDialogScript::setFailureHandler(
        [](const QString& text) { QTest::qFail(qPrintable(text), __FILE__, __LINE__); });
    if (QTest::currentDataTag()) {
        QFETCH(bool, native);
        ExtendedFileDialog::setUseNativeFileDialog(native);
    }
}

void tst_FileDialogScript::cleanup()
{
    ExtendedFileDialog::setUseNativeFileDialog(true);
    QVERIFY(QDir(m_folder).removeRecursively());
}

void tst_FileDialogScript::opens()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/no/such/folder/run1.csv"), "Tables (*.csv)");
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QVERIFY(outcome.accepted);
    QCOMPARE(outcome.files, QStringList(at("/no/such/folder/run1.csv")));
    QCOMPARE(outcome.filter, 1);
}

void tst_FileDialogScript::cancels()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.cancel();
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QVERIFY(!outcome.accepted);
    QCOMPARE(outcome.files, QStringList());
}

void tst_FileDialogScript::saves()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/no/such/folder/run1"), "Tables (*.csv)");
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QVERIFY(outcome.accepted);
    QCOMPARE(outcome.files, QStringList(at("/no/such/folder/run1.csv")));
    QCOMPARE(outcome.filter, 1);
    QVERIFY(script.questions().empty());
}

void tst_FileDialogScript::givesUpSaving()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.cancel();
    QVERIFY(!enter(folder()).accepted);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::choosesAnotherNameAfterNo()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/data/old.dat")).overwrite(Answer::No).accept(at("/data/new.dat"));
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QCOMPARE(outcome.files, QStringList(at("/data/new.dat")));
    QCOMPARE(script.dialogs().size(), std::size_t(2));
    QCOMPARE(script.questions().size(), std::size_t(1));
    const ShownQuestion& question = script.questions().front();
    QCOMPARE(question.kind, ShownQuestion::Kind::Overwrite);
    QCOMPARE(question.caption, QString("Save run"));
    QVERIFY2(question.text.contains("old.dat"), qPrintable(question.text));
}

void tst_FileDialogScript::overwrites()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/data/old.dat")).overwrite(Answer::Yes);
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QCOMPARE(outcome.files, QStringList(at("/data/old.dat")));
}

void tst_FileDialogScript::refusesAPlace()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/cdrom/run.dat")).refuse(Answer::Yes).accept(at("/cdrom/again.dat")).refuse(Answer::No);
    QVERIFY(!enter(folder()).accepted);
    QCOMPARE(script.verify(), QString());
    QCOMPARE(script.questions().size(), std::size_t(2));
    QCOMPARE(script.questions().front().kind, ShownQuestion::Kind::ChooseAgain);
    QVERIFY(script.questions().front().text.contains("run.dat"));
    QVERIFY(script.questions().back().text.contains("again.dat"));
}

void tst_FileDialogScript::refusesAnExistingFile()
{
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.accept(at("/cdrom/run.dat")).overwrite(Answer::Yes).refuse(Answer::Yes).accept(at("/data/run.dat"));
    QCOMPARE(enter(folder()).files, QStringList(at("/data/run.dat")));
    QCOMPARE(script.verify(), QString());
    QCOMPARE(script.questions().size(), std::size_t(2));
}

void tst_FileDialogScript::asksTheFileSystem()
{
    QFETCH(EntryPoint, enter);
    QFile existing(m_folder + "/old.dat");
    QVERIFY(existing.open(QIODevice::WriteOnly));
    existing.close();
    FileDialogScript script;
    script.useFileSystem();
    script.accept("old.dat").overwrite(Answer::No);
    script.accept("missing/run.dat").refuse(Answer::Yes);
    script.accept("new.dat");
    const Outcome outcome = enter(folder());
    QCOMPARE(script.verify(), QString());
    QCOMPARE(outcome.files, QStringList(m_folder + "/new.dat"));
    QCOMPARE(script.questions().size(), std::size_t(2));
}

void tst_FileDialogScript::recordsOpenDialogs()
{
    QFETCH(bool, native);
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.cancel();
    enter(folder());
    QCOMPARE(script.verify(), QString());
    const bool launched = QByteArray(QTest::currentDataTag()).startsWith("Launch");
    ShownFileDialog expected;
    expected.kind = native ? ShownFileDialog::Kind::Native : ShownFileDialog::Kind::DrawnByQt;
    expected.acceptMode = QFileDialog::AcceptOpen;
    expected.fileMode = QFileDialog::ExistingFile;
    expected.caption = "Open run";
    expected.folder = m_folder;
    expected.defaultName = launched ? "run.dat" : "";
    expected.nameFilters = QStringList{"Data files (*.dat)", "Tables (*.csv)"};
    expected.selectedNameFilter = "Data files (*.dat)";
    if (!launched) {
        ShownControl help;
        help.label = "Help";
        expected.controls = {help};
    }
    QCOMPARE(script.dialogs().size(), std::size_t(1));
    QCOMPARE(script.dialogs().front(), expected);
}

void tst_FileDialogScript::recordsSaveDialogs()
{
    QFETCH(bool, native);
    QFETCH(EntryPoint, enter);
    FileDialogScript script;
    script.cancel();
    enter(folder());
    QCOMPARE(script.verify(), QString());
    ShownFileDialog expected;
    expected.kind = native ? ShownFileDialog::Kind::Native : ShownFileDialog::Kind::DrawnByQt;
    expected.acceptMode = QFileDialog::AcceptSave;
    expected.caption = "Save run";
    expected.folder = m_folder;
    expected.defaultName = "run";
    expected.nameFilters = QStringList{"Data files (*.dat)", "Tables (*.csv)"};
    expected.selectedNameFilter = "Data files (*.dat)";
    QCOMPARE(script.dialogs().front(), expected);
}

void tst_FileDialogScript::recordsFoldersAndOverwriting()
{
    FileDialogScript script;
    script.cancel().cancel();
    QWidget window;
    ExtendedFileDialog folders(window, "Choose", folder(), "", "", QFileDialog::AcceptOpen);
    folders.setFileMode(QFileDialog::Directory);
    folders.exec();
    ExtendedFileDialog saving(window, "Save", folder(), "*.dat *.csv", "", QFileDialog::AcceptSave);
    saving.exec();
    QCOMPARE(script.dialogs().at(0).fileMode, QFileDialog::Directory);
    QVERIFY(!script.dialogs().at(0).asksBeforeOverwriting);
    QCOMPARE(script.dialogs().at(1).fileMode, QFileDialog::AnyFile);
    QVERIFY(script.dialogs().at(1).asksBeforeOverwriting);
    QCOMPARE(script.dialogs().at(1).nameFilters, QStringList("*.dat *.csv"));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::choosesSeveral()
{
    const QStringList files{at("/data/run 1.dat"), at("/elsewhere/run2.dat")};
    FileDialogScript script;
    script.acceptSeveral(files);
    QWidget window;
    ExtendedFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    QCOMPARE(run(dialog).files, files);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::choosesAFolder()
{
    FileDialogScript script;
    script.accept(m_folder).accept(at("/no/such/folder"));
    QWidget window;
    ExtendedFileDialog dialog(window, "Choose", "", "", "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::Directory);
    QCOMPARE(run(dialog).files, QStringList(m_folder));
    QCOMPARE(run(dialog).files, QStringList(at("/no/such/folder")));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::takesNamesInTheShownFolder()
{
    FileDialogScript script;
    script.accept("run1.dat").accept("../other/run2.dat");
    QWidget window;
    ExtendedFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen);
    const Outcome first = run(dialog);
    QCOMPARE(first.files, QStringList(m_folder + "/run1.dat"));
    QCOMPARE(first.folder, m_folder);
    const QString parent = QFileInfo(m_folder).path();
    QCOMPARE(run(dialog).files, QStringList(parent + "/other/run2.dat"));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::tellsOfTheFolderItEnters()
{
    QDir(m_folder).mkdir("further");
    const auto removed = qScopeGuard([this] { QDir(m_folder).rmdir("further"); });
    FileDialogScript script;
    script.accept("run1.dat").accept("further/run1.dat");
    QWidget window;
    QExtendedFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen);
    QSignalSpy entered(&dialog, &QFileDialog::directoryEntered);
    dialog.exec();
    QCOMPARE(entered.count(), 0);
    dialog.exec();
    QCOMPARE(entered.count(), 1);
    QCOMPARE(entered.first().first().toString(), m_folder + "/further");
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::selectsByDescription()
{
    FileDialogScript script;
    script.accept(at("/data/run1.csv"), "Tables");
    QCOMPARE(openWith<ExtendedFileDialog>(folder()).filter, 1);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::pressesHelp()
{
    QFETCH(EntryPoint, enter);
    std::vector<std::string> topics;
    zelmar::HelpLauncher::getInstance().setHandler([&topics](const std::string& topic) {
        topics.push_back(topic);
        return true;
    });
    FileDialogScript script;
    script.press("Help").press("&Help").cancel();
    enter(folder());
    zelmar::HelpLauncher::getInstance().setHandler({});
    QCOMPARE(script.verify(), QString());
    QCOMPARE(topics, (std::vector<std::string>{"help.html", "help.html"}));
}

void tst_FileDialogScript::usesControls()
{
    QWidget window;
    FileDialogScript script;
    script.press("Columns ...").tick("Preview").tick("All", false).tick("&All", false).pick("Open read-only");
    script.press("Rows & cells").press("&Rows && cells");
    script.accept(at("/data/run1.dat"));
    ExtendedWinFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen, true);
    const auto preview = boost::make_shared<zelmar::Property<bool>>(false);
    const auto all = boost::make_shared<zelmar::Property<bool>>(true);
    int presses = 0;
    dialog.addCustomButton("&Columns ...", [&presses] { ++presses; });
    int rows = 0;
    dialog.addCustomButton("&Rows && cells", [&rows] { ++rows; });
    dialog.addCustomCheckBox("&Preview", preview);
    dialog.addCustomCheckBox("&All", all);
    dialog.addAcceptButtonOption("&Open", 7);
    dialog.addAcceptButtonOption("Open &read-only", 8);
    QVERIFY(run(dialog).accepted);
    QCOMPARE(script.verify(), QString());
    QCOMPARE(presses, 1);
    QCOMPARE(rows, 2);
    QVERIFY(preview->value());
    QVERIFY(!all->value());
    QCOMPARE(dialog.selectedAcceptMenuOption(), 8);
}

void tst_FileDialogScript::picksNothingFromAMenu()
{
    QWidget window;
    FileDialogScript script;
    script.pick("Open read-only").accept(at("/data/run1.dat")).accept(at("/data/run2.dat"));
    ExtendedWinFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen, true);
    dialog.addAcceptButtonOption("Open", 7);
    dialog.addAcceptButtonOption("Open read-only", 8);
    dialog.exec();
    QCOMPARE(dialog.selectedAcceptMenuOption(), 8);
    dialog.exec();
    QCOMPARE(dialog.selectedAcceptMenuOption(), 7); // the button itself stands for the first entry
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::recordsControls()
{
    QWidget window;
    FileDialogScript script;
    script.cancel();
    ExtendedWinFileDialog dialog(window, "Open", folder(), "", "", QFileDialog::AcceptOpen, true);
    dialog.addCustomButton("&Columns", [] {})->setEnabled(false);
    dialog.addCustomCheckBox("R&&D", boost::make_shared<zelmar::Property<bool>>(true))->hide();
    dialog.addAcceptButtonOption("Open", 1);
    dialog.exec();
    ShownControl button;
    button.label = "Columns";
    button.enabled = false;
    ShownControl box;
    box.kind = ShownControl::Kind::CheckBox;
    box.label = "R&D";
    box.ticked = true;
    box.visible = false;
    ShownControl entry;
    entry.kind = ShownControl::Kind::MenuEntry;
    entry.label = "Open";
    const auto& controls = script.dialogs().front().controls;
    QCOMPARE(controls.size(), std::size_t(3));
    // The menu was added first.
    QCOMPARE(controls.at(0), entry);
    QCOMPARE(controls.at(1), button);
    QCOMPARE(controls.at(2), box);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::closedByTheApplication()
{
    QWidget window;
    FileDialogScript script;
    script.press("Use it").accept(at("/data/run2.dat"));
    ExtendedWinFileDialog dialog(window, "Open", folder(), "", "", QFileDialog::AcceptOpen, false);
    dialog.addCustomButton("Use it", [&dialog] { dialog.close(); });
    QCOMPARE(dialog.exec(), QDialog::Accepted);
    QCOMPARE(dialog.selectedFiles(), QStringList());
    QCOMPARE(run(dialog).files, QStringList(at("/data/run2.dat")));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::emitsSignals()
{
    FileDialogScript script;
    script.accept(at("/data/run1.csv"), "Tables (*.csv)").cancel();
    QExtendedFileDialog dialog(nullptr, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen);
    QSignalSpy filterSelected(&dialog, &QFileDialog::filterSelected);
    QSignalSpy filesSelected(&dialog, &QFileDialog::filesSelected);
    QSignalSpy fileSelected(&dialog, &QFileDialog::fileSelected);
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QSignalSpy finished(&dialog, &QDialog::finished);
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(filterSelected.size(), 1);
    QCOMPARE(filterSelected.at(0).at(0).toString(), QString("Tables (*.csv)"));
    QCOMPARE(filesSelected.size(), 1);
    QCOMPARE(fileSelected.size(), 1);
    QCOMPARE(fileSelected.at(0).at(0).toString(), QString(at("/data/run1.csv")));
    QCOMPARE(accepted.size(), 1);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(dialog.QFileDialog::selectedFiles(), QStringList(at("/data/run1.csv")));
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(rejected.size(), 1);
    QCOMPARE(finished.size(), 2);
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::runsAgain()
{
    FileDialogScript script;
    script.accept(at("/data/run1.csv"), "Tables").cancel().accept("run2.csv");
    QWidget window;
    ExtendedFileDialog dialog(window, "Open", folder(), joinedFilters, "", QFileDialog::AcceptOpen);
    QVERIFY(run(dialog).accepted);
    QVERIFY(!run(dialog).accepted);
    const Outcome third = run(dialog);
    QVERIFY(third.accepted);
    QCOMPARE(third.filter, 1);
    QCOMPARE(script.dialogs().at(1).selectedNameFilter, QString("Tables (*.csv)"));
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::followsTheUserWhileOpen()
{
    QVERIFY(QDir(m_folder).mkdir("sub"));
    QWidget window;
    FileDialogScript script;
    script.accept(m_folder + "/sub/run1.csv", "Tables");
    ExtendedWinFileDialog dialog(window, "Save", folder(), joinedFilters, "", QFileDialog::AcceptSave, false);
    std::vector<int> indexes;
    const boost::signals2::scoped_connection connection =
        dialog.currentFilterIndex()->signalValueChanged().connect([&](int index) { indexes.push_back(index); });
    QVERIFY(run(dialog).accepted);
    QCOMPARE(indexes, std::vector<int>{2});
    QCOMPARE(dialog.directory().absolutePath(), m_folder + "/sub");
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::leavesSettingsAlone()
{
    auto& settings = zelmar::ApplicationSettings::getInstance();
    settings.depositValue("QExtendedFileDialog/Geometry", "untouched");
    FileDialogScript script;
    script.accept(at("/data/run1.csv"));
    openWith<ExtendedFileDialog>(folder());
    QCOMPARE(settings.getByteArrayValue("QExtendedFileDialog/Geometry"), QByteArray("untouched"));
    settings.depositValue("QExtendedFileDialog/Geometry", {});
    QCOMPARE(script.verify(), QString());
}

void tst_FileDialogScript::leavesFilesAlone()
{
    QFETCH(EntryPoint, enter);
    QFile file(m_folder + "/run.dat");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("kept");
    file.close();
    const QDateTime before = QFileInfo(m_folder).lastModified();
    FileDialogScript script;
    script.accept("run.dat"); // exists, but not in the script
    QVERIFY(enter(folder()).accepted);
    QCOMPARE(script.verify(), QString());
    QCOMPARE(QFileInfo(file).size(), qint64(4));
    QCOMPARE(QFileInfo(m_folder).lastModified(), before);
    QCOMPARE(QDir(m_folder).entryList(QDir::Files), QStringList("run.dat"));
}

void tst_FileDialogScript::givesThePlaceBack()
{
    {
        FileDialogScript script;
        script.cancel();
        QCOMPARE(openWith<QExtendedFileDialog>(folder()).accepted, false);
        QCOMPARE(script.verify(), QString());
    }
    const IgnoreMessages ofThePlatform("^This plugin does not support");
    QExtendedFileDialog dialog(nullptr, "Open", folder(), "", "", QFileDialog::AcceptOpen);
    bool seen = false;
    QTimer::singleShot(0, &dialog, [&] {
        seen = dialog.isVisible();
        dialog.close();
    });
    dialog.exec();
    QVERIFY(seen);
}

void tst_FileDialogScript::doesNotEndTheApplication()
{
    QSignalSpy lastWindowClosed(qApp, &QGuiApplication::lastWindowClosed);
    FileDialogScript script;
    script.cancel();
    QExtendedFileDialog dialog(nullptr, "Open", folder(), "", "", QFileDialog::AcceptOpen);
    dialog.exec();
    QCOMPARE(lastWindowClosed.size(), 0);
    QVERIFY(dialog.testAttribute(Qt::WA_QuitOnClose));
    QCOMPARE(script.verify(), QString());
}

UI_TEST_MAIN(tst_FileDialogScript)
#include "tst_FileDialogScript.moc"
