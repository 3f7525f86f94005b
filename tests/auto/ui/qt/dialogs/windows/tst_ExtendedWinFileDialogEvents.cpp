#include "RecordingShell.h"
#include "TestHome.h"
#include "property/Property.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include <QApplication>
#include <QWidget>
#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace zelmar::internal;

namespace {

const auto nothing = [] {};

} // namespace

/// Tests the event handler of the dialog. The tests reach it as the system does: through the sink passed to Advise().
class tst_ExtendedWinFileDialogEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void answersEachOperation();
    void hasTwoSidesAndOneCount();
    void livesAsLongAsTheDialogHoldsIt();
    void followsTheFolder();
    void followsEachChangeOfFolder();
    void keepsTheFolderThatCannotBeRead_data();
    void keepsTheFolderThatCannotBeRead();
    void followsTheFileType_data();
    void followsTheFileType();
    void keepsTheFileTypeThatCannotBeRead();
    void replacesTheExtensionWhenSaving_data();
    void replacesTheExtensionWhenSaving();
    void leavesTheNameAloneUnderAnUnknownType_data();
    void leavesTheNameAloneUnderAnUnknownType();
    void runsTheActionOfItsButton();
    void throwsForAnEmptyAction();
    void letsAnActionThrow();
    void letsAnActionAddButtons();
    void setsThePropertyOfItsBox_data();
    void setsThePropertyOfItsBox();
    void tellsOfARealToggleOnly();
    void letsAValidatorRefuse();

private:
    /// Runs the dialog and calls `step` while it is open.
    void run(ExtendedWinFileDialog& dialog, std::function<void()> step);
    std::unique_ptr<ExtendedWinFileDialog> makeDialog(QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen,
                                                      const std::string& filters = "Data (*.dat);;Text (*.txt)");

    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<RecordingShell> m_shell;
};

void tst_ExtendedWinFileDialogEvents::init()
{
    m_parent = std::make_unique<QWidget>();
    m_shell = std::make_unique<RecordingShell>();
}

void tst_ExtendedWinFileDialogEvents::cleanup()
{
    QCOMPARE(m_shell->liveObjects, 0);
    QVERIFY(!m_shell->events);
    m_shell.reset();
}

void tst_ExtendedWinFileDialogEvents::run(ExtendedWinFileDialog& dialog, std::function<void()> step)
{
    bool happened = false;
    m_shell->onShow = [&] {
        m_shell->takeCalls();
        happened = true;
        step();
    };
    dialog.exec();
    QVERIFY(happened);
}

std::unique_ptr<ExtendedWinFileDialog> tst_ExtendedWinFileDialogEvents::makeDialog(QFileDialog::AcceptMode mode,
                                                                                   const std::string& filters)
{
    return std::make_unique<ExtendedWinFileDialog>(*m_parent, "", "", filters, "", mode, false);
}

void tst_ExtendedWinFileDialogEvents::answersEachOperation()
{
    m_shell->folder = "/data";
    const auto dialog = makeDialog();
    run(*dialog, [this] {
        IFileDialogEvents& events = *m_shell->events;
        QCOMPARE(events.OnFileOk(m_shell->dialog), E_NOTIMPL);
        QCOMPARE(events.OnFolderChanging(m_shell->dialog, nullptr), E_NOTIMPL);
        QCOMPARE(events.OnFolderChange(m_shell->dialog), S_OK);
        QCOMPARE(events.OnSelectionChange(m_shell->dialog), E_NOTIMPL);
        QCOMPARE(events.OnShareViolation(m_shell->dialog, nullptr, nullptr), E_NOTIMPL);
        QCOMPARE(events.OnTypeChange(m_shell->dialog), S_OK);
        QCOMPARE(events.OnOverwrite(m_shell->dialog, nullptr, nullptr), E_NOTIMPL);
        IFileDialogControlEvents& controls = *m_shell->controlEvents();
        QCOMPARE(controls.OnItemSelected(nullptr, 0, 0), E_NOTIMPL);
        QCOMPARE(controls.OnButtonClicked(nullptr, 99), S_OK);
        QCOMPARE(controls.OnCheckButtonToggled(nullptr, 99, TRUE), S_OK);
        QCOMPARE(controls.OnControlActivating(nullptr, 0), E_NOTIMPL);
    });
}

void tst_ExtendedWinFileDialogEvents::hasTwoSidesAndOneCount()
{
    const auto dialog = makeDialog();
    run(*dialog, [this] {
        IFileDialogEvents* const events = m_shell->events.get();
        const auto identity = queryFor<IUnknown>(IID_IUnknown, events);
        const auto controls = queryFor<IFileDialogControlEvents>(IID_IFileDialogControlEvents, events);
        QVERIFY(controls);
        // Both interfaces lead to the same object.
        QCOMPARE(queryFor<IUnknown>(IID_IUnknown, controls.get()).get(), identity.get());
        QCOMPARE(queryFor<IFileDialogEvents>(IID_IFileDialogEvents, controls.get()).get(), events);
        QCOMPARE(queryFor<IFileDialogControlEvents>(IID_IFileDialogControlEvents, controls.get()).get(),
                 controls.get());

        const ULONG before = events->AddRef();
        QCOMPARE(controls->AddRef(), before + 1);
        QCOMPARE(events->Release(), before);
        QCOMPARE(controls->Release(), before - 1);

        for (IUnknown* side : {static_cast<IUnknown*>(events), static_cast<IUnknown*>(controls.get())}) {
            void* found = this;
            QCOMPARE(side->QueryInterface(IID_IFileDialog, &found), E_NOINTERFACE);
            QVERIFY(!found);
        }
    });
}

void tst_ExtendedWinFileDialogEvents::livesAsLongAsTheDialogHoldsIt()
{
    const auto dialog = makeDialog();
    ULONG references = 0;
    run(*dialog, [&] {
        m_shell->events->AddRef();
        references = m_shell->events->Release();
    });
    QCOMPARE(references, ULONG(2)); // the dialog's, and the one that exec() holds until it unadvises
    IFileDialogEvents* first = nullptr;
    ComPtr<IFileDialogEvents> kept;
    run(*dialog, [&] { kept = m_shell->events; });
    first = kept.get();
    run(*dialog, [&] { QVERIFY(m_shell->events.get() != first); }); // each exec() creates a new handler
    kept->AddRef();
    QCOMPARE(kept->Release(), ULONG(1)); // only the test's reference is left
}

void tst_ExtendedWinFileDialogEvents::followsTheFolder()
{
    const auto dialog = makeDialog();
    m_shell->folder = QString::fromUtf8("/d\xC3\xA4ta \xF0\x9F\x93\x81");
    run(*dialog, [this] {
        m_shell->events->OnFolderChange(m_shell->dialog);
        QCOMPARE(m_shell->takeCalls(), (QStringList{"GetFolder", "GetDisplayName"}));
        QCOMPARE(m_shell->liveObjects, 1); // the dialog only: the handler has released the folder
    });
    QCOMPARE(dialog->directory().path(), m_shell->folder);
}

void tst_ExtendedWinFileDialogEvents::followsEachChangeOfFolder()
{
    const auto dialog = makeDialog();
    QStringList seen;
    run(*dialog, [&] {
        for (const char* folder : {"/a", "/a", "/b"}) {
            m_shell->folder = folder;
            m_shell->events->OnFolderChange(m_shell->dialog);
            seen += dialog->directory().path();
        }
    });
    QCOMPARE(seen, (QStringList{"/a", "/a", "/b"}));
}

void tst_ExtendedWinFileDialogEvents::keepsTheFolderThatCannotBeRead_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("failingStep");
    QTest::newRow("there is no folder") << QString() << 0;
    QTest::newRow("the folder cannot be read") << "/other" << 1;
    QTest::newRow("the folder has no place in the file system") << "/other" << 2;
}

void tst_ExtendedWinFileDialogEvents::keepsTheFolderThatCannotBeRead()
{
    QFETCH(QString, folder);
    QFETCH(int, failingStep);
    const auto dialog = makeDialog();
    dialog->setDirectory("/kept");
    m_shell->folder = folder;
    run(*dialog, [&] {
        m_shell->failAt = failingStep == 0 ? 0 : m_shell->steps + failingStep;
        QCOMPARE(m_shell->events->OnFolderChange(m_shell->dialog), S_OK);
    });
    QCOMPARE(dialog->directory().path(), QString("/kept"));
}

void tst_ExtendedWinFileDialogEvents::followsTheFileType_data()
{
    QTest::addColumn<bool>("save");
    QTest::newRow("open") << false;
    QTest::newRow("save") << true;
}

void tst_ExtendedWinFileDialogEvents::followsTheFileType()
{
    QFETCH(bool, save);
    const auto dialog = makeDialog(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    m_shell->fileType = 2;
    m_shell->fileName = "data.csv";
    std::vector<int> told;
    boost::signals2::scoped_connection connection =
        dialog->currentFilterIndex()->signalValueChanged().connect([&told](int index) { told.push_back(index); });
    run(*dialog, [this] {
        m_shell->events->OnTypeChange(m_shell->dialog);
        m_shell->events->OnTypeChange(m_shell->dialog);
    });
    QCOMPARE(told, std::vector<int>{2});
    QCOMPARE(dialog->selectedNameFilter(), QString("Text (*.txt)"));
    QCOMPARE(m_shell->takeCalls().contains("SetFileName data.txt"), save);
}

void tst_ExtendedWinFileDialogEvents::keepsTheFileTypeThatCannotBeRead()
{
    const auto dialog = makeDialog();
    dialog->selectNameFilter("Text (*.txt)");
    run(*dialog, [this] {
        m_shell->failAt = m_shell->steps + 1;
        QCOMPARE(m_shell->events->OnTypeChange(m_shell->dialog), S_OK);
    });
    QCOMPARE(dialog->currentFilterIndex()->value(), 2);
}

void tst_ExtendedWinFileDialogEvents::replacesTheExtensionWhenSaving_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("calls");
    const auto set = [](const char* name) {
        return QStringList{"GetFileTypeIndex", "GetFileName", QStringLiteral("SetFileName ") + QString::fromUtf8(name)};
    };
    QTest::newRow("one pattern") << "Text (*.txt)"
                                 << "data.csv" << set("data.txt");
    QTest::newRow("all files") << "All files (*)"
                               << "data.csv" << set("data");
    QTest::newRow("all files with a dot") << "All (*.*)"
                                          << "data.csv" << set("data.*");
    QTest::newRow("two patterns") << "Images (*.png *.jpg)"
                                  << "data.csv" << set("data.png *.jpg");
    QTest::newRow("not ASCII") << "Text (*.txt)" << QString::fromUtf8("d\xC3\xA4ta.csv") << set("d\xC3\xA4ta.txt");
    QTest::newRow("no name") << "Text (*.txt)"
                             << "" << QStringList{"GetFileTypeIndex", "GetFileName"};
    QTest::newRow("no name to be had") << "Text (*.txt)" << QString() << QStringList{"GetFileTypeIndex"};
}

void tst_ExtendedWinFileDialogEvents::replacesTheExtensionWhenSaving()
{
    QFETCH(QString, filter);
    QFETCH(QString, name);
    QFETCH(QStringList, calls);
    const auto dialog = makeDialog(QFileDialog::AcceptSave, filter.toStdString());
    m_shell->fileName = name;
    run(*dialog, [&] {
        QCOMPARE(m_shell->events->OnTypeChange(m_shell->dialog), S_OK);
        QCOMPARE(m_shell->takeCalls(), calls);
    });
}

void tst_ExtendedWinFileDialogEvents::leavesTheNameAloneUnderAnUnknownType_data()
{
    QTest::addColumn<UINT>("type");
    QTest::newRow("none") << UINT(0);
    QTest::newRow("beyond the list") << UINT(3);
    QTest::newRow("far beyond") << UINT(0xFFFFFFFF);
}

void tst_ExtendedWinFileDialogEvents::leavesTheNameAloneUnderAnUnknownType()
{
    QFETCH(UINT, type);
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    m_shell->fileName = "data.csv";
    m_shell->fileType = type;
    run(*dialog, [this] {
        QCOMPARE(m_shell->events->OnTypeChange(m_shell->dialog), S_OK);
        QCOMPARE(m_shell->takeCalls(), (QStringList{"GetFileTypeIndex", "GetFileName"}));
    });
    QCOMPARE(dialog->selectedNameFilter(), QString());
}

void tst_ExtendedWinFileDialogEvents::runsTheActionOfItsButton()
{
    const auto dialog = makeDialog();
    QStringList clicked;
    dialog->addCustomButton("A", [&clicked] { clicked += "a"; });
    dialog->addCustomButton("B", [&clicked] { clicked += "b"; });
    run(*dialog, [this] {
        const auto controls = m_shell->controlEvents();
        for (DWORD id : {1, 0, 1, 2})
            QCOMPARE(controls->OnButtonClicked(nullptr, id), S_OK);
    });
    QCOMPARE(clicked, (QStringList{"b", "a", "b"}));
}

void tst_ExtendedWinFileDialogEvents::throwsForAnEmptyAction()
{
    const auto dialog = makeDialog();
    dialog->addCustomButton("A", {});
    run(*dialog, [this] {
        QVERIFY_EXCEPTION_THROWN(m_shell->controlEvents()->OnButtonClicked(nullptr, 0), boost::bad_function_call);
    });
}

/// The exception leaves exec(), which releases everything first.
void tst_ExtendedWinFileDialogEvents::letsAnActionThrow()
{
    const auto dialog = makeDialog();
    dialog->addCustomButton("A", [] { throw std::runtime_error("action"); });
    m_shell->onShow = [this] { m_shell->controlEvents()->OnButtonClicked(nullptr, 0); };
    QVERIFY_EXCEPTION_THROWN(dialog->exec(), std::runtime_error);
    QVERIFY(!m_shell->events);
    m_shell->onShow = nullptr;
    m_shell->takeCalls();
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QVERIFY(!m_shell->takeCalls().contains("SetTitle ")); // it had been prepared before
}

void tst_ExtendedWinFileDialogEvents::letsAnActionAddButtons()
{
    const auto dialog = makeDialog();
    int clicked = 0;
    dialog->addCustomButton("A", [&] {
        for (int i = 0; i < 100; ++i)
            dialog->addCustomButton("B", [&clicked] { ++clicked; });
    });
    run(*dialog, [this] {
        m_shell->controlEvents()->OnButtonClicked(nullptr, 0);
        m_shell->controlEvents()->OnButtonClicked(nullptr, 100);
    });
    QCOMPARE(clicked, 1);
}

void tst_ExtendedWinFileDialogEvents::setsThePropertyOfItsBox_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<BOOL>("checked");
    QTest::addColumn<bool>("after");
    QTest::addColumn<int>("changes");
    QTest::newRow("checked") << false << BOOL(TRUE) << true << 1;
    QTest::newRow("cleared") << true << BOOL(FALSE) << false << 1;
    QTest::newRow("checked already") << true << BOOL(TRUE) << true << 0;
    QTest::newRow("cleared already") << false << BOOL(FALSE) << false << 0;
    QTest::newRow("neither 0 nor 1") << true << BOOL(2) << false << 1; // only 1 means checked
    QTest::newRow("all bits") << true << BOOL(-1) << false << 1;
}

void tst_ExtendedWinFileDialogEvents::setsThePropertyOfItsBox()
{
    QFETCH(bool, before);
    QFETCH(BOOL, checked);
    QFETCH(bool, after);
    QFETCH(int, changes);
    const auto property = boost::make_shared<zelmar::Property<bool>>(before);
    int told = 0;
    property->signalValueChanged().connect([&told](bool) { ++told; });
    const auto dialog = makeDialog();
    dialog->addCustomCheckBox("Box", property);
    run(*dialog, [&] { QCOMPARE(m_shell->controlEvents()->OnCheckButtonToggled(nullptr, 0, checked), S_OK); });
    QCOMPARE(property->value(), after);
    QCOMPARE(told, changes);
}

void tst_ExtendedWinFileDialogEvents::tellsOfARealToggleOnly()
{
    const auto property = boost::make_shared<zelmar::Property<bool>>(false);
    const auto other = boost::make_shared<zelmar::Property<bool>>(false);
    std::vector<bool> told;
    property->signalValueChanged().connect([&told](bool value) { told.push_back(value); });
    const auto dialog = makeDialog();
    dialog->addCustomButton("Button", nothing);
    dialog->addCustomCheckBox("Box", property);
    dialog->addCustomCheckBox("Other", other);
    run(*dialog, [this] {
        for (BOOL checked : {TRUE, TRUE, FALSE, TRUE})
            m_shell->controlEvents()->OnCheckButtonToggled(nullptr, 1, checked);
        m_shell->controlEvents()->OnCheckButtonToggled(nullptr, 0, TRUE); // the id of a button
    });
    QCOMPARE(told, (std::vector<bool>{true, false, true}));
    QVERIFY(!other->value());
}

void tst_ExtendedWinFileDialogEvents::letsAValidatorRefuse()
{
    struct NeverOn : zelmar::ValidatorInterface<bool>
    {
        zelmar::ValidationResult validate(const bool& value) const override
        {
            return value ? zelmar::ValidationResult("stays off") : zelmar::ValidationResult();
        }
    };
    const auto property = boost::make_shared<zelmar::Property<bool>>(false);
    property->setValidator(boost::make_shared<NeverOn>());
    const auto dialog = makeDialog();
    dialog->addCustomCheckBox("Box", property);
    m_shell->onShow = [this] { m_shell->controlEvents()->OnCheckButtonToggled(nullptr, 0, TRUE); };
    try {
        dialog->exec();
        QFAIL("nothing was thrown");
    } catch (const zelmar::InvalidPropertyValueException& refusal) {
        QCOMPARE(refusal.what(), "stays off");
    }
    QVERIFY(!property->value());
}

UI_TEST_MAIN(tst_ExtendedWinFileDialogEvents)
#include "tst_ExtendedWinFileDialogEvents.moc"
