#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "DialogBackend.h"
#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include <type_traits>

using zelmar::ApplicationSettings;

static_assert(std::has_virtual_destructor<ExtendedFileDialog>::value, "derived facades are deleted by their base");
static_assert(!std::is_copy_constructible<ExtendedFileDialog>::value, "a facade owns its dialog");
static_assert(!std::is_base_of<QObject, ExtendedFileDialog>::value, "a facade is a plain class");

/// Runs the same tests over each kind of dialog that a facade can have.
class tst_ExtendedFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isNativeAtFirst();
    void keepsItsKind();
    void keepsFilters_data() { addDialogBackendRows(); }
    void keepsFilters();
    void selectsFilters_data() { addDialogBackendRows(); }
    void selectsFilters();
    void keepsTheFolder_data() { addDialogBackendRows(); }
    void keepsTheFolder();
    void choosesOneFile_data() { addDialogBackendRows(); }
    void choosesOneFile();
    void choosesSeveralFiles_data() { addDialogBackendRows(); }
    void choosesSeveralFiles();
    void tellsOfCancelling_data() { addDialogBackendRows(); }
    void tellsOfCancelling();
    void preselectsAName_data() { addDialogBackendRows(); }
    void preselectsAName();
    void followsTheUsersFilter_data() { addDialogBackendRows(); }
    void followsTheUsersFilter();
    void asksBeforeOverwriting_data() { addDialogBackendRows(); }
    void asksBeforeOverwriting();
    void showsHelp_data() { addDialogBackendRows(); }
    void showsHelp();
    void hasNoMenuOnTheAcceptButton();
    void ignoresDirectoriesOnlyNatively();
    void showsDirectoriesOnlyWhenDrawnByQt();
    void choosesAFolder_data() { addDialogBackendRows(); }
    void choosesAFolder();
    void startsInItsFileMode();

private:
    std::unique_ptr<ExtendedFileDialog> makeDialog(QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen,
                                                   const std::string& helpTopic = {});
    /// Runs `dialog`. The user takes `step`, or the recording object `recorded` instead, and then accepts `names`, or
    /// cancels if `names` is empty.
    int run(ExtendedFileDialog& dialog, const DialogBackendSwitch& kind, const QStringList& names,
            const std::function<void(QFileDialog&)>& step = {}, const std::function<void()>& recorded = {});

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
};

void tst_ExtendedFileDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile("a.dat");
    m_folders->addFile("b.dat");
    m_folders->addFile(QString::fromUtf8("\xC3\xA4\xE2\x82\xAC.csv"));
    m_folders->addFolder("inner");
    m_window = std::make_unique<QWidget>();
}

std::unique_ptr<ExtendedFileDialog> tst_ExtendedFileDialog::makeDialog(QFileDialog::AcceptMode mode,
                                                                       const std::string& helpTopic)
{
    return std::make_unique<ExtendedFileDialog>(*m_window, "T\xC3\xAFtle", m_folders->path().toStdString(),
                                                "Data (*.dat);;Tables (*.csv)", helpTopic, mode);
}

int tst_ExtendedFileDialog::run(ExtendedFileDialog& dialog, const DialogBackendSwitch& kind, const QStringList& names,
                                const std::function<void(QFileDialog&)>& step, const std::function<void()>& recorded)
{
    if (RecordingShell* const shell = kind.shell()) {
        shell->onShow = recorded;
        shell->showResult = names.isEmpty() ? HRESULT_FROM_WIN32(ERROR_CANCELLED) : S_OK;
        shell->results.clear();
        for (const QString& name : names)
            shell->results += m_folders->path(name);
        return dialog.exec();
    }
    DialogDriver driver;
    driver.onDialog<QFileDialog>("choose", [&](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QString::fromUtf8("T\xC3\xAFtle"));
        if (step)
            step(shown);
        if (names.isEmpty())
            cancel(shown);
        else
            acceptName(shown, names.size() == 1 ? names.first() : '"' + names.join("\" \"") + '"');
    });
    const int result = dialog.exec();
    return result;
}

void tst_ExtendedFileDialog::isNativeAtFirst()
{
    QVERIFY(ExtendedFileDialog::useNativeFileDialog());
    RecordingShell shell;
    makeDialog();
    QCOMPARE(shell.takeCalls(), QStringList{"create open dialog"});
    makeDialog(QFileDialog::AcceptSave);
    QCOMPARE(shell.takeCalls(), QStringList{"create save dialog"});
}

/// The switch is read only when a dialog is created.
void tst_ExtendedFileDialog::keepsItsKind()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    const auto native = makeDialog();
    ExtendedFileDialog::setUseNativeFileDialog(false);
    QVERIFY(!ExtendedFileDialog::useNativeFileDialog());
    kind.shell()->takeCalls();
    const auto drawn = makeDialog();
    QCOMPARE(kind.shell()->takeCalls(), QStringList());

    kind.shell()->results = QStringList{"/native"};
    QCOMPARE(native->exec(), int(QDialog::Accepted));
    QCOMPARE(native->selectedFiles(), QStringList{"/native"});

    ExtendedFileDialog::setUseNativeFileDialog(true);
    DialogDriver driver;
    bool isDrawn = false;
    driver.onDialog<QFileDialog>("look", [&isDrawn](QFileDialog& dialog) {
        isDrawn = qobject_cast<QExtendedFileDialog*>(&dialog);
        cancel(dialog);
    });
    QCOMPARE(drawn->exec(), int(QDialog::Rejected));
    QVERIFY(isDrawn);
}

void tst_ExtendedFileDialog::keepsFilters()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    QCOMPARE(dialog->nameFilters(), (QStringList{"Data (*.dat)", "Tables (*.csv)"}));
    const QStringList filters = {QString::fromUtf8("\xC3\xA4 (*.a)"), "B (*.b *.c)", "*.d"};
    dialog->setNameFilters(filters);
    QCOMPARE(dialog->nameFilters(), filters);
}

void tst_ExtendedFileDialog::selectsFilters()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    QCOMPARE(dialog->selectedNameFilter(), QString("Data (*.dat)"));
    dialog->selectNameFilter("Tables (*.csv)");
    QCOMPARE(dialog->selectedNameFilter(), QString("Tables (*.csv)"));
    QString shown;
    run(*dialog, kindSwitch, {}, [&shown](QFileDialog& open) { shown = fileTypeCombo(open).currentText(); });
    if (kindSwitch.shell())
        QVERIFY(kindSwitch.shell()->takeCalls().contains("SetFileTypeIndex 2"));
    else
        QCOMPARE(shown, QString("Tables (*.csv)"));
    QCOMPARE(dialog->selectedNameFilter(), QString("Tables (*.csv)"));
}

void tst_ExtendedFileDialog::keepsTheFolder()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    QCOMPARE(dialog->directory(), QDir(m_folders->path()));
    dialog->setDirectory(m_folders->path("inner"));
    QCOMPARE(dialog->directory(), QDir(m_folders->path("inner")));
    QString shown;
    run(*dialog, kindSwitch, {}, [&shown](QFileDialog& open) { shown = open.directory().absolutePath(); });
    if (kindSwitch.shell())
        QVERIFY(kindSwitch.shell()->takeCalls().contains("SetFolder " + m_folders->path("inner")));
    else
        QCOMPARE(shown, m_folders->path("inner"));
    QCOMPARE(dialog->directory(), QDir(m_folders->path("inner")));
}

void tst_ExtendedFileDialog::choosesOneFile()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    dialog->setFileMode(QFileDialog::ExistingFile);
    const QString name = QString::fromUtf8("\xC3\xA4\xE2\x82\xAC.csv");
    dialog->selectNameFilter("Tables (*.csv)");
    QCOMPARE(run(*dialog, kindSwitch, {name}), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders->path(name)});
}

void tst_ExtendedFileDialog::choosesSeveralFiles()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    dialog->setFileMode(QFileDialog::ExistingFiles);
    QCOMPARE(run(*dialog, kindSwitch, {"a.dat", "b.dat"}), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), (QStringList{m_folders->path("a.dat"), m_folders->path("b.dat")}));
}

void tst_ExtendedFileDialog::tellsOfCancelling()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    QCOMPARE(run(*dialog, kindSwitch, {}), int(QDialog::Rejected));
    QCOMPARE(run(*dialog, kindSwitch, {"a.dat"}), int(QDialog::Accepted));
    QCOMPARE(run(*dialog, kindSwitch, {}), int(QDialog::Rejected));
}

void tst_ExtendedFileDialog::preselectsAName()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile("run.dat");
    QString shown;
    run(*dialog, kindSwitch, {}, [&shown](QFileDialog& open) { shown = fileNameEdit(open).text(); });
    if (kindSwitch.shell())
        QVERIFY(kindSwitch.shell()->takeCalls().contains("SetFileName run.dat"));
    else
        QCOMPARE(shown, QString("run.dat"));
}

void tst_ExtendedFileDialog::followsTheUsersFilter()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    run(
        *dialog, kindSwitch, {}, [](QFileDialog& open) { pickFilter(open, 1); },
        [shell = kindSwitch.shell()] {
            shell->fileType = 2;
            shell->events->OnTypeChange(shell->dialog);
        });
    QCOMPARE(dialog->selectedNameFilter(), QString("Tables (*.csv)"));
}

void tst_ExtendedFileDialog::asksBeforeOverwriting()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    for (const bool asks : {true, false}) {
        const auto dialog = makeDialog(QFileDialog::AcceptSave);
        dialog->setFileMode(QFileDialog::AnyFile);
        if (!asks)
            dialog->setDontConfirmOverwrite(true);
        if (RecordingShell* const shell = kindSwitch.shell()) {
            dialog->exec();
            QCOMPARE(bool(shell->options & FOS_OVERWRITEPROMPT), asks);
            continue;
        }
        DialogDriver driver;
        driver.onDialog<QFileDialog>("choose", [](QFileDialog& shown) { acceptName(shown, "a.dat"); });
        if (asks)
            driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QCOMPARE(dialog->exec(), int(QDialog::Accepted));
        QCOMPARE(dialog->selectedFiles(), QStringList{m_folders->path("a.dat")});
    }
}

void tst_ExtendedFileDialog::showsHelp()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    std::vector<std::string> topics;
    auto& help = zelmar::HelpLauncher::getInstance();
    help.setHandler([&topics](const std::string& topic) { topics.push_back(topic); });
    const auto dialog = makeDialog(QFileDialog::AcceptOpen, "topic");
    run(
        *dialog, kindSwitch, {},
        [](QFileDialog& open) {
            for (QPushButton* button : open.findChildren<QPushButton*>())
                if (button->text() == "&Help" || button->text() == "Help")
                    button->click();
        },
        [shell = kindSwitch.shell()] { shell->controlEvents()->OnButtonClicked(nullptr, 0); });
    help.setHandler({});
    QCOMPARE(topics, std::vector<std::string>{"topic"});
}

void tst_ExtendedFileDialog::hasNoMenuOnTheAcceptButton()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    const auto dialog = makeDialog(QFileDialog::AcceptOpen, "topic");
    QCOMPARE(kind.shell()->takeCalls(),
             (QStringList{"create open dialog", "AddPushButton 0 &Help", "MakeProminent 0"}));
}

void tst_ExtendedFileDialog::ignoresDirectoriesOnlyNatively()
{
    const DialogBackendSwitch kind(DialogBackend::Recording);
    const auto dialog = makeDialog();
    dialog->setShowDirectoriesOnly(true);
    dialog->exec();
    QVERIFY(!(kind.shell()->options & FOS_PICKFOLDERS));
}

void tst_ExtendedFileDialog::showsDirectoriesOnlyWhenDrawnByQt()
{
    const DialogBackendSwitch kind(DialogBackend::QtDrawn);
    const auto dialog = makeDialog();
    for (const bool on : {true, false}) {
        dialog->setShowDirectoriesOnly(on);
        bool shown = !on;
        run(*dialog, kind, {}, [&shown](QFileDialog& open) { shown = open.testOption(QFileDialog::ShowDirsOnly); });
        QCOMPARE(shown, on);
    }
}

void tst_ExtendedFileDialog::choosesAFolder()
{
    QFETCH(DialogBackend, kind);
    const DialogBackendSwitch kindSwitch(kind);
    const auto dialog = makeDialog();
    dialog->setFileMode(QFileDialog::Directory);
    QCOMPARE(run(*dialog, kindSwitch, {"inner"}), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders->path("inner")});
}

/// If no file mode is set, the kind of the dialog determines it, and not the facade.
void tst_ExtendedFileDialog::startsInItsFileMode()
{
    {
        const DialogBackendSwitch kind(DialogBackend::QtDrawn);
        for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
            const auto dialog = makeDialog(mode);
            QFileDialog::FileMode shown = QFileDialog::Directory;
            run(*dialog, kind, {}, [&shown](QFileDialog& open) { shown = open.fileMode(); });
            QCOMPARE(shown, mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
        }
    }
    const DialogBackendSwitch kind(DialogBackend::Recording);
    makeDialog()->exec();
    QVERIFY(!(kind.shell()->options & (FOS_FILEMUSTEXIST | FOS_PICKFOLDERS | FOS_ALLOWMULTISELECT)));
}

UI_TEST_MAIN(tst_ExtendedFileDialog)
#include "tst_ExtendedFileDialog.moc"
