#pragma once

#include "TextFile.h"

#include <cstring>
#include <deque>
#include <string>
#include <string_view>

namespace gallery {

/// The texts of a file: UTF-8, cell after cell, and an index, which takes 8 bytes for a cell and for a row. Rows may
/// differ in length; the first one is the header. Fill an object once; a const one may be used on any thread.
class TableSource
{
public:
    /// Creates a table without rows. The texts of the cells overwrite `buffer`. Texts and index may take
    /// `memoryLimit` bytes. `separator` is that of the file.
    explicit TableSource(std::string buffer = {}, char separator = ',', quint64 memoryLimit = loadMemoryLimit());
    [[nodiscard]] std::string_view buffer() const { return m_bytes; }
    [[nodiscard]] char separator() const { return m_separator; }

    /// Appends a text to the current cell. It may be a part of the buffer that nothing has overwritten yet.
    void append(std::string_view text)
    {
        if (m_size + text.size() > m_bytes.size())
            m_bytes.resize(m_size + text.size());
        std::memmove(&m_bytes[m_size], text.data(), text.size());
        m_size += text.size();
    }
    /// Ends the current cell. Throws TableError if the table cannot be stored.
    void endCell();
    void endRow();

    [[nodiscard]] int rowCount() const { return int(m_firstCells.size() - 1); }
    /// Returns the number of cells of the longest row.
    [[nodiscard]] int columnCount() const { return m_columnCount; }
    /// Returns the text of a cell, or an empty text if the row has no such cell.
    [[nodiscard]] QString text(int row, int column) const;

private:
    std::string m_bytes;
    size_t m_size = 0; ///< the number of bytes that are in use
    // Deques, because a growing vector takes the memory of the old and the new block.
    std::deque<quint64> m_cellEnds;
    std::deque<quint64> m_firstCells{0}; ///< of all rows, and of the next one
    int m_columnCount = 0;
    char m_separator;
    quint64 m_memoryLimit;
};

} // namespace gallery
