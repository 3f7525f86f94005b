#pragma once

#include <QStyledItemDelegate>

class QKeyEvent;

namespace gallery {

/// The way from a cell to the next one.
struct CellStep
{
    int rows = 0;
    int columns = 0;
};

/// Returns where a key that ends editing leads to: Return to the next row, and Tab to the next column, or back with
/// Shift. Other keys lead nowhere.
CellStep stepOfKey(const QKeyEvent& key);

/// A delegate that draws table cells. A text of megabytes takes no longer than the part that fits on a screen.
class TableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TableDelegate(QObject* parent);
    ~TableDelegate() override;

    /// Creates an editor whose accessible name is the name of the column.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    [[nodiscard]] QString displayText(const QVariant& value, const QLocale& locale) const override;

Q_SIGNALS:
    /// Emitted when a key has ended the editing of a cell.
    void cellLeft(gallery::CellStep step);

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    /// Takes the text of the editor over, and closes it.
    void leaveCell(QWidget* editor, CellStep step);
};

} // namespace gallery
