#pragma once

#include <QItemSelectionModel>
#include <QString>
#include <QTableView>

#include <algorithm>

/// Returns the expected text of a copy of the selected cells, computed in the simplest way without regard to speed.
inline QString plainTableText(const QTableView& view)
{
    QModelIndexList cells = view.selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QString text;
    QModelIndex previous;
    for (const QModelIndex& cell : qAsConst(cells)) {
        if (previous.isValid())
            text += QLatin1Char(previous.row() != cell.row() ? '\n' : '\t');
        text += cell.model()->data(cell, Qt::DisplayRole).toString();
        previous = cell;
    }
    return text;
}
