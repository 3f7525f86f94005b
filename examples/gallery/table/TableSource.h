#pragma once

#include "TextFile.h"

#include <QString>
#include <QVector>

#include <memory>
#include <vector>

namespace gallery {

enum class ColumnKind { Text, Number };

/// How one cell is written within its file. Immutable, so usable from any thread.
class CellSyntax
{
public:
    virtual ~CellSyntax() = default;

    /// The end of the cell that starts at \a begin; always found, at the latest at \a end.
    virtual const char* cellEnd(const char* begin, const char* end) const = 0;
    /// What the cell says, without quotes and escapes.
    [[nodiscard]] virtual QString unescaped(const QString& raw) const = 0;
    /// The shortest form that unescaped() and other programs read as \a text.
    [[nodiscard]] virtual QString escaped(const QString& text) const = 0;
    /// What stands between two cells of a delimited table; 0 in a format without such lines.
    [[nodiscard]] virtual char separator() const = 0;
};

/// Where the cells of a file start. Takes 4 bytes for a cell and 16 for a row.
/// All offsets are bytes from the start of the file; rows and columns count from 0.
class TableIndex
{
public:
    /// \a memoryLimit is the number of bytes the index may take.
    explicit TableIndex(quint64 memoryLimit = 0)
        : m_memoryLimit(memoryLimit)
    {
    }

    /// Building. False means that error() says why the table cannot be held. Sizes are those of the cells.
    bool addHeaderCell(quint64 offset, quint64 size);
    bool beginRow(quint64 offset);
    /// Sets a cell of the row begun last; columns left out before it stay empty.
    bool setCell(quint64 column, quint64 offset, quint64 size);
    [[nodiscard]] bool hasCellInLastRow(quint64 column) const;
    /// Call once, with the offset past the last row.
    bool finish(quint64 endOffset);
    [[nodiscard]] QString error() const { return m_error; }

    [[nodiscard]] int rowCount() const { return m_columnCount == 0 ? 0 : int(m_rows.size() - 1); }
    [[nodiscard]] int columnCount() const { return m_columnCount; }
    [[nodiscard]] int headerCount() const { return int(m_header.size()); }
    [[nodiscard]] quint64 headerOffset(int column) const { return m_header[size_t(column)]; }
    /// Valid up to and including rowCount(), where the last row ends.
    [[nodiscard]] quint64 rowOffset(int row) const { return m_rows[size_t(row)].offset; }
    /// How many leading columns the file has cells for in this row.
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
    std::vector<quint32> m_cells; ///< offsets from the start of the row, row after row
    quint64 m_widest = 0;
    int m_columnCount = 0;
    QString m_error;
};

/// A table as its file has it. Immutable, so usable from any thread.
class TableSource
{
public:
    TableSource(TextBytes text, std::unique_ptr<const CellSyntax> syntax, TableIndex index);

    [[nodiscard]] const TextBytes& text() const { return m_text; }
    [[nodiscard]] const CellSyntax& syntax() const { return *m_syntax; }
    [[nodiscard]] const TableIndex& index() const { return m_index; }

    /// Empty for a column that only the rows below have.
    [[nodiscard]] QString headerText(int column) const;
    /// Empty where the row is too short.
    [[nodiscard]] QString cellText(int row, int column) const;
    /// The cell's own bytes, with quotes. The index must have the cell.
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
