#include "ui/qt/dialogs/SaveFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileQtDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include "AccessRights.h"
#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "OrdinaryUser.h"
#include "RecordingMessageHandler.h"
#include "SaveFaults.h"
#include "TestHome.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <queue>
#include <type_traits>
#include <utility>

using zelmar::ApplicationSettings;
using Calls = RecordingMessageHandler::Calls;

static_assert(std::has_virtual_destructor<SaveFileDialog>::value, "derived facades are deleted by their base");
static_assert(!std::is_copy_constructible<SaveFileDialog>::value, "a facade owns its flow");
static_assert(!std::is_base_of<QObject, SaveFileDialog>::value, "a facade is a plain class");
static_assert(std::has_virtual_destructor<SaveFileQtDialog>::value, "derived flows are deleted by their base");
static_assert(!std::is_copy_constructible<SaveFileQtDialog>::value, "a flow owns its handler");
static_assert(std::is_base_of<QObject, SaveFileQtDialog>::value, "a flow is an object of Qt's");
static_assert(std::has_virtual_destructor<SaveFileWinDialog>::value, "derived flows are deleted by their base");
static_assert(!std::is_copy_constructible<SaveFileWinDialog>::value, "a flow owns its handler");
static_assert(std::is_base_of<QObject, SaveFileWinDialog>::value, "a flow is an object of Qt's");

namespace {

const std::vector<std::string> writers{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"};

/// The functions that the facade and both flows have.
class AnyFlow
{
public:
    AnyFlow() = default;
    virtual ~AnyFlow() = default;
    Q_DISABLE_COPY(AnyFlow)

    virtual bool launch() = 0;
    virtual std::string selectedFilename() const = 0;
    virtual std::string selectedFilter() const = 0;
    virtual int selectedWriter() const = 0;
};

template <typename Flow>
class FlowOf : public AnyFlow
{
public:
    template <typename... Arguments>
    explicit FlowOf(Arguments&&... arguments)
        : m_flow(std::forward<Arguments>(arguments)...)
    {
    }
    bool launch() override { return m_flow.launch(); }
    std::string selectedFilename() const override { return m_flow.selectedFilename(); }
    std::string selectedFilter() const override { return m_flow.selectedFilter(); }
    int selectedWriter() const override { return m_flow.selectedWriter(); }

private:
    Flow m_flow;
};

/// A message handler that counts its instances.
class CountedHandler : public RecordingMessageHandler
{
public:
    explicit CountedHandler(Calls& calls, int& count)
        : RecordingMessageHandler(calls)
        , m_count(count)
    {
        ++m_count;
    }
    ~CountedHandler() override { --m_count; }
    Q_DISABLE_COPY(CountedHandler)

private:
    int& m_count;
};

void addColumns()
{
    QTest::addColumn<DialogBackend>("kind");
    QTest::addColumn<bool>("behindTheFacade");
}

/// Adds a row for each flow over each kind of dialog, and one for the facade over the same kind.
void addFlowRows()
{
    addColumns();
    for (const DialogBackend kind : dialogBackends())
        for (const bool behindTheFacade : {false, true})
            QTest::addRow("%s%s", nameOf(kind), behindTheFacade ? ", behind the facade" : "")
                << kind << behindTheFacade;
}

} // namespace

/// Runs the same tests over each kind of dialog, with the class of the flow and with the facade.
class tst_SaveFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isNativeAtFirst();
    void keepsItsKind();

    void selectsTheWriter_data() { addFlowRows(); }
    void selectsTheWriter();
    void selectsNoWriterOutOfRange_data() { addFlowRows(); }
    void selectsNoWriterOutOfRange();
    void findsTheFirstOfEqualFilters_data() { addFlowRows(); }
    void findsTheFirstOfEqualFilters();
    void takesOneFilterOrMore_data() { addFlowRows(); }
    void takesOneFilterOrMore();
    void ownsItsHandler_data() { addFlowRows(); }
    void ownsItsHandler();

    void takesEachName_data();
    void takesEachName();
    void followsThePickedFilter_data() { addFlowRows(); }
    void followsThePickedFilter();
    void tellsOfCancelling_data() { addFlowRows(); }
    void tellsOfCancelling();
    void isLaunchedAgain_data() { addFlowRows(); }
    void isLaunchedAgain();

    void asksInTheDefaultWords_data() { addFlowRows(); }
    void asksInTheDefaultWords();
    void overwritesByMnemonic_data() { addFlowRows(); }
    void overwritesByMnemonic();
    void asksAboutTheFinalNameOnly_data() { addFlowRows(); }
    void asksAboutTheFinalNameOnly();
    void comesBackAfterNo_data() { addFlowRows(); }
    void comesBackAfterNo();
    void readOnlyFile_data() { addFlowRows(); }
    void readOnlyFile();
    void closedFolderThenAnother_data() { addFlowRows(); }
    void closedFolderThenAnother();
    void faults_data();
    void faults();

private:
    template <typename... Arguments>
    std::unique_ptr<AnyFlow> makeFlow(Arguments&&... arguments);
    void start(int writer = 0);

    // Steps of the user, in the order in which the flow shows its dialogs.
    void inDialog(const std::function<void(QFileDialog&)>& act, const std::function<void(RecordingShell&)>& record);
    void accept(const QString& name, const std::vector<int>& pickedFilters = {});
    /// Cancels the dialog, in whose box the name `shownName` must be.
    void cancelDialog(const QString& shownName = {});
    void answer(QMessageBox::StandardButton button);

    std::string path(const QString& name = {}) const { return m_folders->path(name).toStdString(); }

    std::unique_ptr<DialogFolders> m_folders;
    QString m_directory;
    std::unique_ptr<QWidget> m_window;
    DialogBackend m_kind = DialogBackend::Recording;
    bool m_behindTheFacade = true;
    std::unique_ptr<DialogBackendSwitch> m_switch;
    std::unique_ptr<DialogDriver> m_driver;
    std::queue<std::function<void(RecordingShell&)>> m_recorded;
    std::unique_ptr<AnyFlow> m_flow;
    Calls m_calls;
};

void tst_SaveFileDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("old.dat", "contents");
    m_directory = m_folders->path();
    m_window = std::make_unique<QWidget>();
    m_driver = std::make_unique<DialogDriver>();
    m_recorded = {};
    m_calls.clear();
    if (!QTest::currentDataTag())
        return;
    QFETCH(DialogBackend, kind);
    QFETCH(bool, behindTheFacade);
    m_kind = kind;
    m_behindTheFacade = behindTheFacade;
    m_switch = std::make_unique<DialogBackendSwitch>(kind);
    if (RecordingShell* const shell = m_switch->shell())
        shell->onShow = [this, shell] {
            if (m_recorded.empty())
                qFatal("The dialog is shown once too often");
            const auto record = m_recorded.front();
            m_recorded.pop();
            record(*shell);
        };
}

void tst_SaveFileDialog::cleanup()
{
    m_flow.reset();
    m_window.reset();
    m_switch.reset();
    m_folders->setReadOnly({}, false);
    QVERIFY(m_recorded.empty());
    QVERIFY(!QGuiApplication::overrideCursor());
}

template <typename... Arguments>
std::unique_ptr<AnyFlow> tst_SaveFileDialog::makeFlow(Arguments&&... arguments)
{
    const auto make = [&](auto* type) -> std::unique_ptr<AnyFlow> {
        using Flow = std::remove_pointer_t<decltype(type)>;
        return std::make_unique<FlowOf<Flow>>(m_window.get(), u8"S\u00e4ve run", m_directory.toStdString(),
                                              std::forward<Arguments>(arguments)...);
    };
    if (m_behindTheFacade)
        return make(static_cast<SaveFileDialog*>(nullptr));
    if (m_kind == DialogBackend::QtDrawn)
        return make(static_cast<SaveFileQtDialog*>(nullptr));
    return make(static_cast<SaveFileWinDialog*>(nullptr));
}

/// Makes a flow whose message handler records its calls.
void tst_SaveFileDialog::start(int writer)
{
    m_flow = makeFlow("", writers, writer, "", std::make_unique<RecordingMessageHandler>(m_calls));
}

void tst_SaveFileDialog::inDialog(const std::function<void(QFileDialog&)>& act,
                                  const std::function<void(RecordingShell&)>& record)
{
    if (m_switch->shell())
        m_recorded.push(record);
    else
        m_driver->onDialog<QFileDialog>("act in the dialog", act);
}

/// Picks one filter after the other, and accepts `name`.
void tst_SaveFileDialog::accept(const QString& name, const std::vector<int>& pickedFilters)
{
    inDialog(
        [this, name, pickedFilters](QFileDialog& dialog) {
            for (const int filter : pickedFilters) {
                pickFilter(dialog, filter);
                QCOMPARE(m_flow->selectedWriter(), filter); // The value comes from the open dialog.
            }
            acceptName(dialog, name);
        },
        [this, name, pickedFilters](RecordingShell& shell) {
            for (const int filter : pickedFilters) {
                shell.fileType = UINT(filter + 1);
                shell.events->OnTypeChange(shell.dialog);
                QCOMPARE(m_flow->selectedWriter(), filter);
            }
            shell.showResult = S_OK;
            shell.results = QStringList{QDir(m_directory).filePath(name)};
        });
}

void tst_SaveFileDialog::cancelDialog(const QString& shownName)
{
    inDialog(
        [shownName](QFileDialog& dialog) {
            QCOMPARE(fileNameEdit(dialog).text(), shownName);
            cancel(dialog);
        },
        [](RecordingShell& shell) { shell.showResult = HRESULT_FROM_WIN32(ERROR_CANCELLED); });
}

void tst_SaveFileDialog::answer(QMessageBox::StandardButton button)
{
    m_driver->onDialog<QMessageBox>("answer", [button](QMessageBox& box) { box.button(button)->click(); });
}

// Kinds

void tst_SaveFileDialog::isNativeAtFirst()
{
    RecordingShell shell;
    const SaveFileDialog dialog(m_window.get(), "", "", "", writers, 0, "");
    QCOMPARE(shell.takeCalls(), QStringList{"create save dialog"});
}

void tst_SaveFileDialog::keepsItsKind()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    SaveFileDialog native(m_window.get(), "", path(), "", writers, 0, "");
    ExtendedFileDialog::setUseNativeFileDialog(false);
    SaveFileDialog drawn(m_window.get(), "", path(), "", writers, 0, "");
    ExtendedFileDialog::setUseNativeFileDialog(true);

    kind.shell()->results = QStringList{m_folders->path("new")};
    QVERIFY(native.launch());
    bool isDrawn = false;
    m_driver->onDialog<QFileDialog>("look", [&isDrawn](QFileDialog& dialog) {
        isDrawn = qobject_cast<QExtendedFileDialog*>(&dialog);
        cancel(dialog);
    });
    QVERIFY(!drawn.launch());
    QVERIFY(isDrawn);
}

// Arguments

void tst_SaveFileDialog::selectsTheWriter()
{
    for (int writer = 0; writer < int(writers.size()); ++writer) {
        const auto flow = makeFlow("my.name.xyz", writers, writer, "");
        QCOMPARE(flow->selectedWriter(), writer);
        QCOMPARE(flow->selectedFilter(), writers[std::size_t(writer)]);
        QCOMPARE(flow->selectedFilename(), std::string());
    }
}

void tst_SaveFileDialog::selectsNoWriterOutOfRange()
{
    // The dialog that Qt draws always has a selected filter.
    const int expected = m_kind == DialogBackend::QtDrawn ? 0 : -1;
    for (const int writer : {-1, 3, 1000})
        QCOMPARE(makeFlow("", writers, writer, "")->selectedWriter(), expected);
}

void tst_SaveFileDialog::findsTheFirstOfEqualFilters()
{
    const std::vector<std::string> filters{"A (*.a)", "B (*.b)", "B (*.b)"};
    QCOMPARE(makeFlow("", filters, 2, "")->selectedWriter(), 1);
}

void tst_SaveFileDialog::takesOneFilterOrMore()
{
    m_flow = makeFlow("run", "Notes (*.txt);;Tables (*.csv)", "");
    QCOMPARE(m_flow->selectedWriter(), 0);
    QCOMPARE(m_flow->selectedFilter(), std::string("Notes (*.txt)"));
    accept("run");
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("run.txt"));
}

void tst_SaveFileDialog::ownsItsHandler()
{
    int count = 0;
    for (const bool list : {true, false}) {
        std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> handler =
            std::make_unique<CountedHandler>(m_calls, count);
        m_flow =
            list ? makeFlow("", writers, 0, "", std::move(handler)) : makeFlow("", writers[0], "", std::move(handler));
        QVERIFY(!handler); // NOLINT(bugprone-use-after-move): tests that the flow has moved from it
        QCOMPARE(count, 1);
        m_calls.clear();
        accept("old.dat");
        answer(QMessageBox::Yes);
        QVERIFY(m_flow->launch());
        QCOMPARE(m_calls, (Calls{"check " + path("old.dat"), "overwrite"}));
        m_flow.reset();
        QCOMPARE(count, 0);
    }
}

// Runs

void tst_SaveFileDialog::takesEachName_data()
{
    addColumns();
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    for (const DialogBackend kind : dialogBackends()) {
        const auto addName = [kind](const char* title, const QString& typed, const QString& saved) {
            QTest::addRow("%s: %s", nameOf(kind), title) << kind << false << typed << saved;
        };
        addName("no extension", "result", "result.dat");
        addName("a dot at the end", "result.", "result.dat");
        addName("another extension", "result.txt", "result.txt");
        addName("blanks", "my result", "my result.dat");
        addName("not ASCII", QString::fromUtf8("\xC3\xA4\xE2\x82\xAC"), QString::fromUtf8("\xC3\xA4\xE2\x82\xAC.dat"));
        if (kind == DialogBackend::Recording) // QTest cannot type it.
            addName("two UTF-16 code units", QString::fromUtf8("\xF0\x9F\x93\x81"),
                    QString::fromUtf8("\xF0\x9F\x93\x81.dat"));
    }
}

void tst_SaveFileDialog::takesEachName()
{
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    start();
    accept(typed);
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path(saved));
    QCOMPARE(m_calls, Calls{"check " + path(saved)});
    QVERIFY(!QFile::exists(m_folders->path(saved)));
}

void tst_SaveFileDialog::followsThePickedFilter()
{
    start();
    accept("result", {2, 1});
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("result.csv"));
    QCOMPARE(m_flow->selectedWriter(), 1);
    QCOMPARE(m_flow->selectedFilter(), writers[1]);
}

void tst_SaveFileDialog::tellsOfCancelling()
{
    start();
    cancelDialog();
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), std::string());
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFileDialog::isLaunchedAgain()
{
    m_folders->addFolder("deeper");
    start(1);
    accept("deeper/first");
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("deeper/first.csv"));

    accept("second"); // in the folder that the dialog shows now
    QVERIFY(m_flow->launch());
    const std::string second = m_flow->selectedFilename();
    QCOMPARE(QFileInfo(QString::fromStdString(second)).fileName(), QString("second.csv"));

    cancelDialog("second");
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), second);
}

// Questions

/// Answers the default questions with the keyboard alone.
void tst_SaveFileDialog::asksInTheDefaultWords()
{
    m_flow = makeFlow("", writers, 0, "");
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        accept("old");
        m_driver->onDialog<QMessageBox>("no", [this, key](QMessageBox& box) {
            QCOMPARE(box.windowTitle(), QStringLiteral(u"S\u00e4ve run"));
            QCOMPARE(
                box.text(),
                QStringLiteral("File %1 already exists. Do you want to replace it?").arg(m_folders->path("old.dat")));
            // A native dialog has closed already, and is no widget.
            QWidget* const parent = box.parentWidget();
            QCOMPARE(bool(qobject_cast<QExtendedFileDialog*>(parent)), m_kind == DialogBackend::QtDrawn);
            QCOMPARE(parent == m_window.get(), m_kind != DialogBackend::QtDrawn);
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(box.button(QMessageBox::No)));
            QTest::keyClick(box.button(QMessageBox::No), key);
        });
    }
    accept("old");
    m_driver->onDialog<QMessageBox>("yes", [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    });
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("old.dat"));
}

void tst_SaveFileDialog::overwritesByMnemonic()
{
    start();
    accept("old.dat");
    m_driver->onDialog<QMessageBox>("yes", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier); });
    QVERIFY(m_flow->launch());
    QCOMPARE(m_calls, (Calls{"check " + path("old.dat"), "overwrite"}));
}

/// The flow asks once, about the name with its extension. The dialog itself does not ask.
void tst_SaveFileDialog::asksAboutTheFinalNameOnly()
{
    m_folders->addFile("plain");
    start();
    accept("plain");
    QVERIFY(m_flow->launch()); // "plain" exists, but "plain.dat" does not.
    QCOMPARE(m_calls, Calls{"check " + path("plain.dat")});
}

void tst_SaveFileDialog::comesBackAfterNo()
{
    start();
    accept("old.dat");
    answer(QMessageBox::No);
    accept("old");
    answer(QMessageBox::No);
    accept("new");
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("new.dat"));

    m_calls.clear();
    accept("old.dat");
    answer(QMessageBox::No);
    cancelDialog("old.dat"); // The typed name is still in the box.
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_calls, (Calls{"check " + path("old.dat"), "overwrite"}));
    QCOMPARE(m_flow->selectedFilename(), path("old.dat")); // of the last round in which the dialog was accepted
}

void tst_SaveFileDialog::readOnlyFile()
{
    setAccess(m_folders->path("old.dat"), Access::NoWriting);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    start();
    accept("old.dat");
    answer(QMessageBox::Yes);
    answer(QMessageBox::No);
    QVERIFY(!m_flow->launch());
    QCOMPARE(m_calls, (Calls{"check " + path("old.dat"), "overwrite", "unable"}));
}

void tst_SaveFileDialog::closedFolderThenAnother()
{
    setAccess(m_folders->addFolder("place"), Access::Everything);
    m_folders->setReadOnly({}, true);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    start();
    accept("new");
    answer(QMessageBox::Yes);
    accept("place/new");
    QVERIFY(m_flow->launch());
    QCOMPARE(m_flow->selectedFilename(), path("place/new.dat"));
}

void tst_SaveFileDialog::faults_data()
{
    addColumns();
    QTest::addColumn<int>("fault");
    // A dialog that Qt draws returns neither of these names: it enters the folder and refuses the long name.
    const QStringList refused{"a folder as target", "name too long"};
    for (const DialogBackend kind : dialogBackends())
        for (std::size_t i = 0; i < saveFaults().size(); ++i)
            if (kind == DialogBackend::Recording || !refused.contains(saveFaults()[i].name))
                QTest::addRow("%s: %s", nameOf(kind), saveFaults()[i].name) << kind << false << int(i);
}

void tst_SaveFileDialog::faults()
{
    QFETCH(int, fault);
    m_directory = m_folders->path("place");
    SaveFaultTrial trial(saveFaults()[std::size_t(fault)], m_directory);
    bool launched = false;
    {
        const OrdinaryUser user;
        QVERIFY(user.isOrdinary());
        m_flow = makeFlow("", writers[0], "", trial.makeHandler());
        accept(trial.chosenName());
        trial.addAnswers(*m_driver);
        launched = m_flow->launch();
        m_flow.reset();
    }
    QCOMPARE(trial.problem(launched), QString());
}

UI_TEST_MAIN(tst_SaveFileDialog)
#include "tst_SaveFileDialog.moc"
