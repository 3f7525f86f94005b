#pragma once

#include "common_ui_qt_export.h"

#include "ui/qt/controls/CopyHandlerAbstract.h"

class QTableView;

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Gives a table view the platform's Copy keys: they put the selected cells on the clipboard as text that spreadsheets
/// and editors take, with a tab between the cells of a row and a line feed between rows. A table view alone copies
/// only the current cell, and only if it is a text.
///
///     new zelmar::ui::TableCopyHandler(*view); // belongs to the view, and dies with it
///
/// or, with an action for the context menu as well:
///
///     auto* handler = new zelmar::ui::TableCopyHandler(*view);
///     auto* action = new QAction(tr("&Copy"), view);
///     connect(action, SIGNAL(triggered()), handler, SLOT(copyToClipboard()));
///     view->addAction(action);
///     view->setContextMenuPolicy(Qt::ActionsContextMenu);
///
/// What is copied is the Qt::DisplayRole of the cells in QItemSelectionModel::selectedIndexes(), as
/// QVariant::toString() has it, in the order of the model: row by row, and by column within a row, in whatever order
/// they were selected.
///
/// Known traps:
/// - Only selected cells are copied and nothing stands for the others: with A1, C1 and B2 selected, the text has two
///   fields in its first line and one in its second, and B2 is pasted below A1. No header, no line feed at the end.
/// - Tabs and line feeds within a cell are copied as they are, without quotes: whoever pastes sees more cells.
/// - The order is the model's also where the user has moved rows or columns, and a hidden column inside a selected
///   range is selected, and so copied. Cells that are disabled or not selectable are not, even where they look it.
/// - It is DisplayRole's text, not the delegate's: numbers have "." in any locale, and all their digits.
/// - Nothing selected puts an empty text on the clipboard, in place of what was there. So does a view without a
///   selection model, which is one that had no model yet or whose selection model was deleted.
/// - While a cell is edited the editor has the keyboard, and copies its own text.
///
/// The time grows with the number of selected cells and ranges: 1,000,000 doubles take a tenth of a second, and the GUI
/// waits meanwhile. The text takes two bytes a letter, and little is needed beside it.
///
/// GUI thread only.
class COMMON_UI_QT_EXPORT TableCopyHandler : public CopyHandlerAbstract
{
    Q_OBJECT

public:
    /// `view` becomes the parent. It may get other models and selection models afterwards: it is asked for them when
    /// something is copied.
    explicit TableCopyHandler(QTableView& view);
    ~TableCopyHandler() override;

public Q_SLOTS:
    /// Puts the selected cells on the clipboard (not the mouse selection of X11).
    ///
    /// The model's data() and slots of the clipboard may delete the view. Where data() deletes the model, the clipboard
    /// stays as it is.
    void copyToClipboard() override;

private:
    QTableView* m_view;
};

} // namespace ui
} // namespace zelmar
