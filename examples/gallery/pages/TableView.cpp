#include "TableView.h"

#include "TableDelegate.h"

#include "ui/qt/controls/TableCopyHandler.h"

#include <QAction>
#include <QHeaderView>

#include <limits>

namespace gallery {

namespace {

// This number of columns does not fit on a screen. Fitting all columns of a wide table would take minutes.
const int fittedColumns = 100;
const int fittedRows = 100;

bool fits(const QHeaderView& header, int sections)
{
    return sections <= std::numeric_limits<int>::max() / header.defaultSectionSize();
}

/// Appends the keys to the text of an action, only for information, because the keys are handled elsewhere.
QString textWithKeys(const QString& text, QKeySequence::StandardKey keys)
{
    return text + QLatin1Char('\t') + QKeySequence(keys).toString(QKeySequence::NativeText);
}

} // namespace

TableView::TableView()
    : m_copyHandler(new zelmar::ui::TableCopyHandler(*this))
{
    setCellDelegate(*new TableDelegate(this));
    addContextMenu();
    // Tab moves to the next widget, because the keyboard could not leave the table otherwise.
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    horizontalHeader()->setResizeContentsPrecision(fittedRows);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    // The width of the row numbers is that of the last one, so that not every row is measured.
    verticalHeader()->setResizeContentsPrecision(0);
}

TableView::~TableView() = default;

void TableView::addContextMenu()
{
    auto* copy = new QAction(textWithKeys(tr("&Copy"), QKeySequence::Copy), this);
    connect(copy, &QAction::triggered, m_copyHandler, &zelmar::ui::TableCopyHandler::copyToClipboard);
    auto* selectAll = new QAction(textWithKeys(tr("Select &all"), QKeySequence::SelectAll), this);
    connect(selectAll, &QAction::triggered, this, &QTableView::selectAll);
    addActions({copy, selectAll});
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TableView::setCellDelegate(TableDelegate& delegate)
{
    m_delegate = &delegate;
    setItemDelegate(&delegate);
    connect(&delegate, &TableDelegate::cellLeft, this, &TableView::goOn);
}

/// Goes to another cell, from the end of a row to the next one.
void TableView::goOn(const CellStep& step)
{
    const int columns = model()->columnCount();
    const int column = currentIndex().column() + step.columns;
    const int row = currentIndex().row() + step.rows + (column == columns ? 1 : 0) - (column < 0 ? 1 : 0);
    goTo(model()->index(row, (column + columns) % columns));
}

void TableView::goTo(const QModelIndex& cell)
{
    if (cell.isValid())
        selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
}

bool TableView::canShow(int rows, int columns) const
{
    return fits(*verticalHeader(), rows) && fits(*horizontalHeader(), columns);
}

bool TableView::finishEditing()
{
    QWidget* const editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (editor && !m_delegate->accepts(*editor))
        return false;
    if (editor) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    return true;
}

int TableView::rowsOnPage() const
{
    return qMax(1, viewport()->height() / verticalHeader()->defaultSectionSize());
}

void TableView::fitColumns()
{
    const int columns = model() != nullptr ? qMin(model()->columnCount(), fittedColumns) : 0;
    const int widest = fontMetrics().averageCharWidth() * 40;
    for (int column = 0; column < columns; ++column) {
        resizeColumnToContents(column);
        if (columnWidth(column) > widest)
            setColumnWidth(column, widest);
    }
}

} // namespace gallery
