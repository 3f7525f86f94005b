#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"

#include "SystemDialogTest.h"
#include "TestHome.h"

#include <QApplication>
#include <QtTest>

using zelmar::ui::LaunchFileDialog;

namespace {

const std::vector<std::string> filters{"Data (*.dat)", "Text (*.txt)"};

} // namespace

/// Tests the facades with the native switch on, through their public interface only.
class tst_SystemFacades : public SystemDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void launchesForOneFile();
    void launchesForSeveralFiles();
    void launchesForSaving();
    void keepsWhatItWasGivenWhenCancelled();
    void opensThroughTheFacade();
    void savesThroughTheFacade();
    void leavesTheSystemAloneWhenSwitchedOff();

private:
    std::string utf8(const QString& name = {}) const { return path(name).toStdString(); }
    std::string nativeUtf8(const QString& name) const { return native(name).toStdString(); }
};

void tst_SystemFacades::launchesForOneFile()
{
    std::vector<std::string> files;
    int filter = -1;
    QString name;
    QString folder;
    int type = -1;
    HWND owner = nullptr;
    m_driver->inDialog("look, and accept", [&](const SystemDialog& shown) {
        name = shown.fileName();
        folder = m_shell->folder();
        type = shown.fileType();
        owner = shown.owner();
        shown.acceptName("c.txt");
    });
    QVERIFY(LaunchFileDialog(files, filter, "Open", filters, {utf8("inner/../a.dat")}, false, false, 1));
    QCOMPARE(name, QString("a.dat"));
    QCOMPARE(QDir(folder), QDir(path()));
    QCOMPARE(type, 1);
    QCOMPARE(owner, reinterpret_cast<HWND>(m_window->winId())); // the active window is the default parent
    QCOMPARE(files, std::vector<std::string>{nativeUtf8("c.txt")});
    QCOMPARE(filter, 1);
}

void tst_SystemFacades::launchesForSeveralFiles()
{
    std::vector<std::string> files;
    int filter = -1;
    m_driver->inDialog("accept", [](const SystemDialog& shown) { shown.acceptName("\"b.dat\" \"a.dat\""); });
    QVERIFY(LaunchFileDialog(files, filter, "Open", filters, {utf8("a.dat")}, false, true, 0));
    QCOMPARE(files, (std::vector<std::string>{nativeUtf8("b.dat"), nativeUtf8("a.dat")}));
    QCOMPARE(filter, 0);
}

void tst_SystemFacades::launchesForSaving()
{
    std::vector<std::string> files;
    int filter = -1;
    FILEOPENDIALOGOPTIONS options = FOS_FILEMUSTEXIST;
    m_driver->inDialog("accept what is preselected", [&](const SystemDialog& shown) {
        options = m_shell->options();
        shown.accept();
    });
    m_driver->inQuestion("do not overwrite", [](const SystemQuestion& box) { box.answer(IDNO); });
    m_driver->inDialog("take another name", [](const SystemDialog& shown) { shown.acceptName("new.dat"); });
    QVERIFY(LaunchFileDialog(files, filter, "Save", filters, {utf8("a.dat")}, true, false, 0));
    QVERIFY(!(options & FOS_FILEMUSTEXIST));
    QCOMPARE(files, std::vector<std::string>{nativeUtf8("new.dat")});
    QCOMPARE(filter, 0);
}

void tst_SystemFacades::keepsWhatItWasGivenWhenCancelled()
{
    std::vector<std::string> files{"before"};
    int filter = 5;
    m_driver->inDialog("cancel", [](const SystemDialog& shown) { shown.cancel(); });
    QVERIFY(!LaunchFileDialog(files, filter, "Open", filters, {utf8("a.dat")}, false, false, 0));
    QCOMPARE(files, std::vector<std::string>{"before"});
    QCOMPARE(filter, 5);
}

void tst_SystemFacades::opensThroughTheFacade()
{
    ExtendedFileDialog dialog(*m_window, "Open", utf8(), "Data (*.dat);;Text (*.txt)", "topic",
                              QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.selectNameFilter("Text (*.txt)");
    dialog.setDirectory(path("inner"));
    QStringList seen;
    m_driver->inDialog("look, and accept", [&](const SystemDialog& shown) {
        seen = QStringList{shown.title(), m_shell->folder(), shown.fileTypes().value(shown.fileType()),
                           shown.isShown("&Help") ? "help" : ""};
        shown.acceptName("e.dat");
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(seen, (QStringList{"Open", path("inner"), "Text", "help"}));
    QCOMPARE(dialog.selectedFiles(), QStringList{native("inner/e.dat")});
    QCOMPARE(dialog.directory(), QDir(path("inner")));
    QCOMPARE(dialog.selectedNameFilter(), QString("Text (*.txt)"));
}

void tst_SystemFacades::savesThroughTheFacade()
{
    ExtendedFileDialog dialog(*m_window, "Save", utf8(), "Data (*.dat)", "", QFileDialog::AcceptSave);
    dialog.setDontConfirmOverwrite(true);
    dialog.selectFile("a.dat");
    m_driver->inDialog("accept", [](const SystemDialog& shown) { shown.accept(); });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList{native("a.dat")});
    m_driver->inDialog("cancel", [](const SystemDialog& shown) { shown.cancel(); });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void tst_SystemFacades::leavesTheSystemAloneWhenSwitchedOff()
{
    QCOMPARE(ExtendedFileDialog::useNativeFileDialog(), true); // the default
    {
        ExtendedFileDialog native(*m_window, "", utf8(), "", "", QFileDialog::AcceptOpen);
        QCOMPARE(m_shell->made, 1);
    }
    QCOMPARE(m_shell->gone, 1);
    ExtendedFileDialog::setUseNativeFileDialog(false);
    ExtendedFileDialog drawn(*m_window, "", utf8(), "", "", QFileDialog::AcceptOpen);
    ExtendedFileDialog::setUseNativeFileDialog(true);
    QCOMPARE(m_shell->made, 1);
}

UI_TEST_MAIN(tst_SystemFacades)
#include "tst_SystemFacades.moc"
