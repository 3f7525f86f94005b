#pragma once

#include <QItemSelectionModel>
#include <QString>
#include <QTableView>

#include <algorithm>

/// The text of a view's selected cells as one writes it without a thought for time: what a copy of them has to be.
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
