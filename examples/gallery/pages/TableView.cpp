#include "TableView.h"

#include <QHeaderView>

#include <limits>

namespace gallery {

namespace {

// Enough for what a screen shows; all of a wide table would take minutes.
const int fittedColumns = 100;
const int fittedRows = 100;

bool fits(const QHeaderView& header, int sections)
{
    return sections <= std::numeric_limits<int>::max() / header.defaultSectionSize();
}

} // namespace

TableView::TableView()
{
    // Tab goes on to the next widget, as nobody would get out of the table by keyboard otherwise.
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    horizontalHeader()->setResizeContentsPrecision(fittedRows);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    // Row numbers have the width of the last one, instead of a look at each.
    verticalHeader()->setResizeContentsPrecision(0);
}

TableView::~TableView() = default;

bool TableView::canShow(int rows, int columns) const
{
    return fits(*verticalHeader(), rows) && fits(*horizontalHeader(), columns);
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
