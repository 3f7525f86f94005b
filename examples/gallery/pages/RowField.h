#pragma once

#include "ui/qt/controls/IntegralSpinBox.h"

namespace gallery {

class TableView;

/// A number field with the number of the current row of a table, from 1, which leads to other rows. A step leads to the
/// next row, and a step by page, for example with the Page Up key, as many rows further as are visible.
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
    int m_rows = 1; ///< by which the running step leads further
};

} // namespace gallery
