#include "TableSource.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace gallery {

namespace {

// The size of a QString is an int, and quoting may double the size of a cell.
constexpr quint64 LongestCell = 1U << 28;
constexpr quint64 MaxCount = std::numeric_limits<int>::max();

} // namespace

TableSource::TableSource(std::string buffer, quint64 memoryLimit)
    : m_bytes(std::move(buffer))
    , m_memoryLimit(memoryLimit)
{
}

void TableSource::endCell()
{
    const Row& row = m_rows.back();
    const quint64 begin = m_cellEnds.size() > row.firstCell ? m_cellEnds.back() : 0;
    const quint64 end = m_size - row.start;
    if (end > std::numeric_limits<quint32>::max() || end - begin > LongestCell)
        throw TableError{QCoreApplication::translate("gallery::TableSource", "Row %1 is too long.").arg(rowCount())};
    // While a vector grows there are the old block and one of the double size.
    const quint64 index = 3 * (m_rows.size() * sizeof(Row) + m_cellEnds.size() * sizeof(quint32));
    if (m_bytes.size() + index > m_memoryLimit || m_rows.size() > MaxCount
        || m_cellEnds.size() - row.firstCell > MaxCount)
        throw TableError{tooBigText()};
    m_cellEnds.push_back(quint32(end));
}

void TableSource::endRow()
{
    m_columnCount = std::max(m_columnCount, int(m_cellEnds.size() - m_rows.back().firstCell));
    m_rows.push_back({m_size, m_cellEnds.size()});
}

int TableSource::cellCount(int row) const
{
    if (row >= rowCount())
        return 0;
    return int(m_rows[size_t(row) + 1].firstCell - m_rows[size_t(row)].firstCell);
}

QString TableSource::text(int row, int column) const
{
    if (column >= cellCount(row))
        return {};
    const Row& start = m_rows[size_t(row)];
    const quint32* const ends = &m_cellEnds[size_t(start.firstCell)];
    const quint32 begin = column > 0 ? ends[column - 1] : 0;
    return decodeUtf8({m_bytes.data() + start.start + begin, ends[column] - begin});
}

} // namespace gallery
