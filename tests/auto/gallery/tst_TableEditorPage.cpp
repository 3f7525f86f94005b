#include "pages/TableEditorPage.h"

#include "testing/FileDialogScript.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "TestHome.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <memory>

using gallery::TableEditorPage;
using zelmar::testing::FileDialogScript;
using zelmar::testing::ShownFileDialog;
using Answer = FileDialogScript::Answer;

namespace {

const QString measurements = QFileInfo(QStringLiteral(EXAMPLE_DATA "/measurements.csv")).absoluteFilePath();

void addKindRows()
{
    QTest::addColumn<bool>("native");
    QTest::newRow("native") << true;
    QTest::newRow("drawn by Qt") << false;
}

} // namespace

/// Opens and saves tables with the page's own buttons. A script answers the dialogs.
class tst_TableEditorPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opens_data() { addKindRows(); }
    void opens();
    void keepsTheTableWhenCancelled_data() { addKindRows(); }
    void keepsTheTableWhenCancelled();
    void savesWithTheWriterOfTheFilter_data() { addKindRows(); }
    void savesWithTheWriterOfTheFilter();
    void savesWithTheWriterOfTheName_data() { addKindRows(); }
    void savesWithTheWriterOfTheName();
    void asksBeforeAFileIsReplaced_data() { addKindRows(); }
    void asksBeforeAFileIsReplaced();
    void savesNothingInARefusedPlace_data() { addKindRows(); }
    void savesNothingInARefusedPlace();
    void asksAboutATextThatIsBeingTyped_data() { addKindRows(); }
    void asksAboutATextThatIsBeingTyped();
    void savesATextThatIsBeingTyped_data() { addKindRows(); }
    void savesATextThatIsBeingTyped();
    void closesWhenTheTableIsSaved_data() { addKindRows(); }
    void closesWhenTheTableIsSaved();
    void staysBelowADialog_data() { addKindRows(); }
    void staysBelowADialog();
    void staysWhenTheTableCannotBeSaved_data() { addKindRows(); }
    void staysWhenTheTableCannotBeSaved();
    void givesTheKeyboardToTheTable_data() { addKindRows(); }
    void givesTheKeyboardToTheTable();

    void leavesNoDialogBehind_data() { addKindRows(); }
    void leavesNoDialogBehind();

private:
    QPushButton& button(const QString& text) const;
    QAbstractItemModel& table() const { return *m_page->findChild<QTableView*>()->model(); }
    void openMeasurements(FileDialogScript& script) const;
    void save() const;
    bool shows(const QString& text) const;
    QModelIndex typeIntoFirstCell(const QString& text) const;
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TableEditorPage> m_page;
};

void tst_TableEditorPage::init()
{
    QFETCH(bool, native);
    ExtendedFileDialog::setUseNativeFileDialog(native);
    m_folder = std::make_unique<QTemporaryDir>();
    m_page = std::make_unique<TableEditorPage>();
}

void tst_TableEditorPage::cleanup()
{
    m_page.reset();
    m_folder.reset();
    ExtendedFileDialog::setUseNativeFileDialog(true);
}

QPushButton& tst_TableEditorPage::button(const QString& text) const
{
    for (QPushButton* const button : m_page->findChildren<QPushButton*>()) {
        if (button->text() == text)
            return *button;
    }
    qFatal("the page has no button %s", qPrintable(text));
}

void tst_TableEditorPage::openMeasurements(FileDialogScript& script) const
{
    script.accept(measurements);
    button("&Open…").click();
    QTRY_COMPARE(table().rowCount(), 24);
}

/// Presses the button and waits until the table is saved, if the flow has accepted a name.
void tst_TableEditorPage::save() const
{
    QPushButton& saveButton = button("Save &as…");
    QVERIFY(saveButton.isEnabled());
    saveButton.click();
    QTRY_VERIFY(saveButton.isEnabled());
}

void tst_TableEditorPage::opens()
{
    for (const char* text : {"&Save", "Save &as…", "U&ndo", "Re&do"})
        QVERIFY2(!button(QString::fromUtf8(text)).isEnabled(), text);
    FileDialogScript script;
    openMeasurements(script);
    QCOMPARE(script.verify(), QString());
    QCOMPARE(table().columnCount(), 6);
    const ShownFileDialog& dialog = script.dialogs().front();
    QCOMPARE(dialog.caption, QString("Open a table"));
    QCOMPARE(dialog.fileMode, QFileDialog::ExistingFile);
    QCOMPARE(dialog.nameFilters.size(), 4);
    QCOMPARE(dialog.selectedNameFilter, QString("All tables (*.csv *.tsv *.json)"));
}

void tst_TableEditorPage::keepsTheTableWhenCancelled()
{
    FileDialogScript script;
    openMeasurements(script);
    script.cancel();
    button("&Open…").click();
    QCOMPARE(script.verify(), QString());
    QCOMPARE(table().rowCount(), 24);
    // The dialog starts at the table that is open.
    QCOMPARE(script.dialogs().back().folder, QFileInfo(measurements).canonicalPath());
    QCOMPARE(script.dialogs().back().defaultName, QString("measurements.csv"));
}

void tst_TableEditorPage::savesWithTheWriterOfTheFilter()
{
    FileDialogScript script;
    openMeasurements(script);
    const QString json = script.dialogs().front().nameFilters.last();
    script.accept(path("saved"), json);
    save();
    QCOMPARE(script.verify(), QString());
    QCOMPARE(script.dialogs().back().defaultName, QString("measurements"));
    QFile file(path("saved.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!QJsonDocument::fromJson(file.readAll()).isNull());
    QVERIFY(script.questions().empty());
}

/// A file is opened by the extension of its name, whatever filter was selected when it was saved.
void tst_TableEditorPage::savesWithTheWriterOfTheName()
{
    FileDialogScript script;
    openMeasurements(script);
    script.accept(path("saved.JSON"), "CSV table");
    save();
    QFile file(path("saved.JSON"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!QJsonDocument::fromJson(file.readAll()).isNull());
    script.accept(path("saved.JSON"));
    button("&Open…").click();
    QTRY_COMPARE(table().rowCount(), 24);
    QCOMPARE(table().columnCount(), 6);
    QCOMPARE(script.verify(), QString());
}

void tst_TableEditorPage::asksBeforeAFileIsReplaced()
{
    QFile old(path("old.csv"));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    FileDialogScript script;
    script.useFileSystem();
    openMeasurements(script);
    script.accept(old.fileName()).overwrite(Answer::No).accept(path("new.csv"));
    save();
    QCOMPARE(script.verify(), QString());
    QCOMPARE(QFileInfo(old.fileName()).size(), qint64(3));
    QVERIFY(QFileInfo(path("new.csv")).size() > 1000);
    QVERIFY(script.questions().front().text.contains("old.csv"));
}

void tst_TableEditorPage::savesNothingInARefusedPlace()
{
    FileDialogScript script;
    openMeasurements(script);
    script.accept(path("refused.csv")).refuse(Answer::No);
    save();
    QCOMPARE(script.verify(), QString());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList());
}

/// Types a text into the editor of the first cell and leaves the editor open.
QModelIndex tst_TableEditorPage::typeIntoFirstCell(const QString& text) const
{
    auto& view = *m_page->findChild<QTableView*>();
    const QModelIndex cell = table().index(0, 0);
    view.setCurrentIndex(cell);
    view.edit(cell);
    auto* const field = view.indexWidget(cell) ? view.indexWidget(cell)->findChild<QLineEdit*>() : nullptr;
    if (!field)
        qFatal("the cell has no editor");
    field->selectAll();
    QTest::keyClicks(field, text);
    return cell;
}

void tst_TableEditorPage::asksAboutATextThatIsBeingTyped()
{
    FileDialogScript script;
    openMeasurements(script);
    const QModelIndex cell = typeIntoFirstCell("typed");
    int questions = 0;
    QTimer::singleShot(0, m_page.get(), [&] {
        auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!question)
            return;
        ++questions;
        question->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!m_page->mayLeave());
    QCOMPARE(questions, 1);
    QCOMPARE(cell.data().toString(), QString("typed"));
}

void tst_TableEditorPage::savesATextThatIsBeingTyped()
{
    FileDialogScript script;
    openMeasurements(script);
    typeIntoFirstCell("typed");
    script.accept(path("saved.csv"));
    save();
    QCOMPARE(script.verify(), QString());
    QFile file(path("saved.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("typed"));
    QVERIFY(m_page->mayLeave());
}

/// Returns whether a visible label contains the text.
bool tst_TableEditorPage::shows(const QString& text) const
{
    const QList<QLabel*> labels = m_page->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&](const QLabel* label) { return label->isVisible() && label->text().contains(text); });
}

void tst_TableEditorPage::closesWhenTheTableIsSaved()
{
    FileDialogScript script;
    m_page->show();
    openMeasurements(script);
    script.accept(path("saved.csv"));
    button("Save &as…").click();
    QVERIFY(shows("Saving saved.csv"));
    QVERIFY(!m_page->mayLeave());
    QVERIFY(m_page->isVisible());
    QTRY_VERIFY(!m_page->isVisible());
    QVERIFY(QFileInfo(path("saved.csv")).size() > 1000);
    QVERIFY(m_page->mayLeave());
}

void tst_TableEditorPage::staysBelowADialog()
{
    FileDialogScript script;
    m_page->show();
    openMeasurements(script);
    script.accept(path("saved.csv"));
    QPushButton& saveButton = button("Save &as…");
    saveButton.click();
    QVERIFY(!m_page->mayLeave());
    QMessageBox box(m_page.get());
    box.open();
    QTRY_VERIFY(saveButton.isEnabled());
    QVERIFY(m_page->isVisible());
    QVERIFY(!shows("Saving"));
    box.close();
    QVERIFY(m_page->mayLeave());
}

void tst_TableEditorPage::staysWhenTheTableCannotBeSaved()
{
    FileDialogScript script;
    m_page->show();
    openMeasurements(script);
    script.accept(path("missing folder/saved.csv"));
    button("Save &as…").click();
    QVERIFY(!m_page->mayLeave());
    auto* const messages = m_page->findChild<QPlainTextEdit*>();
    QTRY_VERIFY(messages->isVisible());
    QVERIFY2(messages->toPlainText().contains("saved.csv"), qPrintable(messages->toPlainText()));
    QVERIFY(m_page->isVisible());
    QVERIFY(!shows("Saving"));

    // The messages of a former attempt do not stay beside a success.
    script.accept(path("saved.csv"));
    save();
    QVERIFY(!messages->isVisible());
    QVERIFY(m_page->isVisible());
}

void tst_TableEditorPage::givesTheKeyboardToTheTable()
{
    FileDialogScript script;
    m_page->show();
    button("&Open…").setFocus();
    openMeasurements(script);
    QCOMPARE(m_page->focusWidget(), m_page->findChild<QTableView*>());
    QVERIFY(shows("24 rows, 6 columns"));
}

/// A dialog has a model of the file system, with threads and watchers.
void tst_TableEditorPage::leavesNoDialogBehind()
{
    FileDialogScript script;
    m_page->show();
    openMeasurements(script);
    const auto count = [this] {
        int count = 0;
        for (QWidget* const widget : QApplication::allWidgets()) {
            count += qobject_cast<QFileDialog*>(widget) ? 1 : 0;
            count += int(widget->findChildren<QFileSystemModel*>(QString(), Qt::FindDirectChildrenOnly).size());
        }
        return count + int(m_page->findChildren<QObject*>().size());
    };
    const int before = count();
    for (int i = 0; i < 5; ++i) {
        script.accept(path("saved.csv"));
        save();
    }
    QCOMPARE(script.verify(), QString());
    QTRY_COMPARE(count(), before);
}

UI_TEST_MAIN(tst_TableEditorPage)
#include "tst_TableEditorPage.moc"
