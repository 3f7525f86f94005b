#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "platform/ApplicationSettings.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "ScriptedDesktop.h"
#include "TestHome.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <memory>

using zelmar::ApplicationSettings;

namespace {

/// Makes new facades Qt-drawn as long as this object exists.
class DrawnByQt
{
public:
    DrawnByQt() { ExtendedFileDialog::setUseNativeFileDialog(false); }
    ~DrawnByQt() { ExtendedFileDialog::setUseNativeFileDialog(true); }
    Q_DISABLE_COPY(DrawnByQt)
};

} // namespace

/// Tests the library's dialogs on a desktop that draws file dialogs itself. The desktop draws the native dialogs, and
/// never those that Qt draws.
class tst_DialogsOnADesktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogDrawnByQt();
    void dialogDrawnByQtRunsTwice();
    void savingDrawnByQt();
    void nativeDialog();
    void nativeDialogFollowsItsUser();
    void nativeNameFollowsTheType();
    void nativeSaving();
    void nativeSavingAfterAnswers();
    void launchingOnce();

private:
    QString path(const char* name) const { return m_folders->path(QLatin1String(name)); }
    void chooseOnShow(const QString& chosen);

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<ScriptedDesktop> m_desktop;
};

void tst_DialogsOnADesktop::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    for (const char* name : {"a.dat", "b.dat", "inner/d.dat"})
        m_folders->addFile(QLatin1String(name));
    m_window = std::make_unique<QWidget>();
    m_desktop = std::make_unique<ScriptedDesktop>();
}

void tst_DialogsOnADesktop::cleanup()
{
    m_window.reset();
    m_desktop.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogsOnADesktop::chooseOnShow(const QString& chosen)
{
    m_desktop->onShow("choose " + chosen, [this, chosen] {
        m_desktop->choose({chosen});
        m_desktop->closeAndAccept();
    });
}

/// Qt creates a dialog of the desktop first. The settings that it received must be transferred to the one that Qt
/// draws.
void tst_DialogsOnADesktop::dialogDrawnByQt()
{
    QExtendedFileDialog dialog(*m_window, "T\xC3\xAFtle", m_folders->path().toStdString(),
                               "Data (*.dat);;Tables (*.csv)", "topic", QFileDialog::AcceptSave);
    QCOMPARE(m_desktop->dialogs(), 0);
    dialog.selectNameFilter(QStringLiteral("Tables (*.csv)"));
    dialog.selectFile(QStringLiteral("new.csv"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look, accept", [this](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QString::fromUtf8("T\xC3\xAFtle"));
        QCOMPARE(shown.directory().absolutePath(), m_folders->path());
        QCOMPARE(shown.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(shown.fileMode(), QFileDialog::AnyFile);
        QCOMPARE(fileTypeCombo(shown).currentText(), QStringLiteral("Tables (*.csv)"));
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("new.csv"));
        QVERIFY(shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
        pressReturn(shown);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList{path("new.csv")});
    QVERIFY(!m_desktop->takeCalls().contains(QStringLiteral("show")));
}

void tst_DialogsOnADesktop::dialogDrawnByQtRunsTwice()
{
    QExtendedFileDialog dialog(*m_window, "", m_folders->path().toStdString(), "Data (*.dat)", "",
                               QFileDialog::AcceptOpen);
    for (int run = 0; run < 2; ++run) {
        DialogDriver driver;
        driver.onDialog<QFileDialog>("pattern, accept", [](QFileDialog& shown) {
            QCOMPARE(shown.nameFilters(), QStringList{QStringLiteral("Data (*.dat)")});
            acceptName(shown, QStringLiteral("b*"));
            QCOMPARE(shown.nameFilters(), QStringList{QStringLiteral("Data (b*)")});
            acceptName(shown, QStringLiteral("b.dat"));
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QCOMPARE(dialog.selectedFiles(), QStringList{path("b.dat")});
    }
    QVERIFY(!m_desktop->takeCalls().contains(QStringLiteral("show")));
}

void tst_DialogsOnADesktop::savingDrawnByQt()
{
    const DrawnByQt drawnByQt;
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "a",
                        {"Tables (*.csv)", "Data (*.dat)"}, 1, "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& shown) { pressReturn(shown); });
    driver.onDialog<QMessageBox>("overwrite", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    QVERIFY(flow.launch());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), path("a.dat"));
    QVERIFY(!m_desktop->takeCalls().contains(QStringLiteral("show")));
}

void tst_DialogsOnADesktop::nativeDialog()
{
    ExtendedFileDialog dialog(*m_window, "T\xC3\xAFtle", m_folders->path().toStdString(),
                              "Data (*.dat);;Tables (*.csv)", "", QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.selectNameFilter(QStringLiteral("Tables (*.csv)"));
    m_desktop->onShow("choose two", [this] {
        m_desktop->choose({path("a.dat"), path("b.dat")});
        m_desktop->accept();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), (QStringList{path("a.dat"), path("b.dat")}));
    QCOMPARE(m_desktop->request.title, QString::fromUtf8("T\xC3\xAFtle"));
    QCOMPARE(m_desktop->request.folder, m_folders->path());
    QCOMPARE(m_desktop->request.fileMode, int(QFileDialog::ExistingFiles));
    QCOMPARE(m_desktop->request.nameFilter, QStringLiteral("Tables (*.csv)"));

    m_desktop->onShow("cancel", [this] { m_desktop->reject(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.selectedFiles(), QStringList());
}

void tst_DialogsOnADesktop::nativeDialogFollowsItsUser()
{
    ExtendedFileDialog dialog(*m_window, "", m_folders->path().toStdString(), "Data (*.dat);;Tables (*.csv)", "",
                              QFileDialog::AcceptOpen);
    m_desktop->onShow("walk about, cancel", [this] {
        m_desktop->enterFolder(path("inner"));
        m_desktop->pickFilter(1);
        m_desktop->reject();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QCOMPARE(dialog.directory().absolutePath(), path("inner"));
    QCOMPARE(dialog.selectedNameFilter(), QStringLiteral("Tables (*.csv)"));
}

void tst_DialogsOnADesktop::nativeNameFollowsTheType()
{
    ExtendedFileDialog dialog(*m_window, "", m_folders->path().toStdString(), "Data (*.dat);;Tables (*.csv)", "",
                              QFileDialog::AcceptSave);
    dialog.selectFile(QStringLiteral("run.dat"));
    m_desktop->onShow("pick, accept", [this] {
        m_desktop->takeCalls();
        m_desktop->pickFilter(1);
        QCOMPARE(m_desktop->takeCalls(), QStringList{"selectFile " + path("run.csv")});
        m_desktop->choose({path("run.csv")});
        m_desktop->accept();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList{path("run.csv")});
}

void tst_DialogsOnADesktop::nativeSaving()
{
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "run",
                        {"Tables (*.csv)", "Data (*.dat)"}, 1, "");
    chooseOnShow(path("run"));
    QVERIFY(flow.launch());
    QCOMPARE(m_desktop->request.saving, true);
    QCOMPARE(m_desktop->request.options, int(QFileDialog::DontConfirmOverwrite)); // The flow itself asks.
    QCOMPARE(m_desktop->request.files, QStringList{path("run")});
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), path("run.dat"));
    QCOMPARE(flow.selectedWriter(), 1);

    m_desktop->onShow("cancel", [this] { m_desktop->reject(); });
    QVERIFY(!flow.launch());
}

/// Answers No for one name and Yes for another. The desktop shows its dialog again in between.
void tst_DialogsOnADesktop::nativeSavingAfterAnswers()
{
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "", "Data (*.dat)", "");
    chooseOnShow(path("a.dat"));
    chooseOnShow(path("b.dat"));
    DialogDriver driver;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes})
        driver.onDialog<QMessageBox>("answer", [answer](QMessageBox& box) { box.button(answer)->click(); });
    QVERIFY(flow.launch());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), path("b.dat"));
}

void tst_DialogsOnADesktop::launchingOnce()
{
    std::vector<std::string> files;
    int filter = 5;
    m_desktop->onShow("accept what is preselected", [this] { m_desktop->accept(); });
    QVERIFY(zelmar::ui::LaunchFileDialog(files, filter, "Open", {"Data (*.dat)", "All (*)"},
                                         {path("b.dat").toStdString()}, false, false, 1));
    QCOMPARE(files, std::vector<std::string>{path("b.dat").toStdString()});
    QCOMPARE(filter, 1);
    m_desktop->onShow("cancel", [this] { m_desktop->reject(); });
    QVERIFY(!zelmar::ui::LaunchFileDialog(files, filter, "Open", {"Data (*.dat)"}, {}, false, false, 0));
    QCOMPARE(filter, 1);
}

UI_TEST_MAIN(tst_DialogsOnADesktop)
#include "tst_DialogsOnADesktop.moc"
