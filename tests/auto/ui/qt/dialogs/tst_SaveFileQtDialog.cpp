#include "ui/qt/dialogs/SaveFileQtDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "AccessRights.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "IgnoreMessages.h"
#include "OrdinaryUser.h"
#include "RecordingMessageHandler.h"
#include "SaveFaultRun.h"
#include "TestHome.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <type_traits>

using zelmar::ApplicationSettings;
using Calls = RecordingMessageHandler::Calls;

static_assert(std::has_virtual_destructor<SaveFileQtDialog>::value, "derived flows are deleted by their base");
static_assert(!std::is_copy_constructible<SaveFileQtDialog>::value, "a flow owns its handler");

namespace {

const std::string data = "Data files (*.dat)";
const std::vector<std::string> writers{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"};

/// A flow that gives the test access to its dialog, as a derived class may.
class TestedFlow : public SaveFileQtDialog
{
public:
    using SaveFileQtDialog::dialog;
    using SaveFileQtDialog::SaveFileQtDialog;
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

QString typedName(QFileDialog& dialog)
{
    return fileNameEdit(dialog).text();
}

} // namespace

class tst_SaveFileQtDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isAPlainObject();
    void setUpOfTheDialog();
    void writerListAndPreselection_data();
    void writerListAndPreselection();
    void filtersWithNeedlessBlanks();
    void outOfRangeSelectionPreselectsNothing();
    void ownHandlerIsTakenOver();
    void textsAreUtf8();

    void typedNames_data();
    void typedNames();
    void preselectedNameIsAccepted();
    void pickedFilterDecides();
    void typedPatternIsTheChosenFilter();
    void cancelled();
    void secondLaunch();
    void defaultQuestionByKeyboard();
    void overwrittenByMnemonic();
    void dialogItselfDoesNotAsk();
    void noThenCancel();
    void readOnlyFile();
    void closedFolderThenAnother();
    void helpTopic();
    void derivedClassAdjustsTheDialog();

    void withoutAParent();
    void parentDestroyedFirst();
    void flowDestroyedFirst();
    void parentDestroyedDuringLaunch();
    void faults_data();
    void faults();

private:
    std::unique_ptr<TestedFlow> makeFlow(const std::string& name = {});
    std::string path(const QString& name) const { return m_folders->path(name).toStdString(); }

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    Calls m_calls;
};

void tst_SaveFileQtDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"), "contents");
    m_window = std::make_unique<QWidget>();
    m_calls.clear();
}

void tst_SaveFileQtDialog::cleanup()
{
    m_window.reset();
    m_folders->setReadOnly({}, false);
    QVERIFY(!QGuiApplication::overrideCursor());
}

std::unique_ptr<TestedFlow> tst_SaveFileQtDialog::makeFlow(const std::string& name)
{
    return std::make_unique<TestedFlow>(m_window.get(), "Save run", m_folders->path().toStdString(), name, writers, 0,
                                        "", std::make_unique<RecordingMessageHandler>(m_calls));
}

void tst_SaveFileQtDialog::isAPlainObject()
{
    const auto flow = makeFlow();
    QVERIFY(!flow->parent());
    QCOMPARE(flow->metaObject(), &QObject::staticMetaObject);
}

void tst_SaveFileQtDialog::setUpOfTheDialog()
{
    TestedFlow flow(m_window.get(), "Save run", m_folders->path().toStdString(), "run1.dat", data, "topic");
    QExtendedFileDialog& dialog = *flow.dialog();
    QCOMPARE(dialog.parentWidget(), m_window.get());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Save run"));
    QCOMPARE(dialog.directory().path(), m_folders->path());
    QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog.fileMode(), QFileDialog::AnyFile);
    QCOMPARE(dialog.nameFilters(), QStringList{QString::fromStdString(data)});
    QCOMPARE(dialog.options(),
             QFileDialog::Options(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite));
    QCOMPARE(typedName(dialog), QStringLiteral("run1.dat"));
    QVERIFY(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
    QCOMPARE(flow.selectedFilename(), std::string());
    QCOMPARE(flow.selectedFilter(), data);
    QCOMPARE(flow.selectedWriter(), 0);

    dialog.show();
    QVERIFY(!ApplicationSettings::getInstance().getByteArrayValue("QExtendedFileDialog/Geometry").isEmpty());
}

void tst_SaveFileQtDialog::writerListAndPreselection_data()
{
    QTest::addColumn<int>("selected");
    for (int i = 0; i < int(writers.size()); ++i)
        QTest::newRow(writers[std::size_t(i)].c_str()) << i;
}

void tst_SaveFileQtDialog::writerListAndPreselection()
{
    QFETCH(int, selected);
    TestedFlow flow(m_window.get(), "Save", m_folders->path().toStdString(), "my.name.xyz", writers, selected, "");
    QStringList expected;
    for (const std::string& writer : writers)
        expected += QString::fromStdString(writer);
    QCOMPARE(flow.dialog()->nameFilters(), expected);
    QCOMPARE(flow.selectedWriter(), selected);
    QCOMPARE(flow.selectedFilter(), writers[std::size_t(selected)]);
    QCOMPARE(typedName(*flow.dialog()), QStringLiteral("my.name.xyz")); // The suffix of the filter is not applied.
}

/// The dialog stores its filters without redundant blanks. The index is nevertheless that of the caller's entry.
void tst_SaveFileQtDialog::filtersWithNeedlessBlanks()
{
    const TestedFlow flow(m_window.get(), "Save", "", "", {"Data (*.dat)", " Tables   (*.csv) "}, 1, "");
    QCOMPARE(flow.selectedWriter(), 1);
    QCOMPARE(flow.selectedFilter(), std::string("Tables (*.csv)"));
}

void tst_SaveFileQtDialog::outOfRangeSelectionPreselectsNothing()
{
    for (const int selected : {-1, 3, 1000}) {
        const TestedFlow flow(m_window.get(), "Save", "", "", writers, selected, "");
        QCOMPARE(flow.selectedWriter(), 0); // The dialog has selected the first one.
    }
}

void tst_SaveFileQtDialog::ownHandlerIsTakenOver()
{
    int count = 0;
    for (const bool list : {true, false}) {
        std::unique_ptr<zelmar::SaveFileMessageHandlerInterface> handler =
            std::make_unique<CountedHandler>(m_calls, count);
        {
            const auto flow =
                list ? std::make_unique<TestedFlow>(m_window.get(), "", "", "", writers, 0, "", std::move(handler))
                     : std::make_unique<TestedFlow>(m_window.get(), "", "", "", data, "", std::move(handler));
            QVERIFY(!handler); // NOLINT(bugprone-use-after-move): tests that the flow has moved from it
            QCOMPARE(count, 1);
        }
        QCOMPARE(count, 0);
    }
}

void tst_SaveFileQtDialog::textsAreUtf8()
{
    const QString folder = m_folders->addFolder(QStringLiteral(u"Me\u00dfwerte \u6e2c\u5b9a"));
    TestedFlow flow(m_window.get(), u8"S\u00efchern", folder.toStdString(), u8"l\u00e4uft",
                    u8"Me\u00dfdaten (*.\u00e4)", "");
    QCOMPARE(flow.dialog()->windowTitle(), QStringLiteral(u"S\u00efchern"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow.launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), folder + QStringLiteral(u"/l\u00e4uft.\u00e4"));
    QCOMPARE(flow.selectedFilter(), std::string(u8"Me\u00dfdaten (*.\u00e4)"));
}

void tst_SaveFileQtDialog::typedNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");

    // clang-format off
    QTest::newRow("no extension") << "result" << "result.dat";
    QTest::newRow("trailing dot") << "result." << "result.dat";
    QTest::newRow("another extension") << "result.txt" << "result.txt";
    QTest::newRow("blanks") << "my result" << "my result.dat";
    // clang-format on
}

void tst_SaveFileQtDialog::typedNames()
{
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [&typed](QFileDialog& dialog) { acceptName(dialog, typed); });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), path(expected));
    QCOMPARE(m_calls, Calls{"check " + path(expected)});
    QVERIFY(!QFile::exists(m_folders->path(expected)));
}

void tst_SaveFileQtDialog::preselectedNameIsAccepted()
{
    const auto flow = makeFlow("run1");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), path(QStringLiteral("run1.dat")));
}

void tst_SaveFileQtDialog::pickedFilterDecides()
{
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("pick, accept", [&flow](QFileDialog& dialog) {
        pickFilter(dialog, 2);
        QCOMPARE(flow->selectedWriter(), 2); // The value comes from the open dialog.
        pickFilter(dialog, 1);
        acceptName(dialog, QStringLiteral("result"));
    });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), path(QStringLiteral("result.csv")));
    QCOMPARE(flow->selectedWriter(), 1);
    QCOMPARE(flow->selectedFilter(), writers[1]);
}

/// The temporary filter of a typed pattern gives the extension, as every selected filter does.
void tst_SaveFileQtDialog::typedPatternIsTheChosenFilter()
{
    for (const char* pattern : {"run*", "run*.tab"}) {
        const auto flow = makeFlow();
        DialogDriver driver;
        driver.onDialog<QFileDialog>("pattern", [pattern](QFileDialog& dialog) {
            pickFilter(dialog, 1);
            acceptName(dialog, QLatin1String(pattern));
        });
        driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("new")); });
        QVERIFY(flow->launch());
        QVERIFY2(driver.finished(), qPrintable(driver.problem()));
        const bool hasExtension = QByteArray(pattern).contains('.');
        QCOMPARE(flow->selectedFilename(),
                 path(hasExtension ? QStringLiteral("new.tab") : QStringLiteral("new.Tablesrun")));
        QCOMPARE(flow->selectedWriter(), 1);
    }
}

void tst_SaveFileQtDialog::cancelled()
{
    const auto flow = makeFlow("run1");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& dialog) { cancel(dialog); });
    QVERIFY(!flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), std::string());
    QCOMPARE(m_calls, Calls());
}

void tst_SaveFileQtDialog::secondLaunch()
{
    m_folders->addFolder(QStringLiteral("deeper"));
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("deeper/first")); });
    QVERIFY(flow->launch());
    QCOMPARE(flow->selectedFilename(), path(QStringLiteral("deeper/first.dat")));

    driver.onDialog<QFileDialog>("another name",
                                 [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("second")); });
    QVERIFY(flow->launch());
    QCOMPARE(QFileInfo(QString::fromStdString(flow->selectedFilename())).fileName(), QStringLiteral("second.dat"));

    const std::string kept = flow->selectedFilename();
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& dialog) { cancel(dialog); });
    QVERIFY(!flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), kept);
}

/// Answers the default questions in real message boxes with the keyboard alone.
void tst_SaveFileQtDialog::defaultQuestionByKeyboard()
{
    TestedFlow flow(m_window.get(), u8"S\u00e4ve run", m_folders->path().toStdString(), "", writers, 0, "");
    DialogDriver driver;
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("old")); });
        driver.onDialog<QMessageBox>("no", [this, &flow, key](QMessageBox& box) {
            QCOMPARE(box.windowTitle(), QStringLiteral(u"S\u00e4ve run"));
            QCOMPARE(box.text(), QStringLiteral("File %1 already exists. Do you want to replace it?")
                                     .arg(m_folders->path(QStringLiteral("old.dat"))));
            QCOMPARE(box.parentWidget(), static_cast<QWidget*>(flow.dialog()));
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(box.button(QMessageBox::No)));
            QTest::keyClick(box.button(QMessageBox::No), key);
        });
    }
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("old")); });
    driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Tab);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    });
    QVERIFY(flow.launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow.selectedFilename(), path(QStringLiteral("old.dat")));
}

void tst_SaveFileQtDialog::overwrittenByMnemonic()
{
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("old.dat")); });
    driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier); });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(m_calls, (Calls{"check " + path(QStringLiteral("old.dat")), "overwrite"}));
}

/// The flow asks once, about the name with its extension.
void tst_SaveFileQtDialog::dialogItselfDoesNotAsk()
{
    m_folders->addFile(QStringLiteral("plain"));
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("plain")); });
    QVERIFY(flow->launch()); // "plain" exists, but "plain.dat" does not.
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(m_calls, Calls{"check " + path(QStringLiteral("plain.dat"))});
}

void tst_SaveFileQtDialog::noThenCancel()
{
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("old.dat")); });
    driver.onDialog<QMessageBox>("no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& dialog) {
        QCOMPARE(typedName(dialog), QStringLiteral("old.dat")); // The typed name is still in the box.
        cancel(dialog);
    });
    QVERIFY(!flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(m_calls, (Calls{"check " + path(QStringLiteral("old.dat")), "overwrite"}));
}

void tst_SaveFileQtDialog::readOnlyFile()
{
    setAccess(m_folders->path(QStringLiteral("old.dat")), Access::NoWriting);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("old.dat")); });
    driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    driver.onDialog<QMessageBox>("no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    QVERIFY(!flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(m_calls, (Calls{"check " + path(QStringLiteral("old.dat")), "overwrite", "unable"}));
}

void tst_SaveFileQtDialog::closedFolderThenAnother()
{
    const QString open = m_folders->addFolder(QStringLiteral("place"));
    setAccess(open, Access::Everything);
    m_folders->setReadOnly({}, true);
    const OrdinaryUser user;
    QVERIFY(user.isOrdinary());
    const auto flow = makeFlow();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("new")); });
    driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("place/new")); });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(flow->selectedFilename(), path(QStringLiteral("place/new.dat")));
}

void tst_SaveFileQtDialog::helpTopic()
{
    TestedFlow without(m_window.get(), "Save", "", "", writers, 0, "");
    QVERIFY(!without.dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
    TestedFlow with(m_window.get(), "Save", "", "", writers, 0, "files/save.html");
    QVERIFY(with.dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
}

void tst_SaveFileQtDialog::derivedClassAdjustsTheDialog()
{
    class Flow : public SaveFileQtDialog
    {
    public:
        using SaveFileQtDialog::SaveFileQtDialog;
        bool launch() override
        {
            dialog()->setGeometryPersistenceKey("our own");
            return SaveFileQtDialog::launch();
        }
    };
    const std::unique_ptr<SaveFileQtDialog> flow =
        std::make_unique<Flow>(m_window.get(), "Save", m_folders->path().toStdString(), "new", writers, 0, "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow->launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QVERIFY(!ApplicationSettings::getInstance().getByteArrayValue("our own").isEmpty());
}

void tst_SaveFileQtDialog::withoutAParent()
{
    QPointer<QExtendedFileDialog> dialog;
    {
        TestedFlow flow(nullptr, "Save", m_folders->path().toStdString(), "", data, "topic");
        dialog = flow.dialog();
        QVERIFY(!dialog->parent());
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept",
                                     [](QFileDialog& running) { acceptName(running, QStringLiteral("old.dat")); });
        driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QVERIFY(flow.launch());
        QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    }
    QVERIFY(dialog); // Without a parent nothing else deletes it.
    delete dialog;
}

void tst_SaveFileQtDialog::parentDestroyedFirst()
{
    const auto flow = makeFlow("run1");
    m_window.reset();
    QVERIFY(!flow->dialog());
    QVERIFY(!flow->launch());
    QCOMPARE(flow->selectedFilter(), std::string());
    QCOMPARE(flow->selectedWriter(), -1);
}

void tst_SaveFileQtDialog::flowDestroyedFirst()
{
    auto flow = makeFlow();
    const QPointer<QExtendedFileDialog> dialog = flow->dialog();
    flow.reset();
    QVERIFY(dialog);
    m_window.reset();
    QVERIFY(!dialog);
}

void tst_SaveFileQtDialog::parentDestroyedDuringLaunch()
{
    // Windows destroys the windows that a destroyed one owns before Qt can hide them, and Qt logs that.
    const IgnoreMessages unavoidable(QStringLiteral("^External WM_DESTROY received for "));
    for (const bool duringQuestion : {false, true}) {
        m_window = std::make_unique<QWidget>();
        const auto flow = makeFlow();
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept", [this, duringQuestion](QFileDialog& dialog) {
            if (duringQuestion)
                acceptName(dialog, QStringLiteral("old.dat"));
            else
                m_window.reset();
        });
        if (duringQuestion)
            driver.onDialog<QMessageBox>("destroy", [this](QMessageBox&) { m_window.reset(); });
        QVERIFY(!flow->launch());
        QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    }
}

void tst_SaveFileQtDialog::faults_data()
{
    // The Qt-drawn dialog accepts neither of these: it enters the folder and refuses the long name.
    addSaveFaultRows({QStringLiteral("a folder as target"), QStringLiteral("name too long")});
}

void tst_SaveFileQtDialog::faults()
{
    QFETCH(int, fault);
    QCOMPARE(problemOfSaveFault<SaveFileQtDialog>(fault, m_folders->path(QStringLiteral("place")), m_window.get(),
                                                  chooseByKeyboard),
             QString());
}

UI_TEST_MAIN(tst_SaveFileQtDialog)
#include "tst_SaveFileQtDialog.moc"
