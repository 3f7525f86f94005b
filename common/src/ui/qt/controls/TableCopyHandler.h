#pragma once

#include "common_ui_qt_export.h"

#include "ui/qt/controls/CopyHandlerAbstract.h"

class QTableView;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// A handler of the platform's Copy key sequence for a table view. It copies the selected cells to the clipboard as
/// text that spreadsheets and editors accept: a tab separates the cells of a row, and a line feed separates rows.
/// Without the handler a table view copies only the current cell, and only if its value is a string.
///
///     new zelmar::ui::TableCopyHandler(*view); // the view owns the handler and deletes it
///
/// or, with an additional action in the context menu:
///
///     auto* handler = new zelmar::ui::TableCopyHandler(*view);
///     auto* action = new QAction(tr("&Copy"), view);
///     connect(action, SIGNAL(triggered()), handler, SLOT(copyToClipboard()));
///     view->addAction(action);
///     view->setContextMenuPolicy(Qt::ActionsContextMenu);
///
/// The handler copies the Qt::DisplayRole of the cells in QItemSelectionModel::selectedIndexes(), converted by
/// QVariant::toString(). The cells are in the order of the model, by row and then by column, regardless of the order in
/// which they were selected. There is no header and no line feed after the last row.
///
/// Known traps:
/// - Cells that are not selected leave no empty field. If A1, C1 and B2 are selected, the first line has two fields and
///   the second has one, and B2 is pasted below A1.
///   Kept for existing callers, see docs/compatibility.md: copied-cells-without-padding.
/// - If nothing is selected, an empty text replaces the content of the clipboard. The same happens if the view has no
///   selection model, because it never had a model or because the selection model was deleted.
///   Kept for existing callers, see docs/compatibility.md: empty-selection-clears-the-clipboard.
/// - Tabs and line feeds within a cell are copied unquoted, so pasting splits the cell.
/// - The order is that of the model even if the user has moved rows or columns.
/// - A hidden column within a selected range is selected and therefore copied. Disabled and unselectable cells are not
///   copied, even if they look selected.
/// - The text comes from the model and not from the delegate: numbers have "." as decimal point in every locale and are
///   written with all their digits.
/// - While a cell is being edited, the editor has the keyboard focus and copies its own text.
///
/// The duration is proportional to the number of selected cells and ranges: 1,000,000 doubles take a tenth of a second,
/// during which the GUI is blocked. The text needs two bytes per code unit, and hardly any other memory is needed.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT TableCopyHandler : public CopyHandlerAbstract
{
    Q_OBJECT

public:
    /// Installs the handler on `view`, which becomes its parent. The view may be given other models and selection
    /// models later, because the handler looks them up for each copy.
    explicit TableCopyHandler(QTableView& view);
    ~TableCopyHandler() override;

public Q_SLOTS:
    /// Copies the selected cells to the clipboard, but not to the mouse selection of X11.
    ///
    /// The model's data() and slots that are connected to the clipboard may delete the view. If data() deletes the
    /// model, the clipboard is not changed.
    void copyToClipboard() override;

private:
    QTableView* m_view;
};

} // namespace ui
} // namespace zelmar
