#pragma once

#include <QString>
#include <QUndoCommand>
#include <QVector>

namespace gallery {

class TableModel;

/// A text of a cell.
struct CellText
{
    int row = 0;
    int column = 0;
    QString text;
};

/// An edit of cells of a model, which sets their texts or, when it is undone, sets the former ones. It holds for each
/// cell the one text that the model does not contain.
class EditCommand : public QUndoCommand
{
public:
    /// `cells` must not be empty.
    EditCommand(TableModel& model, QVector<CellText> cells, int state);

    void undo() override;
    void redo() override;

    [[nodiscard]] const CellText& firstCell() const { return m_cells.first(); }
    /// Returns the number of the state of the model after the edit.
    [[nodiscard]] int state() const { return m_state; }

private:
    TableModel& m_model;
    QVector<CellText> m_cells;
    int m_state;
};

} // namespace gallery
