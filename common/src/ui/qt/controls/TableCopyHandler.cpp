#include "ui/qt/controls/TableCopyHandler.h"

#include "ui/qt/controls/numbers/appendShortestText_p.h"

#include <QAbstractItemModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QPointer>
#include <QTableView>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <vector>

using namespace zelmar::internal;

namespace zelmar::ui {

namespace {

/// A copy of a QItemSelectionRange that saves repeated lookups through its persistent indexes.
struct Range
{
    explicit Range(const QItemSelectionRange& range)
        : top(range.top())
        , bottom(range.bottom())
        , left(range.left())
        , right(range.right())
        , model(range.model())
        , parent(range.parent())
    {
    }

    int top;
    int bottom;
    int left;
    int right;
    const QAbstractItemModel* model;
    QModelIndex parent;
};

/// Returns the ranges in the order of their top left cells.
std::vector<Range> sortedRanges(const QItemSelection& selection)
{
    std::vector<Range> ranges(selection.cbegin(), selection.cend());
    std::sort(ranges.begin(), ranges.end(), [](const Range& one, const Range& other) {
        return one.top != other.top ? one.top < other.top : one.left < other.left;
    });
    return ranges;
}

/// An iterator over the rows of a selection. It visits the cells of QItemSelection::indexes() in the order of
/// QModelIndex, but collects only one row at a time, because building the list of all cells takes longer than building
/// the text.
class RowWalk
{
public:
    explicit RowWalk(const QItemSelection& selection)
        : m_ranges(sortedRanges(selection))
        , m_nextRange(m_ranges.cbegin())
    {
    }

    /// Advances to the next row that ranges cover. Returns false if there is none.
    bool next()
    {
        leaveFinishedRanges();
        if (m_current.empty() && m_nextRange == m_ranges.cend())
            return false;
        m_row = m_current.empty() ? m_nextRange->top : m_row + 1;
        for (; m_nextRange != m_ranges.cend() && m_nextRange->top == m_row; ++m_nextRange)
            m_current.push_back(&*m_nextRange);
        collectCells();
        return true;
    }

    /// Returns the enabled and selectable cells of the current row, of which there may be none.
    const std::vector<QModelIndex>& cells() const { return m_cells; }

private:
    void leaveFinishedRanges()
    {
        const auto isFinished = [this](const Range* range) { return range->bottom <= m_row; };
        m_current.erase(std::remove_if(m_current.begin(), m_current.end(), isFinished), m_current.end());
    }

    void collectCells()
    {
        m_cells.clear();
        for (const Range* range : m_current)
            collectCells(*range);
        // They are sorted already unless ranges that start in different rows overlap this one.
        if (m_current.size() > 1 && !std::is_sorted(m_cells.cbegin(), m_cells.cend()))
            std::sort(m_cells.begin(), m_cells.end());
    }

    void collectCells(const Range& range)
    {
        const Qt::ItemFlags wanted = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        for (int column = range.left; column <= range.right; ++column) {
            const QModelIndex cell = range.model->index(m_row, column, range.parent);
            if ((range.model->flags(cell) & wanted) == wanted)
                m_cells.push_back(cell);
        }
    }

    std::vector<Range> m_ranges;
    std::vector<Range>::const_iterator m_nextRange; ///< the first range that begins below the current row
    std::vector<const Range*> m_current;            ///< the ranges that cover the current row
    std::vector<QModelIndex> m_cells;
    int m_row = -1;
};

/// Appends the text that QVariant::toString() returns.
void appendText(QString& text, const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        text += *static_cast<const QString*>(value.constData());
        break;
    case QMetaType::Double:
        appendShortestText(text, value.toDouble());
        break;
    case QMetaType::Int:
        text += QString::number(value.toInt());
        break;
    default:
        text += value.toString();
    }
}

/// Returns the text of the selection, or nothing if the model is deleted by its own data().
std::optional<QString> textOf(const QItemSelectionModel& selectionModel)
{
    const QPointer<const QAbstractItemModel> model = selectionModel.model();
    RowWalk rows(selectionModel.selection());
    QString text;
    bool isFirst = true;
    // Compatibility: copied-cells-without-padding
    while (rows.next()) {
        QChar separator = QLatin1Char('\n');
        for (const QModelIndex& cell : rows.cells()) {
            if (!isFirst)
                text += separator;
            isFirst = false;
            separator = QLatin1Char('\t');
            appendText(text, cell.data(Qt::DisplayRole));
            if (!model)
                return {};
        }
    }
    return text;
}

} // namespace

TableCopyHandler::TableCopyHandler(QTableView& view)
    : CopyHandlerAbstract(view)
    , m_view(&view)
{
}

TableCopyHandler::~TableCopyHandler() = default;

void TableCopyHandler::copyToClipboard()
{
    const QItemSelectionModel* selectionModel = m_view->selectionModel();
    // Compatibility: empty-selection-clears-the-clipboard
    const std::optional<QString> text = selectionModel != nullptr ? textOf(*selectionModel) : QString();
    // data() may have deleted the view and this handler, so members are not used from here on.
    if (text)
        QGuiApplication::clipboard()->setText(*text, QClipboard::Clipboard);
}

} // namespace zelmar::ui
