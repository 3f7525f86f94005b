#include "EditCommand.h"

#include "TableModel.h"

#include <utility>

namespace gallery {

EditCommand::EditCommand(TableModel& model, QVector<CellText> cells, int state)
    : m_model(model)
    , m_cells(std::move(cells))
    , m_state(state)
{
    setText(m_cells.size() == 1 ? TableModel::tr("edit in row %1").arg(firstCell().row + 1)
                                : TableModel::tr("clearing of %1 cells").arg(m_cells.size()));
}

void EditCommand::undo()
{
    m_model.swapTexts(m_cells);
}

void EditCommand::redo()
{
    m_model.swapTexts(m_cells);
}

} // namespace gallery
