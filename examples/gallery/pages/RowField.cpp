#include "RowField.h"

#include "TableView.h"

#include <QItemSelectionModel>

#include <cstdlib>

namespace gallery {

RowField::RowField(TableView& view)
    : IntegralSpinBox(nullptr)
    , m_view(view)
{
    signalIncrement.connect([this] { setValue(value() + m_rows); });
    signalDecrement.connect([this] { setValue(value() - m_rows); });
    connect(this, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int row) { m_view.goTo(m_view.model()->index(row - 1, qMax(0, m_view.currentIndex().column()))); });
    connect(m_view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { setValue(current.row() + 1); });
    connect(m_view.model(), &QAbstractItemModel::modelReset, this, [this] { followModel(); });
    followModel();
}

RowField::~RowField() = default;

void RowField::followModel()
{
    const int rows = m_view.model()->rowCount();
    setRange(qMin(1, rows), rows);
    setEnabled(rows > 0);
}

void RowField::stepBy(int steps)
{
    interpretText(); // A step begins at the number that is shown.
    m_rows = std::abs(steps) == 1 ? 1 : m_view.rowsOnPage();
    IntegralSpinBox::stepBy(steps);
}

} // namespace gallery
