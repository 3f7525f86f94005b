#include "RecordingShell.h"
#include "TestHome.h"
#include "platform/HelpLauncher.h"
#include "property/Property.h"
#include "systemLimits.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

const auto nothing = [] {};

boost::shared_ptr<zelmar::Property<bool>> makeBool(bool value)
{
    return boost::make_shared<zelmar::Property<bool>>(value);
}

/// An object that logs its destruction.
struct Witness
{
    Witness(QStringList& log, const QString& name)
        : m_log(log)
        , m_name(name)
    {
    }
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;
    ~Witness() { m_log += m_name; }

    QStringList& m_log;
    QString m_name;
};

} // namespace

class tst_ExtendedWinFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void makesTheDialogForItsMode_data();
    void makesTheDialogForItsMode();
    void asksForNothingMoreWithoutMenuAndHelp();
    void numbersControlsInOrderOfCalls();
    void numbersControlsThatCouldNotBeAdded();
    void startsInAFolder_data();
    void startsInAFolder();
    void splitsFilters();
    void selectsFilters();
    void sharesItsFilterIndexWithTheProgram();
    void selectsTheNameOnly();
    void showsAPreparedDialog();
    void leavesOutWhatIsNotSet();
    void preparesOnce();
    void setsOptionsForTheMode();
    void tellsHowShowingEnded_data();
    void tellsHowShowingEnded();
    void readsOneResult();
    void readsSeveralResults();
    void readsNothingAfterCancelling();
    void readsTheSelectedMenuItem();
    void keepsTheOldValueForAnUnknownMenuItem();
    void clearsTheMenu();
    void opensHelp();
    void closes();
    void ignoresDirectoriesOnly();
    void letsHandlesReachTheirControls_data();
    void letsHandlesReachTheirControls();
    void hidesAControlWhoseHandleWasNeverShown();
    void opensNoWindowForAHandle();
    void leavesTheOtherBitsAloneWhenTheyCannotBeRead();
    void goesOnWithoutADialog_data();
    void goesOnWithoutADialog();
    void destroysInOrder();
    void survivesEachFailingStep_data();
    void survivesEachFailingStep();

private:
    std::unique_ptr<ExtendedWinFileDialog> makeDialog(const std::string& helpTopic = {}, bool menu = false,
                                                      QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen,
                                                      const std::string& directory = {});
    QString show() const { return QStringLiteral("Show %1").arg(m_parent->winId()); }

    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<RecordingShell> m_shell;
};

void tst_ExtendedWinFileDialog::init()
{
    m_parent = std::make_unique<QWidget>();
    m_shell = std::make_unique<RecordingShell>();
}

void tst_ExtendedWinFileDialog::cleanup()
{
    QCOMPARE(m_shell->liveObjects, 0);
    QVERIFY(!m_shell->events);
    m_shell.reset();
    m_parent.reset();
}

std::unique_ptr<ExtendedWinFileDialog> tst_ExtendedWinFileDialog::makeDialog(const std::string& helpTopic, bool menu,
                                                                             QFileDialog::AcceptMode mode,
                                                                             const std::string& directory)
{
    return std::make_unique<ExtendedWinFileDialog>(*m_parent, "Title", directory, "Data (*.dat);;Tables (*.csv *.tsv)",
                                                   helpTopic, mode, menu);
}

void tst_ExtendedWinFileDialog::makesTheDialogForItsMode_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("call");
    QTest::newRow("open") << false << "create open dialog";
    QTest::newRow("save") << true << "create save dialog";
}

void tst_ExtendedWinFileDialog::makesTheDialogForItsMode()
{
    QFETCH(bool, save);
    const auto dialog = makeDialog({}, false, save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    QTEST(m_shell->takeCalls().value(0), "call");
    QCOMPARE(dialog->parent(), m_parent.get());
}

void tst_ExtendedWinFileDialog::asksForNothingMoreWithoutMenuAndHelp()
{
    const auto dialog = makeDialog();
    QCOMPARE(m_shell->takeCalls(), QStringList{"create open dialog"});
    QCOMPARE(dialog->selectedAcceptMenuOption(), 255);
    QCOMPARE(dialog->currentFilterIndex()->value(), 1);
    QCOMPARE(dialog->selectedNameFilter(), QString("Data (*.dat)"));
}

void tst_ExtendedWinFileDialog::numbersControlsInOrderOfCalls()
{
    const auto dialog = makeDialog("topic", true);
    dialog->addCustomCheckBox("&Check", makeBool(true));
    dialog->addAcceptButtonOption("First", 10);
    dialog->addCustomButton("B\xC3\xBCtton", nothing);
    dialog->addCustomCheckBox("Off", makeBool(false));
    dialog->addAcceptButtonOption("Second", 20);
    const QStringList expected = {"create open dialog",
                                  "EnableOpenDropDown 0",
                                  "AddPushButton 1 &Help",
                                  "MakeProminent 1",
                                  "AddCheckButton 2 &Check 1",
                                  "AddControlItem 0 3 First",
                                  QString::fromUtf8("AddPushButton 4 B\xC3\xBCtton"),
                                  "AddCheckButton 5 Off 0",
                                  "AddControlItem 0 6 Second"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::numbersControlsThatCouldNotBeAdded()
{
    const auto dialog = makeDialog();
    m_shell->failAt = m_shell->steps + 1; // the query for the interface for controls
    dialog->addCustomCheckBox("Check", makeBool(false));
    dialog->addCustomButton("Button", nothing);
    QCOMPARE(m_shell->takeCalls(), (QStringList{"create open dialog", "AddPushButton 1 Button"}));
}

void tst_ExtendedWinFileDialog::startsInAFolder_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("found");
    QTest::newRow("a folder") << "/in" << true;
    QTest::newRow("a file stands for its folder") << "/in/file.dat" << true;
    QTest::newRow("a missing one") << "/missing" << false;
}

void tst_ExtendedWinFileDialog::startsInAFolder()
{
    QFETCH(QString, entry);
    QFETCH(bool, found);
    QTemporaryDir place;
    QVERIFY(QDir(place.path()).mkpath("in"));
    QFile file(place.filePath("in/file.dat"));
    QVERIFY(file.open(QIODevice::WriteOnly));

    const auto dialog = makeDialog({}, false, QFileDialog::AcceptOpen, (place.path() + entry).toStdString());
    const QString folder = found ? place.path() + "/in" : QDir().path();
    QCOMPARE(dialog->directory().path(), folder);
    dialog->exec();
    QCOMPARE(m_shell->takeCalls().contains("SetFolder " + folder), found);
}

void tst_ExtendedWinFileDialog::splitsFilters()
{
    const ExtendedWinFileDialog dialog(*m_parent, "", "", " A (*.a) ;; ;;;;B (*.b)", "", QFileDialog::AcceptOpen,
                                       false);
    const QStringList expected = {"A (*.a)", "", "B (*.b)"};
    QCOMPARE(dialog.nameFilters(), expected);
    const ExtendedWinFileDialog without(*m_parent, "", "", "", "", QFileDialog::AcceptOpen, false);
    QCOMPARE(without.nameFilters(), QStringList());
    QCOMPARE(without.selectedNameFilter(), QString());
}

void tst_ExtendedWinFileDialog::selectsFilters()
{
    const auto dialog = makeDialog();
    const auto index = dialog->currentFilterIndex();
    dialog->selectNameFilter("Tables (*.csv *.tsv)");
    QCOMPARE(index->value(), 2);
    QCOMPARE(dialog->selectedNameFilter(), QString("Tables (*.csv *.tsv)"));
    dialog->selectNameFilter("tables (*.csv *.tsv)");
    QCOMPARE(index->value(), 0);
    QCOMPARE(dialog->selectedNameFilter(), QString());

    const QStringList filters = {" as they are  ", "Same (*.x)", "Same (*.x)"};
    dialog->setNameFilters(filters);
    QCOMPARE(dialog->nameFilters(), filters);
    dialog->selectNameFilter("Same (*.x)");
    QCOMPARE(index->value(), 2);
    dialog->setNameFilters({"Only (*.y)"});
    QCOMPARE(index->value(), 2); // beyond the end of the new list
    QCOMPARE(dialog->selectedNameFilter(), QString());
}

/// The library creates the property from a template that this program instantiates, too.
void tst_ExtendedWinFileDialog::sharesItsFilterIndexWithTheProgram()
{
    struct FirstOnly : zelmar::ValidatorInterface<int>
    {
        zelmar::ValidationResult validate(const int& value) const override
        {
            return value == 1 ? zelmar::ValidationResult() : zelmar::ValidationResult("the first one only");
        }
    };
    const auto dialog = makeDialog();
    const boost::shared_ptr<zelmar::PropertyItemInterface> index = dialog->currentFilterIndex();
    auto* const ofThisProgram = dynamic_cast<zelmar::Property<int>*>(index.get());
    QVERIFY(ofThisProgram);
    QVERIFY(!dynamic_cast<zelmar::Property<bool>*>(index.get()));

    ofThisProgram->setValidator(boost::make_shared<FirstOnly>());
    // The library and this program throw the same exception class.
    QVERIFY_EXCEPTION_THROWN(dialog->selectNameFilter("Tables (*.csv *.tsv)"), zelmar::InvalidPropertyValueException);
    QVERIFY_EXCEPTION_THROWN(ofThisProgram->setValue(2), zelmar::InvalidPropertyValueException);
    QVERIFY_EXCEPTION_THROWN(ofThisProgram->setValue(2), zelmar::ExceptionBase);
    QCOMPARE(ofThisProgram->value(), 1);
}

void tst_ExtendedWinFileDialog::selectsTheNameOnly()
{
    const auto dialog = makeDialog();
    dialog->selectFile(QString::fromUtf8("/some/folder/r\xC3\xBCn 1.dat"));
    m_shell->takeCalls();
    dialog->exec();
    QVERIFY(m_shell->takeCalls().contains(QString::fromUtf8("SetFileName r\xC3\xBCn 1.dat")));
    QCOMPARE(dialog->directory().path(), QDir().path());
}

void tst_ExtendedWinFileDialog::showsAPreparedDialog()
{
    QTemporaryDir place;
    const auto dialog = makeDialog("topic", true, QFileDialog::AcceptSave, place.path().toStdString());
    dialog->selectFile("run.csv");
    dialog->selectNameFilter("Tables (*.csv *.tsv)");
    m_shell->takeCalls();
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    const QStringList expected = {"Advise",
                                  "SetTitle Title",
                                  "GetOptions",
                                  "SetOptions",
                                  "SetFolder " + place.path(),
                                  "SetFileTypes [Data|*.dat] [Tables|*.csv;*.tsv]",
                                  "SetFileTypeIndex 2",
                                  "SetFileName run.csv",
                                  show(),
                                  "GetSelectedControlItem 0",
                                  "Unadvise"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::leavesOutWhatIsNotSet()
{
    ExtendedWinFileDialog dialog(*m_parent, "", "", "", "", QFileDialog::AcceptOpen, false);
    m_shell->takeCalls();
    dialog.exec();
    const QStringList expected = {"Advise",       "SetTitle ", "GetOptions", "SetOptions", "SetFileTypeIndex 1",
                                  "SetFileName ", show(),      "Unadvise"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::preparesOnce()
{
    const auto dialog = makeDialog();
    dialog->exec();
    m_shell->takeCalls();
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setNameFilters({"Other (*.o)"});
    dialog->selectFile("other");
    dialog->setDirectory(QDir::rootPath());
    dialog->setDontConfirmOverwrite(true);
    dialog->addCustomButton("Late", nothing);
    dialog->exec();
    const QStringList expected = {"AddPushButton 0 Late", "Advise", show(), "Unadvise"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::setsOptionsForTheMode()
{
    const auto dialog = makeDialog();
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setDontConfirmOverwrite(true);
    dialog->exec();
    QCOMPARE(m_shell->options,
             FILEOPENDIALOGOPTIONS(RecordingShell::systemOptions | FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT));
    m_shell->options = RecordingShell::systemOptions;
    const auto other = makeDialog();
    other->exec();
    QCOMPARE(m_shell->options, FILEOPENDIALOGOPTIONS(RecordingShell::systemOptions | FOS_OVERWRITEPROMPT));
}

void tst_ExtendedWinFileDialog::tellsHowShowingEnded_data()
{
    QTest::addColumn<HRESULT>("result");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("accepted") << HRESULT(S_OK) << true;
    QTest::newRow("cancelled") << HRESULT(HRESULT_FROM_WIN32(ERROR_CANCELLED)) << false;
    QTest::newRow("failed") << HRESULT(E_FAIL) << false;
    QTest::newRow("no failure, and still not that result") << HRESULT(S_FALSE) << false;
}

void tst_ExtendedWinFileDialog::tellsHowShowingEnded()
{
    QFETCH(HRESULT, result);
    QFETCH(bool, accepted);
    const auto dialog = makeDialog();
    m_shell->showResult = result;
    QCOMPARE(dialog->exec(), accepted ? QDialog::Accepted : QDialog::Rejected);
}

void tst_ExtendedWinFileDialog::readsOneResult()
{
    const auto dialog = makeDialog();
    m_shell->results = QStringList{QString::fromUtf8("/data/\xC3\xA4\xF0\x9F\x93\x81 \"a\".dat")};
    dialog->exec();
    m_shell->takeCalls();
    QCOMPARE(dialog->selectedFiles(), m_shell->results);
    const QStringList expected = {"GetOptions", "GetResult", "GetDisplayName"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::readsSeveralResults()
{
    const auto dialog = makeDialog();
    dialog->setFileMode(QFileDialog::ExistingFiles);
    m_shell->results = QStringList{"/data/b.dat", "/data/a.dat"};
    dialog->exec();
    m_shell->takeCalls();
    QCOMPARE(dialog->selectedFiles(), m_shell->results);
    const QStringList expected = {"GetOptions",     "GetResults",  "GetCount",      "GetItemAt 0",
                                  "GetDisplayName", "GetItemAt 1", "GetDisplayName"};
    QCOMPARE(m_shell->takeCalls(), expected);
}

void tst_ExtendedWinFileDialog::readsNothingAfterCancelling()
{
    const auto dialog = makeDialog();
    m_shell->showResult = HRESULT_FROM_WIN32(ERROR_CANCELLED);
    QCOMPARE(dialog->selectedFiles(), QStringList());
    dialog->exec();
    QCOMPARE(dialog->selectedFiles(), QStringList());
}

void tst_ExtendedWinFileDialog::readsTheSelectedMenuItem()
{
    const auto dialog = makeDialog({}, true);
    dialog->addAcceptButtonOption("First", 10);
    dialog->addAcceptButtonOption("Second", 20);
    m_shell->selectedItem = 2;
    dialog->exec();
    QCOMPARE(dialog->selectedAcceptMenuOption(), 20);

    m_shell->selectedItem.reset(); // cannot be read
    dialog->exec();
    QCOMPARE(dialog->selectedAcceptMenuOption(), 20);

    m_shell->selectedItem = 1;
    m_shell->showResult = E_FAIL; // the item is read even when showing failed
    dialog->exec();
    QCOMPARE(dialog->selectedAcceptMenuOption(), 10);
}

void tst_ExtendedWinFileDialog::keepsTheOldValueForAnUnknownMenuItem()
{
    const auto dialog = makeDialog({}, true);
    m_shell->selectedItem = 77;
    dialog->exec();
    QCOMPARE(dialog->selectedAcceptMenuOption(), 255);
}

void tst_ExtendedWinFileDialog::clearsTheMenu()
{
    const auto dialog = makeDialog({}, true);
    dialog->addAcceptButtonOption("First", 10);
    dialog->addCustomButton("Button", nothing);
    dialog->addAcceptButtonOption("Second", 20);
    m_shell->takeCalls();
    dialog->clearAcceptMenuOptions();
    QCOMPARE(m_shell->takeCalls(), (QStringList{"RemoveControlItem 0 1", "RemoveControlItem 0 3"}));
    dialog->clearAcceptMenuOptions();
    QCOMPARE(m_shell->takeCalls(), QStringList());

    dialog->addAcceptButtonOption("Third", 30);
    QCOMPARE(m_shell->takeCalls(), QStringList{"AddControlItem 0 4 Third"}); // ids are not reused
    m_shell->selectedItem = 3;
    dialog->exec();
    QCOMPARE(dialog->selectedAcceptMenuOption(), 20); // a removed item keeps its value
}

void tst_ExtendedWinFileDialog::opensHelp()
{
    std::vector<std::string> topics;
    auto& help = zelmar::HelpLauncher::getInstance();
    help.setHandler([&topics](const std::string& topic) { topics.push_back(topic); });
    const auto dialog = makeDialog("topic/\xC3\xA4");
    m_shell->onShow = [this] { m_shell->controlEvents()->OnButtonClicked(nullptr, 0); };
    dialog->exec();
    help.setHandler({});
    QCOMPARE(topics, std::vector<std::string>{"topic/\xC3\xA4"});
}

void tst_ExtendedWinFileDialog::closes()
{
    const auto dialog = makeDialog();
    dialog->addCustomButton("Close", [&dialog] { dialog->close(); });
    m_shell->onShow = [this] { m_shell->controlEvents()->OnButtonClicked(nullptr, 0); };
    m_shell->showResult = E_FAIL;
    QCOMPARE(dialog->exec(), QDialog::Accepted);
    QVERIFY(m_shell->takeCalls().contains("Close 0"));
}

void tst_ExtendedWinFileDialog::ignoresDirectoriesOnly()
{
    const auto dialog = makeDialog();
    dialog->setShowDirectoriesOnly(true);
    dialog->exec();
    QVERIFY(!(m_shell->options & FOS_PICKFOLDERS));
}

void tst_ExtendedWinFileDialog::letsHandlesReachTheirControls_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<QString>("get");
    QTest::addColumn<QString>("set");
    QTest::newRow("button") << 0 << "GetControlState 1"
                            << "SetControlState 1 %1";
    QTest::newRow("check box") << 1 << "GetControlState 2"
                               << "SetControlState 2 %1";
    QTest::newRow("menu item") << 2 << "GetControlItemState 0 3"
                               << "SetControlItemState 0 3 %1";
}

void tst_ExtendedWinFileDialog::letsHandlesReachTheirControls()
{
    QFETCH(int, control);
    QFETCH(QString, get);
    QFETCH(QString, set);
    const auto dialog = makeDialog({}, true);
    QWidget* const handles[] = {dialog->addCustomButton("Button", nothing),
                                dialog->addCustomCheckBox("Check", makeBool(false)),
                                dialog->addAcceptButtonOption("Item", 1)};
    QWidget& handle = *handles[control];
    m_shell->takeCalls();

    const auto calls = [&](int state) { return QStringList{get, set.arg(state)}; };
    handle.setEnabled(false);
    QCOMPARE(m_shell->takeCalls(), calls(CDCS_VISIBLE));
    handle.hide();
    QCOMPARE(m_shell->takeCalls(), calls(CDCS_INACTIVE));
    handle.setEnabled(true);
    QCOMPARE(m_shell->takeCalls(), calls(CDCS_ENABLED));
    handle.show();
    QCOMPARE(m_shell->takeCalls(), calls(CDCS_ENABLEDVISIBLE));
    QVERIFY(handle.isVisible() && handle.isEnabled());
    handle.show();
    handle.setEnabled(true);
    QCOMPARE(m_shell->takeCalls(), QStringList()); // no change of state, so no call
    handle.setVisible(false);
    QCOMPARE(m_shell->takeCalls(), calls(CDCS_ENABLED));
    QVERIFY(!handle.isVisible());

    QFont font = handle.font();
    font.setBold(true);
    handle.setFont(font); // another kind of change event
    QCOMPARE(m_shell->takeCalls(), QStringList());
}

void tst_ExtendedWinFileDialog::hidesAControlWhoseHandleWasNeverShown()
{
    const auto dialog = makeDialog();
    QWidget* const handle = dialog->addCustomButton("Button", nothing);
    m_shell->takeCalls();
    handle->hide();
    QCOMPARE(m_shell->takeCalls(), (QStringList{"GetControlState 0", "SetControlState 0 1"}));
    handle->hide();
    QCOMPARE(m_shell->takeCalls(), QStringList());
}

void tst_ExtendedWinFileDialog::opensNoWindowForAHandle()
{
    const QWindowList before = QGuiApplication::allWindows();
    auto dialog = makeDialog();
    QWidget* const handle = dialog->addCustomButton("Button", nothing);
    handle->show();
    QCoreApplication::processEvents();
    QVERIFY(handle->isVisible());
    QVERIFY(!handle->windowHandle());
    QCOMPARE(QGuiApplication::allWindows(), before);
    QVERIFY(!handle->testAttribute(Qt::WA_QuitOnClose));
    dialog.reset(); // deletes the handle while it is visible
}

void tst_ExtendedWinFileDialog::leavesTheOtherBitsAloneWhenTheyCannotBeRead()
{
    const auto dialog = makeDialog();
    QWidget* const handle = dialog->addCustomButton("Button", nothing);
    m_shell->states.clear();
    m_shell->takeCalls();
    handle->setEnabled(false);
    QCOMPARE(m_shell->takeCalls(), QStringList{"GetControlState 0"});
}

void tst_ExtendedWinFileDialog::goesOnWithoutADialog_data()
{
    QTest::addColumn<bool>("noApartment");
    QTest::newRow("the thread is in the other kind of apartment") << true;
    QTest::newRow("the system makes no dialog") << false;
}

void tst_ExtendedWinFileDialog::goesOnWithoutADialog()
{
    QFETCH(bool, noApartment);
    if (noApartment && systemLimits::guiThreadHasApartment)
        QSKIP(systemLimits::guiThreadHasApartment);
    if (noApartment) {
        m_shell->enter(COINIT_MULTITHREADED);
    } else {
        m_shell->failAt = 1;
    }
    const auto property = makeBool(false);
    {
        const auto dialog = makeDialog("topic", true, QFileDialog::AcceptSave, QDir::homePath().toStdString());
        QCOMPARE(m_shell->takeCalls(), noApartment ? QStringList() : QStringList{"create save dialog"});
        dialog->setFileMode(QFileDialog::ExistingFiles);
        dialog->setDirectory(QDir::rootPath());
        dialog->selectFile("name");
        dialog->setNameFilters({"One (*.1)"});
        dialog->selectNameFilter("One (*.1)");
        QWidget* const handles[] = {dialog->addCustomButton("Button", nothing),
                                    dialog->addCustomCheckBox("Check", property),
                                    dialog->addAcceptButtonOption("Item", 1)};
        for (QWidget* handle : handles) {
            QVERIFY(handle);
            handle->show();
            handle->setEnabled(false);
            handle->hide();
        }
        QCOMPARE(dialog->exec(), QDialog::Rejected);
        QCOMPARE(dialog->exec(), QDialog::Rejected);
        QCOMPARE(dialog->selectedFiles(), QStringList());
        QCOMPARE(dialog->selectedNameFilter(), QString("One (*.1)"));
        QCOMPARE(dialog->directory(), QDir::root());
        QCOMPARE(dialog->selectedAcceptMenuOption(), 255);
        dialog->clearAcceptMenuOptions();
        dialog->close();
    }
    QCOMPARE(m_shell->takeCalls(), QStringList());
    if (noApartment)
        m_shell->enter(
            COINIT_APARTMENTTHREADED); // restores the apartment that the dialog left without having entered it
}

/// Handles are destroyed first, then actions and properties, and the dialog object last.
void tst_ExtendedWinFileDialog::destroysInOrder()
{
    QStringList log;
    auto dialog = makeDialog({}, true);
    QWidget* const item = dialog->addAcceptButtonOption("Item", 1);
    QWidget* const button = dialog->addCustomButton("Button", [witness = std::make_shared<Witness>(log, "action")] {});
    connect(item, &QObject::destroyed, this, [&log] { log += "menu item"; });
    connect(button, &QObject::destroyed, this, [&] { log += m_shell->liveObjects == 1 ? "button" : "button, late"; });
    dialog->currentFilterIndex()->signalValueChanged().connect(
        [witness = std::make_shared<Witness>(log, "filter index")](int) {});
    m_shell->onDialogGone = [&log] { log += "dialog object"; };
    dialog.reset();
    const QStringList expected = {"menu item", "button", "action", "filter index", "dialog object"};
    QCOMPARE(log, expected);
    m_shell->onDialogGone = nullptr;
}

void tst_ExtendedWinFileDialog::survivesEachFailingStep_data()
{
    QTest::addColumn<HRESULT>("failure");
    QTest::newRow("failure") << HRESULT(E_FAIL);
    QTest::newRow("no memory") << HRESULT(E_OUTOFMEMORY);
}

/// Runs the whole life of a dialog once for each call to the shell, and lets that call fail.
void tst_ExtendedWinFileDialog::survivesEachFailingStep()
{
    QFETCH(HRESULT, failure);
    QTemporaryDir place;
    m_shell->failure = failure;
    m_shell->folder = place.path();
    m_shell->fileName = "name.dat";
    m_shell->results = QStringList{"/data/a.dat", "/data/b.dat"};
    m_shell->selectedItem = 3;
    int step = 0;
    int clicks = 0;
    QDialog::DialogCode accepted = QDialog::Rejected;
    QStringList files;
    boost::shared_ptr<zelmar::Property<bool>> property;
    do {
        m_shell->steps = 0;
        m_shell->failAt = ++step;
        m_shell->options = RecordingShell::systemOptions;
        clicks = 0;
        property = makeBool(false);
        m_shell->onShow = [this] {
            if (!m_shell->events)
                return;
            m_shell->events->OnFolderChange(m_shell->dialog);
            m_shell->events->OnTypeChange(m_shell->dialog);
            if (const auto controls = m_shell->controlEvents()) {
                controls->OnButtonClicked(nullptr, 2);
                controls->OnCheckButtonToggled(nullptr, 4, TRUE);
            }
        };
        {
            const auto dialog = makeDialog("topic", true, QFileDialog::AcceptOpen, place.path().toStdString());
            dialog->setFileMode(QFileDialog::ExistingFiles);
            dialog->addCustomButton("Button", [&clicks] { ++clicks; })->hide();
            dialog->addAcceptButtonOption("Item", 1)->setEnabled(false);
            dialog->addCustomCheckBox("Check", property);
            accepted = dialog->exec();
            files = dialog->selectedFiles();
            dialog->exec();
            dialog->close();
            dialog->clearAcceptMenuOptions();
        }
        QVERIFY2(m_shell->liveObjects == 0, qPrintable(QStringLiteral("step %1").arg(step)));
        QVERIFY(!m_shell->events);
    } while (m_shell->steps >= step);
    // No call failed in the last round.
    QVERIFY2(step > 50, qPrintable(QStringLiteral("only %1 steps").arg(step)));
    QCOMPARE(accepted, QDialog::Accepted);
    QCOMPARE(files, m_shell->results);
    QCOMPARE(clicks, 2);
    QVERIFY(property->value());
}

UI_TEST_MAIN(tst_ExtendedWinFileDialog)
#include "tst_ExtendedWinFileDialog.moc"
