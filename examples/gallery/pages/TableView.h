#pragma once

#include <QTableView>

namespace gallery {

/// A table view for tables of any length: what it does with a new table does not depend on the number of its
/// rows.
class TableView : public QTableView
{
    Q_OBJECT

public:
    TableView();
    ~TableView() override;

    /// Whether a table of this size fits: the view counts the pixels of all its rows, and of all its columns,
    /// in an int.
    [[nodiscard]] bool canShow(int rows, int columns) const;

    /// Makes the first columns wide enough for what their first rows say, within reason.
    void fitColumns();
};

} // namespace gallery
