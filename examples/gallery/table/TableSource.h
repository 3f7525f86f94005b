#pragma once

#include "TextFile.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace gallery {

/// The texts of a file: UTF-8, cell after cell, and their ends. The ends take 4 bytes for a cell and 16 for a row. Rows
/// may differ in length; the first one is the header. Fill an object once; a const one may be used on any thread.
class TableSource
{
public:
    /// Creates a table without rows, which may take \a memoryLimit bytes. The texts of the cells overwrite \a buffer.
    explicit TableSource(std::string buffer = {}, quint64 memoryLimit = loadMemoryLimit());
    [[nodiscard]] std::string_view buffer() const { return m_bytes; }

    // Functions that fill the table. They throw TableError if the table cannot be stored.

    /// Appends a text to the current cell. It may be a part of the buffer that nothing has overwritten yet.
    void append(std::string_view text)
    {
        if (m_size + text.size() > m_bytes.size())
            m_bytes.resize(m_size + text.size());
        std::memmove(&m_bytes[m_size], text.data(), text.size());
        m_size += text.size();
    }
    void endCell();
    void endRow();

    /// Sets the separator with which the table is saved as CSV.
    void setSeparator(char separator) { m_separator = separator; }
    [[nodiscard]] char separator() const { return m_separator; }

    [[nodiscard]] int rowCount() const { return int(m_rows.size() - 1); }
    /// Returns the number of cells of the longest row.
    [[nodiscard]] int columnCount() const { return m_columnCount; }
    [[nodiscard]] int cellCount(int row) const;
    /// Returns the text of a cell, or an empty text if there is no such cell.
    [[nodiscard]] QString text(int row, int column) const;

private:
    struct Row
    {
        quint64 start;
        quint64 firstCell;
    };

    std::string m_bytes;
    size_t m_size = 0;               ///< the number of bytes that are in use
    std::vector<Row> m_rows{Row{}};  ///< the starts of all rows, and of the next one
    std::vector<quint32> m_cellEnds; ///< counted from the start of the row
    int m_columnCount = 0;
    char m_separator = ',';
    quint64 m_memoryLimit;
};

} // namespace gallery
