#include "ui/qt/dialogs/LaunchFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QtTest>

using zelmar::ApplicationSettings;
using zelmar::ui::LaunchFileDialog;

namespace {

using Texts = std::vector<std::string>;

/// The arguments of one call. A test changes only those that it is about.
struct Request
{
    Texts filters = {"Data (*.dat)", "Tables (*.csv)", "All files (*)"};
    Texts initialFiles;
    bool save = false;
    bool multipleFiles = false;
    int filter = 0;
};

bool listsFiles(QFileDialog& dialog)
{
    const auto* model = dialog.findChild<QFileSystemModel*>("qt_filesystem_model");
    return model->rowCount(model->index(model->rootPath())) > 0;
}

} // namespace

class tst_LaunchFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { leaveFolders(); }

    void handsBackWhatWasChosen_data() { addDialogBackendRows(); }
    void handsBackWhatWasChosen();
    void handsBackSeveral_data() { addDialogBackendRows(); }
    void handsBackSeveral();
    void leavesOutputsAloneWhenCancelled_data() { addDialogBackendRows(); }
    void leavesOutputsAloneWhenCancelled();
    void setsTheFileMode_data();
    void setsTheFileMode();
    void selectsTheFilter_data();
    void selectsTheFilter();
    void preselectsOneFile_data() { addDialogBackendRows(); }
    void preselectsOneFile();
    void typesOverAPreselectedName_data();
    void typesOverAPreselectedName();
    void preselectsSeveralFiles_data() { addDialogBackendRows(); }
    void preselectsSeveralFiles();
    void takesARelativeEntryFromTheCurrentFolder_data() { addDialogBackendRows(); }
    void takesARelativeEntryFromTheCurrentFolder();
    void preselectsNothing();
    void selectsFilterAndFileInOrder_data();
    void selectsFilterAndFileInOrder();
    void findsTheFilterBehindATypedPattern();
    void tellsOfAnUnknownFilter();
    void isShownOverTheActiveWindow();
    void worksWithoutAnActiveWindow();
    void worksWithoutFilters_data() { addDialogBackendRows(); }
    void worksWithoutFilters();

private:
    static void leaveFolders();
    bool launch(const Request& request);
    /// Calls LaunchFileDialog() with a user who accepts `names`, or cancels if `names` is empty.
    bool launch(const Request& request, const DialogBackendSwitch& kind, const QStringList& names,
                const std::function<void(QFileDialog&)>& step = {});

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    Texts m_files;
    int m_filter = -7;
};

void tst_LaunchFileDialog::initTestCase()
{
    m_window = std::make_unique<QWidget>();
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

/// Leaves the folders, because some systems cannot delete the current directory.
void tst_LaunchFileDialog::leaveFolders()
{
    QVERIFY(QDir::setCurrent(QDir::homePath()));
}

void tst_LaunchFileDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    leaveFolders();
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "c.csv", "\xC3\xA4\xE2\x82\xAC.dat"})
        m_folders->addFile(QString::fromUtf8(name));
    QVERIFY(QDir::setCurrent(m_folders->path()));
    m_files = {"before", "and", "longer"};
    m_filter = -7;
    QTRY_VERIFY(hasKeyboard(*m_window));
    QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
}

bool tst_LaunchFileDialog::launch(const Request& request)
{
    return LaunchFileDialog(m_files, m_filter, "T\xC3\xAFtle", request.filters, request.initialFiles, request.save,
                            request.multipleFiles, request.filter);
}

bool tst_LaunchFileDialog::launch(const Request& request, const DialogBackendSwitch& kind, const QStringList& names,
                                  const std::function<void(QFileDialog&)>& step)
{
    if (RecordingShell* const shell = kind.shell()) {
        shell->showResult = names.isEmpty() ? HRESULT_FROM_WIN32(ERROR_CANCELLED) : S_OK;
        shell->results.clear();
        for (const QString& name : names)
            shell->results += m_folders->path(name);
        const bool launched = launch(request);
        if (shell->liveObjects != 0)
            qWarning("%d objects are left", shell->liveObjects);
        return launched;
    }
    DialogDriver driver;
    driver.onDialog<QFileDialog>("choose", [&](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString::fromUtf8("T\xC3\xAFtle"));
        if (step)
            step(dialog);
        if (names.isEmpty())
            cancel(dialog);
        else
            acceptName(dialog, names.size() == 1 ? names.first() : '"' + names.join("\" \"") + '"');
    });
    const bool launched = launch(request);
    return launched;
}

void tst_LaunchFileDialog::handsBackWhatWasChosen()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    Request request;
    request.filters[2] = "\xC3\xA4 (*)";
    request.filter = 2;
    const QString name = QString::fromUtf8("\xC3\xA4\xE2\x82\xAC.dat");
    QVERIFY(!launch(request, kindSwitch, {}));
    request.initialFiles = {m_folders->path("a.dat").toStdString()};
    QVERIFY(launch(request, kindSwitch, {name}));
    QCOMPARE(m_files, Texts{m_folders->path(name).toStdString()}); // The list had three entries before the call.
    QCOMPARE(m_filter, 2);
}

void tst_LaunchFileDialog::handsBackSeveral()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    Request request;
    request.multipleFiles = true;
    request.initialFiles = {"a.dat"};
    m_files = {"one"};
    QVERIFY(launch(request, kindSwitch, {"a.dat", "b.dat"}));
    QCOMPARE(m_files, (Texts{m_folders->path("a.dat").toStdString(), m_folders->path("b.dat").toStdString()}));
    QCOMPARE(m_filter, 0);
}

void tst_LaunchFileDialog::leavesOutputsAloneWhenCancelled()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    QVERIFY(!launch({}, kindSwitch, {}));
    QCOMPARE(m_files, (Texts{"before", "and", "longer"}));
    QCOMPARE(m_filter, -7);
}

void tst_LaunchFileDialog::setsTheFileMode_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("multipleFiles");
    QTest::addColumn<int>("mode");
    QTest::addColumn<DWORD>("bits");
    const DWORD must = FOS_FILEMUSTEXIST;
    const DWORD several = FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT;
    QTest::newRow("open one") << false << false << int(QFileDialog::ExistingFile) << must;
    QTest::newRow("open several") << false << true << int(QFileDialog::ExistingFiles) << several;
    QTest::newRow("save") << true << false << int(QFileDialog::AnyFile) << DWORD(0);
    QTest::newRow("save, to several") << true << true << int(QFileDialog::ExistingFiles) << several;
}

void tst_LaunchFileDialog::setsTheFileMode()
{
    QFETCH(bool, save);
    QFETCH(bool, multipleFiles);
    Request request;
    request.save = save;
    request.multipleFiles = multipleFiles;
    {
        const DialogBackendSwitch kind(DialogBackend::QtDrawn);
        launch(request, kind, {}, [save](QFileDialog& dialog) {
            QTEST(int(dialog.fileMode()), "mode");
            QCOMPARE(dialog.acceptMode(), save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        });
    }
    const DialogBackendSwitch kind(DialogBackend::Recording);
    launch(request, kind, {});
    QTEST(DWORD(kind.shell()->options & (FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT | FOS_PICKFOLDERS)), "bits");
    QCOMPARE(kind.shell()->takeCalls().first(), QString(save ? "create save dialog" : "create open dialog"));
}

void tst_LaunchFileDialog::selectsTheFilter_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<int>("filter");
    QTest::addColumn<int>("selected");
    for (const bool save : {false, true}) {
        const auto row = [save](const char* name) -> QTestData& {
            return QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(save ? "save" : "open", name)));
        };
        row("the first") << save << 0 << 0;
        row("the last") << save << 2 << 2;
        row("one beyond") << save << 3 << 0;
        row("negative") << save << -1 << 0;
        row("the lowest") << save << std::numeric_limits<int>::min() << 0;
        row("the highest") << save << std::numeric_limits<int>::max() << 0;
    }
}

void tst_LaunchFileDialog::selectsTheFilter()
{
    QFETCH(bool, save);
    QFETCH(int, filter);
    QFETCH(int, selected);
    for (const char* firstFilter : {"Data (*.dat)", "All (*.*)"}) {
        Request request;
        request.filters.front() = firstFilter;
        request.save = save;
        request.filter = filter;
        {
            const DialogBackendSwitch kind(DialogBackend::QtDrawn);
            launch(request, kind, {},
                   [&](QFileDialog& dialog) { QCOMPARE(fileTypeCombo(dialog).currentIndex(), selected); });
        }
        const DialogBackendSwitch kind(DialogBackend::Recording);
        launch(request, kind, {});
        QVERIFY(kind.shell()->takeCalls().contains(QStringLiteral("SetFileTypeIndex %1").arg(selected + 1)));
    }
}

void tst_LaunchFileDialog::preselectsOneFile()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const QString name = QString::fromUtf8("\xC3\xA4\xE2\x82\xAC.dat");
    Request request;
    request.initialFiles = {m_folders->path(name).toStdString(), "ignored.dat"};
    launch(request, kindSwitch, {}, [&](QFileDialog& dialog) {
        QCOMPARE(fileNameEdit(dialog).text(), name);
        QCOMPARE(dialog.directory(), QDir(m_folders->path()));
    });
    if (kindSwitch.shell()) {
        const QStringList calls = kindSwitch.shell()->takeCalls();
        QVERIFY(calls.contains("SetFileName " + name));
        QVERIFY(calls.contains("SetFolder " + m_folders->path()));
    }
}

void tst_LaunchFileDialog::typesOverAPreselectedName_data()
{
    QTest::addColumn<DialogBackend>("kind"); // only kinds that take key presses
    QTest::newRow("drawn by Qt") << DialogBackend::QtDrawn;
    if (!systemLimits::nativeDialogIsTheSystems)
        QTest::newRow("native, over the built-in object") << DialogBackend::BuiltIn;
}

/// Gives the dialog time to list the folder and to suggest names before Return is pressed.
void tst_LaunchFileDialog::typesOverAPreselectedName()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    Request request;
    request.filters = {"All tables (*.dat *.csv)", "Data (*.dat)"};
    m_folders->addFile("outer/inner/a.dat");
    m_folders->addFile("outer/inner/b.csv");
    QVERIFY(QDir::setCurrent(m_folders->path("outer/inner")));
    request.initialFiles = {m_folders->path("outer/inner/a.dat").toStdString()};
    for (const char* name : {"b.csv", "a.dat"}) {
        DialogDriver driver;
        driver.onDialogWhen<QFileDialog>("type", listsFiles, [name](QFileDialog& dialog) { typeName(dialog, name); });
        driver.onDialog<QFileDialog>("accept", pressReturn);
        QVERIFY(launch(request));
        QCOMPARE(m_files, Texts{m_folders->path(QStringLiteral("outer/inner/") + name).toStdString()});
    }
}

void tst_LaunchFileDialog::preselectsSeveralFiles()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    Request request;
    request.multipleFiles = true;
    request.initialFiles = {"a.dat", "", "b.dat"};
    launch(request, kindSwitch, {}, [&](QFileDialog& dialog) {
        QCOMPARE(dialog.selectedFiles(), (QStringList{m_folders->path("a.dat"), m_folders->path("b.dat")}));
    });
    if (kindSwitch.shell())
        QVERIFY(kindSwitch.shell()->takeCalls().contains("SetFileName \"a.dat\" \"b.dat\" "));
}

void tst_LaunchFileDialog::takesARelativeEntryFromTheCurrentFolder()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    m_folders->addFile("inner/d.dat");
    Request request;
    request.initialFiles = {"inner/d.dat"};
    launch(request, kindSwitch, {},
           [&](QFileDialog& dialog) { QCOMPARE(dialog.directory(), QDir(m_folders->path("inner"))); });
    if (kindSwitch.shell())
        QVERIFY(kindSwitch.shell()->takeCalls().contains("SetFolder " + m_folders->path("inner")));
}

void tst_LaunchFileDialog::preselectsNothing()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    Request request;
    request.multipleFiles = true;
    launch(request, kind, {});
    const QStringList calls = kind.shell()->takeCalls();
    QVERIFY(calls.contains("SetFileName "));
    QVERIFY(calls.filter("SetFolder").isEmpty());
    QVERIFY(calls.filter("AddPushButton").isEmpty()); // There is no Help button.
}

void tst_LaunchFileDialog::selectsFilterAndFileInOrder_data()
{
    QTest::addColumn<QString>("firstFilter");
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("name");
    // In a save dialog Qt gives the name in the box the suffix of a filter that is selected afterwards.
    QTest::newRow("save, first the file") << "Data (*.dat)" << true << "run.csv";
    QTest::newRow("save, first the filter") << "All files (*.*)" << true << "run.xyz";
    QTest::newRow("save, one star only") << "All files (*)" << true << "run.csv";
    QTest::newRow("open, first the file") << "All files (*.*)" << false << "run.xyz";
}

void tst_LaunchFileDialog::selectsFilterAndFileInOrder()
{
    QFETCH(QString, firstFilter);
    QFETCH(bool, save);
    const DialogBackendSwitch kind(DialogBackend::QtDrawn);
    Request request;
    request.filters.front() = firstFilter.toStdString();
    request.save = save;
    request.filter = 1;
    request.initialFiles = {"run.xyz"};
    launch(request, kind, {}, [](QFileDialog& dialog) {
        QTEST(fileNameEdit(dialog).text(), "name");
        QCOMPARE(fileTypeCombo(dialog).currentIndex(), 1);
    });
}

/// The temporary filter has the index of the filter that it replaces.
void tst_LaunchFileDialog::findsTheFilterBehindATypedPattern()
{
    const DialogBackendSwitch kind(DialogBackend::QtDrawn);
    Request request;
    request.filter = 1;
    request.initialFiles = {"a.dat"};
    QVERIFY(launch(request, kind, {"a.dat"}, [](QFileDialog& dialog) { acceptName(dialog, "a*"); }));
    QCOMPARE(m_files, Texts{m_folders->path("a.dat").toStdString()});
    QCOMPARE(m_filter, 1);
}

void tst_LaunchFileDialog::tellsOfAnUnknownFilter()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    kind.shell()->onShow = [&kind] {
        kind.shell()->fileType = 9;
        kind.shell()->events->OnTypeChange(kind.shell()->dialog);
    };
    QVERIFY(launch({}, kind, {"a.dat"}));
    QCOMPARE(m_filter, -1);
}

void tst_LaunchFileDialog::isShownOverTheActiveWindow()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    launch({}, kind, {});
    QVERIFY(kind.shell()->takeCalls().contains(QStringLiteral("Show %1").arg(m_window->winId())));
    ExtendedFileDialog::setUseNativeFileDialog(false);
    DialogDriver driver;
    QWidget* parent = nullptr;
    driver.onDialog<QExtendedFileDialog>("look", [&parent](QExtendedFileDialog& dialog) {
        parent = dialog.parentWidget();
        cancel(dialog);
    });
    QVERIFY(!launch({}));
    QCOMPARE(parent, m_window.get());
}

void tst_LaunchFileDialog::worksWithoutAnActiveWindow()
{
    m_window->hide();
    QTRY_VERIFY(!QApplication::activeWindow());
    const DialogBackendSwitch kind(DialogBackend::Recording);
    QVERIFY(launch({}, kind, {"a.dat"}));
    ExtendedFileDialog::setUseNativeFileDialog(false);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& dialog) { cancel(dialog); });
    QVERIFY(!launch({}));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_LaunchFileDialog::worksWithoutFilters()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    for (const bool save : {false, true}) {
        Request request;
        request.filters.clear();
        request.save = save;
        QVERIFY(!launch(request, kindSwitch, {}));
    }
}

UI_TEST_MAIN(tst_LaunchFileDialog)
#include "tst_LaunchFileDialog.moc"
