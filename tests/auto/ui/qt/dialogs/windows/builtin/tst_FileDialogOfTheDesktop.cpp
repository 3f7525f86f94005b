#include "BuiltInDialogTest.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "ScriptedDesktop.h"
#include "TestHome.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>
#include <stdexcept>

namespace {

const QStringList filters{QStringLiteral("Data (*.dat)"), QStringLiteral("Tables (*.csv *.tab)"),
                          QStringLiteral("All (*)")};

using Configuration = std::function<void(const BuiltInDialog&)>;

} // namespace

Q_DECLARE_METATYPE(Configuration)

/// Tests the built-in dialog over a scripted desktop that draws it. Its events, its state and its results must be the
/// same as those of a dialog that Qt draws.
class tst_FileDialogOfTheDesktop : public BuiltInDialogRunTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void handsItsRequestOver_data();
    void handsItsRequestOver();
    void isDrawnByQtWithControls_data();
    void isDrawnByQtWithControls();
    void isDrawnByQtWhereTheDesktopShowsNone();

    void accepted_data() { addWindowRows(); }
    void accepted();
    void acceptedWithNothingChosen_data() { addWindowRows(); }
    void acceptedWithNothingChosen();
    void cancelled();
    void refusedIsShownAgain_data() { addWindowRows(); }
    void refusedIsShownAgain();
    void refusedUntilCancelled();
    void refusedAndClosedMeanwhile();
    void closedWhileItWaits();
    void newsAfterTheEnd();
    void controlAddedWhileOpen();

    void folderEvents_data();
    void folderEvents();
    void folderSetWhileOpen();
    void typeEvents();
    void typeSetWhileOpen_data();
    void typeSetWhileOpen();
    void typesOnTheWayAreNotTold();
    void equalTypes();
    void unknownFilter();

    void preselectedName_data();
    void preselectedName();
    void nameWhileOpen();
    void several();
    void folders();
    void labelsWhileOpen();

    void secondRunGoesOn();
    void secondRunKeepsTheName_data();
    void secondRunKeepsTheName();
    void secondRunIsDrawnByQtWithAControl();

private:
    static void addWindowRows();
    void acceptAfter(bool windowClosed);

    void onShow(const char* name, const std::function<void()>& action) override { m_desktop->onShow(name, action); }
    void onShowDoNothing() override { m_desktop->onShowDoNothing(); }
    void userAccepts(const QString& file) override;
    void userPicksType(int index) override { m_desktop->pickFilter(index); }
    void userCancels() override { m_desktop->reject(); }
    QString takeProblem() override;

    std::unique_ptr<ScriptedDesktop> m_desktop;
};

void tst_FileDialogOfTheDesktop::init()
{
    BuiltInDialogRunTest::init();
    m_desktop = std::make_unique<ScriptedDesktop>();
}

QString tst_FileDialogOfTheDesktop::takeProblem()
{
    const auto desktop = std::exchange(m_desktop, nullptr);
    return desktop->dialogs() == 0 ? QString() : QStringLiteral("a dialog of the desktop was left behind");
}

void tst_FileDialogOfTheDesktop::userAccepts(const QString& file)
{
    m_desktop->choose({path(file)});
    m_desktop->closeAndAccept();
}

void tst_FileDialogOfTheDesktop::addWindowRows()
{
    QTest::addColumn<bool>("windowClosed");
    QTest::newRow("with its window on the screen") << false;
    QTest::newRow("with its window taken away") << true;
}

void tst_FileDialogOfTheDesktop::acceptAfter(bool windowClosed)
{
    windowClosed ? m_desktop->closeAndAccept() : m_desktop->accept();
}

// Drawn by the desktop or by Qt

void tst_FileDialogOfTheDesktop::handsItsRequestOver_data()
{
    QTest::addColumn<bool>("saving");
    QTest::addColumn<Configuration>("configure");
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<int>("options");

    const auto none = [](const BuiltInDialog&) {};
    const auto with = [](FILEOPENDIALOGOPTIONS on, FILEOPENDIALOGOPTIONS off = 0) -> Configuration {
        return [on, off](const BuiltInDialog& dialog) { dialog.setOptions(on, off); };
    };
    QTest::newRow("one file") << false << Configuration(none) << int(QFileDialog::ExistingFile)
                              << int(QFileDialog::DontConfirmOverwrite);
    QTest::newRow("any file") << false << with(0, FOS_FILEMUSTEXIST) << int(QFileDialog::AnyFile)
                              << int(QFileDialog::DontConfirmOverwrite);
    QTest::newRow("several files") << false << with(FOS_ALLOWMULTISELECT) << int(QFileDialog::ExistingFiles)
                                   << int(QFileDialog::DontConfirmOverwrite);
    QTest::newRow("a folder") << false << with(FOS_PICKFOLDERS) << int(QFileDialog::Directory)
                              << int(QFileDialog::DontConfirmOverwrite | QFileDialog::ShowDirsOnly);
    QTest::newRow("saving") << true << Configuration(none) << int(QFileDialog::AnyFile) << 0;
    QTest::newRow("saving without a question")
        << true << with(0, FOS_OVERWRITEPROMPT) << int(QFileDialog::AnyFile) << int(QFileDialog::DontConfirmOverwrite);
}

void tst_FileDialogOfTheDesktop::handsItsRequestOver()
{
    QFETCH(bool, saving);
    QFETCH(Configuration, configure);
    QFETCH(int, fileMode);
    QFETCH(int, options);
    const auto dialog = makeDialogWithTypes(saving ? CLSID_FileSaveDialog : CLSID_FileOpenDialog);
    configure(*dialog);
    dialog->get()->SetTitle(L"\u6e2c");
    dialog->get()->SetOkButtonLabel(L"&Read");
    dialog->get()->SetFileNameLabel(L"&Run:");
    dialog->get()->SetDefaultExtension(L"xyz");
    dialog->get()->SetFileTypeIndex(2);
    m_desktop->onShow("cancel", [this] { m_desktop->reject(); });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);

    const ScriptedDesktop::Request& request = m_desktop->request;
    QCOMPARE(request.saving, saving);
    QCOMPARE(request.fileMode, fileMode);
    QCOMPARE(request.options, options);
    QCOMPARE(request.title, QStringLiteral(u"\u6e2c"));
    QCOMPARE(request.acceptLabel, QStringLiteral("&Read"));
    QCOMPARE(request.fileNameLabel, QStringLiteral("&Run:"));
    QCOMPARE(request.defaultSuffix, QStringLiteral("xyz"));
    QCOMPARE(request.folder, m_folders->path());
    QCOMPARE(request.nameFilters, filters);
    QCOMPARE(request.nameFilter, filters[1]);
}

void tst_FileDialogOfTheDesktop::isDrawnByQtWithControls_data()
{
    QTest::addColumn<Configuration>("addControls");
    QTest::addColumn<bool>("drawnByQt");
    const auto row = [](const char* name, const Configuration& add, bool drawnByQt) {
        QTest::newRow(name) << add << drawnByQt;
    };
    row(
        "a push button", [](const BuiltInDialog& dialog) { dialog.controls().AddPushButton(1, L"a"); }, true);
    row(
        "a check box", [](const BuiltInDialog& dialog) { dialog.controls().AddCheckButton(1, L"a", TRUE); }, true);
    row(
        "a menu",
        [](const BuiltInDialog& dialog) {
            dialog.controls().EnableOpenDropDown(1);
            dialog.controls().AddControlItem(1, 2, L"a");
        },
        true);
    row(
        "a menu without items", [](const BuiltInDialog& dialog) { dialog.controls().EnableOpenDropDown(1); }, false);
}

void tst_FileDialogOfTheDesktop::isDrawnByQtWithControls()
{
    QFETCH(Configuration, addControls);
    QFETCH(bool, drawnByQt);
    const auto dialog = makeDialogWithTypes();
    addControls(*dialog);
    dialog->get()->SetFileTypeIndex(2);
    dialog->setName(QStringLiteral("a.dat"));
    DialogDriver driver;
    if (drawnByQt) {
        driver.onDialog<QFileDialog>("accept", [this](QFileDialog& shown) {
            QCOMPARE(m_desktop->dialogs(), 0);
            QCOMPARE(shown.directory().path(), m_folders->path());
            QCOMPARE(fileTypeCombo(shown).currentIndex(), 1);
            QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("a.dat"));
            pressReturn(shown);
        });
    } else {
        m_desktop->onShow("accept", [this] { m_desktop->accept(); });
    }
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(m_desktop->takeCalls().contains(QStringLiteral("show")), !drawnByQt);
    QCOMPARE(dialog->result(), path("a.dat"));
}

/// Some desktops announce dialogs of their own, but refuse to show one.
void tst_FileDialogOfTheDesktop::isDrawnByQtWhereTheDesktopShowsNone()
{
    m_desktop->showsDialogs = false;
    const auto dialog = makeDialogWithTypes(CLSID_FileSaveDialog);
    dialog->get()->SetTitle(L"Title");
    dialog->get()->SetOkButtonLabel(L"&Write");
    dialog->get()->SetFileNameLabel(L"&Run:");
    dialog->get()->SetFileTypeIndex(2);
    QVERIFY(dialog->setName(QStringLiteral("new.csv")));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look, pick, accept", [this, &dialog](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Title"));
        QPushButton& accept = acceptButton(shown);
        QCOMPARE(accept.text(), QStringLiteral("&Write"));
        QCOMPARE(shown.labelText(QFileDialog::FileName), QStringLiteral("&Run:"));
        QCOMPARE(shown.directory().path(), m_folders->path());
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("new.csv"));
        takeKeyboardFocus(fileNameEdit(shown));
        for (QWidget* next : {static_cast<QWidget*>(&fileTypeCombo(shown)), static_cast<QWidget*>(&accept)}) {
            QTest::keyClick(shown.focusWidget(), Qt::Key_Tab);
            QCOMPARE(shown.focusWidget(), next);
        }
        dialog->controls().AddCheckButton(1, L"Late", TRUE);
        QVERIFY(shown.findChild<QCheckBox*>()->isVisible());
        pickFilter(shown, 0);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("new.csv")); // the type does not change the name
        acceptName(shown, QStringLiteral("deeper"));
        acceptName(shown, QStringLiteral("other.dat"));
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("deeper/other.dat"));
    QCOMPARE(dialog->typeIndex(), 1);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "type", "folder", "ok"}));
}

// Closing

void tst_FileDialogOfTheDesktop::accepted()
{
    QFETCH(bool, windowClosed);
    for (const bool saving : {false, true}) {
        const auto dialog = makeDialogWithTypes(saving ? CLSID_FileSaveDialog : CLSID_FileOpenDialog);
        m_desktop->takeCalls();
        m_desktop->onShow("accept", [this, windowClosed] {
            QVERIFY(m_desktop->isShown());
            m_desktop->choose({path("b.dat")});
            acceptAfter(windowClosed);
            QVERIFY(!m_desktop->isShown());
        });
        QCOMPARE(dialog->show(m_window.get()), S_OK);
        QCOMPARE(dialog->result(), path("b.dat"));
        QCOMPARE(dialog->results(), saving ? QStringList() : QStringList(path("b.dat")));
        QCOMPARE(dialog->sink().events, openedAndAccepted);
        QCOMPARE(m_desktop->takeCalls().count(QStringLiteral("show")), 1);
    }
}

/// Otherwise the application would wait for a dialog that the desktop has already closed.
void tst_FileDialogOfTheDesktop::acceptedWithNothingChosen()
{
    QFETCH(bool, windowClosed);
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("nothing", [this, windowClosed] { acceptAfter(windowClosed); });
    m_desktop->onShow("something", [this] {
        QVERIFY(m_desktop->isShown());
        m_desktop->choose({path("a.dat")});
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("a.dat"));
    QCOMPARE(dialog->sink().events, openedAndAccepted);
}

void tst_FileDialogOfTheDesktop::cancelled()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("choose, cancel", [this] {
        m_desktop->choose({path("a.dat")});
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->results(), QStringList());
    QCOMPARE(dialog->sink().events, opened);
}

void tst_FileDialogOfTheDesktop::refusedIsShownAgain()
{
    QFETCH(bool, windowClosed);
    const auto dialog = makeDialogWithTypes();
    bool mayAccept = false;
    dialog->sink().whenTold = [&mayAccept](const QString& event) {
        return event == QLatin1String("ok") && !std::exchange(mayAccept, true) ? S_FALSE : S_OK;
    };
    m_desktop->onShow("refused", [this, windowClosed] {
        m_desktop->choose({path("a.dat")});
        m_desktop->takeCalls();
        acceptAfter(windowClosed);
    });
    m_desktop->onShow("accepted", [this, windowClosed] {
        QVERIFY(m_desktop->isShown());
        m_desktop->choose({path("b.dat")});
        acceptAfter(windowClosed);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("b.dat"));
    QCOMPARE(m_desktop->takeCalls(), (QStringList{"hide", "show", "hide"}));
}

void tst_FileDialogOfTheDesktop::refusedUntilCancelled()
{
    m_desktop->reportsFiltersOnTheWay = true;
    const auto dialog = makeDialogWithTypes();
    dialog->get()->SetFileTypeIndex(3);
    dialog->sink().whenTold = [](const QString& event) { return event == QLatin1String("ok") ? S_FALSE : S_OK; };
    for (const char* name : {"a.dat", "b.dat"}) {
        m_desktop->onShow("refused", [this, name] {
            m_desktop->choose({path(name)});
            m_desktop->closeAndAccept();
        });
    }
    m_desktop->onShow("cancelled", [this] { m_desktop->reject(); });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->result(), QString());
    QCOMPARE(dialog->typeIndex(), 3);
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "ok", "ok"}));
}

/// The dialog is closed between the refusal and the moment at which it would be shown again.
void tst_FileDialogOfTheDesktop::refusedAndClosedMeanwhile()
{
    const auto dialog = makeDialogWithTypes();
    dialog->sink().whenTold = [](const QString& event) { return event == QLatin1String("ok") ? S_FALSE : S_OK; };
    m_desktop->onShow("refused, closed", [this, &dialog] {
        m_desktop->choose({path("a.dat")});
        m_desktop->closeAndAccept();
        QCOMPARE(dialog->get()->Close(S_FALSE), S_OK);
        QCoreApplication::processEvents(); // while the dialog's event loop still runs
    });
    QCOMPARE(dialog->show(m_window.get()), HRESULT(S_FALSE));
    QCOMPARE(m_desktop->takeCalls().count(QStringLiteral("show")), 1);
    QCOMPARE(dialog->result(), QString());
}

void tst_FileDialogOfTheDesktop::closedWhileItWaits()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("close", [this, &dialog] {
        QCOMPARE(dialog->get()->Close(E_FAIL), S_OK);
        QVERIFY(!m_desktop->isShown());
    });
    QCOMPARE(dialog->show(m_window.get()), E_FAIL);
    QCOMPARE(m_desktop->takeCalls().last(), QStringLiteral("hide"));
}

/// A desktop whose dialogs run in another process may report actions of the user after the dialog was closed.
void tst_FileDialogOfTheDesktop::newsAfterTheEnd()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("close, tell", [this, &dialog] {
        QCOMPARE(dialog->get()->Close(E_FAIL), S_OK);
        m_desktop->enterFolder(path("deeper"));
        m_desktop->pickFilter(1);
        m_desktop->choose({path("a.dat")});
        m_desktop->closeAndAccept();
    });
    QCOMPARE(dialog->show(m_window.get()), E_FAIL);
    QCOMPARE(dialog->sink().events, opened);
    QCOMPARE(dialog->result(), QString());
}

/// The desktop's dialog cannot show the control and stays open without it.
void tst_FileDialogOfTheDesktop::controlAddedWhileOpen()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("add, accept", [this, &dialog] {
        QCOMPARE(dialog->controls().AddPushButton(1, L"Late"), S_OK);
        QVERIFY(m_desktop->isShown());
        m_desktop->choose({path("a.dat")});
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("a.dat"));
}

// Folders and types

void tst_FileDialogOfTheDesktop::folderEvents_data()
{
    QTest::addColumn<bool>("reportsEveryFolder");
    QTest::newRow("a desktop that tells what the user enters") << false;
    QTest::newRow("a desktop that tells what the program sets, too") << true;
}

void tst_FileDialogOfTheDesktop::folderEvents()
{
    QFETCH(bool, reportsEveryFolder);
    m_desktop->reportsEveryFolder = reportsEveryFolder;
    const auto dialog = makeDialogWithTypes();
    QStringList shownFolders;
    dialog->sink().whenTold = [&dialog, &shownFolders](const QString&) {
        shownFolders += dialog->folder();
        return S_OK;
    };
    m_desktop->onShow("walk about", [this] {
        m_desktop->enterFolder(path("deeper"));
        m_desktop->enterFolder(path("deeper")); // no change
        m_desktop->enterFolder(m_folders->path());
        m_desktop->enterFolder(path("deeper"));
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    const QString top = m_folders->path();
    QCOMPARE(shownFolders.mid(shownFolders.size() - 3), (QStringList{path("deeper"), top, path("deeper")}));
    QCOMPARE(dialog->folder(), path("deeper"));
}

void tst_FileDialogOfTheDesktop::folderSetWhileOpen()
{
    for (const bool reportsEveryFolder : {false, true}) {
        m_desktop->reportsEveryFolder = reportsEveryFolder;
        const auto dialog = makeDialogWithTypes();
        m_desktop->onShow("set", [this, &dialog] {
            QVERIFY(dialog->setFolder(path("deeper")));
            QCOMPARE(dialog->folder(), path("deeper"));
            QVERIFY(dialog->setFolder(path("deeper"))); // no change
            m_desktop->reject();
        });
        QCOMPARE(dialog->show(m_window.get()), cancelledResult);
        QVERIFY(m_desktop->takeCalls().contains(QStringLiteral("setDirectory ") + path("deeper")));
        QCOMPARE(dialog->sink().events, (QStringList{"folder", "folder"}));
        QCOMPARE(dialog->folder(), path("deeper"));
    }
}

void tst_FileDialogOfTheDesktop::typeEvents()
{
    const auto dialog = makeDialogWithTypes();
    dialog->get()->SetFileTypeIndex(2);
    QList<int> indexes;
    dialog->sink().whenTold = [&dialog, &indexes](const QString& event) {
        if (event == QLatin1String("type"))
            indexes += dialog->typeIndex();
        return S_OK;
    };
    m_desktop->onShow("pick", [this, &dialog] {
        QCOMPARE(dialog->typeIndex(), 2);
        m_desktop->pickFilter(0);
        m_desktop->pickFilter(0); // no change
        m_desktop->pickFilter(2);
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(indexes, (QList<int>{1, 3}));
    QCOMPARE(dialog->typeIndex(), 3);
}

void tst_FileDialogOfTheDesktop::typeSetWhileOpen_data()
{
    QTest::addColumn<bool>("tellsOfFilters");
    QTest::newRow("a desktop that tells what the user picks") << false;
    QTest::newRow("a desktop that tells what the program sets, too") << true;
}

void tst_FileDialogOfTheDesktop::typeSetWhileOpen()
{
    QFETCH(bool, tellsOfFilters);
    m_desktop->reportsFiltersOnTheWay = tellsOfFilters;
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("set, pick", [this, &dialog] {
        m_desktop->takeCalls();
        QCOMPARE(dialog->get()->SetFileTypeIndex(3), S_OK);
        QCOMPARE(m_desktop->takeCalls(), QStringList{QStringLiteral("selectNameFilter All (*)")});
        QCOMPARE(dialog->typeIndex(), 3);
        QCOMPARE(dialog->get()->SetFileTypeIndex(4), E_INVALIDARG);
        m_desktop->pickFilter(0);
        QCOMPARE(dialog->typeIndex(), 1);
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->sink().events.count(QStringLiteral("type")), 1); // only the type that the user picked
}

void tst_FileDialogOfTheDesktop::typesOnTheWayAreNotTold()
{
    m_desktop->reportsFiltersOnTheWay = true;
    const auto dialog = makeDialogWithTypes();
    dialog->get()->SetFileTypeIndex(3);
    m_desktop->onShow("pick, cancel", [this, &dialog] {
        QCOMPARE(dialog->sink().events.count(QStringLiteral("type")), 0);
        QCOMPARE(dialog->typeIndex(), 3);
        m_desktop->pickFilter(1); // signals are no longer blocked
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(dialog->sink().events.count(QStringLiteral("type")), 1);
    QCOMPARE(dialog->typeIndex(), 2);
}

/// A desktop identifies a filter by its text, which several types may share.
void tst_FileDialogOfTheDesktop::equalTypes()
{
    const BuiltInDialog dialog;
    const std::pair<QString, QString> data{QStringLiteral("Data"), QStringLiteral("*.dat")};
    QVERIFY(dialog.setTypes({data, {QStringLiteral("Other"), QStringLiteral("*")}, data}));
    QCOMPARE(dialog->SetFileTypeIndex(3), S_OK);
    m_desktop->onShow("pick", [this, &dialog] {
        QCOMPARE(dialog.typeIndex(), 3); // not the first type with this text
        m_desktop->pickFilter(1);
        QCOMPARE(dialog.typeIndex(), 2);
        m_desktop->pickFilter(2);
        QCOMPARE(dialog.typeIndex(), 1); // equal types cannot be told apart
        m_desktop->reject();
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
}

void tst_FileDialogOfTheDesktop::unknownFilter()
{
    const BuiltInDialog dialog; // has no types
    QCOMPARE(dialog->SetFileTypeIndex(7), S_OK);
    m_desktop->onShow("pick", [this, &dialog] {
        QCOMPARE(dialog.typeIndex(), 7);
        m_desktop->pickFilter(0); // Qt's default filter
        QCOMPARE(dialog.typeIndex(), 7);
        m_desktop->reject();
    });
    QCOMPARE(dialog.show(m_window.get()), cancelledResult);
    QCOMPARE(dialog.sink().events, opened);
}

// Names

void tst_FileDialogOfTheDesktop::preselectedName_data()
{
    QTest::addColumn<QString>("name"); // %1 is the folder
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("plain") << "a.dat" << QStringList{"a.dat"};
    QTest::newRow("new") << "new.dat" << QStringList{"new.dat"};
    QTest::newRow("in a folder below") << "deeper/d.dat" << QStringList{"deeper/d.dat"};
    QTest::newRow("absolute") << "%1/deeper/d.dat" << QStringList{"deeper/d.dat"};
    QTest::newRow("several") << "\"a.dat\" \"c.csv\" " << QStringList{"a.dat", "c.csv"};
}

void tst_FileDialogOfTheDesktop::preselectedName()
{
    QFETCH(QString, name);
    QFETCH(QStringList, asked);
    const auto dialog = makeDialogWithTypes();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    QVERIFY(dialog->setName(name.contains(QLatin1String("%1")) ? name.arg(m_folders->path()) : name));
    m_desktop->onShow("accept", [this] { m_desktop->accept(); });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QStringList expected;
    for (const QString& file : asked)
        expected += m_folders->path(file);
    const QStringList calls = m_desktop->takeCalls().filter(QStringLiteral("selectFile"));
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(calls.value(i), QStringLiteral("selectFile ") + expected[i]);
    QCOMPARE(calls.size(), expected.size());
    QCOMPARE(dialog->results(), expected);
}

void tst_FileDialogOfTheDesktop::nameWhileOpen()
{
    const auto dialog = makeDialogWithTypes(CLSID_FileSaveDialog);
    QVERIFY(dialog->setName(QStringLiteral("new.dat")));
    m_desktop->onShow("set", [this, &dialog] {
        m_desktop->takeCalls();
        QCOMPARE(dialog->name(), QStringLiteral("new.dat"));
        m_desktop->enterFolder(path("deeper"));
        m_desktop->choose({path("deeper/half.dat")});
        QCOMPARE(dialog->name(), QStringLiteral("half.dat"));
        m_desktop->choose({});
        QVERIFY(dialog->setName(QStringLiteral("set.csv")));
        QCOMPARE(m_desktop->takeCalls(), QStringList{QStringLiteral("selectFile ") + path("deeper/set.csv")});
        QCOMPARE(dialog->name(), QStringLiteral("set.csv"));
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("deeper/set.csv"));
    QCOMPARE(dialog->name(), QStringLiteral("set.csv"));
}

void tst_FileDialogOfTheDesktop::several()
{
    const auto dialog = makeDialogWithTypes();
    QVERIFY(dialog->setOptions(FOS_ALLOWMULTISELECT));
    m_desktop->onShow("accept", [this, &dialog] {
        m_desktop->choose({path("a.dat"), path("c.csv")});
        QCOMPARE(dialog->name(), QStringLiteral("\"a.dat\" \"c.csv\""));
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->results(), (QStringList{path("a.dat"), path("c.csv")}));
    QCOMPARE(dialog->result(), QString()); // not exactly one file
    QCOMPARE(dialog->name(), QStringLiteral("\"a.dat\" \"c.csv\""));
}

void tst_FileDialogOfTheDesktop::folders()
{
    const auto dialog = makeDialogWithTypes();
    QVERIFY(dialog->setOptions(FOS_PICKFOLDERS));
    m_desktop->onShow("accept", [this] {
        m_desktop->choose({path("deeper")});
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("deeper"));
}

/// Desktops read labels when they show a dialog. Labels of an earlier run must not appear in the next one.
void tst_FileDialogOfTheDesktop::labelsWhileOpen()
{
    const auto dialog = makeDialogWithTypes();
    dialog->get()->SetOkButtonLabel(L"&Read");
    m_desktop->onShow("set", [this, &dialog] {
        QCOMPARE(dialog->get()->SetOkButtonLabel(L""), S_OK);
        QCOMPARE(dialog->get()->SetFileNameLabel(L"&Run:"), S_OK);
        QCOMPARE(dialog->get()->SetTitle(L"other"), S_OK);
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(m_desktop->request.acceptLabel, QStringLiteral("&Read"));
    m_desktop->onShow("look", [this] { m_desktop->reject(); });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(m_desktop->request.acceptLabel, QString());
    QCOMPARE(m_desktop->request.fileNameLabel, QStringLiteral("&Run:"));
    QCOMPARE(m_desktop->request.title, QStringLiteral("other"));
}

// Second runs

void tst_FileDialogOfTheDesktop::secondRunGoesOn()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("first", [this] {
        m_desktop->enterFolder(path("deeper"));
        m_desktop->pickFilter(2);
        m_desktop->choose({path("deeper/d.dat")});
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->folder(), path("deeper"));
    QCOMPARE(dialog->typeIndex(), 3);
    QCOMPARE(dialog->name(), QStringLiteral("d.dat"));

    m_desktop->onShow("second", [this, &dialog] {
        QCOMPARE(dialog->folder(), path("deeper"));
        QCOMPARE(dialog->typeIndex(), 3);
        m_desktop->reject();
    });
    QCOMPARE(dialog->show(m_window.get()), cancelledResult);
    QCOMPARE(m_desktop->request.folder, path("deeper"));
    QCOMPARE(m_desktop->request.nameFilter, filters[2]);
    QCOMPARE(m_desktop->request.files, QStringList{path("deeper/d.dat")});
    QCOMPARE(dialog->sink().events, (QStringList{"folder", "folder", "type", "ok", "folder"}));
}

void tst_FileDialogOfTheDesktop::secondRunKeepsTheName_data()
{
    QTest::addColumn<bool>("reportsPreselection");
    QTest::newRow("a desktop that tells of what is preselected") << true;
    QTest::newRow("a desktop that tells of what was chosen only") << false;
}

void tst_FileDialogOfTheDesktop::secondRunKeepsTheName()
{
    QFETCH(bool, reportsPreselection);
    m_desktop->reportsPreselection = reportsPreselection;
    const auto dialog = makeDialogWithTypes(CLSID_FileSaveDialog);
    QVERIFY(dialog->setName(QStringLiteral("new.dat")));
    for (int run = 0; run < 2; ++run) {
        m_desktop->onShow("cancel", [this, &dialog] {
            QCOMPARE(dialog->name(), QStringLiteral("new.dat"));
            m_desktop->reject();
        });
        QCOMPARE(dialog->show(m_window.get()), cancelledResult);
        QCOMPARE(m_desktop->request.files, QStringList{path("new.dat")});
        QCOMPARE(dialog->name(), QStringLiteral("new.dat"));
    }
}

void tst_FileDialogOfTheDesktop::secondRunIsDrawnByQtWithAControl()
{
    const auto dialog = makeDialogWithTypes();
    m_desktop->onShow("desktop", [this] {
        m_desktop->enterFolder(path("deeper"));
        m_desktop->pickFilter(1);
        m_desktop->choose({path("deeper/d.dat")});
        m_desktop->accept();
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->controls().AddPushButton(1, L"Action"), S_OK);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("drawn by Qt", [this](QFileDialog& shown) {
        QCOMPARE(shown.directory().path(), path("deeper"));
        QCOMPARE(fileTypeCombo(shown).currentIndex(), 1);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("d.dat"));
        pressReturn(shown);
    });
    QCOMPARE(dialog->show(m_window.get()), S_OK);
    QCOMPARE(dialog->result(), path("deeper/d.dat"));
}

UI_TEST_MAIN(tst_FileDialogOfTheDesktop)
#include "tst_FileDialogOfTheDesktop.moc"
