#include "ui/qt/dialogs/qtdialog/handleTypedNames_p.h"

#include "ui/qt/dialogs/SaveFileDialog.h"

#include "DialogDriver.h"
#include "DrawnDialogs.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QtTest>

#include <memory>

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

class tst_handleTypedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_place = std::make_unique<DrawnDialogs>(); }

    void closedBySecondReturn_data() { DrawnDialogs::addKindRows(); }
    void closedBySecondReturn();
    void emptyFolder_data() { DrawnDialogs::addKindRows(); }
    void emptyFolder();
    void closedBehindItsBack_data() { DrawnDialogs::addKindRows(); }
    void closedBehindItsBack();
    void staysWhileItIsTyped_data() { DrawnDialogs::addKindRows(); }
    void staysWhileItIsTyped();

private:
    std::unique_ptr<DrawnDialogs> m_place;
};

void tst_handleTypedNames::closedBySecondReturn()
{
    DrawnDialogs::useKindOfRow();
    SaveFileDialog flow(&m_place->window, "Save", m_place->path().toStdString(), "", "Data (*.dat)", "");
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
    QVERIFY(!visiblePopup());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), m_place->path(QStringLiteral("folder/folder.dat")));
}

/// The list of the parent folder would otherwise stay open without an entry and cover the file types.
void tst_handleTypedNames::emptyFolder()
{
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("enter", listsRows, [this](QFileDialog& shown) {
        const auto* model = shown.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
        QSignalSpy loaded(model, &QFileSystemModel::directoryLoaded);
        typeWithCompletions(shown, QStringLiteral("folder"));
        press(Qt::Key_Return);
        QCOMPARE(model->rootPath(), m_place->path(QStringLiteral("folder")));
        QTRY_VERIFY(loaded.contains(QVariantList{m_place->path(QStringLiteral("folder"))}));
        QVERIFY(!visiblePopup());
        cancel(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_handleTypedNames::closedBehindItsBack()
{
    const auto dialog = m_place->make(QFileDialog::AcceptSave);
    DialogDriver driver;
    driver.onDialogWhen<QFileDialog>("close", listsRows, [](QFileDialog& shown) {
        typeWithCompletions(shown, QStringLiteral("old"));
        shown.reject();
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QVERIFY(!visiblePopup());
}

void tst_handleTypedNames::staysWhileItIsTyped()
{
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
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
}

UI_TEST_MAIN(tst_handleTypedNames)
#include "tst_handleTypedNames.moc"
