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

    /// Returns whether the text of an editor can be stored. Emits textRefused() if not.
    [[nodiscard]] bool accepts(const QWidget& editor) const;

Q_SIGNALS:
    /// Emitted when the text of an editor was stored.
    void textTaken() const;
    /// Emitted when the text of an editor cannot be stored.
    void textRefused(const QString& text) const;
    /// Emitted when a key has ended the editing of a cell.
    void cellLeft(gallery::CellStep step);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    /// Returns the text of an editor if it cannot be stored, and otherwise a null text.
    [[nodiscard]] virtual QString refusedText(const QWidget& editor) const;
    /// Takes the text of the editor over, closes it, and leads to another cell.
    void leaveCell(QWidget* editor, CellStep step);
};

} // namespace gallery
