#pragma once

#include "TextFile.h"

#include <QString>
#include <QVector>

#include <memory>
#include <vector>

namespace gallery {

enum class ColumnKind { Text, Number };

/// The syntax of a cell within its file. The object is immutable and may be used on any thread.
class CellSyntax
{
public:
    virtual ~CellSyntax() = default;

    /// Returns the end of the cell that starts at \a begin, which is \a end at the latest.
    virtual const char* cellEnd(const char* begin, const char* end) const = 0;
    /// Returns the text of a cell without quotes and escapes.
    [[nodiscard]] virtual QString unescaped(const QString& raw) const = 0;
    /// Returns the shortest form that unescaped() and other programs read as \a text.
    [[nodiscard]] virtual QString escaped(const QString& text) const = 0;
    /// Returns the separator of the cells of a delimited table, or 0 for other formats.
    [[nodiscard]] virtual char separator() const = 0;
};

/// An index of the positions of the cells in a file. It takes 4 bytes for a cell and 16 for a row.
/// All offsets are bytes from the start of the file; rows and columns are 0-based.
class TableIndex
{
public:
    /// Creates an index that may take \a memoryLimit bytes.
    explicit TableIndex(quint64 memoryLimit = 0)
        : m_memoryLimit(memoryLimit)
    {
    }

    // Functions that build the index. They return false if the table cannot be stored, for which error() gives the
    // reason. Sizes are those of the cells in bytes.
    bool addHeaderCell(quint64 offset, quint64 size);
    bool beginRow(quint64 offset);
    /// Sets a cell of the last row. Skipped columns before it stay empty.
    bool setCell(quint64 column, quint64 offset, quint64 size);
    [[nodiscard]] bool hasCellInLastRow(quint64 column) const;
    /// Completes the index. Call it once, with the offset past the last row.
    bool finish(quint64 endOffset);
    [[nodiscard]] QString error() const { return m_error; }

    [[nodiscard]] int rowCount() const { return m_columnCount == 0 ? 0 : int(m_rows.size() - 1); }
    [[nodiscard]] int columnCount() const { return m_columnCount; }
    [[nodiscard]] int headerCount() const { return int(m_header.size()); }
    [[nodiscard]] quint64 headerOffset(int column) const { return m_header[size_t(column)]; }
    /// Returns the offset of a row. For rowCount() it returns the offset past the last row.
    [[nodiscard]] quint64 rowOffset(int row) const { return m_rows[size_t(row)].offset; }
    /// Returns the number of leading columns for which the file has cells in this row.
    [[nodiscard]] int cellCount(int row) const;
    [[nodiscard]] bool hasCell(int row, int column) const;
    [[nodiscard]] quint64 cellOffset(int row, int column) const;

private:
    struct Row
    {
        quint64 offset;
        quint64 firstCell;
    };

    static constexpr quint32 NoCell = 0xFFFFFFFFU;

    template <typename Vector>
    bool grow(Vector& vector, quint64 size, typename Vector::value_type filler);
    bool fail(const QString& error);
    [[nodiscard]] quint64 bytesUsed() const;

    quint64 m_memoryLimit;
    std::vector<quint64> m_header;
    std::vector<Row> m_rows;
    std::vector<quint32> m_cells; ///< offsets from the start of the row, of all rows in order
    quint64 m_widest = 0;
    int m_columnCount = 0;
    QString m_error;
};

/// A table as its file contains it. The object is immutable and may be used on any thread.
class TableSource
{
public:
    TableSource(TextBytes text, std::unique_ptr<const CellSyntax> syntax, TableIndex index);

    [[nodiscard]] const TextBytes& text() const { return m_text; }
    [[nodiscard]] const CellSyntax& syntax() const { return *m_syntax; }
    [[nodiscard]] const TableIndex& index() const { return m_index; }

    /// Returns the text of the header, or an empty text for a column that only the rows have.
    [[nodiscard]] QString headerText(int column) const;
    /// Returns the text of a cell, or an empty text if the row is too short.
    [[nodiscard]] QString cellText(int row, int column) const;
    /// Returns the bytes of a cell with its quotes. The index must contain the cell.
    [[nodiscard]] ByteRange rawCell(int row, int column) const;
    [[nodiscard]] ColumnKind columnKind(int column) const { return m_kinds[size_t(column)]; }

private:
    [[nodiscard]] ByteRange rawAt(quint64 offset) const;
    [[nodiscard]] QString textAt(quint64 offset) const;
    void findColumnKinds();

    TextBytes m_text;
    std::unique_ptr<const CellSyntax> m_syntax;
    TableIndex m_index;
    std::vector<ColumnKind> m_kinds;
};

} // namespace gallery
