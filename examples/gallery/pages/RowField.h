#pragma once

#include "ui/qt/controls/IntegralSpinBox.h"

namespace gallery {

class TableView;

/// A number field that shows the number of the current row of a table, from 1, and moves to another row by steps. A
/// step moves to the next row, and a step by page, for example with the Page Up key, by as many rows as are visible.
class RowField : public zelmar::ui::IntegralSpinBox
{
public:
    /// The view must have its model already.
    explicit RowField(TableView& view);
    ~RowField() override;

    void stepBy(int steps) override;

private:
    void followModel();

    TableView& m_view;
    int m_rows = 1; ///< the number of rows by which a running step moves
};

} // namespace gallery
