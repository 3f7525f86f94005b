#pragma once

#include <QTableView>

namespace zelmar::ui {
class TableCopyHandler;
} // namespace zelmar::ui

namespace gallery {

/// A table view for tables of any length: what it does with a new table does not depend on the number of its
/// rows. Its selected cells are copied with the Copy keys, and from a context menu.
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

    [[nodiscard]] zelmar::ui::TableCopyHandler& copyHandler() const { return *m_copyHandler; }

private:
    void addContextMenu();

    zelmar::ui::TableCopyHandler* m_copyHandler;
};

} // namespace gallery
