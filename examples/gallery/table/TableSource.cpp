#include "TableSource.h"

#include <algorithm>
#include <limits>

namespace gallery {

namespace {

// The size of a QString is an int, and quoting may double the size of a cell.
constexpr quint64 LongestCell = 1U << 28;
constexpr quint64 MaxCount = std::numeric_limits<int>::max();

} // namespace

TableSource::TableSource(std::string buffer, char separator, quint64 memoryLimit)
    : m_bytes(std::move(buffer))
    , m_separator(separator)
    , m_memoryLimit(memoryLimit)
{
}

void TableSource::endCell()
{
    const quint64 start = m_cellEnds.empty() ? 0 : m_cellEnds.back();
    if (m_size - start > LongestCell)
        throw TableError{TableText::tr("Row %1 is too long.").arg(rowCount())};
    const quint64 index = (m_cellEnds.size() + m_firstCells.size()) * sizeof(quint64);
    const quint64 longest = std::max<quint64>(m_firstCells.size(), m_cellEnds.size() - m_firstCells.back());
    if (m_bytes.size() + index > m_memoryLimit || longest > MaxCount)
        throw TableError{tooBigText()};
    m_cellEnds.push_back(m_size);
}

void TableSource::endRow()
{
    m_columnCount = std::max(m_columnCount, int(m_cellEnds.size() - m_firstCells.back()));
    m_firstCells.push_back(m_cellEnds.size());
}

QString TableSource::text(int row, int column) const
{
    const quint64 cell = m_firstCells[size_t(row)] + quint64(column);
    if (cell >= m_firstCells[size_t(row) + 1])
        return {};
    const quint64 start = cell == 0 ? 0 : m_cellEnds[size_t(cell) - 1];
    return decodeUtf8({m_bytes.data() + start, size_t(m_cellEnds[size_t(cell)] - start)});
}

} // namespace gallery
