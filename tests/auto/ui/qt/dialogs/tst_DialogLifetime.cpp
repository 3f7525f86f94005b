#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "property/Property.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "IgnoreMessages.h"
#include "LifetimeRunners.h"
#include "TestHome.h"

#include <boost/smart_ptr/make_shared.hpp>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <functional>

using zelmar::ApplicationSettings;
using zelmar::HelpLauncher;
using zelmar::internal::ComPtr;

namespace {

using Action = std::function<void()>;

/// The objects that are destroyed, in this order.
struct Victims
{
    const char* name;
    bool runnerFirst;
    bool parent;
    bool runnerLast;
    bool dialog;
    bool application;
};

const Victims runnerOnly{"it goes", true, false, false, false, false};
const Victims parentOnly{"its parent goes", false, true, false, false, false};
const Victims runnerAndParent{"it goes, then its parent", true, true, false, false, false};
const Victims parentAndRunner{"its parent goes, then it", false, true, true, false, false};
const Victims dialogOnly{"its dialog goes", false, false, false, true, false};
const Victims dialogAndRunner{"its dialog goes, then it", false, false, true, true, false};
const Victims application{"the application quits", false, false, false, false, true};

/// Clicks the button of the dialog that has this text.
void clickButton(QFileDialog& dialog, const QString& text)
{
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            button->click();
            return;
        }
    }
    qWarning("There is no button %s", qPrintable(text));
}

QStringList shownDialogs()
{
    QStringList shown;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && (qobject_cast<const QDialog*>(widget) || qobject_cast<const QMenu*>(widget)))
            shown += QString::fromLatin1(widget->metaObject()->className());
    }
    return shown;
}

QModelIndex fileInList(const QFileDialog& dialog, const QString& name)
{
    const auto* const list = dialog.findChild<QListView*>("listView");
    const QModelIndexList found =
        list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    return found.value(0);
}

enum class RunnerKind { Facade, Dialog, FlowFacade, Flow };

const char* nameOf(RunnerKind runner)
{
    switch (runner) {
    case RunnerKind::Facade:
        return "facade";
    case RunnerKind::Dialog:
        return "dialog";
    case RunnerKind::FlowFacade:
        return "facade of a flow";
    case RunnerKind::Flow:
        return "flow";
    }
    return "";
}

} // namespace
Q_DECLARE_METATYPE(RunnerKind)
Q_DECLARE_METATYPE(const Victims*)

static void addColumns()
{
    QTest::addColumn<DialogBackend>("kind");
    QTest::addColumn<RunnerKind>("runner");
    QTest::addColumn<const Victims*>("victims");
}

/// Destroys objects at various moments of a run, for each kind of dialog. In every case the window has to close, the
/// run has to return as cancelled, and no deleted object may be accessed, which the address sanitizer checks.
class tst_DialogLifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whileTheDialogIsOpen_data();
    void whileTheDialogIsOpen() { play(&tst_DialogLifetime::strikeWhenOpen); }
    void duringTheDialogsOwnQuestion_data();
    void duringTheDialogsOwnQuestion() { play(&tst_DialogLifetime::strikeDuringOwnQuestion); }
    void duringTheQuestionWhetherToDelete_data();
    void duringTheQuestionWhetherToDelete() { play(&tst_DialogLifetime::strikeDuringDeletion); }
    void inTheHelpHandler_data();
    void inTheHelpHandler() { play(&tst_DialogLifetime::strikeInHelp); }
    void inACustomButtonsAction_data() { addNativeRows(); }
    void inACustomButtonsAction() { play(&tst_DialogLifetime::strikeInButton); }
    void inACheckBoxPropertysSlot_data() { addNativeRows(); }
    void inACheckBoxPropertysSlot() { play(&tst_DialogLifetime::strikeInCheckBox); }
    void inAFilterObserver_data() { addNativeRows(); }
    void inAFilterObserver() { play(&tst_DialogLifetime::strikeInFilterObserver); }
    void whileTheAcceptMenuIsOpen_data() { addBuiltInRows(); }
    void whileTheAcceptMenuIsOpen() { play(&tst_DialogLifetime::strikeWhenMenuIsOpen); }
    void whileAnActionThrows_data();
    void whileAnActionThrows();
    void inASlotOnQtsSignal_data();
    void inASlotOnQtsSignal();

    void duringAFlowsQuestion_data();
    void duringAFlowsQuestion();
    void inAHandlersFunction_data();
    void inAHandlersFunction();
    void flowWithoutItsParentRunsNoMore_data() { addDialogBackendRows(); }
    void flowWithoutItsParentRunsNoMore();

    void facadeOutlivesItsParent_data() { addDialogBackendRows(); }
    void facadeOutlivesItsParent();
    void nativeDialogOutlivesItsParent();
    void activeWindowGoesUnderLaunchFileDialog_data() { addDialogBackendRows(); }
    void activeWindowGoesUnderLaunchFileDialog();
    void outerGoesWhileInnerRuns_data();
    void outerGoesWhileInnerRuns();
    void runningTwiceIsRejected_data();
    void runningTwiceIsRejected();
    void sinkOutlivesItsDialog();
    void closesTheRecordedDialog();

private:
    using Scene = void (tst_DialogLifetime::*)();

    void addRows(const std::vector<RunnerKind>& runners, const std::vector<const Victims*>& victims);
    void addNativeRows();
    void addBuiltInRows();

    void play(Scene scene);
    void makeRunner();
    bool runIt();
    void strike();
    void runAndCompare();

    void strikeWhenOpen();
    void strikeDuringOwnQuestion();
    void strikeDuringDeletion();
    void strikeInHelp();
    void strikeInButton();
    void strikeInCheckBox();
    void strikeInFilterObserver();
    void strikeWhenMenuIsOpen();
    void choose(const QString& name);
    void onOpenDialog(std::function<void(QFileDialog&)> act);

    DialogBackend m_kind = DialogBackend::QtDrawn;
    RunnerKind m_runnerKind = RunnerKind::Facade;
    const Victims* m_victims = nullptr;
    TellingHandler::Listener m_handlerListener;
    bool m_examiningFails = false;

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<DialogBackendSwitch> m_switch;
    std::unique_ptr<DialogDriver> m_driver;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<Runner> m_runner;
    boost::shared_ptr<zelmar::Property<bool>> m_checked;
    QStringList m_shownAfterwards;
    int m_strikes = 0;
    std::unique_ptr<IgnoreMessages> m_unavoidable;
};

void tst_DialogLifetime::init()
{
    // Windows destroys the windows that a destroyed one owns before Qt can hide them, and Qt logs that.
    m_unavoidable = std::make_unique<IgnoreMessages>(QStringLiteral("^External WM_DESTROY received for "));
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("old.dat", "contents");
    m_folders->addFolder("sub", 1);
    m_parent = std::make_unique<QWidget>();
    m_driver = std::make_unique<DialogDriver>();
    m_handlerListener = [](const QString&) {};
    m_examiningFails = false;
    m_strikes = 0;
    m_shownAfterwards.clear();
}

void tst_DialogLifetime::cleanup()
{
    HelpLauncher::getInstance().setHandler({});
    m_driver.reset();
    m_runner.reset();
    m_parent.reset();
    m_switch.reset();
    m_folders.reset();
    m_unavoidable.reset();
}

// Rows

void tst_DialogLifetime::addRows(const std::vector<RunnerKind>& runners, const std::vector<const Victims*>& victims)
{
    addColumns();
    for (const DialogBackend kind : dialogBackends())
        for (const RunnerKind runner : runners)
            for (const Victims* victim : victims) {
                // The system decides how its dialog reacts when the application quits. Only flows give access to a
                // dialog.
                if ((victim->application && kind == DialogBackend::Recording)
                    || (victim->dialog && runner != RunnerKind::Flow))
                    continue;
                QTest::addRow("%s %s: %s", nameOf(kind), nameOf(runner), victim->name) << kind << runner << victim;
            }
}

void tst_DialogLifetime::addNativeRows()
{
    addColumns();
    for (const DialogBackend kind : dialogBackends())
        for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner})
            if (kind != DialogBackend::QtDrawn)
                QTest::addRow("%s: %s", nameOf(kind), victim->name) << kind << RunnerKind::Dialog << victim;
}

void tst_DialogLifetime::addBuiltInRows()
{
    addColumns();
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP(systemLimits::nativeDialogIsTheSystems);
    for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &application})
        QTest::addRow("%s", victim->name) << DialogBackend::BuiltIn << RunnerKind::Dialog << victim;
}

// Running a row

void tst_DialogLifetime::makeRunner()
{
    m_switch = std::make_unique<DialogBackendSwitch>(m_kind);
    const QString folder = m_folders->path();
    auto handler =
        std::make_unique<TellingHandler>([this](const QString& call) { m_handlerListener(call); }, m_examiningFails);
    const bool drawn = m_kind == DialogBackend::QtDrawn;
    if (m_runnerKind == RunnerKind::Facade)
        m_runner = std::make_unique<FacadeRunner>(*m_parent, folder);
    else if (m_runnerKind == RunnerKind::FlowFacade)
        m_runner = std::make_unique<FlowFacadeRunner>(m_parent.get(), folder, std::move(handler));
    else if (m_runnerKind == RunnerKind::Dialog && drawn)
        m_runner = std::make_unique<DrawnRunner>(*m_parent, folder);
    else if (m_runnerKind == RunnerKind::Dialog)
        m_runner = std::make_unique<NativeRunner>(*m_parent, folder);
    else if (drawn)
        m_runner = std::make_unique<FlowRunner<SaveFileQtDialog>>(m_parent.get(), folder, std::move(handler));
    else
        m_runner = std::make_unique<FlowRunner<SaveFileWinDialog>>(m_parent.get(), folder, std::move(handler));
}

void tst_DialogLifetime::strike()
{
    ++m_strikes;
    if (m_victims->dialog)
        m_runner->deleteDialog();
    if (m_victims->runnerFirst)
        m_runner.reset();
    if (m_victims->parent)
        m_parent.reset();
    if (m_victims->runnerLast)
        m_runner.reset();
    if (m_victims->application)
        QCoreApplication::quit();
    else
        m_shownAfterwards += shownDialogs();
}

bool tst_DialogLifetime::runIt()
{
    if (!m_victims->application)
        return m_runner->run();
    bool accepted = true;
    QTimer::singleShot(0, this, [this, &accepted] { accepted = m_runner->run(); });
    QCoreApplication::exec();
    return accepted;
}

void tst_DialogLifetime::runAndCompare()
{
    QVERIFY(!runIt());
    QCOMPARE(m_strikes, 1);
    QCOMPARE(m_shownAfterwards, QStringList());
    QCOMPARE(shownDialogs(), QStringList());
    QVERIFY2(m_driver->finished(), qPrintable(m_driver->problem()));
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(QFile::exists(m_folders->path("old.dat")));
}

void tst_DialogLifetime::play(Scene scene)
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    m_kind = kind;
    m_runnerKind = runner;
    m_victims = victims;
    makeRunner();
    (this->*scene)();
    runAndCompare();
}

void tst_DialogLifetime::onOpenDialog(std::function<void(QFileDialog&)> act)
{
    m_driver->onDialog<QFileDialog>("act in the dialog", std::move(act));
}

/// Makes the user accept `name`.
void tst_DialogLifetime::choose(const QString& name)
{
    if (RecordingShell* const shell = m_switch->shell())
        shell->results = QStringList{m_folders->path(name)};
    else
        onOpenDialog([name](QFileDialog& dialog) { acceptName(dialog, name); });
}

// File dialogs

void tst_DialogLifetime::whileTheDialogIsOpen_data()
{
    addRows(
        {RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow},
        {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &dialogOnly, &dialogAndRunner, &application});
}

void tst_DialogLifetime::strikeWhenOpen()
{
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [this] { strike(); };
    else
        onOpenDialog([this](QFileDialog&) { strike(); });
}

void tst_DialogLifetime::duringTheDialogsOwnQuestion_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog},
            {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &application});
}

void tst_DialogLifetime::strikeDuringOwnQuestion()
{
    if (m_switch->shell()) {
        strikeWhenOpen(); // The system asks its own question, so that only the dialog can be tested.
        return;
    }
    choose("old.dat");
    m_driver->onDialog<QMessageBox>("strike", [this](QMessageBox&) { strike(); });
}

void tst_DialogLifetime::duringTheQuestionWhetherToDelete_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade},
            {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner});
}

/// The user has pressed Delete on a file in the list. The file must still exist afterwards.
void tst_DialogLifetime::strikeDuringDeletion()
{
    if (m_switch->shell()) {
        strikeWhenOpen();
        return;
    }
    m_driver->onDialogWhen<QFileDialog>(
        "press Delete on a file",
        [](QFileDialog& dialog) { return fileInList(dialog, QStringLiteral("old.dat")).isValid(); },
        [](QFileDialog& dialog) {
            dialog.findChild<QListView*>("listView")->setCurrentIndex(fileInList(dialog, QStringLiteral("old.dat")));
            dialog.findChild<QAction*>("qt_delete_action")->trigger();
        });
    m_driver->onDialog<QMessageBox>("strike", [this](QMessageBox&) { strike(); });
}

void tst_DialogLifetime::inTheHelpHandler_data()
{
    addRows(
        {RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow},
        {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner, &dialogOnly, &dialogAndRunner, &application});
}

void tst_DialogLifetime::strikeInHelp()
{
    HelpLauncher::getInstance().setHandler([this](const std::string& topic) {
        strike();
        QCOMPARE(topic, std::string(helpTopic)); // The argument must still be valid.
    });
    const DWORD helpButton = m_runnerKind == RunnerKind::Dialog ? 1 : 0;
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell, helpButton] { shell->controlEvents()->OnButtonClicked(nullptr, helpButton); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Help"); });
}

void tst_DialogLifetime::strikeInButton()
{
    m_runner->nativeDialog()->addCustomButton("Strike", [this] { strike(); });
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnButtonClicked(nullptr, 4); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Strike"); });
}

void tst_DialogLifetime::strikeInCheckBox()
{
    m_checked = boost::make_shared<zelmar::Property<bool>>(false);
    m_checked->signalValueChanged().connect([this](bool) {
        m_checked.reset();
        strike();
    });
    m_runner->nativeDialog()->addCustomCheckBox("Strike", m_checked);
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnCheckButtonToggled(nullptr, 4, TRUE); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Strike"); });
}

void tst_DialogLifetime::strikeInFilterObserver()
{
    m_runner->nativeDialog()->currentFilterIndex()->signalValueChanged().connect([this](int) { strike(); });
    if (RecordingShell* const shell = m_switch->shell()) {
        shell->fileType = 2;
        shell->fileName = "new.dat";
        shell->onShow = [shell] { shell->events->OnTypeChange(shell->dialog); };
        return;
    }
    onOpenDialog([](QFileDialog& dialog) { pickFilter(dialog, 1); });
}

void tst_DialogLifetime::strikeWhenMenuIsOpen()
{
    onOpenDialog([this](QFileDialog& dialog) {
        typeName(dialog, "new.dat");
        auto* const button = dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Save);
        QTimer strikeSoon;
        connect(&strikeSoon, &QTimer::timeout, this, [this, &strikeSoon] {
            if (!QApplication::activePopupWidget())
                return;
            strikeSoon.stop();
            strike();
        });
        strikeSoon.start(0);
        QTest::keyClick(button, Qt::Key_Down);
    });
}

void tst_DialogLifetime::whileAnActionThrows_data()
{
    addNativeRows();
}

void tst_DialogLifetime::whileAnActionThrows()
{
    QFETCH(DialogBackend, kind);
    QFETCH(const Victims*, victims);
    m_kind = kind;
    m_runnerKind = RunnerKind::Dialog;
    m_victims = victims;
    makeRunner();
    m_runner->nativeDialog()->addCustomButton("Throw", [this] {
        strike();
        throw std::runtime_error("thrown");
    });
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [shell] { shell->controlEvents()->OnButtonClicked(nullptr, 4); };
    else
        onOpenDialog([](QFileDialog& dialog) { clickButton(dialog, "Throw"); });
    QVERIFY_EXCEPTION_THROWN(m_runner->run(), std::runtime_error);
    QCOMPARE(m_strikes, 1);
    QCOMPARE(shownDialogs(), QStringList());
}

namespace {

/// A function that connects `strike` to a signal of the dialog, and makes the dialog emit the signal.
using Provoke = std::function<void(QFileDialog&, const Action& strike)>;

template <typename Signal>
Provoke when(Signal signal, const std::function<void(QFileDialog&)>& act)
{
    return [signal, act](QFileDialog& dialog, const Action& strike) {
        QObject::connect(&dialog, signal, qApp, strike);
        act(dialog);
    };
}

} // namespace
Q_DECLARE_METATYPE(Provoke)

void tst_DialogLifetime::inASlotOnQtsSignal_data()
{
    QTest::addColumn<RunnerKind>("runner");
    QTest::addColumn<const Victims*>("victims");
    QTest::addColumn<Provoke>("provoke");
    const auto accept = [](QFileDialog& dialog) { acceptName(dialog, "new.dat"); };
    const std::vector<std::pair<const char*, Provoke>> signalsOfQt{
        {"fileSelected", when(&QFileDialog::fileSelected, accept)},
        {"filesSelected", when(&QFileDialog::filesSelected, accept)},
        {"accepted", when(&QDialog::accepted, accept)},
        {"finished", when(&QDialog::finished, accept)},
        {"rejected", when(&QDialog::rejected, [](QFileDialog& dialog) { cancel(dialog); })},
        {"filterSelected", when(&QFileDialog::filterSelected, [](QFileDialog& dialog) { pickFilter(dialog, 1); })},
        {"directoryEntered", when(&QFileDialog::directoryEntered, [](QFileDialog& dialog) {
             dialog.findChild<QToolButton*>("toParentButton")->click();
         })}};
    for (const RunnerKind runner : {RunnerKind::Facade, RunnerKind::FlowFacade, RunnerKind::Flow})
        for (const Victims* victim : {&runnerOnly, &parentOnly, &runnerAndParent, &parentAndRunner})
            for (const auto& [signal, provoke] : signalsOfQt)
                QTest::addRow("%s of a %s: %s", signal, nameOf(runner), victim->name) << runner << victim << provoke;
}

void tst_DialogLifetime::inASlotOnQtsSignal()
{
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    QFETCH(Provoke, provoke);
    m_kind = DialogBackend::QtDrawn;
    m_runnerKind = runner;
    m_victims = victims;
    makeRunner();
    onOpenDialog([this, provoke](QFileDialog& dialog) {
        provoke(dialog, [this] {
            if (m_strikes == 0) // Closing the dialog emits some of the signals again.
                strike();
        });
    });
    runAndCompare();
}

// Save flows

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

static void addFlowRows(const std::vector<const Question*>& questions)
{
    addColumns();
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

void tst_DialogLifetime::duringAFlowsQuestion_data()
{
    addFlowRows({&overwriteQuestion, &unableQuestion, &errorQuestion});
}

void tst_DialogLifetime::duringAFlowsQuestion()
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    QFETCH(const Question*, question);
    m_kind = kind;
    m_runnerKind = runner;
    m_victims = victims;
    m_examiningFails = question->examiningFails;
    makeRunner();
    choose(question->fileName);
    const QString text = question->text;
    m_driver->onDialogWhen<QMessageBox>(
        "strike", [text](QMessageBox& box) { return box.text().startsWith(text); }, [this](QMessageBox&) { strike(); });
    // The question of a native flow is a child of the parent. Without the dialog it stays open until it is answered.
    const bool staysOpen = victims->dialog && !victims->runnerLast && kind != DialogBackend::QtDrawn;
    if (staysOpen) {
        m_driver->onDialog<QMessageBox>("answer", [this](QMessageBox& box) {
            m_shownAfterwards.clear();
            box.button(QMessageBox::Yes)->click();
        });
    }
    runAndCompare();
}

void tst_DialogLifetime::inAHandlersFunction_data()
{
    addFlowRows({&noQuestion, &overwriteQuestion, &unableQuestion, &errorQuestion});
}

void tst_DialogLifetime::inAHandlersFunction()
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    QFETCH(const Victims*, victims);
    QFETCH(const Question*, question);
    if (victims->application && question == &noQuestion)
        QSKIP("Nothing is waited for: the flow comes to its end before the application does");
    m_kind = kind;
    m_runnerKind = runner;
    m_victims = victims;
    m_examiningFails = question->examiningFails;
    const QString function = question->function;
    m_handlerListener = [this, function](const QString& call) {
        if (call == function)
            strike();
    };
    makeRunner();
    choose(question->fileName);
    runAndCompare();
}

void tst_DialogLifetime::flowWithoutItsParentRunsNoMore()
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

// The parent

void tst_DialogLifetime::facadeOutlivesItsParent()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    ExtendedFileDialog dialog(*m_parent, "", m_folders->path().toStdString(), filters, "", QFileDialog::AcceptOpen);
    m_parent.reset();
    QCOMPARE(dialog.nameFilters(), QString(filters).split(";;"));
    QCOMPARE(dialog.directory().canonicalPath(), QDir(m_folders->path()).canonicalPath());
    if (kindSwitch.shell())
        kindSwitch.shell()->showResult = HRESULT_FROM_WIN32(ERROR_CANCELLED);
    else
        onOpenDialog([](QFileDialog& shown) { cancel(shown); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY2(m_driver->finished(), qPrintable(m_driver->problem()));
}

void tst_DialogLifetime::nativeDialogOutlivesItsParent()
{
    RecordingShell shell;
    ExtendedWinFileDialog dialog(*m_parent, "", "", filters, "", QFileDialog::AcceptOpen, false);
    QCOMPARE(dialog.parent(), m_parent.get());
    m_parent.reset();
    QVERIFY(!dialog.parent());
    QCOMPARE(dialog.exec(), QDialog::Accepted);
    QVERIFY(shell.takeCalls().contains("Show 0"));
}

void tst_DialogLifetime::activeWindowGoesUnderLaunchFileDialog()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    m_parent->show();
    m_parent->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_parent.get());
    if (RecordingShell* const shell = kindSwitch.shell())
        shell->onShow = [this] { m_parent.reset(); };
    else
        onOpenDialog([this](QFileDialog&) { m_parent.reset(); });
    std::vector<std::string> files{"before"};
    int filter = 7;
    QVERIFY(!zelmar::ui::LaunchFileDialog(files, filter, "Open", {"Data (*.dat)"}, {}, false, false, 0));
    QCOMPARE(files, std::vector<std::string>{"before"});
    QCOMPARE(filter, 7);
    QCOMPARE(shownDialogs(), QStringList());
    QVERIFY2(m_driver->finished(), qPrintable(m_driver->problem()));
}

// Nested runs

void tst_DialogLifetime::outerGoesWhileInnerRuns_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow}, {&runnerOnly});
}

void tst_DialogLifetime::outerGoesWhileInnerRuns()
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    m_kind = kind;
    m_runnerKind = runner;
    m_victims = &runnerOnly;
    makeRunner();
    QWidget otherWindow;
    bool innerAccepted = false;
    const Action runInner = [&] {
        ExtendedFileDialog inner(otherWindow, "Inner", m_folders->path().toStdString(), filters, "",
                                 QFileDialog::AcceptSave);
        innerAccepted = inner.exec() == QDialog::Accepted;
    };
    if (RecordingShell* const shell = m_switch->shell()) {
        int shown = 0;
        shell->onShow = [&, shell] {
            ++shown == 1 ? runInner() : strike();
            shell->showResult = S_OK; // Closing the outer dialog must not cancel the inner one.
        };
        QVERIFY(!m_runner->run());
        QVERIFY(innerAccepted);
        return;
    }
    onOpenDialog([&](QFileDialog&) { runInner(); });
    m_driver->onDialogWhen<QFileDialog>(
        "strike in the inner dialog", [](QFileDialog& dialog) { return dialog.windowTitle() == "Inner"; },
        [this](QFileDialog& dialog) {
            strike();
            QCOMPARE(shownDialogs().size(), 1);
            acceptName(dialog, "new.dat");
        });
    QVERIFY(!m_runner->run());
    QVERIFY(innerAccepted);
    QCOMPARE(shownDialogs(), QStringList());
    QVERIFY2(m_driver->finished(), qPrintable(m_driver->problem()));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogLifetime::runningTwiceIsRejected_data()
{
    addRows({RunnerKind::Facade, RunnerKind::Dialog, RunnerKind::FlowFacade, RunnerKind::Flow}, {&runnerOnly});
}

void tst_DialogLifetime::runningTwiceIsRejected()
{
    QFETCH(DialogBackend, kind);
    QFETCH(RunnerKind, runner);
    m_kind = kind;
    m_runnerKind = runner;
    makeRunner();
    bool innerAccepted = true;
    if (RecordingShell* const shell = m_switch->shell()) {
        shell->results = QStringList{m_folders->path("new.dat")};
        shell->onShow = [&, shown = 0]() mutable {
            if (++shown == 1)
                innerAccepted = m_runner->run(); // If it were shown again, the recording dialog would accept at once.
        };
    } else {
        onOpenDialog([&](QFileDialog& dialog) {
            innerAccepted = m_runner->run();
            acceptName(dialog, "new.dat");
        });
    }
    QVERIFY(m_runner->run());
    QVERIFY(!innerAccepted);
    QVERIFY2(m_driver->finished(), qPrintable(m_driver->problem()));
    QVERIFY(!QGuiApplication::overrideCursor());
}

// The objects of the shell

void tst_DialogLifetime::sinkOutlivesItsDialog()
{
    RecordingShell shell;
    shell.folder = m_folders->path();
    shell.fileName = "name.dat";
    ComPtr<IFileDialogEvents> kept;
    ComPtr<IFileDialogControlEvents> keptControls;
    ComPtr<IFileDialog> keptDialog;
    shell.onShow = [&] {
        kept = shell.events;
        keptControls = shell.controlEvents();
        keptDialog = ComPtr<IFileDialog>(shell.dialog);
    };
    int clicks = 0;
    auto checked = boost::make_shared<zelmar::Property<bool>>(false);
    {
        ExtendedWinFileDialog dialog(*m_parent, "", "", filters, "", QFileDialog::AcceptSave, false);
        dialog.addCustomButton("Button", [&clicks] { ++clicks; });
        dialog.addCustomCheckBox("Box", checked);
        dialog.exec();
    }
    shell.takeCalls();
    QCOMPARE(kept->OnFolderChange(keptDialog.get()), S_OK);
    QCOMPARE(kept->OnTypeChange(keptDialog.get()), S_OK);
    QCOMPARE(keptControls->OnButtonClicked(nullptr, 0), S_OK);
    QCOMPARE(keptControls->OnCheckButtonToggled(nullptr, 1, TRUE), S_OK);
    QCOMPARE(clicks, 0);
    QVERIFY(!checked->value());
    QCOMPARE(shell.takeCalls(), QStringList());
}

void tst_DialogLifetime::closesTheRecordedDialog()
{
    RecordingShell shell;
    auto dialog =
        std::make_unique<ExtendedWinFileDialog>(*m_parent, "", "", filters, "", QFileDialog::AcceptOpen, false);
    int liveWhenDeleted = 0;
    shell.onShow = [&] {
        shell.takeCalls();
        dialog.reset();
        liveWhenDeleted = shell.liveObjects;
    };
    QCOMPARE(dialog->exec(), QDialog::Rejected);
    const QString close = QStringLiteral("Close %1").arg(HRESULT_FROM_WIN32(ERROR_CANCELLED));
    QCOMPARE(shell.takeCalls(), (QStringList{close, "Unadvise"}));
    QCOMPARE(liveWhenDeleted, 1); // A function of the dialog object is still running.
    QCOMPARE(shell.liveObjects, 0);
}

UI_TEST_MAIN(tst_DialogLifetime)
#include "tst_DialogLifetime.moc"
