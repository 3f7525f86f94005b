#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "platform/ApplicationSettings.h"
#include "platform/HelpLauncher.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <string>
#include <vector>

using zelmar::ApplicationSettings;
using zelmar::HelpLauncher;

namespace {

QPushButton* helpButton(const QExtendedFileDialog& dialog)
{
    return dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Help);
}

QStringList fileNames(const QStringList& paths)
{
    QStringList names;
    for (const QString& path : paths)
        names += QFileInfo(path).fileName();
    return names;
}

} // namespace

class tst_QExtendedFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void slotsInTheirOrder();
    void acceptModeGivesFileMode_data();
    void acceptModeGivesFileMode();
    void isDrawnByQt();
    void textsAreUtf8();
    void withoutAParent();
    void parentOwnsTheDialog();
    void optionSetters();

    void helpButtonOnlyWithATopic();
    void helpLeavesTheDialogOpen();
    void helpButtonSurvivesAChangeOfMode();

    void opensOneFile();
    void opensSeveralFiles();
    void choosesADirectory();
    void savesUnderANewName();
    void cancelledIsRejected();
    void runsTwice();
    void showRunsWithoutWaiting();

    void missingFileIsRefused();
    void missingFileIsAcceptedWithoutValidation();
    void asksBeforeOverwriting();
    void doesNotAskWhenToldSo();
    void deletedWhileRunning();

private:
    std::unique_ptr<QExtendedFileDialog> makeDialog(QFileDialog::AcceptMode mode, const std::string& topic = {});

    DialogFolders m_folders;
    std::unique_ptr<QWidget> m_window;
    std::vector<std::string> m_topics;
};

void tst_QExtendedFileDialog::initTestCase()
{
    m_folders.addFile(QStringLiteral("runs/a.dat"), "a");
    m_folders.addFile(QStringLiteral("runs/b.dat"), "b");
    m_folders.addFile(QStringLiteral("runs/notes.txt"));
    m_folders.addFolder(QStringLiteral("runs/older"));
    HelpLauncher::getInstance().setHandler([this](const std::string& topic) { m_topics.push_back(topic); });
}

void tst_QExtendedFileDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_topics.clear();
    m_window = std::make_unique<QWidget>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_QExtendedFileDialog::cleanup()
{
    m_window.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

std::unique_ptr<QExtendedFileDialog> tst_QExtendedFileDialog::makeDialog(QFileDialog::AcceptMode mode,
                                                                         const std::string& topic)
{
    return std::make_unique<QExtendedFileDialog>(*m_window, "Runs",
                                                 m_folders.path(QStringLiteral("runs")).toStdString(),
                                                 "Data files (*.dat);;All files (*)", topic, mode);
}

/// The order of the slots is part of the interface of a Qt class, because connections by index depend on it.
void tst_QExtendedFileDialog::slotsInTheirOrder()
{
    const QMetaObject& meta = QExtendedFileDialog::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        methods += QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(methods,
             (QStringList{QStringLiteral("show()"), QStringLiteral("exec()"), QStringLiteral("accept()"),
                          QStringLiteral("restoreFilters()"), QStringLiteral("revertModifiedFilterAndSelect(QString)"),
                          QStringLiteral("launchHelp()"), QStringLiteral("onDirectoryLoaded(QString)"),
                          QStringLiteral("onRootPathChanged(QString)")}));
    QCOMPARE(meta.method(meta.methodOffset() + 1).returnType(), int(QMetaType::Int));
}

void tst_QExtendedFileDialog::acceptModeGivesFileMode_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("acceptMode");
    QTest::addColumn<QFileDialog::FileMode>("fileMode");

    QTest::newRow("open") << QFileDialog::AcceptOpen << QFileDialog::ExistingFile;
    QTest::newRow("save") << QFileDialog::AcceptSave << QFileDialog::AnyFile;
}

void tst_QExtendedFileDialog::acceptModeGivesFileMode()
{
    QFETCH(QFileDialog::AcceptMode, acceptMode);
    QFETCH(QFileDialog::FileMode, fileMode);

    const QExtendedFileDialog plain(*m_window, acceptMode);
    QCOMPARE(plain.acceptMode(), acceptMode);
    QCOMPARE(plain.fileMode(), fileMode);

    QExtendedFileDialog full(*m_window, "", "", "", "", acceptMode);
    QCOMPARE(full.acceptMode(), acceptMode);
    QCOMPARE(full.fileMode(), fileMode);
    full.setFileMode(QFileDialog::Directory);
    QCOMPARE(full.fileMode(), QFileDialog::Directory);
}

void tst_QExtendedFileDialog::isDrawnByQt()
{
    const QExtendedFileDialog dialog(*m_window, QFileDialog::AcceptOpen);
    QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
    QVERIFY(dialog.findChild<QListView*>(QStringLiteral("listView")));
}

void tst_QExtendedFileDialog::textsAreUtf8()
{
    const QString folder = m_folders.addFolder(QStringLiteral(u"Me\u00dfwerte \u6e2c\u5b9a"));
    const QExtendedFileDialog dialog(*m_window, u8"\u00d6ffnen", folder.toStdString(),
                                     u8"Me\u00dfdaten (*.\u00e4);;\u5168\u90e8 (*)", "", QFileDialog::AcceptOpen);
    QCOMPARE(dialog.windowTitle(), QStringLiteral(u"\u00d6ffnen"));
    QCOMPARE(dialog.directory().path(), folder);
    QCOMPARE(dialog.nameFilters(),
             (QStringList{QStringLiteral(u"Me\u00dfdaten (*.\u00e4)"), QStringLiteral(u"\u5168\u90e8 (*)")}));
    QCOMPARE(dialog.parent(), m_window.get());
}

void tst_QExtendedFileDialog::withoutAParent()
{
    QExtendedFileDialog dialog(nullptr, "Save", m_folders.path().toStdString(), "Data (*.dat)", "topic",
                               QFileDialog::AcceptSave);
    QVERIFY(!dialog.parent());
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& running) { acceptName(running, QStringLiteral("new.dat")); });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedFiles(), QStringList{m_folders.path(QStringLiteral("new.dat"))});
}

void tst_QExtendedFileDialog::parentOwnsTheDialog()
{
    auto* parent = new QWidget;
    const QPointer<QExtendedFileDialog> dialog = new QExtendedFileDialog(*parent, QFileDialog::AcceptOpen);
    delete parent;
    QVERIFY(!dialog);
}

void tst_QExtendedFileDialog::optionSetters()
{
    QExtendedFileDialog dialog(*m_window, QFileDialog::AcceptSave);
    for (const bool on : {true, false, true}) {
        dialog.setDontConfirmOverwrite(on);
        QCOMPARE(dialog.testOption(QFileDialog::DontConfirmOverwrite), on);
        dialog.setShowDirectoriesOnly(on);
        QCOMPARE(dialog.testOption(QFileDialog::ShowDirsOnly), on);
    }
    QCOMPARE(dialog.fileMode(), QFileDialog::AnyFile);
    QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
}

void tst_QExtendedFileDialog::helpButtonOnlyWithATopic()
{
    QVERIFY(!helpButton(QExtendedFileDialog(*m_window, QFileDialog::AcceptOpen)));
    QVERIFY(!helpButton(*makeDialog(QFileDialog::AcceptOpen)));
    QVERIFY(helpButton(*makeDialog(QFileDialog::AcceptOpen, "files/open.html")));
}

void tst_QExtendedFileDialog::helpLeavesTheDialogOpen()
{
    const std::string topic = u8"dateien/\u00f6ffnen.html";
    const auto dialog = makeDialog(QFileDialog::AcceptOpen, topic);
    for (int run = 1; run <= 2; ++run) {
        DialogDriver driver;
        driver.onDialog<QExtendedFileDialog>("help", [](QExtendedFileDialog& running) {
            QTest::mouseClick(helpButton(running), Qt::LeftButton);
            QVERIFY(running.isVisible());
        });
        driver.onDialog<QFileDialog>("accept",
                                     [](QFileDialog& running) { acceptName(running, QStringLiteral("a.dat")); });
        QCOMPARE(dialog->exec(), int(QDialog::Accepted));
        QCOMPARE(m_topics, std::vector<std::string>(run, topic));
    }
}

void tst_QExtendedFileDialog::helpButtonSurvivesAChangeOfMode()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen, "topic");
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    QVERIFY(!helpButton(*dialog)); // Qt has removed it.
    DialogDriver driver;
    driver.onDialog<QExtendedFileDialog>("help", [](QExtendedFileDialog& running) {
        QTest::mouseClick(helpButton(running), Qt::LeftButton);
        cancel(running);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(m_topics.size(), std::size_t(1));
}

void tst_QExtendedFileDialog::opensOneFile()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("b.dat")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders.path(QStringLiteral("runs/b.dat"))});
    QCOMPARE(dialog->selectedNameFilter(), QStringLiteral("Data files (*.dat)"));
}

void tst_QExtendedFileDialog::opensSeveralFiles()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    DialogDriver driver;
    driver.onDialog<QFileDialog>(
        "accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("\"a.dat\" \"b.dat\"")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(fileNames(dialog->selectedFiles()), (QStringList{QStringLiteral("a.dat"), QStringLiteral("b.dat")}));
}

void tst_QExtendedFileDialog::choosesADirectory()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setShowDirectoriesOnly(true);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("older")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders.path(QStringLiteral("runs/older"))});
}

void tst_QExtendedFileDialog::savesUnderANewName()
{
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("c.dat")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(dialog->selectedFiles(), QStringList{m_folders.path(QStringLiteral("runs/c.dat"))});
    QVERIFY(!QFile::exists(m_folders.path(QStringLiteral("runs/c.dat"))));
}

void tst_QExtendedFileDialog::cancelledIsRejected()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& running) {
        typeName(running, QStringLiteral("a.dat"));
        QTest::mouseClick(
            running.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Cancel),
            Qt::LeftButton);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_QExtendedFileDialog::runsTwice()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    for (const char* name : {"a.dat", "b.dat"}) {
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept",
                                     [name](QFileDialog& running) { acceptName(running, QLatin1String(name)); });
        QCOMPARE(dialog->exec(), int(QDialog::Accepted));
        QCOMPARE(fileNames(dialog->selectedFiles()), QStringList{QLatin1String(name)});
    }
}

void tst_QExtendedFileDialog::showRunsWithoutWaiting()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), "show")); // calls the slot by its name
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    acceptName(*dialog, QStringLiteral("a.dat"));
    QCOMPARE(accepted.count(), 1);
    QTRY_VERIFY(!QGuiApplication::overrideCursor());
}

void tst_QExtendedFileDialog::missingFileIsRefused()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& running) { acceptName(running, QStringLiteral("none.dat")); });
    driver.onDialog<QMessageBox>("told so", [](QMessageBox& box) { box.accept(); });
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& running) { cancel(running); });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_QExtendedFileDialog::missingFileIsAcceptedWithoutValidation()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    dialog->performSelectedFileValidation(false);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept",
                                 [](QFileDialog& running) { acceptName(running, QStringLiteral("none.dat")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QCOMPARE(fileNames(dialog->selectedFiles()), QStringList{QStringLiteral("none.dat")});
}

void tst_QExtendedFileDialog::asksBeforeOverwriting()
{
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("a.dat")); });
    driver.onDialog<QMessageBox>("no", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    driver.onDialog<QFileDialog>("cancel", [](QFileDialog& running) { cancel(running); });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_QExtendedFileDialog::doesNotAskWhenToldSo()
{
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    dialog->setDontConfirmOverwrite(true);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& running) { acceptName(running, QStringLiteral("a.dat")); });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
}

void tst_QExtendedFileDialog::deletedWhileRunning()
{
    auto* dialog = makeDialog(QFileDialog::AcceptOpen).release();
    DialogDriver driver;
    driver.onDialog<QFileDialog>("delete the parent", [this](QFileDialog&) { m_window.reset(); });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QVERIFY(!QGuiApplication::overrideCursor());
}

UI_TEST_MAIN(tst_QExtendedFileDialog)
#include "tst_QExtendedFileDialog.moc"
