#include "TableSource.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace gallery {

namespace {

// The size of a QString is an int, and quoting may double the size of a cell.
constexpr quint64 LongestCell = 1U << 28;
constexpr int MaxCount = std::numeric_limits<int>::max();
constexpr int SampledRows = 1000;

} // namespace

quint64 TableIndex::bytesUsed() const
{
    return m_header.capacity() * sizeof(quint64) + m_rows.capacity() * sizeof(Row)
           + m_cells.capacity() * sizeof(quint32);
}

bool TableIndex::fail(const QString& error)
{
    m_error = error;
    return false;
}

template <typename Vector>
bool TableIndex::grow(Vector& vector, quint64 size, typename Vector::value_type filler)
{
    if (size > vector.capacity()) {
        // The old and the new block exist at the same time while the vector grows.
        const quint64 capacity = std::max<quint64>(size, vector.capacity() * 2);
        if (bytesUsed() + capacity * sizeof(filler) > m_memoryLimit)
            return fail(tooBigText());
        vector.reserve(size_t(capacity));
    }
    vector.resize(size_t(size), filler);
    return true;
}

bool TableIndex::addHeaderCell(quint64 offset, quint64 size)
{
    if (size > LongestCell)
        return fail(QCoreApplication::translate("gallery::TableIndex", "A column name is too long."));
    m_widest = std::max<quint64>(m_widest, m_header.size() + 1);
    return grow(m_header, m_header.size() + 1, offset);
}

bool TableIndex::beginRow(quint64 offset)
{
    return grow(m_rows, m_rows.size() + 1, Row{offset, m_cells.size()});
}

bool TableIndex::setCell(quint64 column, quint64 offset, quint64 size)
{
    const Row& row = m_rows.back();
    if (offset - row.offset >= NoCell || size > LongestCell)
        return fail(QCoreApplication::translate("gallery::TableIndex", "Row %1 is too long.").arg(m_rows.size()));
    const quint64 position = row.firstCell + column;
    if (position >= m_cells.size() && !grow(m_cells, position + 1, NoCell))
        return false;
    m_cells[size_t(position)] = quint32(offset - row.offset);
    m_widest = std::max(m_widest, column + 1);
    return true;
}

bool TableIndex::hasCellInLastRow(quint64 column) const
{
    const quint64 position = m_rows.back().firstCell + column;
    return position < m_cells.size() && m_cells[size_t(position)] != NoCell;
}

bool TableIndex::finish(quint64 endOffset)
{
    if (m_rows.size() >= size_t(MaxCount) || m_widest > quint64(MaxCount))
        return fail(tooBigText());
    if (!beginRow(endOffset))
        return false;
    m_columnCount = int(m_widest);
    m_header.shrink_to_fit();
    m_rows.shrink_to_fit();
    m_cells.shrink_to_fit();
    return true;
}

int TableIndex::cellCount(int row) const
{
    return int(m_rows[size_t(row) + 1].firstCell - m_rows[size_t(row)].firstCell);
}

bool TableIndex::hasCell(int row, int column) const
{
    return column < cellCount(row) && m_cells[size_t(m_rows[size_t(row)].firstCell) + size_t(column)] != NoCell;
}

quint64 TableIndex::cellOffset(int row, int column) const
{
    const Row& start = m_rows[size_t(row)];
    return start.offset + m_cells[size_t(start.firstCell) + size_t(column)];
}

TableSource::TableSource(TextBytes text, std::unique_ptr<const CellSyntax> syntax, TableIndex index)
    : m_text(std::move(text))
    , m_syntax(std::move(syntax))
    , m_index(std::move(index))
{
    findColumnKinds();
}

QString TableSource::headerText(int column) const
{
    return column < m_index.headerCount() ? textAt(m_index.headerOffset(column)) : QString();
}

QString TableSource::cellText(int row, int column) const
{
    return m_index.hasCell(row, column) ? textAt(m_index.cellOffset(row, column)) : QString();
}

ByteRange TableSource::rawCell(int row, int column) const
{
    return rawAt(m_index.cellOffset(row, column));
}

ByteRange TableSource::rawAt(quint64 offset) const
{
    const ByteRange all = m_text.all();
    const char* begin = all.begin + offset;
    return {begin, m_syntax->cellEnd(begin, all.end)};
}

QString TableSource::textAt(quint64 offset) const
{
    return m_syntax->unescaped(m_text.decoded(rawAt(offset)));
}

/// Reads only existing cells, because a table may be much wider than most of its rows.
void TableSource::findColumnKinds()
{
    std::vector<bool> hasNumber(size_t(m_index.columnCount()));
    std::vector<bool> hasText(size_t(m_index.columnCount()));
    const int rows = m_index.rowCount();
    const int samples = std::min(rows, SampledRows);
    for (int sample = 0; sample < samples; ++sample) {
        const int row = int(qint64(sample) * rows / samples);
        for (int column = 0; column < m_index.cellCount(row); ++column) {
            const QString text = hasText[size_t(column)] ? QString() : cellText(row, column);
            if (text.isEmpty())
                continue;
            bool isNumber = false;
            text.toDouble(&isNumber);
            (isNumber ? hasNumber : hasText)[size_t(column)] = true;
        }
    }
    m_kinds.resize(size_t(m_index.columnCount()), ColumnKind::Text);
    for (size_t column = 0; column < m_kinds.size(); ++column) {
        if (hasNumber[column] && !hasText[column])
            m_kinds[column] = ColumnKind::Number;
    }
}

} // namespace gallery
