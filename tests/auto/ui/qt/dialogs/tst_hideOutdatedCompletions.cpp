#include "ui/qt/dialogs/hideOutdatedCompletions_p.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QtTest>

#include <memory>

using zelmar::ApplicationSettings;

namespace {

/// Returns the completion list that is on the screen, or null if there is none.
QWidget* visiblePopup()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() == Qt::Popup && window->isVisible())
            return window;
    }
    return nullptr;
}

/// Presses a key in the widget that receives the keyboard input: in the completion list if it is open, otherwise in the
/// widget with the focus.
void press(Qt::Key key, const QString& text = {})
{
    QWidget* const popup = QApplication::activePopupWidget();
    QTest::sendKeyEvent(QTest::Click, popup ? popup : QApplication::focusWidget(), key, text, Qt::NoModifier);
}

void type(const QString& text)
{
    for (const QChar character : text)
        press(Qt::Key_unknown, QString(character));
}

bool listsRows(QFileDialog& dialog)
{
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    return model->rowCount(model->index(model->rootPath())) > 0;
}

/// Replaces the text in the box by typing `text`, and waits for the completion list.
void typeWithCompletions(QFileDialog& dialog, const QString& text)
{
    takeKeyboardFocus(fileNameEdit(dialog));
    fileNameEdit(dialog).clear();
    type(text);
    QTRY_VERIFY(visiblePopup());
}

} // namespace

class tst_hideOutdatedCompletions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void closedBySecondReturn_data() { addKindRows(); }
    void closedBySecondReturn();
    void emptyFolder_data() { addKindRows(); }
    void emptyFolder();
    void closedBehindItsBack_data() { addKindRows(); }
    void closedBehindItsBack();
    void staysWhileItIsTyped_data() { addKindRows(); }
    void staysWhileItIsTyped();

private:
    static void addKindRows();
    std::unique_ptr<ExtendedFileDialog> makeDialog(QFileDialog::AcceptMode mode);

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
};

void tst_hideOutdatedCompletions::addKindRows()
{
    QTest::addColumn<bool>("native");
    QTest::newRow("drawn by Qt") << false;
    if (!systemLimits::nativeDialogIsTheSystems)
        QTest::newRow("native, over the built-in object") << true;
}

void tst_hideOutdatedCompletions::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_window.reset(); // with the dialog of a save flow, which may keep its folder from being removed
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"));
    m_folders->addFolder(QStringLiteral("folder"));
    m_window = std::make_unique<QWidget>();
}

std::unique_ptr<ExtendedFileDialog> tst_hideOutdatedCompletions::makeDialog(QFileDialog::AcceptMode mode)
{
    QFETCH(bool, native);
    ExtendedFileDialog::setUseNativeFileDialog(native);
    return std::make_unique<ExtendedFileDialog>(*m_window, "Choose", m_folders->path().toStdString(), "", "", mode);
}

void tst_hideOutdatedCompletions::closedBySecondReturn()
{
    QFETCH(bool, native);
    ExtendedFileDialog::setUseNativeFileDialog(native);
    SaveFileDialog flow(m_window.get(), "Save", m_folders->path().toStdString(), "", "Data (*.dat)", "");
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("two Returns", listsRows, [](QFileDialog& shown) {
        typeWithCompletions(shown, QStringLiteral("folder"));
        press(Qt::Key_Return);
        QVERIFY(shown.isVisible());
        QVERIFY(!visiblePopup());
        press(Qt::Key_Return);
        QVERIFY(!shown.isVisible());
        QVERIFY(!visiblePopup());
    });
    QVERIFY(flow.launch());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QVERIFY(!visiblePopup());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), m_folders->path(QStringLiteral("folder/folder.dat")));
}

/// The list of the parent folder would otherwise stay open without an entry and cover the file types.
void tst_hideOutdatedCompletions::emptyFolder()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("enter", listsRows, [this](QFileDialog& shown) {
        const auto* model = shown.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
        QSignalSpy loaded(model, &QFileSystemModel::directoryLoaded);
        typeWithCompletions(shown, QStringLiteral("folder"));
        press(Qt::Key_Return);
        QCOMPARE(model->rootPath(), m_folders->path(QStringLiteral("folder")));
        QTRY_VERIFY(loaded.contains(QVariantList{m_folders->path(QStringLiteral("folder"))}));
        QVERIFY(!visiblePopup());
        cancel(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
}

void tst_hideOutdatedCompletions::closedBehindItsBack()
{
    const auto dialog = makeDialog(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("close", listsRows, [](QFileDialog& shown) {
        typeWithCompletions(shown, QStringLiteral("old"));
        shown.reject();
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QVERIFY(!visiblePopup());
}

void tst_hideOutdatedCompletions::staysWhileItIsTyped()
{
    const auto dialog = makeDialog(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("pick", listsRows, [](QFileDialog& shown) {
        typeWithCompletions(shown, QStringLiteral("ol"));
        type(QStringLiteral("d"));
        QVERIFY(visiblePopup());
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        QCOMPARE(fileNameEdit(shown).text(), QStringLiteral("old.dat"));
        QVERIFY(!visiblePopup());
    });
    QCOMPARE(dialog->exec(), int(QDialog::Accepted));
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
}

UI_TEST_MAIN(tst_hideOutdatedCompletions)
#include "tst_hideOutdatedCompletions.moc"
