#pragma once

#include <QTableView>

namespace zelmar::ui {
class TableCopyHandler;
} // namespace zelmar::ui

namespace gallery {

class TableDelegate;
struct CellStep;

/// A table view for tables of any length: the time for showing a new table does not depend on the number of its rows.
/// The Copy keys and a context menu copy its selected cells.
class TableView : public QTableView
{
    Q_OBJECT

public:
    TableView();
    ~TableView() override;

    /// Sets the delegate of all cells. The keys that end the editing of a cell lead to the next one.
    void setCellDelegate(TableDelegate& delegate);

    /// Returns whether the view can show a table of this size. It counts the pixels of all rows, and of all columns, in
    /// an int.
    [[nodiscard]] bool canShow(int rows, int columns) const;

    /// Adjusts the widths of the first columns to the texts of their first rows, up to a limit.
    void fitColumns();

    /// Makes a cell the current and only selected one, whichever keys are held down.
    void goTo(const QModelIndex& cell);

    /// Takes over the text of an editor that is open, and closes it. Returns false and leaves it open if the text is
    /// not accepted.
    bool finishEditing();

    /// Returns the number of rows that are visible at once, at least 1.
    [[nodiscard]] int rowsOnPage() const;

    [[nodiscard]] zelmar::ui::TableCopyHandler& copyHandler() const { return *m_copyHandler; }

private:
    void addContextMenu();
    void goOn(const CellStep& step);

    zelmar::ui::TableCopyHandler* m_copyHandler;
    TableDelegate* m_delegate = nullptr; ///< set by the constructor
};

} // namespace gallery
