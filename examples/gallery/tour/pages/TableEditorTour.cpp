#include "pageTours.h"
#include "widgetsOnPage.h"

#include "GalleryPage.h"
#include "tour/Tour.h"

#include "FileDialogActions.h"
#include "Keyboard.h"
#include "TableFormat.h"

#include "ui/qt/controls/ElidedTextLabel.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>
#include <QUrl>
#include <QWindow>

namespace gallery {

namespace {

const char* const openButton = "Open…";
const char* const saveButton = "Save";
const char* const saveAsButton = "Save as…";

/// A user of the table editor.
class TableEditorTour
{
public:
    TableEditorTour(GalleryPage& page, Tour& tour)
        : m_page(page)
        , m_tour(tour)
        , m_view(*page.findChild<QTableView*>())
    {
    }

    void run();

private:
    void cancelDialogs();
    void openTable();
    void copyCells();
    void editByKeyboard();
    void saveTables();
    void editWhileSaving();
    void keepUnsavedEdits();
    void dropFiles();
    void cancelLoading();
    void openBrokenTable();

    void open(const QString& name, const QString& picture = {});
    void save(const QString& name, int format);
    bool drop(const QString& name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);

    [[nodiscard]] QAbstractButton& button(const char* text) const
    {
        return buttonOnPage(m_page, QString::fromUtf8(text));
    }
    [[nodiscard]] QAbstractItemModel& model() const { return *m_view.model(); }
    [[nodiscard]] QModelIndex cell(int row, int column) const { return model().index(row, column); }
    [[nodiscard]] QString path() const { return m_page.findChild<ElidedTextLabel*>()->text(); }
    [[nodiscard]] QString facts() const { return m_page.findChild<QLabel*>(QStringLiteral("facts"))->text(); }
    [[nodiscard]] QString messages() const
    {
        return widgetOfLabel<QPlainTextEdit>(m_page, QStringLiteral("Messages")).toPlainText();
    }
    [[nodiscard]] bool isEdited() const { return facts().endsWith(QStringLiteral(", edited")); }
    /// Returns whether the table is neither being loaded nor being saved.
    [[nodiscard]] bool isIdle() const { return button(saveButton).isEnabled(); }
    void waitUntilIdle(const char* what)
    {
        m_tour.waitUntil(QString::fromUtf8(what), [this] { return isIdle(); });
    }
    [[nodiscard]] QVector<QStringList> texts() const;

    GalleryPage& m_page;
    Tour& m_tour;
    QTableView& m_view;
};

void TableEditorTour::run()
{
    cancelDialogs();
    openTable();
    copyCells();
    editByKeyboard();
    m_tour.readHelpAndCancelFileDialog([this] { button(saveAsButton).click(); });
    saveTables();
    editWhileSaving();
    keepUnsavedEdits();
    dropFiles();
    cancelLoading();
    openBrokenTable();
}

void TableEditorTour::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_page.window()->windowHandle(), key, modifiers);
}

void TableEditorTour::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::keyClick(m_page.window()->windowHandle(), letter.toLatin1());
}

/// Returns the header and the rows.
QVector<QStringList> TableEditorTour::texts() const
{
    QVector<QStringList> texts(1);
    for (int column = 0; column < model().columnCount(); ++column)
        texts.first() += model().headerData(column, Qt::Horizontal).toString();
    for (int row = 0; row < model().rowCount(); ++row) {
        texts.append(QStringList());
        for (int column = 0; column < model().columnCount(); ++column)
            texts.last() += cell(row, column).data(Qt::EditRole).toString();
    }
    return texts;
}

void TableEditorTour::cancelDialogs()
{
    m_tour.useFileDialog({}, QString(), {cancel}, [this] { button(openButton).click(); });
    m_tour.expect(model().rowCount() == 0, QStringLiteral("a cancelled dialog loads nothing"));
}

void TableEditorTour::open(const QString& name, const QString& picture)
{
    m_tour.acceptFileDialog({name, -1, picture}, [this] { button(openButton).click(); });
}

void TableEditorTour::openTable()
{
    takeKeyboardFocus(m_view);
    m_tour.acceptFileDialog({QStringLiteral("measurements.csv")}, [this] { press(Qt::Key_O, Qt::ControlModifier); });
    waitUntilIdle("the table is loaded");
    m_tour.log(QStringLiteral("shown: ") + path());
    m_tour.log(QStringLiteral("table: ") + facts());
    m_tour.expect(model().rowCount() > 0, QStringLiteral("the table has rows"));
    m_tour.expect(messages().isEmpty(), QStringLiteral("nothing went wrong"));
    m_tour.takePicture();
}

/// Verifies that a cell with a long text is drawn abridged but copied completely.
void TableEditorTour::copyCells()
{
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    model().setData(cell(0, 0), QString(5000, QLatin1Char('x')));
    takeKeyboardFocus(m_view);
    m_view.selectRow(0);
    press(Qt::Key_C, Qt::ControlModifier);
    const QString copied = clipboard.text();
    m_tour.expect(copied == texts()[1].join(QLatin1Char('\t')), QStringLiteral("a row is copied whole"));
    m_tour.log(QStringLiteral("copied a row: %1 fields").arg(copied.count(QLatin1Char('\t')) + 1));
    press(Qt::Key_Z, Qt::ControlModifier);

    for (const int action : {1, 0}) // Select all, and Copy
        m_view.actions().at(action)->trigger();
    QStringList lines;
    for (const QStringList& row : texts().mid(1))
        lines += row.join(QLatin1Char('\t'));
    m_tour.expect(clipboard.text() == lines.join(QLatin1Char('\n')),
                  QStringLiteral("the table is copied, without its header"));
}

/// Edits, undoes and saves by keyboard alone.
void TableEditorTour::editByKeyboard()
{
    takeKeyboardFocus(m_view);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    type(QStringLiteral("4.25"));
    m_tour.takePicture(QStringLiteral("number"));
    press(Qt::Key_Return);
    m_tour.expect(cell(0, 2).data().toString() == QStringLiteral("4.25"), QStringLiteral("a number is typed"));
    m_tour.expect(m_view.currentIndex() == cell(1, 2), QStringLiteral("Return leads to the next row"));
    press(Qt::Key_Delete);
    m_tour.expect(cell(1, 2).data().toString().isEmpty(), QStringLiteral("Delete clears a cell"));
    type(QStringLiteral("12e"));
    press(Qt::Key_Return);
    m_tour.takePicture(QStringLiteral("refused"));
    press(Qt::Key_Escape);
    m_tour.expect(isEdited(), QStringLiteral("an edit is unsaved"));
    m_tour.takePicture(QStringLiteral("edited"));
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    m_tour.expect(!isEdited(), QStringLiteral("the table without its edits is that of the file"));
    m_tour.takePicture(QStringLiteral("undone"));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    m_tour.expect(m_view.currentIndex() == cell(0, 2), QStringLiteral("a cell that is edited again is shown"));

    press(Qt::Key_R, Qt::AltModifier);
    press(Qt::Key_PageUp);
    const int page = m_view.currentIndex().row();
    m_tour.expect(page > 1 && page < model().rowCount(), QStringLiteral("a step of a page leads some rows further"));
    m_tour.takePicture(QStringLiteral("row"));
    press(Qt::Key_S, Qt::ControlModifier);
    waitUntilIdle("the table is saved");
    m_tour.expect(!isEdited(), QStringLiteral("the table is saved in its file"));
    m_tour.log(QStringLiteral("edited and saved by keyboard: ") + path());
    m_tour.takePicture(QStringLiteral("saved"));
}

/// Verifies for each format that a saved table is the same when it is opened again.
void TableEditorTour::saveTables()
{
    model().setData(cell(1, 5), QStringLiteral("edited, \"quoted\"\nin two lines\tand with a tab"));
    const QVector<QStringList> saved = texts();
    for (int format = 0; format < tableFormats().size(); ++format) {
        const QString name = QStringLiteral("saved.") + tableFormats()[format].extension;
        save(name, format);
        m_tour.expect(!isEdited(), QStringLiteral("the table is saved"));
        open(name);
        waitUntilIdle("the table is loaded");
        m_tour.expect(texts() == saved, QStringLiteral("what was saved opens again to the same table: ") + name);
        m_tour.log(QStringLiteral("saved and opened again: %1, %2").arg(path(), facts()));
    }
}

void TableEditorTour::save(const QString& name, int format)
{
    // Types the name without its extension, which the save flow appends. The first filter is the current format.
    m_tour.acceptFileDialog(
        {QFileInfo(name).completeBaseName(), format, format == 0 ? QStringLiteral("save") : QString()},
        [this] { button(saveAsButton).click(); });
    waitUntilIdle("the table is saved");
    m_tour.expect(QFileInfo(path()).fileName() == name, QStringLiteral("the table is saved as ") + name);
}

void TableEditorTour::editWhileSaving()
{
    m_tour.acceptFileDialog({QStringLiteral("edited"), 0, QString()}, [this] { button(saveAsButton).click(); });
    m_tour.expect(!isIdle(), QStringLiteral("the table is being saved"));
    model().setData(cell(0, 0), QStringLiteral("edited meanwhile"));
    waitUntilIdle("the table is saved");
    m_tour.expect(isEdited(), QStringLiteral("an edit that came while the table was saved is unsaved"));
    button("Undo").click();
    m_tour.expect(!isEdited(), QStringLiteral("the table before that edit is the saved one"));
}

void TableEditorTour::keepUnsavedEdits()
{
    model().setData(cell(0, 0), QStringLiteral("unsaved"));
    const QString shown = path();
    m_tour.answerQuestion(QMessageBox::Cancel, [this] { button(openButton).click(); });
    m_tour.expect(path() == shown && isEdited(), QStringLiteral("Cancel keeps the edits"));
    m_tour.answerQuestion(QMessageBox::Cancel, [this] { m_page.window()->close(); });
    m_tour.expect(m_page.window()->isVisible(), QStringLiteral("the window stays when edits would be lost"));
}

/// Drops a file of the current folder on the window, and returns whether that is accepted.
bool TableEditorTour::drop(const QString& name)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QFileInfo(path()).dir().filePath(name))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_page.window(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_page.window(), &drop);
    QCoreApplication::processEvents(); // in which the file is opened
    return drop.isAccepted();
}

void TableEditorTour::dropFiles()
{
    m_tour.expect(!drop(QStringLiteral(".")), QStringLiteral("a folder is not accepted"));
    m_tour.answerQuestion(QMessageBox::Save, [this] {
        m_tour.expect(drop(QStringLiteral("saved.csv")), QStringLiteral("a file is accepted"));
    });
    m_tour.waitUntil(QStringLiteral("the dropped file is shown"),
                     [this] { return isIdle() && QFileInfo(path()).fileName() == QStringLiteral("saved.csv"); });
    model().setData(cell(0, 0), QStringLiteral("discarded"));
    m_tour.answerQuestion(QMessageBox::Discard, [this] { drop(QStringLiteral("edited.csv")); });
    m_tour.waitUntil(QStringLiteral("the dropped file is shown"),
                     [this] { return isIdle() && QFileInfo(path()).fileName() == QStringLiteral("edited.csv"); });
    m_tour.expect(cell(0, 0).data().toString() == QStringLiteral("unsaved"),
                  QStringLiteral("the edits were saved before the next table was opened"));
}

void TableEditorTour::cancelLoading()
{
    const QString shown = path();
    open(QStringLiteral("broken.json"));
    m_tour.expect(!isIdle() && m_view.editTriggers() == QAbstractItemView::NoEditTriggers,
                  QStringLiteral("nothing is edited or saved while another table is loading"));
    m_tour.expect(m_view.cursor().shape() == Qt::BusyCursor, QStringLiteral("the table has a busy cursor meanwhile"));
    button("Cancel").setFocus();
    button("Cancel").click();
    m_tour.expect(m_page.window()->focusWidget() == &button(openButton),
                  QStringLiteral("the keyboard is where another table can be opened"));
    m_tour.expect(isIdle() && m_view.editTriggers() != QAbstractItemView::NoEditTriggers,
                  QStringLiteral("the table can be edited and saved when loading is cancelled"));
    m_tour.expect(m_view.cursor().shape() == Qt::ArrowCursor, QStringLiteral("the busy cursor goes with the load"));
    m_tour.expect(path() == shown, QStringLiteral("the table stays when loading is cancelled"));
    m_tour.log(QStringLiteral("cancelled loading, and kept: ") + path());
}

void TableEditorTour::openBrokenTable()
{
    const QString shown = path();
    open(QStringLiteral("broken.json"));
    waitUntilIdle("loading has failed");
    m_tour.log(QStringLiteral("message: ") + messages());
    m_tour.expect(messages().contains(QStringLiteral("broken.json")), QStringLiteral("the error is shown"));
    m_tour.expect(path() == shown, QStringLiteral("the table stays when another cannot be read"));
    m_tour.takePicture(QStringLiteral("message"));
}

} // namespace

void tourTableEditor(GalleryPage& page, Tour& tour)
{
    TableEditorTour(page, tour).run();
}

} // namespace gallery
