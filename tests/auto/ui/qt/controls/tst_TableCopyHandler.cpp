#include "ui/qt/controls/TableCopyHandler.h"

#include "Keyboard.h"
#include "TestHome.h"
#include "VirtualSlot.h"
#include "plainTableText.h"
#include "systemLimits.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QHeaderView>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <functional>
#include <memory>
#include <type_traits>

using zelmar::ui::CopyHandlerAbstract;
using zelmar::ui::TableCopyHandler;

static_assert(std::is_base_of<CopyHandlerAbstract, TableCopyHandler>::value, "the base class filters the key presses");
static_assert(!std::is_abstract<TableCopyHandler>::value, "the class is concrete");
static_assert(!std::is_constructible<TableCopyHandler, QTableView*>::value, "the view cannot be null");

namespace {

const QString untouched = QStringLiteral("initial clipboard text");

QString cellName(int row, int column)
{
    return QChar('A' + column) + QString::number(row + 1);
}

/// Returns a model whose cells contain their spreadsheet names: A1, B1, ...
std::unique_ptr<QStandardItemModel> namedCells(int rows, int columns)
{
    auto model = std::make_unique<QStandardItemModel>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            model->setItem(row, column, new QStandardItem(cellName(row, column)));
    }
    return model;
}

/// A model that performs an action when the text of a certain cell is read.
class ActingModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 3; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const QString name = cellName(index.row(), index.column());
        if (index == actingCell && action)
            action(); // may delete this
        return name;
    }

    QModelIndex actingCell;
    std::function<void()> action;
};

} // namespace

class tst_TableCopyHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void belongsToTheView();
    void copiesSelectedCells_data();
    void copiesSelectedCells();
    void copiesRowsAndColumns();
    void copiesDisplayTexts_data();
    void copiesDisplayTexts();
    void copiesTheDisplayRole();
    void skipsDisabledAndUnselectableCells();
    void keepsTheOrderOfTheModelWhenColumnsAreMoved();
    void copiesHiddenCells();
    void copiesSpannedCells();
    void copiesTheRowsOfAProxy();
    void copiesBelowARootIndex();
    void copiesCellsOfSeveralParents();
    void copiesCellsSelectedTwiceTwice();
    void ignoresInvalidRanges();
    void followsTheModel();
    void followsTheSelectionModel();
    void copiesNothingWithoutSelectionModel();
    void keepsTheMouseSelection();
    void copiesByKeyboard();
    void letsOtherKeysPass();
    void editorReceivesTheCopyKeys();
    void copiesByAction();
    void isASlot();
    void keepsTheOrderOfVirtualFunctions();
    void isDeletedWithTheView();
    void viewIsDeletedByASlot_data();
    void viewIsDeletedByASlot();
    void viewIsDeletedByData();
    void modelIsDeletedByData_data();
    void modelIsDeletedByData();
    void rowsAreRemovedByData();
    void agreesWithThePlainTextOfRandomSelections();

private:
    QModelIndex cell(const QString& name) const;
    void select(const QString& names);
    QString copied();

    std::unique_ptr<QAbstractItemModel> m_model;
    std::unique_ptr<QTableView> m_view;
    TableCopyHandler* m_handler = nullptr;
};

void tst_TableCopyHandler::init()
{
    m_model = namedCells(4, 4);
    m_view = std::make_unique<QTableView>();
    m_view->setModel(m_model.get());
    m_handler = new TableCopyHandler(*m_view);
    QGuiApplication::clipboard()->setText(untouched);
}

void tst_TableCopyHandler::cleanup()
{
    m_view.reset();
    m_model.reset();
}

QModelIndex tst_TableCopyHandler::cell(const QString& name) const
{
    return m_view->model()->index(name.mid(1).toInt() - 1, name.at(0).unicode() - 'A', m_view->rootIndex());
}

/// Selects the cells and ranges in `names` one after the other, for example "B2 A1:C3".
void tst_TableCopyHandler::select(const QString& names)
{
    for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList corners = name.split(QLatin1Char(':'));
        m_view->selectionModel()->select(QItemSelection(cell(corners.first()), cell(corners.last())),
                                         QItemSelectionModel::Select);
    }
}

QString tst_TableCopyHandler::copied()
{
    m_handler->copyToClipboard();
    return QGuiApplication::clipboard()->text();
}

void tst_TableCopyHandler::belongsToTheView()
{
    QCOMPARE(m_handler->parent(), m_view.get());
    QCOMPARE(QGuiApplication::clipboard()->text(), untouched);
}

void tst_TableCopyHandler::copiesSelectedCells_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing selected") << ""
                                      << "";
    QTest::newRow("one cell") << "C2"
                              << "C2";
    QTest::newRow("a row") << "A2:D2"
                           << "A2\tB2\tC2\tD2";
    QTest::newRow("a column") << "B1:B4"
                              << "B1\nB2\nB3\nB4";
    QTest::newRow("a block") << "B2:C3"
                             << "B2\tC2\nB3\tC3";
    QTest::newRow("selected in reverse order") << "B2 A1 B1"
                                               << "A1\tB1\nB2";
    QTest::newRow("an unselected column between") << "A1 C1"
                                                  << "A1\tC1";
    QTest::newRow("an unselected row between") << "A1 A3"
                                               << "A1\nA3";
    QTest::newRow("rows of different lengths") << "A1:C1 B2 D4 A4"
                                               << "A1\tB1\tC1\nB2\nA4\tD4";
    QTest::newRow("adjacent blocks, the right one starts higher") << "A2:B4 D1:D3"
                                                                  << "D1\nA2\tB2\tD2\nA3\tB3\tD3\nA4\tB4";
    QTest::newRow("adjacent blocks, the right one is longer") << "C1:D4 A1:A2"
                                                              << "A1\tC1\tD1\nA2\tC2\tD2\nC3\tD3\nC4\tD4";
    QTest::newRow("overlapping blocks") << "A1:B2 B2:C3"
                                        << "A1\tB1\nA2\tB2\tC2\nB3\tC3";
}

void tst_TableCopyHandler::copiesSelectedCells()
{
    QFETCH(QString, selected);
    QFETCH(QString, text);
    select(selected);
    QCOMPARE(copied(), text);
    QCOMPARE(text, plainTableText(*m_view));
}

void tst_TableCopyHandler::copiesRowsAndColumns()
{
    m_view->selectRow(2);
    QCOMPARE(copied(), QStringLiteral("A3\tB3\tC3\tD3"));
    m_view->selectColumn(3);
    QCOMPARE(copied(), QStringLiteral("D1\nD2\nD3\nD4"));
    m_view->clearSelection();
    QCOMPARE(copied(), QString());
    m_view->selectAll();
    QCOMPARE(copied().count(QLatin1Char('\t')), 12);
}

void tst_TableCopyHandler::copiesDisplayTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("no value") << QVariant() << "";
    QTest::newRow("empty text") << QVariant(QString()) << "";
    QTest::newRow("non-ASCII text") << QVariant(QStringLiteral("\u03b1\u05d0\U0001d11e"))
                                    << QStringLiteral("\u03b1\u05d0\U0001d11e");
    QTest::newRow("tabs and line feeds") << QVariant(QStringLiteral("a\tb\nc\r\n\"")) << "a\tb\nc\r\n\"";
    QTest::newRow("null character") << QVariant(QString(QChar(0))) << QString(QChar(0));
    QTest::newRow("integer") << QVariant(-42) << "-42";
    QTest::newRow("double") << QVariant(1.0 / 3) << "0.3333333333333333";
    QTest::newRow("large double") << QVariant(-1e300) << "-1e+300";
    QTest::newRow("negative zero") << QVariant(-0.0) << "0";
    QTest::newRow("float") << QVariant(0.1F) << QVariant(0.1F).toString();
    QTest::newRow("bool") << QVariant(true) << "true";
    QTest::newRow("date") << QVariant(QDate(2001, 2, 3)) << "2001-02-03";
    QTest::newRow("bytes") << QVariant(QByteArray("\xce\xb1")) << QStringLiteral("\u03b1");
    QTest::newRow("list with one string") << QVariant(QStringList{QStringLiteral("a")}) << "a";
    QTest::newRow("value without a text") << QVariant(QPoint(1, 2)) << "";
}

void tst_TableCopyHandler::copiesDisplayTexts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    m_model->setData(m_model->index(0, 0), value, Qt::DisplayRole);
    m_model->setData(m_model->index(1, 1), value, Qt::DisplayRole);
    select(QStringLiteral("A1:B2"));
    QCOMPARE(copied(), text + QStringLiteral("\tB1\nA2\t") + text);
}

void tst_TableCopyHandler::copiesTheDisplayRole()
{
    class Roles : public QStandardItemModel
    {
    public:
        using QStandardItemModel::QStandardItemModel;
        QVariant data(const QModelIndex& index, int role) const override
        {
            Q_UNUSED(index)
            return role == Qt::DisplayRole ? QStringLiteral("shown") : QStringLiteral("role %1").arg(role);
        }
    };
    Roles model(1, 1);
    m_view->setModel(&model);
    select(QStringLiteral("A1"));
    QCOMPARE(copied(), QStringLiteral("shown"));
    m_view->setModel(nullptr);
}

void tst_TableCopyHandler::skipsDisabledAndUnselectableCells()
{
    const auto& model = static_cast<QStandardItemModel&>(*m_model);
    model.item(0, 1)->setFlags(Qt::ItemIsSelectable);
    model.item(1, 0)->setFlags(Qt::ItemIsEnabled);
    model.item(1, 3)->setFlags(Qt::NoItemFlags);
    for (int column = 0; column < 4; ++column)
        model.item(2, column)->setEnabled(false);
    select(QStringLiteral("A1:D4"));
    QCOMPARE(copied(), QStringLiteral("A1\tC1\tD1\nB2\tC2\nA4\tB4\tC4\tD4"));
}

void tst_TableCopyHandler::keepsTheOrderOfTheModelWhenColumnsAreMoved()
{
    m_view->horizontalHeader()->moveSection(3, 0);
    m_view->verticalHeader()->moveSection(0, 2);
    select(QStringLiteral("D1 A1 B2 C2"));
    QCOMPARE(copied(), QStringLiteral("A1\tD1\nB2\tC2"));
}

void tst_TableCopyHandler::copiesHiddenCells()
{
    m_view->hideColumn(1);
    m_view->hideRow(1);
    select(QStringLiteral("A1:C3"));
    QCOMPARE(copied(), QStringLiteral("A1\tB1\tC1\nA2\tB2\tC2\nA3\tB3\tC3"));
}

/// A span covers cells only visually and does not change which cells are selected.
void tst_TableCopyHandler::copiesSpannedCells()
{
    m_view->setSpan(0, 0, 2, 2);
    select(QStringLiteral("A1 C1"));
    QCOMPARE(copied(), QStringLiteral("A1\tC1"));
    select(QStringLiteral("A1:C2"));
    QCOMPARE(copied(), QStringLiteral("A1\tB1\tC1\nA2\tB2\tC2"));
}

void tst_TableCopyHandler::copiesTheRowsOfAProxy()
{
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(m_model.get());
    proxy.setFilterRegularExpression(QStringLiteral("[124]$"));
    proxy.sort(0, Qt::DescendingOrder);
    m_view->setModel(&proxy);
    m_view->selectAll();
    QCOMPARE(copied(), QStringLiteral("A4\tB4\tC4\tD4\nA2\tB2\tC2\tD2\nA1\tB1\tC1\tD1"));
    m_view->clearSelection();
    select(QStringLiteral("B1 A3 D2"));
    proxy.sort(0, Qt::AscendingOrder);
    QCOMPARE(copied(), QStringLiteral("A1\nD2\nB4"));
    m_view->setModel(nullptr);
}

void tst_TableCopyHandler::copiesBelowARootIndex()
{
    auto& model = static_cast<QStandardItemModel&>(*m_model);
    QStandardItem* root = model.item(1, 0);
    root->appendRow({new QStandardItem(QStringLiteral("a")), new QStandardItem(QStringLiteral("b"))});
    root->appendRow({new QStandardItem(QStringLiteral("c")), new QStandardItem(QStringLiteral("d"))});
    m_view->setRootIndex(root->index());
    m_view->selectAll();
    QCOMPARE(copied(), QStringLiteral("a\tb\nc\td"));
}

/// Only a program, not the user, can select cells of several parents.
void tst_TableCopyHandler::copiesCellsOfSeveralParents()
{
    auto& model = static_cast<QStandardItemModel&>(*m_model);
    for (int row = 0; row < 4; ++row)
        model.item(row, 0)->appendRow(new QStandardItem(QStringLiteral("below %1").arg(row + 1)));
    for (int row = 3; row >= 0; --row)
        m_view->selectionModel()->select(model.item(row, 0)->child(0)->index(), QItemSelectionModel::Select);
    select(QStringLiteral("A1:A2 B1:C2"));
    const QString text = copied();
    QCOMPARE(text, plainTableText(*m_view));
    QCOMPARE(text.count(QStringLiteral("below")), 4);
    QCOMPARE(text.count(QLatin1Char('\n')), 1);
}

/// QItemSelection::indexes() lists such cells twice as well.
void tst_TableCopyHandler::copiesCellsSelectedTwiceTwice()
{
    QItemSelection selection(cell(QStringLiteral("A1")), cell(QStringLiteral("B2")));
    selection.append(QItemSelectionRange(cell(QStringLiteral("B2")), cell(QStringLiteral("C2"))));
    m_view->selectionModel()->select(selection, QItemSelectionModel::Select);
    QCOMPARE(copied(), QStringLiteral("A1\tB1\nA2\tB2\tB2\tC2"));
    QCOMPARE(copied(), plainTableText(*m_view));
}

void tst_TableCopyHandler::ignoresInvalidRanges()
{
    QItemSelection selection;
    selection.append(QItemSelectionRange());
    selection.append(QItemSelectionRange(cell(QStringLiteral("B2"))));
    selection.append(QItemSelectionRange(cell(QStringLiteral("C3")), cell(QStringLiteral("A1"))));
    m_view->selectionModel()->select(selection, QItemSelectionModel::Select);
    QCOMPARE(copied(), QStringLiteral("B2"));
}

void tst_TableCopyHandler::followsTheModel()
{
    select(QStringLiteral("A1:B2"));
    const auto other = std::make_unique<QStandardItemModel>(1, 1);
    other->setItem(0, 0, new QStandardItem(QStringLiteral("other")));
    m_view->setModel(other.get());
    QCOMPARE(copied(), QString());
    select(QStringLiteral("A1"));
    QCOMPARE(copied(), QStringLiteral("other"));
    m_view->setModel(nullptr);
    QCOMPARE(copied(), QString());

    m_view->setModel(m_model.get());
    select(QStringLiteral("C3"));
    QCOMPARE(copied(), QStringLiteral("C3"));
    m_model.reset();
    QCOMPARE(copied(), QString());
}

void tst_TableCopyHandler::followsTheSelectionModel()
{
    select(QStringLiteral("A1"));
    QItemSelectionModel other(m_model.get());
    other.select(m_model->index(2, 2), QItemSelectionModel::Select);
    m_view->setSelectionModel(&other);
    QCOMPARE(copied(), QStringLiteral("C3"));
}

void tst_TableCopyHandler::copiesNothingWithoutSelectionModel()
{
    select(QStringLiteral("A1"));
    delete m_view->selectionModel();
    QVERIFY(m_view->selectionModel() == nullptr);
    QCOMPARE(copied(), QString());

    QTableView view;
    QVERIFY(view.selectionModel() == nullptr);
    QGuiApplication::clipboard()->setText(untouched);
    TableCopyHandler(view).copyToClipboard();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
}

void tst_TableCopyHandler::keepsTheMouseSelection()
{
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (systemLimits::noMouseSelection)
        QSKIP(systemLimits::noMouseSelection);
    QVERIFY(clipboard.supportsSelection());
    clipboard.setText(untouched, QClipboard::Selection);
    select(QStringLiteral("A1"));
    QCOMPARE(copied(), QStringLiteral("A1"));
    QCOMPARE(clipboard.text(QClipboard::Selection), untouched);
}

void tst_TableCopyHandler::copiesByKeyboard()
{
    m_view->show();
    takeKeyboardFocus(*m_view);
    QVERIFY(m_view->hasFocus());
    QCoreApplication::processEvents(); // some platforms signal earlier changes with a delay
    const QSignalSpy changes(QGuiApplication::clipboard(), SIGNAL(dataChanged()));
    QWindow* window = m_view->windowHandle();
    QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
    QTRY_COMPARE(changes.count(), 1);

    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), plainTableText(*m_view));
    QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 3);
    QTRY_COMPARE(changes.count(), 2); // a third change would mean that the view copied the current cell as well
}

void tst_TableCopyHandler::letsOtherKeysPass()
{
    m_view->show();
    takeKeyboardFocus(*m_view);
    m_view->setCurrentIndex(cell(QStringLiteral("B2")));
    QWindow* window = m_view->windowHandle();
    QTest::keyClick(window, Qt::Key_Down);
    QCOMPARE(m_view->currentIndex(), cell(QStringLiteral("B3")));
    QTest::keyClick(window, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(m_view->currentIndex(), cell(QStringLiteral("C3")));
    QTest::keyClick(window, Qt::Key_D); // starts the keyboard search
    QCOMPARE(QGuiApplication::clipboard()->text(), untouched);
    QTest::keyClick(window, Qt::Key_F2);
    QVERIFY(m_view->findChild<QLineEdit*>() != nullptr);
}

void tst_TableCopyHandler::editorReceivesTheCopyKeys()
{
    m_view->show();
    takeKeyboardFocus(*m_view);
    m_view->selectAll();
    m_view->setCurrentIndex(cell(QStringLiteral("B2")));
    m_view->edit(m_view->currentIndex());
    auto* editor = m_view->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    QTRY_VERIFY(editor->hasFocus());
    editor->setSelection(0, 1);
    QTest::keyClick(m_view->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("B"));
}

void tst_TableCopyHandler::copiesByAction()
{
    QAction action;
    QVERIFY(connect(&action, SIGNAL(triggered()), m_handler, SLOT(copyToClipboard())));
    select(QStringLiteral("B2"));
    action.trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("B2"));
}

void tst_TableCopyHandler::isASlot()
{
    const QMetaObject& metaObject = TableCopyHandler::staticMetaObject;
    QCOMPARE(metaObject.className(), "zelmar::ui::TableCopyHandler");
    QCOMPARE(metaObject.superClass(), &CopyHandlerAbstract::staticMetaObject);
    QCOMPARE(metaObject.methodCount() - metaObject.methodOffset(), 1);
    const QMetaMethod method = metaObject.method(metaObject.methodOffset());
    QCOMPARE(method.methodSignature(), QByteArray("copyToClipboard()"));
    QCOMPARE(method.methodType(), QMetaMethod::Slot);
    QCOMPARE(method.access(), QMetaMethod::Public);
    select(QStringLiteral("A1"));
    QVERIFY(QMetaObject::invokeMethod(m_handler, "copyToClipboard"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("A1"));
}

void tst_TableCopyHandler::keepsTheOrderOfVirtualFunctions()
{
    if (systemLimits::noVirtualSlots)
        QSKIP(systemLimits::noVirtualSlots);
    QCOMPARE(virtualSlot(&TableCopyHandler::copyToClipboard), virtualSlot(&CopyHandlerAbstract::copyToClipboard));
}

void tst_TableCopyHandler::isDeletedWithTheView()
{
    const QPointer<TableCopyHandler> handler = m_handler;
    m_view.reset();
    QVERIFY(!handler);
}

void tst_TableCopyHandler::viewIsDeletedByASlot_data()
{
    QTest::addColumn<bool>("byKeyboard");
    QTest::newRow("in a call") << false;
    QTest::newRow("in a key press") << true;
}

void tst_TableCopyHandler::viewIsDeletedByASlot()
{
    QFETCH(bool, byKeyboard);
    m_view->show();
    takeKeyboardFocus(*m_view);
    select(QStringLiteral("A1:B1"));
    const QPointer<TableCopyHandler> handler = m_handler;
    QObject context;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context, [this] { m_view.reset(); });
    if (byKeyboard)
        QTest::keyClick(m_view.get(), Qt::Key_C, Qt::ControlModifier);
    else
        m_handler->copyToClipboard();
    QTRY_VERIFY(!handler);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("A1\tB1"));
}

void tst_TableCopyHandler::viewIsDeletedByData()
{
    ActingModel model;
    model.actingCell = model.index(1, 0);
    m_view->setModel(&model);
    m_view->selectAll();
    model.action = [this] { m_view.reset(); };
    const QPointer<TableCopyHandler> handler = m_handler;
    m_handler->copyToClipboard();
    QVERIFY(!handler);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("A1\tB1\nA2\tB2\nA3\tB3"));
}

void tst_TableCopyHandler::modelIsDeletedByData_data()
{
    QTest::addColumn<QString>("actingCell");
    QTest::newRow("first cell") << "A1";
    QTest::newRow("last cell of a row") << "B2";
    QTest::newRow("last cell") << "B3";
}

void tst_TableCopyHandler::modelIsDeletedByData()
{
    QFETCH(QString, actingCell);
    auto* model = new ActingModel(m_view.get());
    m_view->setModel(model);
    model->actingCell = cell(actingCell);
    m_view->selectAll();
    QTableView* view = m_view.release();
    model->action = [view] { delete view; };
    const QPointer<TableCopyHandler> handler = m_handler;
    m_handler->copyToClipboard();
    QVERIFY(!handler);
    QCOMPARE(QGuiApplication::clipboard()->text(), untouched);
}

void tst_TableCopyHandler::rowsAreRemovedByData()
{
    class Shrinking : public QStandardItemModel
    {
    public:
        Shrinking()
            : QStandardItemModel(3, 1)
        {
        }
        QVariant data(const QModelIndex& index, int role) const override
        {
            if (role == Qt::DisplayRole && rowCount() == 3)
                const_cast<Shrinking*>(this)->setRowCount(1);
            return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
        }
    };
    Shrinking model;
    m_view->setModel(&model);
    m_view->selectAll();
    QCOMPARE(copied(), QStringLiteral("0"));
    m_view->setModel(nullptr);
}

namespace {

/// A random table in a view, with random selections that a user or a program could make.
class RandomTable
{
public:
    RandomTable(QRandomGenerator& random, QTableView& view)
        : m_random(random)
        , m_view(view)
    {
        const int rows = int(random.bounded(20));
        const int columns = int(random.bounded(1, 10));
        QStandardItem* parent = m_model.invisibleRootItem();
        if (oneIn(4)) {
            m_model.setItem(0, 0, new QStandardItem);
            parent = m_model.item(0, 0);
        }
        parent->setColumnCount(columns);
        for (int row = 0; row < rows; ++row)
            parent->appendRow(makeRow(columns));
        show();
        if (parent != m_model.invisibleRootItem())
            m_view.setRootIndex(fromSource(parent->index()));
        arrange();
    }

    ~RandomTable() { m_view.setModel(nullptr); }

    void selectSomething()
    {
        m_view.selectionModel()->clear();
        const int steps = int(m_random.bounded(8));
        for (int step = 0; step < steps; ++step) {
            if (oneIn(10))
                m_view.model()->sort(int(m_random.bounded(m_view.horizontalHeader()->count() + 1)));
            m_view.selectionModel()->select(makeSelection(), makeCommand());
        }
    }

private:
    bool oneIn(int number) { return m_random.bounded(number) == 0; }

    QList<QStandardItem*> makeRow(int columns)
    {
        QList<QStandardItem*> row;
        for (int column = 0; column < columns; ++column) {
            auto* item = new QStandardItem;
            item->setData(makeValue(), Qt::DisplayRole);
            item->setEnabled(!oneIn(6));
            item->setSelectable(!oneIn(6));
            row += item;
        }
        return row;
    }

    QVariant makeValue()
    {
        switch (m_random.bounded(4)) {
        case 0:
            return m_random.generateDouble();
        case 1:
            return m_random.bounded(1000);
        case 2:
            return oneIn(3) ? QStringLiteral("a\tb\nc") : QString();
        default:
            return QString::number(m_random.generate(), 36);
        }
    }

    void show()
    {
        if (oneIn(2)) {
            m_view.setModel(&m_model);
            return;
        }
        m_proxy.setSourceModel(&m_model);
        m_view.setModel(&m_proxy);
    }

    QModelIndex fromSource(const QModelIndex& index) const
    {
        return m_view.model() == &m_proxy ? m_proxy.mapFromSource(index) : index;
    }

    void arrange()
    {
        QHeaderView& header = *m_view.horizontalHeader();
        for (int column = 0; column < header.count(); ++column) {
            header.moveSection(column, int(m_random.bounded(header.count())));
            header.setSectionHidden(column, oneIn(5));
        }
        if (header.count() > 1 && m_view.verticalHeader()->count() > 1)
            m_view.setSpan(0, 0, 2, 2);
    }

    /// Returns ranges that may be empty and may overlap.
    QItemSelection makeSelection()
    {
        QItemSelection selection;
        const int ranges = oneIn(4) ? 3 : 1;
        for (int range = 0; range < ranges; ++range) {
            const QModelIndex parent = oneIn(10) ? QModelIndex() : m_view.rootIndex();
            selection.append(QItemSelection(makeCell(parent), makeCell(parent)));
        }
        return selection;
    }

    QModelIndex makeCell(const QModelIndex& parent)
    {
        const QAbstractItemModel& model = *m_view.model();
        if (!model.hasIndex(0, 0, parent))
            return {};
        return model.index(int(m_random.bounded(model.rowCount(parent))),
                           int(m_random.bounded(model.columnCount(parent))), parent);
    }

    QItemSelectionModel::SelectionFlags makeCommand()
    {
        const QItemSelectionModel::SelectionFlags commands[] = {
            QItemSelectionModel::Select, QItemSelectionModel::Toggle, QItemSelectionModel::Deselect,
            QItemSelectionModel::SelectCurrent, QItemSelectionModel::Toggle | QItemSelectionModel::Current};
        QItemSelectionModel::SelectionFlags command = commands[m_random.bounded(5)];
        if (oneIn(10))
            command |= QItemSelectionModel::Rows;
        else if (oneIn(10))
            command |= QItemSelectionModel::Columns;
        return command;
    }

    QRandomGenerator& m_random;
    QTableView& m_view;
    QStandardItemModel m_model;
    QSortFilterProxyModel m_proxy;
};

bool isSorted(const QModelIndexList& cells)
{
    return std::is_sorted(cells.cbegin(), cells.cend());
}

} // namespace

void tst_TableCopyHandler::agreesWithThePlainTextOfRandomSelections()
{
    QRandomGenerator random(20);
    int nonEmpty = 0;
    int unsorted = 0;
    int disabled = 0;
    for (int table = 0; table < 500; ++table) {
        RandomTable cells(random, *m_view);
        for (int selection = 0; selection < 20; ++selection) {
            cells.selectSomething();
            const QModelIndexList selected = m_view->selectionModel()->selectedIndexes();
            nonEmpty += selected.isEmpty() ? 0 : 1;
            unsorted += isSorted(selected) ? 0 : 1;
            int inRanges = 0;
            for (const QItemSelectionRange& range : m_view->selectionModel()->selection())
                inRanges += range.width() * range.height();
            disabled += inRanges > selected.size() ? 1 : 0;
            QCOMPARE(copied(), plainTableText(*m_view));
        }
    }
    // Ensures that the random selections cover the interesting cases.
    QVERIFY2(nonEmpty > 5000 && unsorted > 2000 && disabled > 2000,
             qPrintable(QStringLiteral("%1 %2 %3").arg(nonEmpty).arg(unsorted).arg(disabled)));
}

UI_TEST_MAIN(tst_TableCopyHandler)
#include "tst_TableCopyHandler.moc"
