#include "pages/TableEditorPage.h"

#include "testing/FileDialogScript.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"

#include "DialogDriver.h"
#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TestHome.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

using gallery::TableEditorPage;
using zelmar::testing::FileDialogScript;

namespace {

const QByteArray sample = "name,colour,number\nfirst,red,1.50\nsecond,light red,\nthird,blue,3e2\n";

/// A window that closes only if its first page allows that.
class Window : public QStackedWidget
{
protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->setAccepted(static_cast<TableEditorPage*>(widget(0))->mayLeave());
    }
};

} // namespace

Q_DECLARE_METATYPE(QVector<Qt::Key>)

/// Edits a small table with the keys of a user, who sees the page in a window with another page behind it.
class tst_TableEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void savesIntoTheSameFile();
    void savesInTheFormatOfTheLastSave();
    void savesInUtf8AndTellsSo();
    void savesWhatIsTyped_data();
    void savesWhatIsTyped();
    void hasItsShortcutsWhileItIsShown();
    void savesOnceAtATime();
    void tellsTheShortcuts();
    void asksNothingWithoutEdits();
    void staysWhenCancelled();
    void closesWithoutDiscardedEdits();
    void closesWhenTheEditsAreSaved();
    void opensAnotherWhenTheEditsAreSaved();
    void staysWhenTheEditsCannotBeSaved();
    void asksAgainAboutEditsWhileSaving();
    void endsALoadBeforeAQuestion();
    void survivesItsEndInTheQuestion_data();
    void survivesItsEndInTheQuestion();

    void undoesByKey();
    void tellsWhatIsUndone();
    void undoesATextThatIsBeingTyped();
    void undoesTypingWithinAnEditor();
    void knowsTheEditsWhileSaving();
    void undoesNothingOfAnotherTable();

    void goesOnAfterACell_data();
    void goesOnAfterACell();
    void clearsTheSelectedCells();
    void clearsNothingElse();
    void clearsNoHugeSelection();
    void editsAndCancelsByKey();

    void opensADroppedFile();
    void asksBeforeADroppedFileIsOpened();
    void opensADroppedFileWhenTheTableIsSaved();
    void refusesOtherDrops_data();
    void refusesOtherDrops();
    void refusesDropsOnOtherPages();

    void editsNumbers_data();
    void editsNumbers();
    void keepsATextThatIsNoNumber();
    void tellsWhatIsNoNumberWhenTheEditorIsLeft();
    void storesWhatWasTypedWhenLeft_data();
    void storesWhatWasTypedWhenLeft();
    void keepsAMissingCell();
    void keepsWhatIsNoFiniteNumber();
    void keepsLongTexts_data();
    void keepsLongTexts();
    void keepsTheKeyboardWhenSavedByButton();
    void goesOnTypingAfterAMenu_data();
    void goesOnTypingAfterAMenu();
    void showsTheCurrentRow();
    void goesToARow();
    void stepsByRowsAndPages();

    void needsNoMouse();

private:
    QSpinBox& rowField() const { return *m_page->findChild<QSpinBox*>(); }
    bool drop(const QList<QUrl>& urls, Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction);
    void open(const QString& name, const QByteArray& contents);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    void save();
    void edit(int row, int column, const QString& text);
    void answer(QMessageBox::StandardButton button, const std::function<void()>& ask);
    void go(int row, int column);
    QTableView& view() const { return *m_page->findChild<QTableView*>(); }
    QAbstractItemModel& table() const { return *view().model(); }
    QString text(int row, int column) const { return table().index(row, column).data().toString(); }
    bool shows(const QString& text) const;
    bool isEdited() const { return shows(", edited"); }
    QPushButton& button(const QString& text) const;
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QUrl url(const QString& name) const { return QUrl::fromLocalFile(path(name)); }
    void write(const QString& name, const QByteArray& contents) const;
    QByteArray contents(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FileDialogScript> m_script;
    std::unique_ptr<Window> m_window;
    TableEditorPage* m_page = nullptr;
};

void tst_TableEditing::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_script = std::make_unique<FileDialogScript>();
    m_window = std::make_unique<Window>();
    m_page = new TableEditorPage;
    m_window->addWidget(m_page);
    m_window->addWidget(new QLineEdit);
    m_window->resize(800, 600);
    m_window->show();
    takeKeyboardFocus(*m_page);
    open("table.csv", sample);
}

void tst_TableEditing::cleanup()
{
    if (m_script)
        QCOMPARE(m_script->verify(), QString());
    m_window.reset();
    m_script.reset();
    m_folder.reset();
    ExtendedFileDialog::setUseNativeFileDialog(true);
}

void tst_TableEditing::write(const QString& name, const QByteArray& contents) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(contents);
}

/// Writes a file and opens it by shortcut.
void tst_TableEditing::open(const QString& name, const QByteArray& contents)
{
    write(name, contents);
    m_script->accept(path(name));
    const QSignalSpy resets(&table(), &QAbstractItemModel::modelReset);
    press(Qt::Key_O, Qt::ControlModifier);
    QTRY_COMPARE(resets.size(), 1);
}

/// Sends the key to the window, from which Qt looks for shortcuts and forwards the key to an open list.
void tst_TableEditing::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTRY_VERIFY(QApplication::activePopupWidget() || hasKeyboard(*m_window));
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

/// Selects a cell as a click does, whichever keys were pressed last.
void tst_TableEditing::go(int row, int column)
{
    view().selectionModel()->setCurrentIndex(table().index(row, column), QItemSelectionModel::ClearAndSelect);
    view().setFocus();
}

void tst_TableEditing::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::keyClick(m_window->windowHandle(), letter.toLatin1());
}

/// Saves by shortcut and waits until the table is saved.
void tst_TableEditing::save()
{
    press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(button("&Save").isEnabled());
}

/// Returns whether a visible label contains the text.
bool tst_TableEditing::shows(const QString& text) const
{
    const QList<QLabel*> labels = m_page->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&](const QLabel* label) { return label->isVisible() && label->text().contains(text); });
}

QPushButton& tst_TableEditing::button(const QString& text) const
{
    for (QPushButton* const button : m_page->findChildren<QPushButton*>()) {
        if (button->text() == text)
            return *button;
    }
    qFatal("the page has no button %s", qPrintable(text));
}

QByteArray tst_TableEditing::contents(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Saving

void tst_TableEditing::savesIntoTheSameFile()
{
    go(0, 0);
    type("new");
    press(Qt::Key_Return);
    QTRY_VERIFY(isEdited());
    save();
    QCOMPARE(m_script->dialogs().size(), 1U);
    QVERIFY2(contents("table.csv").contains("\nnew,red,1.50\n"), contents("table.csv").constData());
    QVERIFY(!isEdited());
}

void tst_TableEditing::savesInTheFormatOfTheLastSave()
{
    m_script->accept(path("saved.json"));
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(button("&Save").isEnabled());
    go(0, 0);
    type("new");
    press(Qt::Key_Return);
    QTRY_VERIFY(isEdited());
    save();
    QVERIFY(contents("saved.json").contains("\"new\""));
    QCOMPARE(contents("table.csv"), sample);
}

void tst_TableEditing::savesInUtf8AndTellsSo()
{
    open("latin.csv", "name\nna\xefve\n");
    QVERIFY(shows("Latin-1"));
    save();
    QVERIFY(shows("UTF-8"));
    QCOMPARE(contents("latin.csv"), QByteArray("name\nna\xc3\xafve\n"));
}

void tst_TableEditing::savesWhatIsTyped_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isSavedAs");
    QTest::newRow("a text") << 0 << "typed" << false;
    QTest::newRow("a text below its completions") << 1 << "red" << false;
    QTest::newRow("a number") << 2 << "25" << false;
    QTest::newRow("a text, saved as") << 0 << "typed" << true;
    QTest::newRow("a text below its completions, saved as") << 1 << "red" << true;
}

/// The text is in the table although no key has ended typing.
void tst_TableEditing::savesWhatIsTyped()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(bool, isSavedAs);
    go(1, column);
    type(typed);
    QCOMPARE(QApplication::activePopupWidget() != nullptr, column == 1);
    if (isSavedAs)
        m_script->accept(path("table2.csv"));
    press(Qt::Key_S, isSavedAs ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
    QTRY_VERIFY(button("&Save").isEnabled());
    QCOMPARE(text(1, column), typed);
    QTRY_VERIFY(contents(isSavedAs ? "table2.csv" : "table.csv").contains(typed.toLatin1()));
    QVERIFY(!isEdited());
}

void tst_TableEditing::hasItsShortcutsWhileItIsShown()
{
    m_window->setCurrentIndex(1);
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_S})
        press(key, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_script->dialogs().size(), 1U);
    QVERIFY(button("&Save").isEnabled());

    // They work wherever the keyboard is on the page.
    m_window->setCurrentIndex(0);
    button("&Open…").setFocus();
    m_script->cancel();
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_script->dialogs().size(), 2U);
}

void tst_TableEditing::savesOnceAtATime()
{
    QTRY_VERIFY(hasKeyboard(*m_window));
    // Keys to the widget are taken without an event loop, so that the end of the save is noticed after all of them.
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
    for (const char* text : {"&Open…", "&Save", "Save &as…"})
        QVERIFY(!button(QString::fromUtf8(text)).isEnabled());
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(m_window.get(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(m_script->dialogs().size(), 1U);
    for (const char* text : {"&Open…", "&Save", "Save &as…"})
        QTRY_VERIFY(button(QString::fromUtf8(text)).isEnabled());
}

void tst_TableEditing::tellsTheShortcuts()
{
    const auto native = [](const char* keys) {
        return QKeySequence(QString::fromLatin1(keys)).toString(QKeySequence::NativeText);
    };
    QVERIFY(button("&Open…").toolTip().contains(native("Ctrl+O")));
    QVERIFY(button("&Save").toolTip().contains(native("Ctrl+S")));
    QVERIFY(button("Save &as…").toolTip().contains(native("Ctrl+Shift+S")));
}

// Questions about edits

/// Types a text into a cell, and Return.
void tst_TableEditing::edit(int row, int column, const QString& text)
{
    go(row, column);
    type(text);
    press(Qt::Key_Return);
    QTRY_COMPARE(this->text(row, column), text);
}

/// Calls `ask`, which must ask one question, and answers it.
void tst_TableEditing::answer(QMessageBox::StandardButton button, const std::function<void()>& ask)
{
    DialogDriver driver;
    driver.onDialog<QMessageBox>("answer", [button](QMessageBox& box) { box.button(button)->click(); });
    ask();
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
}

void tst_TableEditing::asksNothingWithoutEdits()
{
    QVERIFY(m_page->mayLeave());
    go(0, 0);
    press(Qt::Key_F2);
    QVERIFY(m_window->close());
}

void tst_TableEditing::staysWhenCancelled()
{
    edit(0, 0, "new");
    answer(QMessageBox::Cancel, [this] { QVERIFY(!m_window->close()); });
    answer(QMessageBox::Cancel, [this] { press(Qt::Key_O, Qt::ControlModifier); });
    QCOMPARE(m_script->dialogs().size(), 1U);
    QVERIFY(isEdited());
    QCOMPARE(contents("table.csv"), sample);
}

void tst_TableEditing::closesWithoutDiscardedEdits()
{
    edit(0, 0, "new");
    answer(QMessageBox::Discard, [this] { QVERIFY(m_window->close()); });
    QCOMPARE(contents("table.csv"), sample);
}

void tst_TableEditing::closesWhenTheEditsAreSaved()
{
    edit(0, 0, "new");
    answer(QMessageBox::Save, [this] { QVERIFY(!m_window->close()); });
    QVERIFY(m_window->isVisible());
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY(contents("table.csv").contains("\nnew,"));
}

void tst_TableEditing::opensAnotherWhenTheEditsAreSaved()
{
    write("other.csv", "name\nother\n");
    edit(0, 0, "new");
    m_script->accept(path("other.csv"));
    answer(QMessageBox::Save, [this] { press(Qt::Key_O, Qt::ControlModifier); });
    QTRY_COMPARE(text(0, 0), QString("other"));
    QVERIFY(contents("table.csv").contains("\nnew,"));
}

void tst_TableEditing::staysWhenTheEditsCannotBeSaved()
{

    edit(0, 0, "new");
    m_folder->remove(); // No file can be written there.
    answer(QMessageBox::Save, [this] { QVERIFY(!m_window->close()); });
    QTRY_VERIFY(button("&Save").isEnabled());
    QVERIFY(m_page->findChild<QPlainTextEdit*>()->toPlainText().contains("table.csv"));
    QVERIFY(m_window->isVisible());
    QVERIFY(isEdited());
}

void tst_TableEditing::asksAgainAboutEditsWhileSaving()
{
    edit(0, 0, "new");
    answer(QMessageBox::Save, [this] { QVERIFY(!m_window->close()); });
    table().setData(table().index(1, 0), "newer");
    answer(QMessageBox::Cancel, [this] { QTRY_VERIFY(button("&Save").isEnabled()); });
    QVERIFY(m_window->isVisible());
    QVERIFY(isEdited());
}

void tst_TableEditing::endsALoadBeforeAQuestion()
{
    edit(0, 0, "new");
    m_script->accept(path("table.csv"));
    // Uses no key press, after which events are handled that could end the load.
    answer(QMessageBox::Discard, [this] { button("&Open…").click(); });
    QVERIFY(!button("&Save").isEnabled());
    answer(QMessageBox::Cancel, [this] { QVERIFY(!m_window->close()); });
    QVERIFY(button("&Save").isEnabled());
    QCOMPARE(text(0, 0), QString("new"));
}

void tst_TableEditing::survivesItsEndInTheQuestion_data()
{
    QTest::addColumn<bool>("isOpening");
    QTest::newRow("closing") << false;
    QTest::newRow("opening") << true;
}

void tst_TableEditing::survivesItsEndInTheQuestion()
{
    QFETCH(bool, isOpening);
    edit(0, 0, "new");
    DialogDriver driver;
    driver.onDialog<QMessageBox>("destroy the window", [this](QMessageBox& /*box*/) { m_window.reset(); });
    if (isOpening)
        button("&Open…").click();
    else
        QVERIFY(!m_page->mayLeave());
    QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    QCOMPARE(m_script->dialogs().size(), 1U);
}

// Undo

void tst_TableEditing::undoesByKey()
{
    edit(0, 0, "new");
    edit(2, 1, "newer");
    go(1, 2);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(2, 1), QString("blue"));
    QCOMPARE(view().currentIndex(), table().index(2, 1));
    QVERIFY(isEdited());
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(0, 0), QString("first"));
    QCOMPARE(view().currentIndex(), table().index(0, 0));
    QVERIFY(!isEdited());
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(view().currentIndex(), table().index(0, 0));

    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(text(0, 0), QString("new"));
    QCOMPARE(text(2, 1), QString("newer"));
    QCOMPARE(view().currentIndex(), table().index(2, 1));
    QVERIFY(isEdited());
}

void tst_TableEditing::tellsWhatIsUndone()
{
    QVERIFY(!button("U&ndo").isEnabled());
    QVERIFY(!button("Re&do").isEnabled());
    edit(1, 0, "new");
    QVERIFY(button("U&ndo").isEnabled());
    QVERIFY2(button("U&ndo").toolTip().startsWith("Undo edit in row 2 ("), qPrintable(button("U&ndo").toolTip()));
    button("U&ndo").click();
    QVERIFY(!button("U&ndo").isEnabled());
    QVERIFY2(button("Re&do").toolTip().startsWith("Redo edit in row 2 ("), qPrintable(button("Re&do").toolTip()));
}

void tst_TableEditing::undoesATextThatIsBeingTyped()
{
    edit(1, 0, "new");
    go(0, 0);
    type("typed");
    button("U&ndo").click();
    QCOMPARE(text(0, 0), QString("first"));
    QCOMPARE(text(1, 0), QString("new"));
    QVERIFY(!view().indexWidget(table().index(0, 0)));
    button("Re&do").click();
    QCOMPARE(text(0, 0), QString("typed"));
}

void tst_TableEditing::undoesTypingWithinAnEditor()
{
    edit(1, 0, "new");
    go(0, 0);
    press(Qt::Key_F2);
    type("typed");
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(1, 0), QString("new"));
    QVERIFY(view().indexWidget(table().index(0, 0)));
    press(Qt::Key_Return);
    QTRY_VERIFY(!view().indexWidget(table().index(0, 0)));
    QCOMPARE(text(0, 0), QString("first"));
}

void tst_TableEditing::knowsTheEditsWhileSaving()
{
    edit(0, 0, "new");
    button("&Save").click(); // after which no events are handled
    table().setData(table().index(0, 0), "newer");
    QTRY_VERIFY(button("&Save").isEnabled());
    QVERIFY(contents("table.csv").contains("\nnew,"));
    QVERIFY(isEdited());
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(0, 0), QString("new"));
    QVERIFY(!isEdited());
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(isEdited());
}

void tst_TableEditing::undoesNothingOfAnotherTable()
{
    edit(0, 0, "new");
    save();
    open("other.csv", "name\nother\n");
    QVERIFY(!button("U&ndo").isEnabled());
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(0, 0), QString("other"));
    QVERIFY(!isEdited());
}

// Keys of cells

void tst_TableEditing::goesOnAfterACell_data()
{
    using Keys = QVector<Qt::Key>;
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<bool>("isBack");
    QTest::addColumn<QPoint>("to");
    const auto add = [](const char* name, QPoint from, const Keys& keys, bool isBack, QPoint to) {
        for (const int column : {0, 1, 2}) { // which have editors of different classes
            if (from.x() < 0 || from.x() == column)
                QTest::addRow("%s, column %d", name, column)
                    << QPoint(column, from.y()) << keys << isBack << (to.x() < 0 ? QPoint(column, to.y()) : to);
        }
    };
    add("Return", {-1, 0}, {Qt::Key_Return}, false, {-1, 1});
    add("Enter", {-1, 0}, {Qt::Key_Enter}, false, {-1, 1});
    add("Return in the last row", {-1, 2}, {Qt::Key_Return}, false, {-1, 2});
    add("Shift+Return", {-1, 1}, {Qt::Key_Return}, true, {-1, 0});
    add("Shift+Return in the first row", {-1, 0}, {Qt::Key_Return}, true, {-1, 0});
    add("Tab", {0, 1}, {Qt::Key_Tab}, false, {1, 1});
    add("Tab", {1, 1}, {Qt::Key_Tab}, false, {2, 1});
    add("Tab at the end of a row", {2, 0}, {Qt::Key_Tab}, false, {0, 1});
    add("Tab in the last cell", {2, 2}, {Qt::Key_Tab}, false, {2, 2});
    add("Shift+Tab", {1, 1}, {Qt::Key_Backtab}, true, {0, 1});
    add("Shift+Tab", {2, 1}, {Qt::Key_Backtab}, true, {1, 1});
    add("Shift+Tab at the beginning of a row", {0, 1}, {Qt::Key_Backtab}, true, {2, 0});
    add("Shift+Tab in the first cell", {0, 0}, {Qt::Key_Backtab}, true, {0, 0});
    add("Shift+Tab below the completions", {1, 1}, {Qt::Key_Home, Qt::Key_Backtab}, true, {0, 1});
    add("Return in the completions", {1, 0}, {Qt::Key_Down, Qt::Key_Return}, false, {1, 1});
    add("Return in the list", {1, 0}, {Qt::Key_F4, Qt::Key_Down, Qt::Key_Return}, false, {1, 1});
}

/// Types a digit, which is a text and a number, and ends editing by keys. If the box has a list, takes another text.
void tst_TableEditing::goesOnAfterACell()
{
    QFETCH(QPoint, from);
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(bool, isBack);
    QFETCH(QPoint, to);
    const QString before = text(from.y(), from.x());
    go(from.y(), from.x());
    press(Qt::Key_F2);
    type(keys.size() > 1 ? "l" : "7");
    for (const Qt::Key key : keys)
        press(key, isBack ? Qt::ShiftModifier : Qt::NoModifier);
    QTRY_COMPARE(view().currentIndex(), table().index(to.y(), to.x()));
    QVERIFY(text(from.y(), from.x()) != before);
    QVERIFY(!view().indexWidget(table().index(from.y(), from.x())));
    QTRY_VERIFY(view().hasFocus());
    QCOMPARE(view().selectionModel()->selectedIndexes().size(), 1);
}

void tst_TableEditing::clearsTheSelectedCells()
{
    go(0, 0);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Delete);
    for (const int row : {0, 1}) {
        for (const int column : {0, 1})
            QCOMPARE(text(row, column), QString());
    }
    QCOMPARE(text(0, 2), QString("1.50"));
    QCOMPARE(text(2, 0), QString("third"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(0, 0), QString("first"));
    QCOMPARE(text(1, 1), QString("light red"));
    QVERIFY(!isEdited());
}

void tst_TableEditing::clearsNothingElse()
{
    go(0, 0);
    press(Qt::Key_F2);
    press(Qt::Key_Home);
    press(Qt::Key_Delete); // a letter
    press(Qt::Key_Return);
    QTRY_COMPARE(text(0, 0), QString("irst"));

    go(0, 0);
    button("&Open…").setFocus();
    press(Qt::Key_Delete);
    QCOMPARE(text(0, 0), QString("irst"));
}

void tst_TableEditing::clearsNoHugeSelection()
{
    open("long.csv", "a\n" + QByteArray("1\n").repeated(100001));
    view().selectAll();
    press(Qt::Key_Delete);
    QCOMPARE(text(0, 0), QString("1"));
    QVERIFY(m_page->findChild<QPlainTextEdit*>()->toPlainText().contains(QLocale().toString(100000)));
}

void tst_TableEditing::editsAndCancelsByKey()
{
    for (const int column : {0, 1, 2}) {
        const QString before = text(0, column);
        go(0, column);
        press(Qt::Key_F2);
        QVERIFY(view().indexWidget(table().index(0, column)));
        type("7");
        if (QApplication::activePopupWidget())
            press(Qt::Key_Escape);
        press(Qt::Key_Escape);
        QTRY_VERIFY(!view().indexWidget(table().index(0, column)));
        QCOMPARE(text(0, column), before);
        QCOMPARE(view().currentIndex(), table().index(0, column));
        QVERIFY(view().hasFocus());
    }
    QVERIFY(!isEdited());
}

// Dropped files

/// Drags files into the window and drops them if that is accepted, which the function returns.
bool tst_TableEditing::drop(const QList<QUrl>& urls, Qt::DropActions actions)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({10, 10}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move({20, 20}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop({20, 20}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QApplication::sendEvent(m_window.get(), &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return false;
    QApplication::sendEvent(m_window.get(), &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

void tst_TableEditing::opensADroppedFile()
{
    write("other.csv", "name\nother\n");
    QVERIFY(drop({url("other.csv")}));
    QCOMPARE(text(0, 0), QString("first"));
    QTRY_COMPARE(text(0, 0), QString("other"));
}

void tst_TableEditing::asksBeforeADroppedFileIsOpened()
{
    write("other.csv", "name\nother\n");
    edit(0, 0, "new");
    answer(QMessageBox::Cancel, [this] {
        QVERIFY(drop({url("other.csv")}));
        QCoreApplication::processEvents();
    });
    QCOMPARE(text(0, 0), QString("new"));
    answer(QMessageBox::Save, [this] {
        QVERIFY(drop({url("other.csv")}));
        QCoreApplication::processEvents();
    });
    QTRY_COMPARE(text(0, 0), QString("other"));
    QVERIFY(contents("table.csv").contains("\nnew,"));
}

void tst_TableEditing::opensADroppedFileWhenTheTableIsSaved()
{
    write("other.csv", "name\nother\n");
    edit(0, 0, "new");
    button("&Save").click();
    QVERIFY(drop({url("other.csv")}));
    QTRY_COMPARE(text(0, 0), QString("other"));
    QVERIFY(contents("table.csv").contains("\nnew,"));
}

void tst_TableEditing::refusesOtherDrops_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<int>("actions");
    const int all = Qt::CopyAction | Qt::MoveAction;
    QTest::newRow("nothing") << QStringList() << all;
    QTest::newRow("two files") << QStringList{"table.csv", "table.csv"} << all;
    QTest::newRow("a folder") << QStringList{""} << all;
    QTest::newRow("a page of the web") << QStringList{"https://example.com/table.csv"} << all;
    QTest::newRow("a file to be moved") << QStringList{"table.csv"} << int(Qt::MoveAction);
}

void tst_TableEditing::refusesOtherDrops()
{
    QFETCH(QStringList, urls);
    QFETCH(int, actions);
    QList<QUrl> dragged;
    for (const QString& text : urls)
        dragged += text.contains("://") ? QUrl(text) : url(text);
    QVERIFY(!drop(dragged, Qt::DropActions(actions)));
}

void tst_TableEditing::refusesDropsOnOtherPages()
{
    m_window->setCurrentIndex(1);
    QVERIFY(!drop({url("table.csv")}));
    m_window->setCurrentIndex(0);
    QVERIFY(drop({url("table.csv")}));
}

// Numbers

void tst_TableEditing::editsNumbers_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVector<Qt::Key>>("keys");
    QTest::addColumn<QString>("stored");
    using Keys = QVector<Qt::Key>;
    const Keys end{Qt::Key_Return};
    QTest::newRow("a number") << 0 << "2.5" << end << "2.5";
    QTest::newRow("with its zeros") << 0 << "2.50" << end << "2.50";
    QTest::newRow("with an exponent") << 0 << "1e-7" << end << "1e-7";
    QTest::newRow("with all its digits") << 0 << "3.14159265358979312" << end << "3.14159265358979312";
    QTest::newRow("with group separators") << 0 << "1,234" << end << "1234";
    QTest::newRow("a letter is not typed") << 0 << "12x4" << end << "124";
    QTest::newRow("untouched") << 0 << "" << end << "1.50";
    QTest::newRow("untouched, with an exponent") << 2 << "" << end << "3e2";
    QTest::newRow("untouched and empty") << 1 << "" << end << "";
    QTest::newRow("into an empty cell") << 1 << "7" << end << "7";
    QTest::newRow("removed") << 0 << "" << Keys{Qt::Key_Backspace, Qt::Key_Return} << "";
    QTest::newRow("a step") << 0 << "" << Keys{Qt::Key_Up, Qt::Key_Return} << "2.5";
    QTest::newRow("ended by Tab") << 0 << "8" << Keys{Qt::Key_Tab} << "8";
    QTest::newRow("a step from nothing") << 1 << "" << Keys{Qt::Key_Down, Qt::Key_Return} << "-1";
    QTest::newRow("there and back") << 0 << "" << Keys{Qt::Key_Up, Qt::Key_Down, Qt::Key_Return} << "1.50";
    QTest::newRow("cancelled") << 0 << "8" << Keys{Qt::Key_Escape} << "1.50";
}

void tst_TableEditing::editsNumbers()
{
    QFETCH(int, row);
    QFETCH(QString, typed);
    QFETCH(QVector<Qt::Key>, keys);
    QFETCH(QString, stored);
    const QString before = text(row, 2);
    go(row, 2);
    press(Qt::Key_F2);
    const auto* const field = qobject_cast<QDoubleSpinBox*>(view().indexWidget(table().index(row, 2)));
    QVERIFY(field);
    QTRY_VERIFY(field->isVisible());
    QCOMPARE(field->text(), before);
    type(typed);
    for (const Qt::Key key : keys)
        press(key);
    QTRY_VERIFY(!view().indexWidget(table().index(row, 2)));
    QCOMPARE(text(row, 2), stored);
    QCOMPARE(isEdited(), stored != before);
}

/// The editor stays open, so that the user can go on typing, and nothing is done with the table without the text.
void tst_TableEditing::keepsATextThatIsNoNumber()
{
    edit(1, 0, "new");
    go(0, 2);
    press(Qt::Key_F2);
    type("12e");
    press(Qt::Key_Return);
    QVERIFY(view().indexWidget(table().index(0, 2)));
    QVERIFY(shows("\"12e\" is no number"));
    press(Qt::Key_S, Qt::ControlModifier);
    QTest::mouseClick(&button("&Save"), Qt::LeftButton);
    QTest::mouseClick(&button("U&ndo"), Qt::LeftButton);
    QVERIFY(!m_page->mayLeave());
    QVERIFY(view().indexWidget(table().index(0, 2)));
    QVERIFY(shows("\"12e\" is no number"));
    QCOMPARE(contents("table.csv"), sample);
    QCOMPARE(text(1, 0), QString("new"));
    QCOMPARE(text(0, 2), QString("1.50"));

    type("3");
    press(Qt::Key_Return);
    QTRY_COMPARE(text(0, 2), QString("12e3"));
    QVERIFY(!shows("is no number"));
}

void tst_TableEditing::tellsWhatIsNoNumberWhenTheEditorIsLeft()
{
    go(0, 2);
    press(Qt::Key_F2);
    type("12e");
    button("&Open…").setFocus();
    QTRY_VERIFY(!view().indexWidget(table().index(0, 2)));
    QCOMPARE(text(0, 2), QString("1.50"));
    QVERIFY(shows("\"12e\" is no number"));
    edit(0, 1, "any");
    QVERIFY(!shows("is no number"));
}

/// A field that loses the keyboard shows the text of its value, which is not what was typed.
void tst_TableEditing::storesWhatWasTypedWhenLeft_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("more digits than are shown") << "0.12345678901234567";
    QTest::newRow("with its zeros") << "2.50";
    QTest::newRow("nothing") << "";
}

void tst_TableEditing::storesWhatWasTypedWhenLeft()
{
    QFETCH(QString, typed);
    go(0, 2);
    press(Qt::Key_F2);
    press(Qt::Key_Backspace);
    type(typed);
    auto* const field = qobject_cast<QDoubleSpinBox*>(view().indexWidget(table().index(0, 2)));
    QVERIFY(field);
    field->interpretText();
    rowField().setFocus();
    QTRY_VERIFY(!view().indexWidget(table().index(0, 2)));
    QCOMPARE(text(0, 2), typed);
}

void tst_TableEditing::keepsAMissingCell()
{
    open("short.csv", "a,b\n1,2\n3\n");
    go(1, 1);
    press(Qt::Key_F2);
    QVERIFY(qobject_cast<QDoubleSpinBox*>(view().indexWidget(table().index(1, 1))));
    press(Qt::Key_Return);
    QTRY_VERIFY(!view().indexWidget(table().index(1, 1)));
    QCOMPARE(text(1, 1), QString());
    QVERIFY(!isEdited());
}

void tst_TableEditing::keepsWhatIsNoFiniteNumber()
{
    const QStringList texts{"inf", "-inf", "nan", "1e999", "n/a"};
    // Every second of 2000 rows determines the kind of the column.
    open("limits.csv", "a\n1\n" + texts.join("\n1\n").toUtf8() + "\n" + QByteArray("1\n").repeated(1990));
    for (const QString& text : texts) {
        const QModelIndex cell = table().index(2 * int(texts.indexOf(text)) + 1, 0);
        QCOMPARE(cell.data().toString(), text);
        go(cell.row(), 0);
        press(Qt::Key_F2);
        QVERIFY(qobject_cast<QDoubleSpinBox*>(view().indexWidget(cell)));
        press(Qt::Key_Return);
        QTRY_VERIFY(!view().indexWidget(cell));
        go(cell.row(), 0);
        press(Qt::Key_F2);
        rowField().setFocus();
        QTRY_VERIFY(!view().indexWidget(cell));
        QCOMPARE(cell.data().toString(), text);
        takeKeyboardFocus(view());
    }
    QVERIFY(!isEdited());
}

void tst_TableEditing::keepsLongTexts_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("completed") << QByteArray("a\n");
    QTest::newRow("not completed") << QByteArray("a\n1\n");
}

void tst_TableEditing::keepsLongTexts()
{
    QFETCH(QByteArray, header);
    open("long.csv", header + QByteArray(40000, 'x') + "\n");
    const int row = table().rowCount() - 1;
    go(row, 0);
    press(Qt::Key_F2);
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    QTRY_COMPARE(text(row, 0).size(), 39999);
}

/// The button is disabled while the table is saved.
void tst_TableEditing::keepsTheKeyboardWhenSavedByButton()
{
    edit(0, 0, "new");
    button("&Save").setFocus();
    QTest::keyClick(&button("&Save"), Qt::Key_Space);
    QTRY_COMPARE(contents("table.csv").left(30), QByteArray(sample).replace("first", "new").left(30));
    QVERIFY(view().hasFocus());
}

void tst_TableEditing::goesOnTypingAfterAMenu_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("begun");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a text") << 1 << "gre"
                            << "en"
                            << "green";
    QTest::newRow("a number") << 2 << "2.5e"
                              << "0"
                              << "2.5e0";
    QTest::newRow("nothing yet") << 2 << ""
                                 << "7"
                                 << "7";
}

void tst_TableEditing::goesOnTypingAfterAMenu()
{
    QFETCH(int, column);
    QFETCH(QString, begun);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    auto* bar = new QMenuBar(m_window.get());
    QMenu* const menu = bar->addMenu("&View");
    menu->addAction("Dark");
    bar->show();
    go(0, column);
    press(Qt::Key_F2);
    press(Qt::Key_Backspace);
    type(begun);
    if (QWidget* const list = QApplication::activePopupWidget())
        list->hide();
    press(Qt::Key_V, Qt::AltModifier);
    QTRY_VERIFY(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    QTest::keyClick(bar, Qt::Key_Escape);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    type(typed);
    press(Qt::Key_Return);
    QTRY_COMPARE(text(0, column), stored);
}

// Rows

void tst_TableEditing::showsTheCurrentRow()
{
    QCOMPARE(rowField().value(), 1);
    QCOMPARE(rowField().minimum(), 1);
    QCOMPARE(rowField().maximum(), 3);
    go(2, 1);
    QCOMPARE(rowField().value(), 3);
    open("short.csv", "a\n1\n2\n");
    QCOMPARE(rowField().value(), 1);
    QCOMPARE(rowField().maximum(), 2);
    open("empty.csv", "a\n");
    QVERIFY(!rowField().isEnabled());
}

void tst_TableEditing::goesToARow()
{
    go(0, 1);
    press(Qt::Key_R, Qt::AltModifier);
    QVERIFY(rowField().hasFocus());
    rowField().selectAll();
    type("3");
    press(Qt::Key_Return);
    QCOMPARE(view().currentIndex(), table().index(2, 1));
}

void tst_TableEditing::stepsByRowsAndPages()
{
    open("long.csv", "a\n" + QByteArray("1\n").repeated(1000));
    rowField().setFocus();
    press(Qt::Key_Up);
    QCOMPARE(view().currentIndex().row(), 1);
    press(Qt::Key_PageUp);
    const int page = view().currentIndex().row() - 1;
    QVERIFY2(page > 1 && qAbs(page * view().rowHeight(0) - view().viewport()->height()) < 2 * view().rowHeight(0),
             qPrintable(QString::number(page)));
    press(Qt::Key_PageDown);
    press(Qt::Key_Down);
    QCOMPARE(view().currentIndex().row(), 0);
    press(Qt::Key_PageDown);
    QCOMPARE(view().currentIndex().row(), 0);

    // A step begins at the number that is typed, and stays in the table.
    rowField().selectAll();
    type("995");
    press(Qt::Key_Up);
    QCOMPARE(view().currentIndex().row(), 995);
    press(Qt::Key_PageUp);
    QCOMPARE(view().currentIndex().row(), 999);
}

// All together

/// Opens, edits and saves a table by keys alone, also in the dialogs.
void tst_TableEditing::needsNoMouse()
{
    m_script.reset(); // The dialogs are real ones.
    ExtendedFileDialog::setUseNativeFileDialog(false);
    write("other.csv", "name,number\nfirst,1\nsecond,2\n");
    const auto answerDialog = [this](const QString& name, Qt::KeyboardModifiers modifiers, Qt::Key key) {
        DialogDriver driver;
        driver.onDialog<QFileDialog>("type a name", [&](QFileDialog& dialog) { acceptName(dialog, path(name)); });
        press(key, modifiers);
        QVERIFY2(driver.finished(), qPrintable(driver.problem()));
    };
    answerDialog("other.csv", Qt::ControlModifier, Qt::Key_O);
    QTRY_COMPARE(table().columnCount(), 2);
    QTRY_VERIFY(view().hasFocus());
    press(Qt::Key_Right);
    type("12.50");
    press(Qt::Key_Return);
    type("7");
    press(Qt::Key_Tab);
    QTRY_COMPARE(text(1, 1), QString("7"));
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(text(1, 1), QString("2"));
    press(Qt::Key_Up);
    press(Qt::Key_Left);
    press(Qt::Key_Delete);
    save();
    QCOMPARE(contents("other.csv"), QByteArray("name,number\n,12.50\nsecond,2\n"));

    press(Qt::Key_Z, Qt::ControlModifier);
    answerDialog("saved.json", Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_S);
    QTRY_VERIFY(button("&Save").isEnabled());
    QVERIFY(contents("saved.json").contains("first"));
    QVERIFY(!isEdited());
}

UI_TEST_MAIN(tst_TableEditing)
#include "tst_TableEditing.moc"
